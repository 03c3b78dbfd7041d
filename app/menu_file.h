// File menu of the shell and the loading of a file: what a name means, and
// the chains that bring a control file or a map into memory.
#pragma once

#include <string>

// File names are char(150): cut at 150, trailing blanks dropped.
std::string file_name(const std::string& s);

// The name up to and including its last "." (nothing when it has none).
std::string through_last_dot(const std::string& name);

// Splits codefil into directory, stem and extension; sets filedir, filinp,
// filbin or filasc, input_file and kerror, with an error box for a missing
// file or an unknown extension.
void file_validation();

// The .asc "conversion": converts nothing. It opens filinp on unit 21, which
// fails with a box and kerror for any blank name.
void asc2bin();

// Makes the map of the current file ready: runs Sintrel first for a control
// file, then loads the .bin of the same stem. Sets kerror.
void prep_plotting();

// File, New: the input data dialog, then the first save of the control file.
void menu_f_new();

// File, Open: the selector, the validation of the name and the load chain.
void menu_f_open();

// File, Save.
void menu_f_save();
