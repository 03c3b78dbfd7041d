// The control file (.inp) of a Fourier calculation: the directives sintrel
// runs on. The reader fills the control data (control/control_data.h) and the
// writer writes them back; the two are not mirror images (see the writer).
// Nothing here shows anything: a failure is left in the error pair, and the
// caller (the program's shell, or sintrel) tells the user.
#pragma once

#include <iosfwd>
#include <string>

// How the last read ended. A directive with wrong arguments stops the
// reading; an input error of the file is the other failure. The program
// shows a box only for the input error, keeping the other one silent.
enum class control_failure { none, directive, input };

inline control_failure err_control = control_failure::none;
inline std::string err_control_mess;  // the line of a failed directive, or "Reading instructions on Input File"

// Clears the control data and the j* markers, then takes the directives up to
// "end" or the end of the stream. The atoms read before a failure are kept.
void read_control_file(std::istream& in);

// The control data as the lines of a control file.
void write_control_file(std::ostream& out);
