// Start-up pieces on their own: the reset of the state, the root window,
// the welcome text, what a file name means, and the loading chains.
#include <gtest/gtest.h>

#include "app/menu_file.h"
#include "app/quelmora_initialize.h"
#include "state/quelmora_parametros.h"
#include "tests/app/shell_fixture.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/window.h"

namespace qp = quelmora_parametros;

namespace {

TEST(StatusDate, BlankFilledColumns) {
  struct row {
    int y, m, d;
    const char* text;
  };
  const row rows[] = {{2007, 3, 5, "Date:  5- 3-2007"}, {2026, 11, 22, "Date: 22-11-2026"}, {999, 1, 10, "Date: 10- 1- 999"}};
  for (const row& r : rows) EXPECT_EQ(status_date(r.y, r.m, r.d), r.text);
}

TEST(InitVarProg, ResetsFilesFlagsAndControlData) {
  qp::filedir = qp::codefil = qp::filbin = qp::filps = qp::fileset = "x";
  qp::kerror = qp::kedit = qp::ksettings = qp::kcancel = qp::kpeaks = true;
  qp::kcalc = qp::kfirst = false;
  qp::input_file = 3;
  qp::npeaks = 4;
  qp::ngrid = {1, 2, 3};
  qp::f000s = 7.0f;
  qp::lugar[8] = 5;
  qp::zlim = {0.5f, 0.7f};
  qp::dist2 = 3.0f;
  qp::var_suite = "/suite";
  init_var_prog();
  EXPECT_EQ(qp::filedir + qp::codefil + qp::filbin + qp::filps + qp::fileset, "");
  EXPECT_FALSE(qp::kerror || qp::kedit || qp::ksettings || qp::kcancel || qp::kpeaks);
  EXPECT_TRUE(qp::kcalc && qp::kfirst);
  EXPECT_EQ(qp::input_file, 0);
  EXPECT_EQ(qp::titulo, "****---- Graphic Quelmora Program ----****");
  EXPECT_EQ(qp::var_system, "UNIX");
  EXPECT_EQ(qp::var_sep, "/");
  EXPECT_EQ(qp::npeaks, 0);
  EXPECT_EQ(qp::ngrid, (std::array<std::int32_t, 3>{}));
  EXPECT_EQ(qp::f000s, 1.0f);
  EXPECT_EQ(qp::lugar[8], 0);
  EXPECT_EQ(qp::zlim[1], 0.0f);
  EXPECT_EQ(qp::dist2, 0.0f);
  EXPECT_EQ(qp::var_suite, "/suite");  // untouched
  qp::var_suite.clear();
}

TEST(InitVarGraf, ResetsThePlotState) {
  qp::boton_tg = 4;
  qp::boton_show = qp::kbonds = true;
  qp::klimits = 2;
  qp::plane_points[1] = "0 0 0";
  qp::seccion = {5, 6, 7};
  qp::nmap = 3;
  qp::n_contour = 8;
  qp::isolev = 3.0f;
  qp::anglerot_pg3d = 10.0f;
  init_var_graf();
  EXPECT_EQ(qp::boton_tg, 1);
  EXPECT_FALSE(qp::boton_show || qp::kbonds);
  EXPECT_EQ(qp::klimits, 0);
  EXPECT_EQ(qp::plane_points[1], "");
  EXPECT_EQ(qp::seccion, (std::array<std::int32_t, 3>{1, 1, 1}));
  EXPECT_EQ(qp::nmap, 1);
  EXPECT_EQ(qp::n_contour, 20);
  EXPECT_EQ(qp::isolev, 1.5f);
  EXPECT_EQ(qp::anglerot_pg3d, -90.0f);
  EXPECT_EQ(qp::angleele_pg3d, 22.5f);
}

TEST_F(Shell, InitGrafOpensTheRootWindow) {
  register_quelmo_rc();
  init_var_prog();
  init_graf();
  EXPECT_TRUE(window_is_open());
  EXPECT_EQ(window_opened_with().options, 39);
  EXPECT_EQ(window_opened_with().colours, 128);
  EXPECT_EQ(window_caption(), "Graphic Quelmora Program");
  EXPECT_EQ(shown_menu(), 30001);
  EXPECT_EQ(shown_toolbar(1), 30101);
  EXPECT_EQ(status_widths(), (std::vector<std::int32_t>{5000, 3000, -1}));
  EXPECT_EQ(winfowindow(1), 800);  // the headless client area
  EXPECT_EQ(winfowindow(2), 600);
  std::int32_t y = 0, m = 0, d = 0;
  iosdate(y, m, d);
  EXPECT_EQ(status_text(3), status_date(y, m, d));
  EXPECT_EQ(file_states(), no_file_states);
  for (int id : {40025, 40026, 40007, 40024, 40029, 40016}) EXPECT_EQ(wmenugetstate(id, 1), 1) << id;
  // Contour colours of set 1 on palette entries 197 to 216.
  EXPECT_EQ(palette_colour(197).value, wrgb(128, 255, 255));
  EXPECT_EQ(palette_colour(206).value, wrgb(0, 0, 170));
  EXPECT_EQ(palette_colour(216).value, wrgb(254, 240, 73));
  EXPECT_EQ(qp::set_color, 1);
  EXPECT_EQ(qp::level_lines[19].colour, 216);
  EXPECT_EQ(qp::level_lines[0].style, 0);
  EXPECT_EQ(qp::level_lines[0].width, 1);
}

TEST_F(Shell, WriteHeaderDrawsThreeCentredLines) {
  window_options_type how;
  windowopen2(how);
  headless::root_canvas().forget();
  qp::version = "04.06";
  write_header();
  std::vector<recorded_primitive> texts;
  bool cleared_first = false;
  for (const auto& p : headless::root_canvas().primitives()) {
    if (p.kind == recorded_kind::text) texts.push_back(p);
    if (p.kind == recorded_kind::clear && texts.empty()) cleared_first = true;
  }
  EXPECT_TRUE(cleared_first);
  ASSERT_EQ(texts.size(), 3u);
  const char* expected[] = {"Quelmora Program 04.06", "A graphical tool for Fourier Maps", "(X-ray & Neutron Data)"};
  const float y[] = {0.6f, 0.5f, 0.45f};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(texts[i].text, expected[i]);
    EXPECT_EQ(texts[i].colour.value, wrgb(0, 0, 255));
    EXPECT_EQ(texts[i].text_style.alignment, 1);
    EXPECT_EQ(texts[i].text_style.family, 103);
    EXPECT_NEAR(texts[i].points[0].x, 400.0f, 1.0f);             // x = 0.5 of 800 pixels
    EXPECT_NEAR(texts[i].points[0].y, (1.0f - y[i]) * 600.0f, 1.0f);  // units run upward
  }
  EXPECT_EQ(texts[0].text_style.style, 3);
  EXPECT_EQ(texts[1].text_style.style, 2);
  EXPECT_NEAR(texts[0].text_style.char_height / texts[1].text_style.char_height, 2.0f, 0.01f);
  EXPECT_EQ(current_colour().value, wrgb(0, 0, 0));  // restored to black
  EXPECT_EQ(current_text_style().family, 101);
}

