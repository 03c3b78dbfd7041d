// Operator texts: reading, writing and the tables' own texts.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"

namespace {

const mat3i identity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

struct ReadCase {
  const char* text;
  mat3i rot;
  vec3f tr;
};

TEST(ReadXsym, AcceptedFormsAndDeliberateReadings) {
  const ReadCase cases[] = {
      {"x,y,z", identity, {0, 0, 0}},        {"-y,x-y,z+1/3", {{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}}, {0, 0, 1.0f / 3}},
      {"1/2+x,y,z", identity, {0.5f, 0, 0}}, {"x+0.25,y,z", identity, {0.25f, 0, 0}},
      {"2x,y,z", {{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, 0, 0}},
      {"X,Y,Z", identity, {0, 0, 0}},        {"x*y*z*", identity, {0, 0, 0}},
      {" - x , y - 1/4 ,  z ", {{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {0, -0.25f, 0}},
      {"-1/2-x,y,z", {{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {-0.5f, 0, 0}},
      // two-digit denominators are read digit by digit: 1/12 is 1/1/2
      {"x,y,z+1/12", identity, {0, 0, 0.5f}},
      {"x,y,z+0.0833", identity, {0, 0, 0.0833f}},
      // the fraction flag survives a sign: 1/2 divided by 1 and by 4
      {"x+1/2+1/4,y,z", identity, {0.125f, 0, 0}},
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
  read_xsym("gen -x,-y,z", 5, rot);  // read from the given column
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(rot[0][0], -1);
}

TEST(ReadXsym, Failures) {
  const std::pair<const char*, const char*> cases[] = {
      {"x,y", " Blank operator field"}, {"x,,z", " Blank operator field"}, {"", " Blank operator field"},
      {"x,y,q", " Invalid character... q in operator string"},
      {"x;y,z", " Invalid character... ; in operator string"},
      {"x,x,z", " The above operator is wrong: x,x,z"},
      {"x,y,z+1/0", " Division by zero in operator string"},
  };
  for (const auto& [text, message] : cases) {
    mat3i rot;
    vec3f tr;
    read_xsym(text, 1, rot, &tr);
    EXPECT_TRUE(err_symm) << text;
    EXPECT_EQ(err_symm_mess, message) << text;
  }
  mat3i rot;
  read_xsym("x,x,z", 1, rot, nullptr, false);  // no determinant check
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(rot[1][0], 1);
  // the rotation read so far is kept
  read_xsym("-y,x,q", 1, rot);
  EXPECT_EQ(rot[0][1], -1);
  EXPECT_EQ(rot[1][0], 1);
}

TEST(OperatorTexts, IntegerAndRealRotations) {
  const std::tuple<mat3i, vec3f, const char*> integer[] = {
      {identity, {0, 0, 0}, "x,y,z"},
      {{{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}}, {0, 0, 1.0f / 3}, "-y,x-y,z+1/3"},
      {{{{-1, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}, {0.5f, 0, 0.25f}, "-x+y+1/2,-x,z+1/4"},
      {{{{2, 0, 0}, {0, -2, 0}, {0, 0, 1}}}, {0, 0, 0}, "2x,-2y,z"},
      {identity, {0.0002f, -0.0002f, 0.0003f}, "x,y,z+0.0003"},
      {identity, {-0.5f, 0, 0}, "x-1/2,y,z"},
  };
  for (const auto& [rot, tr, expected] : integer) {
    std::string text;
    get_symsymbi(rot, tr, text);
    EXPECT_EQ(text, expected);
  }
  const std::tuple<mat3f, vec3f, const char*> real[] = {
      {{{{1, 0, 0}, {0, 0, 0}, {0, 0, 1}}}, {0, 0.25f, 0}, "x,1/4,z"},
      {{{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}}, {0, 0.5f, 0}, "0,1/2,0"},
      {{{{1, 0, 0}, {2, 0, 0}, {0, 0, 0}}}, {0, 0, 0.25f}, "x,2x,1/4"},
      {{{{-1, 0, 0}, {1, 0, 0}, {0, 0, 1}}}, {0.5f, 0.25f, 0}, "-x+1/2,x+1/4,z"},
      {{{{0.5f, 0, 0}, {1.5f, 0, 0}, {0, -1, 1}}}, {0, 0, 0}, "x/2,3x/2,-y+z"},
      {{{{1, -0.5f, 0}, {0, 1, 0}, {0, 0, -2}}}, {0, 0, 0}, "x-y/2,y,-2z"},
      {{{{0, 1, 0}, {0, 0, 0}, {0, 0, 0}}}, {0.0002f, 0.0003f, 1}, "y,0.0003,1"},
  };
  for (const auto& [rot, tr, expected] : real) {
    std::string text;
    get_symsymbr(rot, tr, text);
    EXPECT_EQ(text, expected);
  }
}

}  // namespace
