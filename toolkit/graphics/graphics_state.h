// The drawing state of the graphics layer: one for the whole process. Every
// igr* and wgr* routine reads and writes it; the plot layer reads the area and
// units from it.
#pragma once

#include <array>
#include <cstdint>

#include "toolkit/graphics/graphics_colour.h"

struct igr_state_type {
  // The target: 1 window, 2 bitmap, 3 dialog field, 4 metafile, and its handle.
  int itarg = 1;
  int itargid = 0;
  // The window that windowselect made current; windowclear works on it.
  int iwindow = 0;

  // Drawing area as fractions 0 to 1 of the target, and its graphics units.
  float xgamin = 0, ygamin = 0, xgamax = 1, ygamax = 1;
  float xmin = 0, ymin = 0, xmax = 1, ymax = 1;
  float xunlen = 1, yunlen = 1;
  // Target size in pixels.
  int nxgraf = 0, nygraf = 0;

  // Pen position.
  float xcur = 0, ycur = 0;

  // Colour model: 1 a palette of 256 colour numbers, otherwise 24-bit values.
  int icmodel = 1;
  std::array<std::int32_t, 256> irgb256 = standard_palette();
  // Current colour: a colour number, or -1 when it was given as a value
  // (a colour name, or any colour in the 24-bit model), held in icolvalue.
  int icolnum = 0;
  std::int32_t icolvalue = 0;

  // Fill pattern: style 0 outline .. 4 solid, density 1..5, angle 1..4, border flag.
  int ifstyl = 0, ifdens = 2, ifangl = 3, ifbord = 1;

  // Line type and width.
  int lintyp = 0, linwid = 1;

  // Text: font family and style, character size as fractions of the area,
  // alignment 0 left, 1 centre, 2 right, angle in degrees.
  int ifamily = 101, ifontstyle = 0;
  float chsizx = 0.013333f, chsizy = 0.04f;
  int ichali = 1;
  float chrotar = 0;
};

extern igr_state_type igrstate;

// Sets the state to its starting values: area and units 0 to 1, fill style 0,
// colour 0, line type 0 and width 1, text centred at angle 0, the standard
// palette. The attached targets and bitmaps are kept.
void igrinit();
