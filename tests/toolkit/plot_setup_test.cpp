#include <cmath>
#include <vector>

#include "tests/toolkit/plot_fixture.h"

using plot_setup = recorded_plot;

TEST_F(plot_setup, NewPlotClampsSetsAndValues) {
  struct row {
    int igtype, nsets;
    std::vector<int> nvals;
    int want_type, npset, npval1, npval2;
  };
  const row rows[] = {{8, 600, {30, 40}, 8, 500, 30, 40},
                      {8, 0, {1, 0}, 8, 1, 2, 2},  // grid types need 2 values each way
                      {0, 3, {5}, 4, 3, 5, 2},     // unknown type becomes 4; npval2 untouched
                      {12, -4, {0}, 4, 1, 1, 2}};
  for (const row& r : rows) {
    ipgstate.npval2 = 2;
    ipgstate.npdone = 7;
    ipgnewplot2(r.igtype, r.nsets, r.nvals);
    EXPECT_EQ(ipgstate.igtype, r.want_type);
    EXPECT_EQ(ipgstate.npset, r.npset);
    EXPECT_EQ(ipgstate.npval1, r.npval1);
    EXPECT_EQ(ipgstate.npval2, r.npval2);
    EXPECT_FLOAT_EQ(ipgstate.rnval11, static_cast<float>(r.npval1 - 1));
    EXPECT_EQ(ipgstate.npdone, 0);
  }
}

TEST_F(plot_setup, LayerWordDecoding) {
  struct row {
    int layer;
    int laydim, layfil, laycol, layhgt, laygrd, laylab, layshd;
    bool bplot3d;
  };
  const row rows[] = {{0, 0, 0, 0, 0, 0, 0, 0, false},        {8, 0, 1, 0, 0, 0, 0, 0, false},
                      {33, 1, 0, 0, 1, 0, 0, 0, true},        {16, 0, 0, 3, 0, 0, 0, 0, false},
                      {16 + 4, 0, 0, 1, 0, 0, 0, 0, false},   {16 + 256, 0, 0, 2, 0, 0, 0, 0, false},
                      {512, 0, 0, 0, 0, 1, 1, 0, false},      {512 + 2048, 0, 0, 0, 0, 1, 2, 1, false}};
  const int nvals[2] = {10, 20};
  for (const row& r : rows) {
    ipgnewplot2(8, 2, nvals, r.layer);
    EXPECT_EQ(ipgstate.laydim, r.laydim) << r.layer;
    EXPECT_EQ(ipgstate.layfil, r.layfil) << r.layer;
    EXPECT_EQ(ipgstate.laycol, r.laycol) << r.layer;
    EXPECT_EQ(ipgstate.layhgt, r.layhgt) << r.layer;
    EXPECT_EQ(ipgstate.laygrd, r.laygrd) << r.layer;
    EXPECT_EQ(ipgstate.laylab, r.laylab) << r.layer;
    EXPECT_EQ(ipgstate.layshd, r.layshd) << r.layer;
    EXPECT_EQ(ipgstate.bplot3d, r.bplot3d) << r.layer;
  }
  // A three-dimensional grid layout splits the base by the grid's proportions.
  ipgnewplot2(8, 2, nvals, 1 + 512);
  EXPECT_FLOAT_EQ(ipgstate.skew3d, 0.25f);
  const int wide[2] = {30, 10};
  ipgnewplot2(8, 2, wide, 1 + 512);
  EXPECT_FLOAT_EQ(ipgstate.skew3d, 1 - 0.5f * 10 / 30);
  EXPECT_FLOAT_EQ(ipgstate.hb3d, 0.6f / 30);
}

TEST_F(plot_setup, UnitsKeepDirectionAndRejectEmptyRanges) {
  ipgunits(10, -1, 2, 3);
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_FLOAT_EQ(ipgstate.xplen, -8);
  EXPECT_FLOAT_EQ(ipgstate.xplow, 2);
  EXPECT_FLOAT_EQ(ipgstate.xphigh, 10);
  EXPECT_FLOAT_EQ(ipgstate.yplen, 4);

  ipgunits(5, 1, 5, 2);
  EXPECT_EQ(winfoerror(1), 16);
  EXPECT_EQ(yyerror_routine(), "IPgUnitsXYZ");
  EXPECT_FLOAT_EQ(ipgstate.xpmin, 0);
  EXPECT_FLOAT_EQ(ipgstate.xpmax, 1);
  EXPECT_FLOAT_EQ(ipgstate.ypmax, 2);

  ipgunits(0, 0, std::nanf(""), 2);  // not a number: as equal limits
  EXPECT_EQ(winfoerror(1), 16);
  EXPECT_FLOAT_EQ(ipgstate.xplen, 1);

  ipgunitsz(3, 3);
  EXPECT_EQ(winfoerror(1), 16);
  EXPECT_FLOAT_EQ(ipgstate.zplen, 1);
  ipgunitsz(4, -2);  // z may not run backwards
  EXPECT_EQ(winfoerror(1), 16);
  ipgunitsz(-2, 4);
  EXPECT_EQ(winfoerror(1), 0);
  EXPECT_FLOAT_EQ(ipgstate.zplen, 6);
  EXPECT_FLOAT_EQ(ipgstate.xpmax, 1);  // x and y untouched
}

