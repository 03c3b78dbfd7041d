#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tests/toolkit/hardcopy_readers.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/hardcopy/hardcopy.h"
#include "toolkit/hardcopy/hardcopy_stream.h"
#include "toolkit/headless/headless.h"

namespace {

class Hardcopy : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    ihcopt = {};
  }
  // A red square, a thick blue line and a text with parentheses on a
  // 200 x 100 picture; the background is cleared black.
  static void draw_sample() {
    canvas* c = current_canvas();
    ASSERT_NE(c, nullptr);
    c->clear(0, 0, 200, 100, {0, 0});
    const pixel_point square[] = {{10, 10}, {50, 10}, {50, 50}, {10, 50}};
    canvas_fill red;
    red.colour = {1, 255};
    c->fill_polygon(square, red);
    const pixel_point line[] = {{100, 80}, {190, 80}};
    canvas_pen blue;
    blue.colour = {2, 255 << 16};
    blue.width = 6;
    c->polyline(line, blue);
    canvas_text_style style;
    style.char_height = 10;
    c->text({150, 30}, "(a(b \\ c", style);
  }
  // Opens the driver on `name` for a 200 x 100 picture, draws the sample
  // unless told not to, and closes.
  static void write(int driver, const std::string& name, bool draw = true) {
    igrhardcopyselect(1, driver);
    igrhardcopyoptions(1, 200);
    igrhardcopyoptions(2, 100);
    igrhardcopy(name);
    if (draw) draw_sample();
    igrhardcopy("S");
  }
  scratch_folder scratch;
};

std::uint16_t word(const std::string& bytes, std::size_t at) {
  return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[at]) |
                                    (static_cast<unsigned char>(bytes[at + 1]) << 8));
}

// The metafile's bytes against the published layout: the placeable header
// with its checksum, the standard header's size and longest record, and a
// chain of records that ends in the end record exactly at the file's end.
// Gives the record functions in order.
std::vector<std::uint16_t> metafile_records(const std::string& bytes, int w, int h) {
  std::vector<std::uint16_t> functions;
  EXPECT_GT(bytes.size(), 40u);
  if (bytes.size() <= 40u || bytes.size() % 2 != 0) return functions;
  EXPECT_EQ(word(bytes, 0) | (word(bytes, 2) << 16), 0x9AC6CDD7u);
  EXPECT_EQ(word(bytes, 10), w);   // right
  EXPECT_EQ(word(bytes, 12), h);   // bottom
  EXPECT_EQ(word(bytes, 14), 96);  // units an inch
  std::uint16_t sum = 0;
  for (std::size_t i = 0; i < 20; i += 2) sum ^= word(bytes, i);
  EXPECT_EQ(word(bytes, 20), sum);
  const std::size_t start = 22;
  EXPECT_EQ(word(bytes, start + 2), 9);
  const std::uint32_t total = word(bytes, start + 6) | (word(bytes, start + 8) << 16);
  EXPECT_EQ(total * 2u, bytes.size() - start);
  const std::uint32_t longest = word(bytes, start + 12) | (word(bytes, start + 14) << 16);
  std::uint32_t seen_longest = 0;
  std::size_t at = start + 18;
  while (at + 6 <= bytes.size() && (functions.empty() || functions.back() != 0)) {
    const std::uint32_t size = word(bytes, at) | (word(bytes, at + 2) << 16);
    functions.push_back(word(bytes, at + 4));
    seen_longest = std::max(seen_longest, size);
    if (size < 3) break;
    at += size * 2;
  }
  EXPECT_EQ(functions.back(), 0);
  EXPECT_EQ(at, bytes.size());
  EXPECT_EQ(longest, seen_longest);
  return functions;
}

}  // namespace

TEST_F(Hardcopy, PostScriptRendersWhereTheDrawingPutIt) {
  const std::string name = scratch.file("picture.ps");
  write(2, name);
  EXPECT_EQ(current_canvas(), nullptr);
  const std::string text = file_text(name);
  EXPECT_EQ(text.rfind("%!PS-Adobe-3.0 EPSF-3.0\n%%LanguageLevel: 3\n", 0), 0u);
  EXPECT_EQ(text.substr(text.size() - 30), "gsave showpage grestore\n%%EOF\n");
  const rendered_page page = render_postscript(name);
  ASSERT_EQ(page.width, 200) << file_text(name + ".log");
  EXPECT_EQ(page.at(30, 30), (std::array<int, 3>{255, 0, 0}));
  EXPECT_EQ(page.at(150, 80), (std::array<int, 3>{0, 0, 255}));
  EXPECT_EQ(page.at(100, 40), (std::array<int, 3>{255, 255, 255})) << "a dark background is left to the paper";
  igrhardcopyoptions(6, 2);  // unless option 6 is 2
  write(2, name);
  EXPECT_EQ(render_postscript(name).at(100, 40), (std::array<int, 3>{0, 0, 0}));
}

