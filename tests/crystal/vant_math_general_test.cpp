#include "crystal/vant_math_general.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(MathGeneral, ScalarTestsAtDefaultTolerance) {
  ASSERT_FLOAT_EQ(epss_val(), 1.0e-5f);
  // {x, negligible, integral}
  const std::tuple<float, bool, bool> cases[] = {
      {0.0f, true, true},        {9.0e-6f, true, true}, {-9.0e-6f, true, true},  {2.0e-5f, false, false},
      {1.0f, false, true},       {2.999995f, false, true}, {-4.000008f, false, true}, {0.5f, false, false},
      {-0.49999f, false, false}, {7.00003f, false, false},
  };
  for (const auto& [x, negligible, integral] : cases) {
    EXPECT_EQ(negligibler(x), negligible) << x;
    EXPECT_EQ(zbelongn(x), integral) << x;
  }
}

}  // namespace
