// Start-up pieces on their own: the date in the status bar, the welcome
// text, and what a file name means.
#include <gtest/gtest.h>

#include "app/menu_file.h"
#include "app/quelmora_initialize.h"
#include "state/quelmora_parametros.h"
#include "tests/app/shell_fixture.h"
#include "toolkit/graphics/graphics.h"
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
    EXPECT_EQ(texts[i].text_style.alignment, 1);  // centred on x = 0.5 of 800 pixels
    EXPECT_NEAR(texts[i].points[0].x, 400.0f, 1.0f);
    EXPECT_NEAR(texts[i].points[0].y, (1.0f - y[i]) * 600.0f, 1.0f);  // units run upward
  }
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

}  // namespace