TEST_F(plot_setup, AreaKeyAreaAndLabelPositions) {
  ipgarea(0.2f, 0.3f, 0.8f, 0.7f);
  ipgarea(-1, 1.0f, 1.5f, 0.9f);  // only the last value is in range
  EXPECT_FLOAT_EQ(ipgstate.xpgamn, 0.2f);
  EXPECT_FLOAT_EQ(ipgstate.ypgamn, 0.3f);
  EXPECT_FLOAT_EQ(ipgstate.xpgamx, 0.8f);
  EXPECT_FLOAT_EQ(ipgstate.ypgamx, 0.9f);

  ipgkeyarea(0.85f, 0.1f, 0.98f, 0.9f);
  EXPECT_FLOAT_EQ(ipgstate.xpgkmn, 0.85f);
  EXPECT_FLOAT_EQ(ipgstate.ypgkmx, 0.9f);
  ipgkeyarea(0.5f, 0.1f, 0.5f, 0.9f);
  EXPECT_FLOAT_EQ(ipgstate.xpgkmn, 1);
  EXPECT_FLOAT_EQ(ipgstate.xpgkmx, 0);
  EXPECT_FLOAT_EQ(ipgstate.ypgkmn, 1);
  EXPECT_FLOAT_EQ(ipgstate.ypgkmx, 0);

  ipgxlabelpos(1.5f);
  ipgylabelpos(-0.2f);
  ipgzlabelpos(0.3f);
  EXPECT_FLOAT_EQ(ipgstate.rlabpos[0], 1.0f);
  EXPECT_FLOAT_EQ(ipgstate.rlabpos[1], 0.0f);
  EXPECT_FLOAT_EQ(ipgstate.rlabpos[2], 0.3f);
}

TEST_F(plot_setup, StylesAndUserScales) {
  ipgstyle(3, 1, 0, 0, 200, 201, 2);
  ipgstyle(3, std::nullopt, std::nullopt, 5, std::nullopt, std::nullopt, -1);
  ipgstyle(501, 9);  // no such set: ignored
  ipgstyle(0, 9);
  EXPECT_EQ(ipgstate.ipgstyl[3][0], 1);
  EXPECT_EQ(ipgstate.ipgstyl[3][2], 5);
  EXPECT_EQ(ipgstate.ipgcol[3][1], 201);
  EXPECT_EQ(ipgstate.ipgthick[3], 2);

  const float values[5] = {3, -1, 2, 2, 0.5f};
  ipgxuserscale(values, 5);
  EXPECT_EQ(ipgstate.userscalex, (std::vector<float>{-1, 0.5f, 2, 2, 3}));
  EXPECT_EQ(ipgstate.iuslen[0], 5);
  ipgxuserscale(values, 0);
  EXPECT_EQ(ipgstate.iuslen[0], 0);
}

// Plot units map into the plot area of the graphics units, also backwards.
TEST_F(plot_setup, UnitConversionBothWays) {
  igrunits(0, 0, 200, 100);
  ipgarea(0.1f, 0.2f, 0.6f, 0.7f);
  ipgunits(10, 0, 0, 5);  // x runs backwards
  float gx = 0, gy = 0;
  ipgunitstogrunits(10, 0, gx, gy);
  EXPECT_FLOAT_EQ(gx, 20);
  EXPECT_FLOAT_EQ(gy, 20);
  ipgunitstogrunits(2.5f, 5, gx, gy);
  EXPECT_FLOAT_EQ(gx, 95);
  EXPECT_FLOAT_EQ(gy, 70);
  float x = 0, y = 0;
  ipgunitsfromgrunits(95, 70, x, y);
  EXPECT_NEAR(x, 2.5f, 1e-5);
  EXPECT_NEAR(y, 5, 1e-5);
}
