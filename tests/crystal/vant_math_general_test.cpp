#include "crystal/vant_math_general.h"

#include <gtest/gtest.h>

namespace {

struct ScalarCase {
  float x;
  bool negligible;
  bool integral;
};

TEST(MathGeneral, ScalarTestsAtDefaultTolerance) {
  ASSERT_FLOAT_EQ(epss_val(), 1.0e-5f);
  const ScalarCase cases[] = {
      {0.0f, true, true},         {9.0e-6f, true, true},     {-9.0e-6f, true, true},
      {2.0e-5f, false, false},    {1.0f, false, true},       {2.999995f, false, true},
      {-4.000008f, false, true},  {0.5f, false, false},      {-0.49999f, false, false},
      {7.00003f, false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(negligibler(c.x), c.negligible) << c.x;
    EXPECT_EQ(zbelongn(c.x), c.integral) << c.x;
  }
}

TEST(MathGeneral, VectorTestsAndChangedTolerance) {
  EXPECT_TRUE(zbelongv({1.0f, -2.0f, 0.0f}));
  EXPECT_FALSE(zbelongv({1.0f, -2.0f, 0.5f}));
  EXPECT_TRUE(equal_vector_r({0.25f, 0.5f, 0.75f}, {0.250005f, 0.5f, 0.749995f}));
  EXPECT_FALSE(equal_vector_r({0.25f, 0.5f, 0.75f}, {0.25f, 0.5001f, 0.75f}));

  set_epsg(0.001f);
  EXPECT_TRUE(equal_vector_r({0.25f, 0.5f, 0.75f}, {0.25f, 0.5005f, 0.75f}));
  EXPECT_TRUE(zbelongn(2.0008f));
  set_epsg(1.0e-5f);
  EXPECT_FALSE(zbelongn(2.0008f));
}

}  // namespace
