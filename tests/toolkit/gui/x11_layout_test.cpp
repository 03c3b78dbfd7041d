// Pure parts of the X11 face: status bar widths and the file selector's
// filter string.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "toolkit/x11/x11_file_selector.h"
#include "toolkit/x11/x11_selector_list.h"
#include "toolkit/x11/x11_statusbar.h"

namespace {

TEST(StatusBarWidths, InTenThousandthsAndPixels) {
  struct row {
    std::vector<int> widths;
    bool pixels;
    int total;
    std::vector<int> expected;
  };
  const row rows[] = {
      // The program's bar: half, three tenths and the rest.
      {{5000, 3000, -1}, false, 1000, {500, 300, 200}},
      {{5000, 3000, -1}, false, 1023, {511, 306, 206}},
      {{-1}, false, 640, {640}},
      {{2500, 2500}, false, 400, {100, 100}},
      {{100, -1, 50}, true, 400, {100, 250, 50}},
      // Fixed parts wider than the bar: the rest is 0 and the last part is cut.
      {{8000, -1, 4000}, false, 1000, {800, 0, 200}},
      {{300, 300}, true, 400, {300, 100}},
      {{5000, -1}, false, 0, {0, 0}},
      {{5000, -1}, false, -20, {0, 0}},
  };
  for (const row& r : rows) {
    EXPECT_EQ(status_part_pixels(r.widths, r.pixels, r.total), r.expected) << r.total;
  }
}

TEST(FileFilter, PairsOfDescriptionAndPatterns) {
  const auto rows = parse_file_filter("Fourier Input File|*.inp;*.bin;*.asc;*.map|");
  ASSERT_EQ(rows.size(), 1u) << "a filter of one pair shows one row";
  EXPECT_EQ(rows[0].description, "Fourier Input File");
  EXPECT_EQ(rows[0].patterns, (std::vector<std::string>{"*.inp", "*.bin", "*.asc", "*.map"}));

  const auto two = parse_file_filter("Fourier Output |*.out;*.fout|All files|*|   ");
  ASSERT_EQ(two.size(), 2u);
  EXPECT_EQ(two[0].description, "Fourier Output");
  EXPECT_EQ(two[1].patterns, (std::vector<std::string>{"*"}));

  for (const char* bad : {"", "   ", "|", "Only a description|", "No bar at all"}) {
    const auto fallback = parse_file_filter(bad);
    ASSERT_EQ(fallback.size(), 1u) << bad;
    EXPECT_EQ(fallback[0].patterns, (std::vector<std::string>{"*"})) << bad;
  }
}

TEST(FileFilter, LongFiltersAreCutAtAThousandCharacters) {
  const std::string long_filter = "Maps|" + std::string(994, 'x') + ";*.bin|";
  const auto rows = parse_file_filter(long_filter);
  ASSERT_EQ(rows.size(), 1u);
  // The cut falls inside the pattern list: the ";*.bin|" behind it is gone.
  EXPECT_FALSE(file_matches("nacl.bin", rows[0].patterns));
}

TEST(FileFilter, Matching) {
  const std::vector<std::string> patterns = {"*.inp", "*.bin", "*.asc", "*.map"};
  struct row {
    const char* name;
    bool matches;
  };
  const row rows[] = {{"nacl.bin", true}, {"data.v2.inp", true}, {"nacl.bin~", false},
                      {"NACL.BIN", false}, {"map", false},       {".inp", true}};
  for (const row& r : rows) EXPECT_EQ(file_matches(r.name, patterns), r.matches) << r.name;
}

TEST(FileSelection, OrderOfTheList) {
  const std::vector<file_entry> files = {
      {"nacl.bin", 300, 20}, {"kcl.inp", 100, 30}, {"a.map", 300, 10}, {"README", 5, 40}};
  struct row {
    file_order order;
    bool reverse;
    std::vector<std::string> expected;
  };
  const row rows[] = {
      {file_order::name, false, {"README", "a.map", "kcl.inp", "nacl.bin"}},
      {file_order::name, true, {"nacl.bin", "kcl.inp", "a.map", "README"}},
      {file_order::date, false, {"a.map", "nacl.bin", "kcl.inp", "README"}},
      // Equal sizes fall back on the name.
      {file_order::size, false, {"README", "kcl.inp", "a.map", "nacl.bin"}},
      // No extension sorts first.
      {file_order::extension, false, {"README", "nacl.bin", "kcl.inp", "a.map"}},
      {file_order::extension, true, {"a.map", "kcl.inp", "nacl.bin", "README"}},
  };
  for (const row& r : rows) {
    std::vector<file_entry> entries = files;
    order_files(entries, r.order, r.reverse);
    std::vector<std::string> names;
    for (const file_entry& e : entries) names.push_back(e.name);
    EXPECT_EQ(names, r.expected) << static_cast<int>(r.order) << r.reverse;
  }
}

TEST(FileSelection, OpenAndSaveChecks) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / ("quelmora-check-" + std::to_string(getpid()));
  fs::create_directories(folder / "sub");
  std::ofstream(folder / "nacl.bin") << "x";
  const std::string existing = (folder / "nacl.bin").string();
  const std::string missing = (folder / "kcl.inp").string();
  const std::string no_path = (folder / "nowhere" / "kcl.inp").string();
  struct row {
    std::string path;
    bool save;
    selection_check expected;
  };
  const row rows[] = {
      {existing, false, selection_check::accept},
      {existing, true, selection_check::ask_replace},
      {missing, false, selection_check::not_found},
      {missing, true, selection_check::accept},
      {no_path, false, selection_check::no_path},
      {no_path, true, selection_check::no_path},
      {(folder / "sub").string(), false, selection_check::not_a_file},
      {"", true, selection_check::not_a_file},
  };
  for (const row& r : rows) {
    EXPECT_EQ(check_selection(r.path, r.save), r.expected) << r.path << (r.save ? " save" : " open");
  }
  fs::remove_all(folder);
}

}  // namespace
