#include <gtest/gtest.h>

#include "crystal/farray.h"
#include "crystal/fixed_text.h"

// The first index runs fastest and indices start at 1: element (i,j,k) of a
// 3 x 4 x 5 grid is number (i-1) + 3*((j-1) + 4*(k-1)) of the block.
TEST(Farray, FortranOrderFromOne) {
  farray3<float> a(3, 4, 5);
  for (int k = 1; k <= 5; ++k)
    for (int j = 1; j <= 4; ++j)
      for (int i = 1; i <= 3; ++i) a(i, j, k) = static_cast<float>(100 * i + 10 * j + k);
  EXPECT_EQ(a.data()[0], 111.0f);
  EXPECT_EQ(a.data()[1], 211.0f);
  EXPECT_EQ(a.data()[3], 121.0f);
  EXPECT_EQ(a.data()[12], 112.0f);
  EXPECT_EQ(a.data()[59], 345.0f);
  farray3<float> empty(0, 10, -2);
  EXPECT_TRUE(empty.allocated());
  EXPECT_EQ(empty.size(), 0u);
  EXPECT_EQ(empty.extent(3), 0);
}

TEST(FixedText, BlankPaddedFields) {
  EXPECT_EQ(fixed_text::padded("P 21/c", 8), "P 21/c  ");
  EXPECT_EQ(fixed_text::padded("abcdef", 3), "abc");
  EXPECT_TRUE(fixed_text::same("Na  ", "Na"));
  EXPECT_FALSE(fixed_text::same(" Na", "Na"));
  EXPECT_TRUE(fixed_text::is_blank("   "));
  EXPECT_EQ(fixed_text::assigned("abc   def", 5), "abc");
}
