// The settings file and the directory file: their layout on disk, what a
// damaged file leaves, and the last directory carried from one run to the next.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "app/quelmora_initialize.h"
#include "app/quelmora_main.h"
#include "app/quelmora_settings.h"
#include "state/quelmora_parametros.h"
#include "tests/app/shell_fixture.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/messages/help_viewer.h"

namespace qp = quelmora_parametros;

namespace {

class Settings : public Shell {
 protected:
  void SetUp() override {
    Shell::SetUp();
    reset_state();
  }

  static void reset_state() {
    init_var_prog();
    qp::bg_col = qp::fg_col = 0;
    qp::set_color = 1;
    qp::level_lines.fill({0, 0, 1});
    qp::set3_rojo = qp::set3_verde = qp::set3_azul = {};
    qp::var_browser.clear();
    whelpviewer("");
  }

  std::filesystem::path settings_file() const { return home_ / ".ksu" / "quelmora.set"; }

  void write_settings(const std::string& text) const {
    std::filesystem::create_directories(home_ / ".ksu");
    std::ofstream(settings_file()) << text;
  }

  std::string saved_text() const {
    std::ifstream in(settings_file());
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }
};

void start_program() {
  const char* args[] = {"quelmora"};
  quelmora_main(1, args);
}

const std::string browser_line = "  Browser = " + std::string("firefox") + std::string(143, ' ') + "\n";

// Twenty level lines of a set 1 or 2 file, style 0 and width 1.
std::string default_levels() {
  std::string lines;
  for (int i = 0; i < 20; ++i) lines += "    0    1\n";
  return lines;
}

TEST_F(Settings, WrittenLayoutOfEachColourSet) {
  struct row {
    std::int32_t set_color;
    std::string levels;
  };
  const row rows[] = {
      {1, default_levels()},
      {2, default_levels()},
      {3, "          65535    0    1\n" + [] {
         std::string rest;
         for (int i = 1; i < 20; ++i) rest += "              0    0    1\n";
         return rest;
       }()},
      {7, ""},
  };
  for (const row& r : rows) {
    qp::bg_col = 16777215;
    qp::fg_col = 255;
    qp::set_color = r.set_color;
    qp::set3_rojo[0] = qp::set3_verde[0] = 255;
    qp::var_browser = "firefox";
    save_settings_file("QUELMORA");
    const std::string set_line = r.set_color == 7 ? "  7\n" : "  " + std::to_string(r.set_color) + "\n";
    EXPECT_EQ(saved_text(), "!---- Background /Foreground ----!\n"
                            "            16777215                 255\n"
                            "!---- Levels ----!\n" +
                                set_line + r.levels + "!---- Browser for Linux version ----!\n" + browser_line +
                                " \n")
        << r.set_color;
    EXPECT_EQ(qp::fileset, settings_file().string());
  }
}

TEST_F(Settings, RoundTripOfEachColourSet) {
  for (std::int32_t set : {1, 2, 3}) {
    reset_state();
    qp::bg_col = 1193046;
    qp::fg_col = 42;
    qp::set_color = set;
    for (std::size_t i = 0; i < 20; ++i) {
      qp::level_lines[i] = {197 + static_cast<std::int32_t>(i), static_cast<std::int32_t>(i % 4),
                            static_cast<std::int32_t>(i % 3 + 1)};
      qp::set3_rojo[i] = static_cast<std::int32_t>(10 * i);
      qp::set3_verde[i] = 255 - static_cast<std::int32_t>(i);
      qp::set3_azul[i] = static_cast<std::int32_t>(i);
    }
    qp::var_browser = "/usr/bin/firefox --new-window";
    const auto written = qp::level_lines;
    const auto red = qp::set3_rojo, green = qp::set3_verde, blue = qp::set3_azul;
    save_settings_file("QUELMORA");

    reset_state();
    load_settings_file("KELDRANE");
    EXPECT_EQ(qp::bg_col, 1193046) << set;
    EXPECT_EQ(qp::fg_col, 42) << set;
    EXPECT_EQ(qp::set_color, set);
    for (std::size_t i = 0; i < 20; ++i) {
      EXPECT_EQ(qp::level_lines[i].style, written[i].style) << set << " " << i;
      EXPECT_EQ(qp::level_lines[i].width, written[i].width) << set << " " << i;
    }
    if (set == 3) {
      EXPECT_EQ(qp::set3_rojo, red);
      EXPECT_EQ(qp::set3_verde, green);
      EXPECT_EQ(qp::set3_azul, blue);
    }
    EXPECT_EQ(qp::var_browser, "/usr/bin/firefox --new-window");
    EXPECT_EQ(yyhelp_viewer(), "/usr/bin/firefox --new-window");
    EXPECT_EQ(palette_colour(0).value, 1193046);
    EXPECT_EQ(palette_colour(120).value, 42);
    const std::int32_t level5 = set == 3   ? wrgb(50, 250, 5)
                                : set == 2 ? wrgb(qp::set2_rojo[5], qp::set2_verde[5], qp::set2_azul[5])
                                           : palette_colour(202).value;  // set 1 is left as it was
    EXPECT_EQ(palette_colour(202).value, level5) << set;
  }
}

// A file written by hand, with comments and blank lines where the reader
// passes over them and a browser line among other lines.
TEST_F(Settings, HandWrittenFileIsReadFieldByField) {
  std::string text =
      "! my colours\n\n   255 65280  7\n!---- Levels ----!\n\n   3\n"
      "16711680 2 3\n";
  for (int i = 1; i < 20; ++i) text += "  " + std::to_string(i * 1000) + "  1  2\n";
  text += "Colours = none\n! a note\n   Browser= chromium  --incognito  \n";
  write_settings(text);
  setenv("KELDRANE", " /opt/keldrane", 1);
  load_settings_file("KELDRANE");
  EXPECT_EQ(qp::var_suite, "/opt/keldrane");
  EXPECT_EQ(qp::fileset, home_.string());
  EXPECT_EQ(qp::bg_col, 255);
  EXPECT_EQ(qp::fg_col, 65280);
  EXPECT_EQ(qp::set_color, 3);
  EXPECT_EQ(qp::set3_rojo[0], 0);
  EXPECT_EQ(qp::set3_verde[0], 0);
  EXPECT_EQ(qp::set3_azul[0], 255);
  EXPECT_EQ(qp::level_lines[0].style, 2);
  EXPECT_EQ(qp::level_lines[0].width, 3);
  // 19000 = 0x4A38: red 0x38, green 0x4A.
  EXPECT_EQ(qp::set3_rojo[19], 0x38);
  EXPECT_EQ(qp::set3_verde[19], 0x4A);
  EXPECT_EQ(qp::set3_azul[19], 0);
  EXPECT_EQ(qp::level_lines[19].style, 1);
  EXPECT_EQ(qp::level_lines[19].width, 2);
  EXPECT_EQ(qp::var_browser, "chromium  --incognito");
  EXPECT_EQ(palette_colour(197).value, 16711680);
}

TEST_F(Settings, DamagedFilesKeepWhatTheyCannotGive) {
  struct row {
    std::string name, text;
    std::int32_t bg, fg, set_color;
    std::int32_t style1, width1, style20, width20;
  };
  std::string five_of_set3 = "1 2\n3\n";
  for (int i = 0; i < 5; ++i) five_of_set3 += "255 3 4\n";
  const row rows[] = {
      {"only comments", "!---- Background /Foreground ----!\n!---- Levels ----!\n", 9, 9, 1, 0, 1, 0, 1},
      {"empty", "", 9, 9, 1, 0, 1, 0, 1},
      {"letters first", "white black\n2\n", 0, 0, 2, 0, 1, 0, 1},
      {"two numbers for the set", "1 2\n2 3\n", 1, 2, 1, 0, 1, 0, 1},
      {"comment among levels", "1 2\n1\n! first\n" + default_levels(), 1, 2, 1, 0, 0, 0, 1},
      {"set 3 cut short", five_of_set3, 1, 2, 3, 3, 4, 0, 1},
      {"set out of range", "1 2\n9\n5 5\n", 1, 2, 9, 0, 1, 0, 1},
      {"garbage bytes", std::string("\x01\xff\x00zz\n\xfe=\n", 9) + "12abc 7e99\n", 0, 0, 1, 0, 0, 0, 1},
  };
  for (const row& r : rows) {
    reset_state();
    qp::bg_col = qp::fg_col = 9;
    write_settings(r.text);
    load_settings_file("KELDRANE");
    EXPECT_EQ(qp::bg_col, r.bg) << r.name;
    EXPECT_EQ(qp::fg_col, r.fg) << r.name;
    EXPECT_EQ(qp::set_color, r.set_color) << r.name;
    EXPECT_EQ(qp::level_lines[0].style, r.style1) << r.name;
    EXPECT_EQ(qp::level_lines[0].width, r.width1) << r.name;
    EXPECT_EQ(qp::level_lines[19].style, r.style20) << r.name;
    EXPECT_EQ(qp::level_lines[19].width, r.width20) << r.name;
    EXPECT_EQ(qp::var_browser, "") << r.name;
  }
  // Set 3 cut short: five user colours, the rest black on screen.
  EXPECT_EQ(palette_colour(197).value, 255);
  EXPECT_EQ(palette_colour(216).value, 0);
}

TEST_F(Settings, MissingFileChangesNothing) {
  igrpalette(0, 77);
  load_settings_file("KELDRANE");
  EXPECT_EQ(palette_colour(0).value, 77);
  EXPECT_EQ(qp::var_browser, "");
  EXPECT_EQ(qp::set_color, 1);
}

TEST_F(Settings, SaveMakesTheFolderAndAnUnwritableOneIsLetGo) {
  EXPECT_FALSE(std::filesystem::exists(home_ / ".ksu"));
  save_settings_file("QUELMORA");
  EXPECT_TRUE(std::filesystem::exists(settings_file()));
  // .ksu is a plain file here: nothing can be written, and nothing breaks.
  std::filesystem::remove_all(home_ / ".ksu");
  std::ofstream(home_ / ".ksu") << "x";
  save_settings_file("QUELMORA");
  EXPECT_TRUE(std::filesystem::is_regular_file(home_ / ".ksu"));
}

// The suite's file comes first; its line with "LastD" names the directory.
TEST_F(Settings, LastDirectoryIsReadFromTheSuiteFirst) {
  const auto one = dir_ / "one", two = dir_ / "two";
  std::filesystem::create_directories(one);
  std::filesystem::create_directories(two);
  struct row {
    std::string name, suite, own;
    std::filesystem::path now_in;
    std::string filedir;
  };
  const row rows[] = {
      {"suite wins", "Colour=3\nLastDir =  " + one.string() + "\nOther=1\n", two.string() + "\n", one, one.string()},
      {"blank suite entry", "LastDir=\nTheme = dark\n", two.string() + "\n", dir_, "Theme = dark"},
      {"own file only", "", two.string() + "\n", two, two.string()},
      {"blank own file", "", "\n", dir_, ""},
      {"nowhere to go", "", "/no/such/folder\n", dir_, "/no/such/folder"},
  };
  for (const row& r : rows) {
    iosdirchange(dir_.string());
    std::filesystem::remove_all(home_ / ".ksu");
    if (!r.suite.empty()) {
      std::filesystem::create_directories(home_ / ".ksu");
      std::ofstream(home_ / ".ksu" / "ksb.set") << r.suite;
    }
    std::ofstream(home_ / ".quelmora_dir") << r.own;
    qp::filedir = "before";
    directory_update();
    std::string now;
    iosdirname(now);
    EXPECT_EQ(now, r.now_in.string()) << r.name;
    EXPECT_EQ(qp::filedir, r.filedir) << r.name;
  }
  std::filesystem::remove(home_ / ".quelmora_dir");
  qp::filedir = "before";
  directory_update("READ");
  EXPECT_EQ(qp::filedir, "before");
}

// A user opens a map in another folder and leaves; started again without a
// file, the program is back in that folder.
TEST_F(Settings, DirectoryOfTheLastRunComesBack) {
  const auto other = dir_ / "other";
  std::filesystem::create_directories(other);
  std::filesystem::copy_file(dir_ / "nacl.bin", other / "nacl.bin");
  headless::queue_menu(40026);
  headless::answer_file((other / "nacl.bin").string());
  start_program();
  std::ifstream saved(home_ / ".quelmora_dir");
  std::string line;
  std::getline(saved, line);
  EXPECT_EQ(line, other.string());

  headless::install();
  iosdirchange(dir_.string());
  start_program();
  std::string now;
  iosdirname(now);
  EXPECT_EQ(now, other.string());
  EXPECT_EQ(qp::filedir, other.string());
}

// Settings are saved at the end only when the plot changed them and the user
// says Yes.
TEST_F(Settings, ClosingQuestionSavesChangedSettings) {
  qp::ksettings = true;
  qp::bg_col = 123;
  headless::answer_box(1);
  window_options_type how;
  windowopen2(how);
  closing_sequence();
  EXPECT_EQ(headless::box_texts(), std::vector<std::string>{"Do you want to save the present settings?"});
  reset_state();
  load_settings_file("KELDRANE");
  EXPECT_EQ(qp::bg_col, 123);
}

}  // namespace

namespace {

// The other platform keeps both files in the suite's folder, without the
// browser lines; with no folder at all the settings go to the current one
// and the directory file is left alone.
TEST_F(Settings, OtherPlatformFolders) {
  const auto suite = dir_ / "suite";
  std::filesystem::create_directories(suite);
  qp::var_system = "WIND";
  set_env("KELDRANE", suite.string());
  set_env("QUELMORA", suite.string());
  save_settings_file("QUELMORA");
  directory_update("w");
  std::ifstream written(suite / "quelmora.set");
  std::string line, last;
  while (std::getline(written, line)) last = line;
  EXPECT_EQ(last.substr(0, 5), "    0") << "the file ends with the level lines";
  EXPECT_TRUE(std::filesystem::exists(suite / "quelmora.dir"));

  set_env("KELDRANE", "");
  set_env("QUELMORA", "");
  save_settings_file("QUELMORA");
  EXPECT_TRUE(std::filesystem::exists(dir_ / "quelmora.set"));
  directory_update("write");
  EXPECT_FALSE(std::filesystem::exists(dir_ / "quelmora.dir"));
}

}  // namespace
