// The program's shared state. Every routine of the shell, the map operations
// and the plot window reads and writes these variables directly; there is no
// document object. init_var_prog and init_var_graf reset them.
//
// Conventions: char(n) variables are std::string without trailing blanks (see
// crystal/fixed_text.h); a small array written ngrid(1..3) in the formulas is
// std::array indexed from 0 (ngrid[0] is ngrid(1)); map arrays are indexed
// from 1 (crystal/farray.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "control/control_data.h"
#include "crystal/farray.h"
#include "crystal/vant_atom_typedef.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "toolkit/messages/message_record.h"

namespace quelmora_parametros {

// Program identity and platform.
inline std::string data_version = "March - 2007"; // char(20)
inline std::string var_system;                    // char(4): "UNIX" or "WIND"
inline std::string var_sep;                       // char(1): path separator
inline std::string var_suite;                     // char(150)
inline std::string var_browser;                   // char(150)

// File names, char(150) each (those of a run are in control/control_data.h).
inline std::string codefil, filasc, filout;
inline std::string filps, filwmf, filedir, filtmp, fileset;

// Control flags.
inline bool kerror = false;
inline bool kcancel = false;
inline bool kedit = false;
inline bool ksettings = false;
inline bool kfourier = false;
inline bool k_run = false;   // never set: the branches testing it are never taken
inline bool kcalc = true;    // initialised and never read
inline bool kfirst = true;   // initialised and never read
inline bool katom = false;
inline bool kpeaks = false;
// Kind of the current file: 0 control file (or none), 1 .bin, 2 .asc, 3 .map,
// 4 a CCP4/MRC map (known by its content; its name is kept in filbin).
inline std::int32_t input_file = 0;

// Message buffers shared by every modal loop.
inline std::int32_t evento = 0;
inline message_record mensaje;
inline std::int32_t ichild = -1;  // listing child window; -1 or 0 means none

// Crystal data beside the control data of control/control_data.h.
inline space_group_type grp_espacial;
inline atom_list_type atmcell;

// Map data.
inline farray3<float> rho;     // ngrid(1) x ngrid(2) x ngrid(3), as in the file
inline farray3<float> rhonew;  // with closing planes, or resampled on the file's box
inline farray2<float> dmap;    // the section on screen
inline farray2<float> dmap2;   // its transpose, for the surface plot
inline std::array<float, 2> xlim{}, ylim{}, zlim{};
inline float xinc = 0.0f, yinc = 0.0f, zinc = 0.0f;
inline float denmin = 0.0f, denmax = 0.0f;
inline float rho_min = 0.0f, rho_max = 0.0f;  // the extremes of rho (0 when empty), set by proc_carga
inline float denave = 0.0f, densigma = 0.0f;
inline std::array<std::int32_t, 3> jpg{};  // per section family: axes not perpendicular
// The isosurface mesh: per record x, y, z and the primitive's type, for
// max_points records (made on the first mesh), and the records in use.
inline farray2<float> xyz;
inline std::int32_t npoints = 0;

// Window of the current section (set by the plot composition on each drawing).
// rmax: low u, v, w then high u, v, w, fractional; rinc: steps along u, v, w.
inline std::array<float, 6> rmax{};
inline std::array<float, 3> rinc{};
// Window of a section of a skewed family, in Angstrom.
inline float u_min = 0.0f, u_max = 0.0f, v_min = 0.0f, v_max = 0.0f, u_inc = 0.0f, v_inc = 0.0f;
// Window of an oriented section within its plane, in Angstrom.
inline float xl1 = 0.0f, xl2 = 0.0f, yl1 = 0.0f, yl2 = 0.0f;
// Which values a section adds to dmap.
inline bool sum_all = true, sum_positive = false, sum_negative = false;

// Plot state reset by init_var_graf.
inline std::int32_t boton_tg = 1;
inline bool boton_add = false, boton_legend = false, boton_show = false, boton_atom = false;
inline bool ksigma = false, kset3 = false, kbonds = false, plane_def = false, show_peaks = false;
// The molecule of the isosurface view, from the connection file: per point
// the atom number in atomos, the count n of links and the n linked point
// numbers; the point's fractional position; the same in Angstrom about the
// centre baric.
inline std::int32_t nbonds = 0;
inline std::vector<std::array<std::int32_t, 12>> bonds;
inline std::vector<vec3f> at_bonds, at_bonds_o;
inline vec3f baric{};
// The isosurface view's three axes as the last turn of the mouse moved them
// (rows of the turn applied to the mesh and the molecule).
inline vec3f xorient{1.0f, 0.0f, 0.0f}, yorient{0.0f, 1.0f, 0.0f}, zorient{0.0f, 0.0f, 1.0f};
inline std::int32_t klevel = 0, klimits = 0;
inline std::array<std::string, 3> plane_points;  // char(40) each
inline std::int32_t nadd = 1, imap = 1, nmap = 1;
inline std::array<std::int32_t, 3> seccion{1, 1, 1};
inline std::int32_t n_contour = 20;
inline float isolev = 1.5f;
inline float anglerot_pg3d = -90.0f;
inline float angleele_pg3d = 22.5f;

// The plot window: its two fixed colours (colour values), the off-screen
// bitmap every picture is drawn into, the last mouse press, and the enabled
// states of five main-menu commands kept while the plot mode has the window.
inline std::int32_t bg_col = 0, fg_col = 0;
inline int ibmp1 = 0;
inline float xm_mo = 0.0f, ym_mo = 0.0f;
inline std::int32_t boton_mouse = 0;
inline std::int32_t iedit = 0, iplot = 0, isave = 0, iprintfile = 0, ifourier = 0;

// An oriented section: the plane a X + b Y + c Z + d = 0 in Angstrom and
// its height along the plane's normal.
inline float plane_a = 0.0f, plane_b = 0.0f, plane_c = 0.0f, plane_d = 0.0f;
inline float zt = 0.0f;
// Polar angle and azimuth of the plane's normal, in degrees.
inline float theta = 0.0f, phi = 0.0f;
// Sums of sections: two ranges along the section axis (xd_add[m][0..1] is
// range m+1) and the limits as the user typed them.
inline std::array<std::array<float, 2>, 2> xd_add{};
inline std::array<float, 2> view_layers{};
// A level range the user fixed: in density units, and in sigma units.
inline float den_min_show = 0.0f, den_max_show = 0.0f;
inline float dens_min_show = 0.0f, dens_max_show = 0.0f;

// What the last picture was drawn with, valid until the next one: level
// values, the section's corners in plot units (x, y of (low u, low v),
// (low u, high v), (high u, high v), (high u, low v)) and the grid sizes.
inline std::array<float, 20> ZCOL{};
inline std::array<float, 8> EDGE{};
inline std::array<std::int32_t, 2> NVALUE{};

// Contour colour sets (red, green, blue 0..255) and the level line styles.
struct level_line_type {
  std::int32_t colour = 0;  // palette index
  std::int32_t style = 0;   // line type
  std::int32_t width = 1;
};
inline std::array<std::int32_t, 20> set1_rojo{128, 55, 0, 181, 77, 6, 153, 94, 0, 0,
                                              231, 241, 255, 255, 230, 247, 249, 206, 251, 254};
inline std::array<std::int32_t, 20> set1_verde{255, 255, 255, 218, 166, 131, 153, 94, 0, 0,
                                               81, 107, 128, 152, 169, 189, 205, 191, 232, 240};
inline std::array<std::int32_t, 20> set1_azul{255, 255, 255, 255, 255, 255, 255, 255, 249, 170,
                                              16, 50, 0, 49, 9, 36, 89, 2, 2, 73};
inline std::array<std::int32_t, 20> set2_rojo{68, 73, 76, 44, 166, 199, 224, 250, 120, 158,
                                              214, 250, 238, 223, 226, 242, 31, 37, 18, 3};
inline std::array<std::int32_t, 20> set2_verde{120, 150, 186, 252, 163, 194, 218, 242, 48, 67,
                                               91, 144, 167, 99, 50, 3, 95, 132, 161, 204};
inline std::array<std::int32_t, 20> set2_azul{57, 57, 54, 3, 72, 55, 33, 0, 6, 14,
                                              19, 82, 242, 230, 235, 255, 115, 161, 204, 255};
inline std::array<std::int32_t, 20> set3_rojo{}, set3_verde{}, set3_azul{};
inline std::int32_t set_color = 1;
inline std::array<level_line_type, 20> level_lines{};

}  // namespace quelmora_parametros
