// The presentation plot: one plot state for the whole process, set up by
// ipgnewplot2 and the ipg* setters, read by the frame, contour and surface
// routines.
#pragma once

#include <array>
#include <vector>

inline constexpr int max_plot_sets = 500;

struct ipg_state_type {
  // Graph shape.
  int igtype = 8;
  int npset = 1;
  int npval1 = 2, npval2 = 2, npval3 = 1;
  float rnval1 = 2, rnval2 = 2, rnval11 = 1, rnval21 = 1;
  int npdone = 0;
  bool bplot3d = false;
  int laydim = 0;
  // Layer flags decoded from the layer word of ipgnewplot2.
  int layadj = 0, layfil = 0, layhgt = 0, laycur = 0, laygrd = 0, layshd = 0, layhlz = 0;
  int laylab = 0, laycol = 0, laysta = 0, laypol = 0, layreq = 0;
  float skew3d = 0.5f, hb3d = 0.25f;
  int igranul = 1;

  // Plot units, their signed lengths and ascending limits.
  float xpmin = 0, xpmax = 1, ypmin = 0, ypmax = 1, zpmin = 0, zpmax = 1;
  float xplen = 1, yplen = 1, zplen = 1;
  float xplow = 0, xphigh = 1, yplow = 0, yphigh = 1;
  // The plot area as fractions of the graphics area.
  float xpgamn = 0.1f, ypgamn = 0.1f, xpgamx = 0.9f, ypgamx = 0.9f;

  // Styles per data set, index 1..500 (element 0 unused).
  // ipgstyl: contour line type, label type, marker; or fill style, density, angle.
  std::array<std::array<int, 3>, max_plot_sets + 1> ipgstyl{};
  std::array<std::array<int, 2>, max_plot_sets + 1> ipgcol{};
  std::array<int, max_plot_sets + 1> ipgmark{};
  std::array<int, max_plot_sets + 1> ipgthick{};
  std::array<float, max_plot_sets + 1> ipglabsize{};

  // Scales and labels.
  std::array<float, 3> rlabpos = {0.7f, 0.8f, 0.8f};
  float titpos = 0.5f;
  std::array<float, 3> rscpos = {0.38f, 1.5f, 1.5f};
  // How far the numbers of the last x and y scales reach out from the plot's
  // edge, in graphics units (0 before any): the axis labels keep beyond them.
  std::array<float, 2> number_reach{};
  float exppos = 0.4f, expsize = 0.6f;
  float xkepos = 0.7f;
  float xpgkmn = 1, ypgkmn = 1, xpgkmx = 0, ypgkmx = 0;
  int ndecpl = -1;
  std::array<int, 3> iuslen = {0, 0, 0};
  std::vector<float> userscalex, userscaley;
  std::array<int, 3> nresn = {1, 1, 1};
  int iaxsty = 0, iaxcol1 = 0, iaxcol2 = 0;
  std::array<float, 3> ticklen = {1, 1, 1};
  std::array<float, 3> tickangle = {0, 0, 0};
  std::array<float, 3> strangle = {0, 0, 0};
  bool bclippg = false;
  std::array<bool, 3> bmissing = {false, false, false};
  float rmissing = 0;

  // View of a three-dimensional layout: rotation in degrees, elevation as a
  // fraction of 45 degrees, and the cosines of rotation -45 and +45 degrees.
  float rota3d = 0, elev3d = 0.5f, z2d3d = 0;
  float cosr3d1 = 0.70710677f, cosr3d2 = 0.70710677f;
  // Grid lines over a surface: colour (-3 black, -1 none), directions
  // (1 along x, 2 along y, 3 both) and every how many lines one is drawn.
  int igrcol = -3, igrdir = 3, igrtran = 1, igrxfreq = 1, igryfreq = 1;
};

extern ipg_state_type ipgstate;

// Sets the plot state to its starting values, styles included.
void ipginit();
