// Operator texts: reading, writing and the tables' own texts.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_string_utilities_fraction.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

struct ReadCase {
  const char* text;
  mat3i rot;
  vec3f tr;
};

TEST(ReadXsym, AcceptedFormsAndDeliberateReadings) {
  const ReadCase cases[] = {
      {"x,y,z", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}},
      {"-y,x-y,z+1/3", {{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}}, {0, 0, 1.0f / 3}},
      {"1/2+x,y,z", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0.5f, 0, 0}},
      {"x+0.25,y,z", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0.25f, 0, 0}},
      {"2x,y,z", {{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}},
      {"X,Y,Z", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}},
      {" - x , y - 1/4 ,  z ", {{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, -0.25f, 0}},
      {"x*y*z*", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}},
      {"-1/2-x,y,z", {{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {-0.5f, 0, 0}},
      // two-digit denominators are read digit by digit: 1/12 is 1/1/2
      {"x,y,z+1/12", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0.5f}},
      {"x,y,z+0.0833", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0.0833f}},
      // the fraction flag survives a sign: 1/2 divided by 1 and by 4
      {"x+1/2+1/4,y,z", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0.125f, 0, 0}},
      // a multiplier is a single digit: 12x is the value 1 and 2x
      {"12x,y,z", {{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {1.0f, 0, 0}},
      {"y+3/4,x+1/4,-z+1/4", {{{0, 1, 0}, {1, 0, 0}, {0, 0, -1}}}, {0.75f, 0.25f, 0.25f}},
  };
  for (const auto& c : cases) {
    mat3i rot;
    vec3f tr;
    read_xsym(c.text, 1, rot, &tr);
    EXPECT_FALSE(err_symm) << c.text << ": " << err_symm_mess;
    EXPECT_EQ(rot, c.rot) << c.text;
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(tr[i], c.tr[i], 1e-6) << c.text;
  }
  mat3i rot;
  read_xsym("gen -x,-y,z", 5, rot);
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(rot[0][0], -1);
}

struct FailCase {
  const char* text;
  bool det_check;
  const char* message;
};

TEST(ReadXsym, Failures) {
  const FailCase cases[] = {
      {"x,y", true, " Blank operator field"},
      {"x,,z", true, " Blank operator field"},
      {"", true, " Blank operator field"},
      {"x,y,q", true, " Invalid character... q in operator string"},
      {"x;y,z", true, " Invalid character... ; in operator string"},
      {"x,x,z", true, " The above operator is wrong: x,x,z"},
      {"x,y,z+1/0", true, " Division by zero in operator string"},
  };
  for (const auto& c : cases) {
    mat3i rot;
    vec3f tr;
    read_xsym(c.text, 1, rot, &tr, c.det_check);
    EXPECT_TRUE(err_symm) << c.text;
    EXPECT_EQ(err_symm_mess, c.message) << c.text;
  }
  mat3i rot;
  read_xsym("x,x,z", 1, rot, nullptr, false);
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(rot[1][0], 1);
  // the rotation read so far is kept
  read_xsym("-y,x,q", 1, rot);
  EXPECT_EQ(rot[0][1], -1);
  EXPECT_EQ(rot[1][0], 1);
}

struct FractionCase {
  float v;
  const char* text;
};

TEST(Fraction2dig, IntegersFractionsAndDecimals) {
  const FractionCase cases[] = {
      {0.0f, "0"},         {1.0f, "+1"},         {-1.0f, "-1"},        {2.0f, "+2"},
      {0.5f, "+1/2"},      {-0.5f, "-1/2"},      {0.75f, "+3/4"},      {2.0f / 3, "+2/3"},
      {1.5f, "+3/2"},      {1.0f / 12, "+1/12"}, {-5.0f / 24, "-5/24"}, {0.1234f, "+0.1234"},
      {-0.0003f, "-0.0003"}, {0.0003f, "+0.0003"}, {0.0833f, "+0.0833"},
  };
  for (const auto& c : cases) EXPECT_EQ(get_fraction_2dig(c.v), c.text) << c.v;
  EXPECT_EQ(pack_string(" a b  c "), "abc");
}

template <typename Matrix>
struct WriteCase {
  Matrix rot;
  vec3f tr;
  const char* text;
};

template <typename Matrix, typename Writer>
void expect_texts(const std::vector<WriteCase<Matrix>>& cases, Writer writer) {
  for (const auto& c : cases) {
    std::string text;
    writer(c.rot, c.tr, text);
    EXPECT_EQ(text, c.text);
  }
}

