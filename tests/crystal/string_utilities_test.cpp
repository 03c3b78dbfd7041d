#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <unistd.h>

#include "crystal/vant_string_utilities.h"
#include "tests/data_files.h"

namespace {

TEST(Cutst, FirstWordOff) {
  const auto all = std::string::npos;
  // {line, rest, word, length of the rest, length of the word, room for the word}
  const std::tuple<std::string, std::string, std::string, std::int32_t, std::int32_t, std::size_t> cases[] = {
      {"", "", "", 0, 0, all},       {"     ", "", "", 0, 0, all},   {"word", "", "word", 0, 4, all},
      {"  ab   cd ef  ", "cd ef", "ab", 5, 2, all},
      {"abcdef gh", "gh", "abc", 2, 3, 3},  // word cut to its output
      {"a,b c", "c", "a,b", 1, 3, all},     // only the blank separates
      {"a\tb c", "c", "a\tb", 1, 3, all},
  };
  for (const auto& [text, rest, first, nlong1, nlong2, word_size] : cases) {
    std::string line = text, word = "junk";
    std::int32_t n1 = -1, n2 = -1;
    cutst(line, &n1, &word, &n2, word_size);
    EXPECT_EQ(std::make_tuple(line, word, n1, n2), std::make_tuple(rest, first, nlong1, nlong2)) << "[" << text << "]";
  }
}

TEST(Getnum, TrickyInputs) {
  const std::map<std::string, std::string> messages = {
      {"-", ""},
      {"nan", "The variable cannot be computed as a number in GETNUM"},
      {"limits", "Limits of digit variable exceeded in GETNUM"}};
  for (const auto& row : data_table("crystal/getnum.txt", 5)) {
    const std::string& line = row[1];
    const auto reals = numbers(row[2]);
    const auto ints = numbers<std::int32_t>(row[3]);
    SCOPED_TRACE("[" + line + "]");
    float v[3] = {9, 9, 9};
    std::int32_t iv[3] = {9, 9, 9};
    std::int32_t n = -1;
    err_string = true;
    getnum(line, v, iv, n);
    ASSERT_EQ(n, static_cast<std::int32_t>(reals.size()));
    for (std::size_t k = 0; k < 3; ++k) EXPECT_FLOAT_EQ(v[k], k < reals.size() ? reals[k] : 0.0f);
    for (std::size_t k = 0; k < reals.size(); ++k) EXPECT_EQ(iv[k], ints[k]);
    EXPECT_EQ(std::tie(err_string, err_string_mess), std::make_tuple(row[4] != "-", messages.at(row[4])));
  }
}

TEST(Getword, WordsAndQuotes) {
  const std::tuple<std::string, std::vector<std::string>, const char*, std::size_t> cases[] = {
      {"a \"b c\" d", {"a", "b c", "d"}, nullptr, std::string::npos},
      {"  Fe1  Fe3+ ", {"Fe1", "Fe3+"}, nullptr, std::string::npos},
      {"", {}, nullptr, std::string::npos}, {"\"", {}, "Non balanced quotes!", std::string::npos},
      {"say \"hello", {}, "Non balanced quotes!", std::string::npos},
      {"w x y z", {"w", "x", "y"}, "Dimension of DIRE exceeded", std::string::npos},
      {"longword \"two words\"", {"long", "two "}, nullptr, 4},
  };
  for (const auto& [line, words, fault, word_size] : cases) {
    SCOPED_TRACE("[" + line + "]");
    std::string dire[3];
    std::int32_t n = -1;
    err_string = false;
    err_string_mess.clear();
    getword(line, dire, n, word_size);
    ASSERT_EQ(n, static_cast<std::int32_t>(words.size()));
    for (std::size_t k = 0; k < words.size(); ++k) EXPECT_EQ(dire[k], words[k]);
    EXPECT_EQ(std::tie(err_string, err_string_mess), std::make_tuple(fault != nullptr, fault ? fault : ""));
  }
}

TEST(GetnumStd, ValuesWithUncertainties) {
  const char* wrong = "Wrong format using Standard values";
  const std::tuple<std::string, std::vector<std::pair<float, float>>, const char*> cases[] = {
      {"1.234(5) 12(3) 7", {{1.234f, 0.005f}, {12.0f, 3.0f}, {7.0f, 0.0f}}, nullptr},
      {"-0.25(12) 90", {{-0.25f, 0.12f}, {90.0f, 0.0f}}, nullptr},
      {"5.4321(11)", {{5.4321f, 0.0011f}}, nullptr}, {"1.0(1) ! 2.0(3)", {{1.0f, 0.1f}}, nullptr},
      {"3 # 4", {{3.0f, 0.0f}}, nullptr},           {"   ! only a comment", {}, nullptr},
      {"", {}, "Blank line"},                       {"1.5(2 3", {}, wrong},
      {"2 1.5)2(", {{2.0f, 0.0f}}, wrong},
      {"x(1)", {}, "The variable cannot be computed as a number in GETNUM"},
  };
  for (const auto& [line, values, fault] : cases) {
    SCOPED_TRACE("[" + line + "]");
    float v[4], s[4];
    std::int32_t n = -1;
    getnum_std(line, v, s, n);
    ASSERT_EQ(n, static_cast<std::int32_t>(values.size()));
    for (std::size_t k = 0; k < values.size(); ++k) {
      EXPECT_FLOAT_EQ(v[k], values[k].first);
      EXPECT_NEAR(s[k], values[k].second, 1e-7);
    }
    EXPECT_EQ(std::tie(err_string, err_string_mess), std::make_tuple(fault != nullptr, fault ? fault : ""));
  }
}

TEST(GetFraction2dig, IntegersFractionsAndDecimals) {
  for (const auto& row : data_table("crystal/fractions.txt", 2))
    EXPECT_EQ(get_fraction_2dig(std::stof(row[0])), row[1]) << row[0];
}

TEST(ReadKey, FindsTheFirstLineWithTheKey) {
  const std::vector<std::string> lines = {
      "! cell 1 2 3", "", "TITLE something", "  Cell  5.1 6.2 7.3 90 90 90", "SpaceGroup P 21/c", "# cell 4",
      "x unitcell 9(2)",
  };
  // {key, first, last, comment character, line found, rest of the line}
  const std::tuple<const char*, std::int32_t, std::int32_t, char, std::int32_t, const char*> cases[] = {
      {"cell", 1, 7, ' ', 4, "5.1 6.2 7.3 90 90 90"},
      {" CELL", 5, 7, '#', 7, "9(2)"},         // within a word; '#' lines passed over
      {"cell", 5, 7, ' ', 6, "4"},             // without that comment character
      {"spacegroup", 1, 7, ' ', 5, "P 21/c"},  // as written in the file
      {"cell", 5, 5, ' ', 5, ""},              // not in range: first stays
      {"cell", 8, 20, ' ', 8, ""},             // first beyond the lines
      {"atom", 1, 7, ' ', 1, ""},
  };
  for (const auto& [key, from, last, comment, found_at, rest] : cases) {
    std::int32_t first = from;
    std::string text = "junk";
    read_key_str(lines, first, last, key, text, comment);
    EXPECT_EQ(first, found_at) << key << " from " << from;
    EXPECT_EQ(text, rest) << key << " from " << from;
  }

  std::int32_t first = 1, n = 0;
  float v[6], s[6];
  std::int32_t iv[6];
  read_key_value(lines, first, 7, "cell", v, iv, n);
  ASSERT_EQ(n, 6);
  EXPECT_FLOAT_EQ(v[2], 7.3f);
  EXPECT_EQ(iv[3], 90);
  std::string text;
  first = 1;
  read_key_strval(lines, first, 7, "title", text, v, iv, &n);
  EXPECT_EQ(text, "something");
  EXPECT_EQ(n, 0);
  EXPECT_TRUE(err_string);  // "something" is not a number
  first = 5;
  read_key_valuestd(lines, first, 7, "unitcell", v, s, n);
  ASSERT_EQ(n, 1);
  EXPECT_FLOAT_EQ(v[0], 9.0f);
  EXPECT_FLOAT_EQ(s[0], 2.0f);
}

TEST(NumberLines, CountsAndReads) {
  // Named after the process: several builds may run their tests at once.
  const std::string path = ::testing::TempDir() + "quelmora_lines_" + std::to_string(getpid()) + ".txt";
  std::ofstream(path, std::ios::binary) << "first\r\n  second\n  end of data\nafter\n" << std::string(300, 'x') << "\n";
  const std::pair<const char*, std::int32_t> cases[] = {{"", 5}, {"END", 3}, {"  end", 3}, {"Sec", 2}, {"none", 5}};
  for (const auto& [key, count] : cases) {
    std::int32_t n = -1;
    number_lines(path, n, key);
    EXPECT_EQ(n, count) << key;
  }
  std::int32_t n = -1;
  number_lines(path + ".missing", n);
  EXPECT_EQ(n, 0);

  std::vector<std::string> lines;
  reading_lines(path, 5, lines);
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[0], "first");
  EXPECT_EQ(lines[1], "  second");
  EXPECT_EQ(lines[4].size(), 256u);
  reading_lines(path, 2, lines);
  EXPECT_EQ(lines.size(), 2u);
  reading_lines(path, 1000000000, lines);  // a count beyond the file reads what is there
  EXPECT_EQ(lines.size(), 5u);
  std::remove(path.c_str());
}

}  // namespace
