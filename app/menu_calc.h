// Calculations menu of the shell: the run of the external Fourier program
// Sintrel on the control file, the view of its listing, and the printing of
// a text file (File, Print File).
#pragma once

// Runs `sintrel "<filinp>"` through the shell and waits for it. Does nothing
// when kerror or kcancel is already set. Sets kfourier when the shell ran;
// kerror, with a box, when it could not.
void menu_c_fourier();

// Shows Sintrel's listing (.fout, else .out, else a chosen file) in the
// listing child window, opening it when needed.
void menu_c_visual();

// Prints a chosen control file or listing.
void menu_f_printfile();