TEST(GetSymsymbi, Texts) {
  expect_texts<mat3i>({
      {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}, "x,y,z"},
      {{{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}}, {0, 0, 1.0f / 3}, "-y,x-y,z+1/3"},
      {{{{-1, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}, {0.5f, 0, 0.25f}, "-x+y+1/2,-x,z+1/4"},
      {{{{2, 0, 0}, {0, -2, 0}, {0, 0, 1}}}, {0, 0, 0}, "2x,-2y,z"},
      {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0.0002f, -0.0002f, 0.0003f}, "x,y,z+0.0003"},
      {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {-0.5f, 0, 0}, "x-1/2,y,z"},
  }, get_symsymbi);
}

TEST(GetSymsymbr, Texts) {
  expect_texts<mat3f>({
      {{{{1, 0, 0}, {0, 0, 0}, {0, 0, 1}}}, {0, 0.25f, 0}, "x,1/4,z"},
      {{{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}}, {0, 0.5f, 0}, "0,1/2,0"},
      {{{{1, 0, 0}, {2, 0, 0}, {0, 0, 0}}}, {0, 0, 0.25f}, "x,2x,1/4"},
      {{{{-1, 0, 0}, {1, 0, 0}, {0, 0, 1}}}, {0.5f, 0.25f, 0}, "-x+1/2,x+1/4,z"},
      {{{{0.5f, 0, 0}, {1.5f, 0, 0}, {0, -1, 1}}}, {0, 0, 0}, "x/2,3x/2,-y+z"},
      {{{{1, -0.5f, 0}, {0, 1, 0}, {0, 0, -2}}}, {0, 0, 0}, "x-y/2,y,-2z"},
      {{{{0, 1, 0}, {0, 0, 0}, {0, 0, 0}}}, {0.0002f, 0.0003f, 1}, "y,0.0003,1"},
  }, get_symsymbr);
}

// Every generator of every group, written back, reads as the same operator.
TEST(OperatorTexts, EveryGeneratorWritesAndReadsBack) {
  set_it_gen();
  int checked = 0;
  for (const auto& row : spg_gen) {
    std::string rest = row.substr(11);
    std::size_t start = 0;
    while (start < rest.size()) {
      const auto end = rest.find(';', start);
      const std::string op = rest.substr(start, end == std::string::npos ? std::string::npos : end - start);
      start = end == std::string::npos ? rest.size() : end + 1;
      mat3i rot, again;
      vec3f tr, tr_again;
      read_xsym(op, 1, rot, &tr);
      ASSERT_FALSE(err_symm) << row << ": " << err_symm_mess;
      std::string text;
      get_symsymbi(rot, tr, text);
      EXPECT_EQ(text, std::string(op.substr(op.find_first_not_of(' ')))) << row;
      read_xsym(text, 1, again, &tr_again);
      EXPECT_EQ(again, rot) << row;
      for (int i = 0; i < 3; ++i) EXPECT_NEAR(tr_again[i], tr[i], 1e-6) << row;
      ++checked;
    }
  }
  EXPECT_GT(checked, 600);
}

// The Wyckoff texts are in the form the position writer gives.
TEST(OperatorTexts, WyckoffTextsAreWhatThePositionWriterGives) {
  set_wyckoff_info();
  for (const auto& w : wyckoff_info) {
    for (int k = 0; k < w.orbits; ++k) {
      mat3i rot;
      vec3f tr;
      read_xsym(w.orbit[k], 1, rot, &tr, false);
      ASSERT_FALSE(err_symm) << w.hm << " " << w.orbit[k];
      mat3f real;
      for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) real[i][j] = static_cast<float>(rot[i][j]);
      std::string text;
      get_symsymbr(real, tr, text);
      EXPECT_EQ(text, w.orbit[k]) << w.hm;
    }
  }
}

TEST(OperatorTexts, Mod6RowsAreTheirOperators) {
  const char* texts[36] = {"x,y,z",   "-x,-y,z",  "-x,y,-z",  "x,-y,-z",  "z,x,y",      "z,-x,-y",
                           "-z,-x,y", "-z,x,-y",  "y,z,x",    "-y,z,-x",  "y,-z,-x",    "-y,-z,x",
                           "y,x,-z",  "-y,-x,-z", "y,-x,z",   "-y,x,z",   "x,z,-y",     "-x,z,y",
                           "-x,-z,-y", "x,-z,y",  "z,y,-x",   "z,-y,x",   "-z,y,x",     "-z,-y,-x",
                           "x,y,z",   "-y,x-y,z", "-x+y,-x,z", "-x,-y,z", "y,-x+y,z",   "x-y,x,z",
                           "y,x,-z",  "x-y,-y,-z", "-x,-x+y,-z", "-y,-x,-z", "-x+y,y,-z", "x,x-y,-z"};
  for (int k = 0; k < 36; ++k) {
    mat3i rot;
    read_xsym(texts[k], 1, rot);
    EXPECT_EQ(mod6[k], rot) << k + 1;
    EXPECT_EQ(std::abs(axes_rotation(rot)) >= 1, true);
  }
}

}  // namespace
