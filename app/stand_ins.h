// Stand-ins for the routines the shell calls whose own pieces are not built
// yet. Each keeps the name the shell calls it by, does nothing but what is
// safe, and notes its call in a log that the tests read, so that the order
// of the shell's calls can be checked before the real routines arrive.
//
//   routine               waits for
//   gui_fourierdata       the input data dialog: cancels (kcancel = true)
//   menu_e_* (nine)       the pages of the input data dialog
//   asc2bin, map2bin      the text map import
//   whelpfile1            the help viewer of the toolkit
#pragma once

#include <cstdint>
#include <string>
#include <vector>

void gui_fourierdata(std::int32_t page = 0);
void menu_e_title();
void menu_e_datafile();
void menu_e_cell();
void menu_e_space();
void menu_e_atoms();
void menu_e_listinfo();
void menu_e_fourier();
void menu_e_reflec();
void menu_e_search();
void asc2bin();
void map2bin();
void whelpfile1(const std::string& path);

// The stand-ins called since the last clear, oldest first: the routine's
// name, followed by " " and its argument where it has one.
const std::vector<std::string>& stand_in_calls();
void clear_stand_in_calls();
