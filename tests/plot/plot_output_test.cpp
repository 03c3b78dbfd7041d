// The picture to a PostScript file, a metafile and the printer, and the
// level key, read back from what was written.
#include <cstdio>
#include <filesystem>

#include "tests/plot/plot_fixture.h"
#include "tests/toolkit/hardcopy_readers.h"
#include "toolkit/hardcopy/hardcopy.h"

namespace {

class PlotOutput : public PlotWindow {
 protected:
  void SetUp() override {
    PlotWindow::SetUp();
    ihcopt = {};
    load_nacl();
  }
  // The selector moves the process into the chosen file's folder.
  void TearDown() override {
    PlotWindow::TearDown();
    std::filesystem::current_path(start_folder);
  }

  static void run_command(int command) {
    headless::queue_menu(command);
    run_plot();
  }

  scratch_folder scratch;
  std::filesystem::path start_folder = std::filesystem::current_path();
};

}  // namespace

// A blank stem proposes "quelmora.ps"; the typed extension gives way to ps;
// the 800 x 600 window fills the page's width with its own proportions; a
// bright background is left to the paper.
TEST_F(PlotOutput, PostScriptFileOfThePicture) {
  qp::codefil = "";
  headless::answer_file(scratch.file("picture.x"));
  headless::queue_look([] { qp::bg_col = 0xFFFFFF; });
  run_command(cmd::postscript);
  ASSERT_EQ(headless::selectors().size(), 1u);
  EXPECT_EQ(headless::selectors()[0].start_name, "quelmora.ps");
  EXPECT_EQ(headless::selectors()[0].filter, "Fourier Graphic File|*.ps|");
  EXPECT_EQ(headless::selectors()[0].title, "Graphics File");
  EXPECT_EQ(ihcopt[5], 0);
  const std::string name = scratch.file("picture.ps");
  EXPECT_EQ(qp::filps, name);
  EXPECT_NE(file_text(name).find("%%BoundingBox: 0 0 595 446\n"), std::string::npos);
  const rendered_page page = render_postscript(name);
  ASSERT_EQ(page.width, 595) << file_text(name + ".log");
  EXPECT_EQ(page.height, 446);
  EXPECT_TRUE(std::any_of(page.rgb.begin(), page.rgb.end(), [](auto v) { return v != 255; }));
  EXPECT_FALSE(std::filesystem::exists(scratch.file("picture.x")));
}

// The stem of the map is proposed; Cancel writes nothing; a name without an
// extension gets ".wmf" and a metafile the reader takes.
TEST_F(PlotOutput, MetafileOfThePicture) {
  qp::codefil = "nacl";
  run_command(cmd::metafile);
  ASSERT_EQ(headless::selectors().size(), 1u);
  EXPECT_EQ(headless::selectors()[0].start_name, "nacl.wmf");
  EXPECT_EQ(headless::selectors()[0].filter, "Fourier Graphic File|*.wmf|");
  EXPECT_TRUE(std::filesystem::is_empty(scratch.path));

  headless::answer_file(scratch.file("picture"));
  run_command(cmd::metafile);
  const std::string name = scratch.file("picture.wmf");
  const std::string bytes = file_text(name);
  ASSERT_GT(bytes.size(), 22u);
  // 794 x 1123 units of the A4 page: the window's shape takes 794 x 596.
  EXPECT_EQ(static_cast<unsigned char>(bytes[10]) | (static_cast<unsigned char>(bytes[11]) << 8), 794);
  EXPECT_EQ(static_cast<unsigned char>(bytes[12]) | (static_cast<unsigned char>(bytes[13]) << 8), 596);
  EXPECT_NE(metafile_as_svg(name).find("<svg"), std::string::npos);
}

// The map's stem is proposed with ".asc"; the file holds the section on
// screen, its whole closed grid of 49 x 49 points behind the two header lines.
TEST_F(PlotOutput, TextTableOfTheSection) {
  qp::codefil = "nacl";
  headless::answer_file(scratch.file("layer.x"));
  run_command(cmd::text_map);
  EXPECT_EQ(headless::selectors().at(0).start_name, "nacl.asc");
  const std::string text = file_text(scratch.file("layer.asc"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2 + 49 * 49);
}

// The printer gets a page inside its margins with the window's proportions;
// the dark background is printed.
TEST_F(PlotOutput, PrintingSendsThePageToThePrintCommand) {
  const std::string captured = scratch.file("printed.ps");
  {
    const fake_print_command lp(scratch, "cat > '" + captured + "'");
    run_command(cmd::print);
  }
  EXPECT_TRUE(headless::box_texts().empty());
  EXPECT_EQ(ihcopt[5], 2);
  EXPECT_NE(file_text(captured).find("%%BoundingBox: 36 36 559 428\n"), std::string::npos);
  const rendered_page page = render_postscript(captured, false);
  ASSERT_EQ(page.width, 595) << file_text(captured + ".log");
  // Inside the picture's corner the black background; outside it the paper.
  EXPECT_EQ(page.at(40, 842 - 428 + 4), (std::array<int, 3>{0, 0, 0}));
  EXPECT_EQ(page.at(20, 842 - 428 + 4), (std::array<int, 3>{255, 255, 255}));
}

// The key's rows hold the levels in width 10 with 3 decimals; the title
// stands trimmed beside them.
TEST_F(PlotOutput, LegendWritesEachLevelInTheKey) {
  qp::titulo = "Sodium chloride   ";
  std::vector<std::string> shown;
  headless::queue_menu(cmd::legend);
  headless::queue_look([&] { shown = texts(last_picture()); });
  run_plot();
  const auto has = [&](const std::string& t) {
    return std::any_of(shown.begin(), shown.end(), [&](const std::string& s) { return s.find(t) != std::string::npos; });
  };
  EXPECT_TRUE(has("Sodium chloride"));
  for (int l = 0; l < qp::n_contour; ++l) {
    char level[16];
    std::snprintf(level, sizeof level, "%.3f", static_cast<double>(qp::ZCOL[static_cast<std::size_t>(l)]));
    EXPECT_TRUE(has(level)) << level;
  }
}