// Opened and closed at once, both drivers give a valid file. libwmf refuses
// a picture with nothing in it, so the empty metafile is checked by its
// layout alone; the drawn one by both.
TEST_F(Hardcopy, EmptyFilesAreValidAndTheMetafileReads) {
  write(2, scratch.file("empty.ps"), false);
  EXPECT_EQ(render_postscript(scratch.file("empty.ps")).width, 200) << file_text(scratch.file("empty.ps.log"));
  write(11, scratch.file("empty.wmf"), false);
  EXPECT_EQ(metafile_records(file_text(scratch.file("empty.wmf")), 200, 100).size(), 5u);
  const std::string name = scratch.file("picture.wmf");
  write(11, name);
  const auto functions = metafile_records(file_text(name), 200, 100);
  // the square (the dark background is not painted), the line, the text
  EXPECT_EQ(std::count(functions.begin(), functions.end(), 0x0324), 1);
  EXPECT_EQ(std::count(functions.begin(), functions.end(), 0x0325), 1);
  EXPECT_EQ(std::count(functions.begin(), functions.end(), 0x0521), 1);
  EXPECT_NE(metafile_as_svg(name).find("(a(b"), std::string::npos);
}

// Bad targets: a folder that does not exist, a print command that fails.
// Each gets one box naming the routine, and the drawing goes on harmlessly.
TEST_F(Hardcopy, FailuresAreReportedAndDrawingGoesOn) {
  write(2, scratch.file("missing/picture.ps"));
  EXPECT_TRUE(bhcerr);
  {
    const fake_print_command lp(scratch, "exit 3");
    write(10, " ");
  }
  ASSERT_EQ(headless::box_texts().size(), 2u);
  EXPECT_NE(headless::box_texts()[0].find("YYGrHcOpen"), std::string::npos);
  EXPECT_NE(headless::box_texts()[1].find("status 3"), std::string::npos);
}

// The printer gets a one-page document on the print command's input.
TEST_F(Hardcopy, PrinterPipesAPageToThePrintCommand) {
  const std::string captured = scratch.file("printed.ps");
  {
    const fake_print_command lp(scratch, "cat > '" + captured + "'");
    write(10, " ");
  }
  EXPECT_TRUE(headless::box_texts().empty());
  EXPECT_NE(file_text(captured).find("%%BoundingBox: 36 36 236 136\n"), std::string::npos);
  const rendered_page page = render_postscript(captured, false);
  ASSERT_EQ(page.width, 595) << file_text(captured + ".log");
  // The square sits half an inch in from the page's left and bottom edges.
  EXPECT_EQ(page.at(36 + 30, 842 - 36 - 100 + 30), (std::array<int, 3>{255, 0, 0}));
}

// Hatched fills stay hatched on paper: in PostScript, as ghostscript renders
// it, the square is neither empty nor solid; in the metafile, its brush is
// the format's hatched brush with the hatch of the fill's direction.
TEST_F(Hardcopy, HatchedFillsKeepTheirPattern) {
  const struct {
    int style, angle;
    std::uint16_t hatch;  // HS_HORIZONTAL 0, VERTICAL 1, FDIAGONAL 2, BDIAGONAL 3, CROSS 4, DIAGCROSS 5
  } cases[] = {{1, 1, 0}, {1, 2, 3}, {1, 3, 1}, {1, 4, 2}, {2, 1, 4}, {3, 2, 5}};
  for (const auto& c : cases) {
    for (int driver : {2, 11}) {
      const std::string name = scratch.file(driver == 2 ? "hatched.ps" : "hatched.wmf");
      igrhardcopyselect(1, driver);
      igrhardcopyoptions(1, 200);
      igrhardcopyoptions(2, 100);
      igrhardcopy(name);
      const pixel_point square[] = {{10, 10}, {90, 10}, {90, 90}, {10, 90}};
      canvas_fill fill;
      fill.colour = {1, 255};
      fill.style = c.style;
      fill.angle = c.angle;
      current_canvas()->fill_polygon(square, fill);
      igrhardcopy("S");
      if (driver == 2) {
        const rendered_page page = render_postscript(name);
        ASSERT_EQ(page.width, 200) << file_text(name + ".log");
        int red = 0;
        for (int y = 20; y < 80; ++y)
          for (int x = 20; x < 80; ++x) red += page.at(x, y)[1] < 128;
        EXPECT_GT(red, 3600 / 20) << c.style << " " << c.angle;
        EXPECT_LT(red, 3600 * 7 / 10) << c.style << " " << c.angle;
      } else {
        const std::string bytes = file_text(name);
        std::size_t at = 22 + 18;
        while (at + 6 <= bytes.size() && word(bytes, at + 4) != 0x02FC)
          at += 2 * (word(bytes, at) | (word(bytes, at + 2) << 16));
        ASSERT_LT(at + 14, bytes.size()) << "no brush";
        EXPECT_EQ(word(bytes, at + 6), 2) << c.style << " " << c.angle;  // BS_HATCHED
        EXPECT_EQ(word(bytes, at + 12), c.hatch) << c.style << " " << c.angle;
      }
    }
  }
}
