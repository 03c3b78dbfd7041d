// The Edit menu: each entry opens the input data dialog filled, on its page.
#pragma once

void menu_e_title();
void menu_e_datafile();
void menu_e_cell();
void menu_e_space();
void menu_e_atoms();
void menu_e_listinfo();
void menu_e_fourier();
void menu_e_reflec();
void menu_e_search();
