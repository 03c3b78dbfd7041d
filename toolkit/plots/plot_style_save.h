// The graphics style that a plot routine changes while it draws, saved at
// its start and put back at its end.
#pragma once

struct graphics_style_type {
  int icolnum = 0;
  int icolvalue = 0;
  int lintyp = 0, linwid = 1;
  int ifstyl = 0, ifdens = 2, ifangl = 3, ifbord = 1;
  int ichali = 1;
  float chrotar = 0;
  float chsizx = 0, chsizy = 0;
};

// The present style.
graphics_style_type yypgsaverestore();
// Puts a saved style back.
void yypgsaverestore(const graphics_style_type& saved);
