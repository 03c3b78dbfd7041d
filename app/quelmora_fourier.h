// The control file (.inp) of a Fourier calculation: the directives Sintrel
// runs on. The program reads it into the shared state and writes the shared
// state back; the two are not mirror images (see the writer).
#pragma once

// Reads the control file open on unit 21 into the shared state: clears the
// control data and the j* markers, then takes the directives up to "end" or
// the end of the file. A directive with wrong arguments sets kerror and stops
// the reading without a box; an input error of the file shows "Reading
// instructions on Input File". The atoms read so far are kept either way.
void lee_datos();

// Asks for the name of the control file (and of the reflection file when
// there is none), then writes the shared state to it. A cancel sets kcancel
// and clears kedit; a file that cannot be made shows "Cannot open the input
// file" and sets kerror.
void fourier_filesave();