// What a name means: the cases of file_validation.
TEST_F(Shell, FileValidationNames) {
  for (const char* f : {"A.INP", "data.v2.inp", "xyz.inp", "cu.map", "f.asc", "f.input", "b.bin", "dir.x/abc.bin"})
    touch(f);
  struct row {
    const char* name;
    bool error;
    const char* box;
    int input_file;
    const char *codefil, *filinp, *filbin, *filasc;
  };
  const row rows[] = {
      {"A.INP", false, "", 0, "A", "A.INP", "", ""},
      {"f.input", false, "", 0, "f", "f.input", "", ""},
      {"xyz", false, "", 0, "xyz", "xyz.inp", "", ""},
      {"b.bin", false, "", 1, "b", "", "b.bin", ""},
      {"f.asc", false, "", 2, "f", "", "", "f.asc"},
      {"cu.map", false, "", 3, "cu", "", "", "cu.map"},
      {"dir.x/abc.bin", false, "", 1, "abc", "", "abc.bin", ""},
      {"data.v2.inp", true, "Input file type is unknown", 7, "data", "", "", ""},
      {"missing.bin", true, "Input Control File Not Found.", 7, "", "", "", ""},
      {"nothing", true, "Input Control File Not Found.", 7, "", "", "", ""},
  };
  for (const row& r : rows) {
    headless::install();
    init_var_prog();
    qp::input_file = 7;  // kept by a failure
    qp::codefil = r.name;
    file_validation();
    EXPECT_EQ(qp::kerror, r.error) << r.name;
    EXPECT_EQ(headless::box_texts(), r.error ? std::vector<std::string>{r.box} : std::vector<std::string>{})
        << r.name;
    EXPECT_EQ(qp::input_file, r.error ? 7 : r.input_file) << r.name;
    EXPECT_EQ(qp::codefil, r.codefil) << r.name;
    EXPECT_EQ(qp::filinp, r.filinp) << r.name;
    EXPECT_EQ(qp::filbin, r.filbin) << r.name;
    EXPECT_EQ(qp::filasc, r.filasc) << r.name;
    EXPECT_EQ(std::filesystem::path(qp::filedir), std::filesystem::canonical(dir_)) << r.name;
  }
}

TEST_F(Shell, PrepPlottingOfATextMapNeedsTheAsciiFile) {
  init_var_prog();
  qp::input_file = 2;
  qp::filasc = "cu.asc";
  prep_plotting();
  EXPECT_TRUE(qp::kerror);
  EXPECT_EQ(headless::box_texts(), std::vector<std::string>{"Opening the Ascii File"});
  EXPECT_EQ(qp::filbin, "cu.bin");
}

// The map of the example stands in the scratch directory: a sintrel that
// does nothing is enough for the load to find it.
TEST_F(Shell, PrepPlottingOfAControlFileLoadsTheBinOfItsStem) {
  fake_program("sintrel", "exit 0\n");
  init_var_prog();
  qp::input_file = 0;
  qp::filinp = "nacl.inp";
  prep_plotting();
  EXPECT_FALSE(qp::kerror);
  EXPECT_TRUE(qp::kfourier);
  EXPECT_EQ(qp::ngrid[0], 48);
}

}  // namespace
