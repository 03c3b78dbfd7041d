// The settings file and the directory file: their layout on disk, what a
// damaged file leaves, and the last directory carried from one run to the next.
#include <gtest/gtest.h>
#include <sys/resource.h>

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
};

// Each colour set written against its file (set 3 with the user's colours
// first on each line; 7 is out of range and keeps no level lines), then read
// back: the levels, the user's colours and the browser come back, and the
// palette takes set 2 or the user's set, while set 1 leaves it as it was.
TEST_F(Settings, EachColourSetIsWrittenAndReadBack) {
  for (std::int32_t set : {1, 2, 3, 7}) {
    reset_state();
    qp::bg_col = 1193046;
    qp::fg_col = 42;
    qp::set_color = set;
    for (std::int32_t i = 0; i < 20; ++i) {
      qp::level_lines[i] = {197 + i, i % 4, i % 3 + 1};
      qp::set3_rojo[i] = 10 * i, qp::set3_verde[i] = 255 - i, qp::set3_azul[i] = i;
    }
    qp::var_browser = "/usr/bin/firefox --new-window";
    const auto written = qp::level_lines;
    const auto red = qp::set3_rojo, green = qp::set3_verde, blue = qp::set3_azul;
    save_settings_file("QUELMORA");
    EXPECT_EQ(qp::fileset, settings_file().string());
    EXPECT_EQ(text_of(settings_file()), data_text("app/settings_set" + std::to_string(set) + ".set")) << set;
    reset_state();
    igrpalette(202, 7);
    load_settings_file("KELDRANE");
    EXPECT_EQ(qp::set_color, set);
    for (std::size_t i = 0; i < 20; ++i) {
      EXPECT_EQ(qp::level_lines[i].style, set == 7 ? 0 : written[i].style) << set << " " << i;
      EXPECT_EQ(qp::level_lines[i].width, set == 7 ? 1 : written[i].width) << set << " " << i;
    }
    EXPECT_TRUE(set != 3 || (qp::set3_rojo == red && qp::set3_verde == green && qp::set3_azul == blue));
    EXPECT_EQ(yyhelp_viewer(), "/usr/bin/firefox --new-window");
    EXPECT_EQ(palette_colour(0).value, 1193046);
    EXPECT_EQ(palette_colour(120).value, 42);
    const std::int32_t level5 = set == 3   ? wrgb(50, 250, 5)
                                : set == 2 ? wrgb(qp::set2_rojo[5], qp::set2_verde[5], qp::set2_azul[5])
                                           : 7;
    EXPECT_EQ(palette_colour(202).value, level5) << set;
  }
}

// The part of the state a reading sets, by the names the data file uses.
std::string value_of(const std::string& name) {
  const auto& l = qp::level_lines;
  std::string s = name == "colours"   ? joined(qp::bg_col, qp::fg_col, qp::set_color)
                  : name == "levels"  ? joined(l[0].style, l[0].width, l[19].style, l[19].width)
                  : name == "user"    ? joined(qp::set3_rojo[0], qp::set3_verde[0], qp::set3_azul[0], qp::set3_rojo[19],
                                               qp::set3_verde[19], qp::set3_azul[19])
                  : name == "palette" ? joined(palette_colour(197).value, palette_colour(216).value)
                  : name == "browser" ? qp::var_browser
                  : name == "suite"   ? qp::var_suite
                                      : "unknown value " + name;
  return s.substr(0, s.find_last_not_of(' ') + 1);
}

// Each case of the data file read on a state whose colours are 9.
TEST_F(Settings, ReadsEachCase) {
  set_env("KELDRANE", " /opt/keldrane");
  for (const data_case& c : data_cases("app/settings_cases.txt")) {
    reset_state();
    qp::bg_col = qp::fg_col = 9;
    write_settings(c.input);
    load_settings_file("KELDRANE");
    for (const auto& [name, want] : c.values) EXPECT_EQ(value_of(name), want) << c.name << ": " << name;
    EXPECT_EQ(qp::fileset, home_.string()) << c.name;
  }
}

// No file changes nothing; a save makes the folder, and a folder that cannot
// be made is let go.
TEST_F(Settings, MissingFileAndFolder) {
  igrpalette(0, 77);
  load_settings_file("KELDRANE");
  EXPECT_EQ(palette_colour(0).value, 77);
  EXPECT_EQ(qp::set_color, 1);
  save_settings_file("QUELMORA");
  EXPECT_TRUE(std::filesystem::exists(settings_file()));
  std::filesystem::remove_all(home_ / ".ksu");
  std::ofstream(home_ / ".ksu") << "x";
  save_settings_file("QUELMORA");
  EXPECT_TRUE(std::filesystem::is_regular_file(home_ / ".ksu"));
}

// A disk that fills half way (here the file-size limit) leaves the old
// settings and folder files whole, and the user is told which and why.
TEST_F(Settings, AFailedSaveKeepsTheOldFiles) {
  write_settings("old settings\n");
  std::ofstream(home_ / ".quelmora_dir") << "/old/folder\n";
  rlimit saved{};
  getrlimit(RLIMIT_FSIZE, &saved);
  rlimit small = saved;
  small.rlim_cur = 12;
  setrlimit(RLIMIT_FSIZE, &small);
  save_settings_file("QUELMORA");
  directory_update("w");
  setrlimit(RLIMIT_FSIZE, &saved);
  EXPECT_EQ(text_of(settings_file()), "old settings\n");
  EXPECT_EQ(text_of(home_ / ".quelmora_dir"), "/old/folder\n");
  EXPECT_EQ(headless::box_texts(),
            (std::vector<std::string>{"The settings were not saved: " + settings_file().string() + ": File too large",
                                      "The working folder was not saved: " + (home_ / ".quelmora_dir").string() +
                                          ": File too large"}));
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
  start();
  EXPECT_EQ(text_of(home_ / ".quelmora_dir"), other.string() + "\n");
  headless::install();
  iosdirchange(dir_.string());
  start();
  std::string now;
  iosdirname(now);
  EXPECT_EQ(now, other.string());
  EXPECT_EQ(qp::filedir, other.string());
}

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
  const std::string written = text_of(suite / "quelmora.set");
  EXPECT_EQ(written.substr(written.size() - 11), "    0    1\n") << "the file ends with the level lines";
  EXPECT_TRUE(std::filesystem::exists(suite / "quelmora.dir"));
  set_env("KELDRANE", "");
  set_env("QUELMORA", "");
  save_settings_file("QUELMORA");
  EXPECT_TRUE(std::filesystem::exists(dir_ / "quelmora.set"));
  directory_update("write");
  EXPECT_FALSE(std::filesystem::exists(dir_ / "quelmora.dir"));
}

}  // namespace
