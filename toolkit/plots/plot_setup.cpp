#include "toolkit/plots/plot_setup.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/plots/plot_state.h"

namespace {

void decode_layer(int layer) {
  auto& s = ipgstate;
  auto bit = [layer](int value) { return (layer & value) != 0; };
  s.laydim = bit(1) ? 1 : 0;
  s.bplot3d = bit(1) && (s.igtype == 5 || s.igtype == 6 || s.igtype == 7 || s.igtype == 8 || s.igtype == 10);
  s.layadj = bit(2) ? 1 : 0;
  s.laycol = 0;
  if (bit(4)) s.laycol = 1;
  else if (bit(256)) s.laycol = 2;
  else if (bit(16)) s.laycol = 3;
  s.layfil = bit(8) ? 1 : 0;
  s.layhgt = bit(32) ? 1 : 0;
  s.laypol = bit(64) && s.laydim == 0 ? 1 : 0;
  s.laycur = bit(128) ? 1 : 0;
  s.laygrd = bit(512) ? 1 : 0;
  s.laylab = 0;
  if (bit(512) && !bit(2048)) s.laylab = 1;
  s.layshd = bit(2048) ? 1 : 0;
  if (bit(2048)) s.laylab = 2;
  s.laysta = bit(1024) && !(s.igtype == 1 && bit(32)) ? 1 : 0;
  s.layhlz = bit(4096) ? 1 : 0;
}

void derive_lengths() {
  auto& s = ipgstate;
  s.xplen = s.xpmax - s.xpmin;
  s.yplen = s.ypmax - s.ypmin;
  s.zplen = s.zpmax - s.zpmin;
  s.xplow = std::min(s.xpmin, s.xpmax);
  s.xphigh = std::max(s.xpmin, s.xpmax);
  s.yplow = std::min(s.ypmin, s.ypmax);
  s.yphigh = std::max(s.ypmin, s.ypmax);
}

// The x, y and z limits share one routine; an absent limit keeps its value.
void set_units(std::optional<float> xmin, std::optional<float> ymin, std::optional<float> xmax,
               std::optional<float> ymax, std::optional<float> zmin, std::optional<float> zmax) {
  auto& s = ipgstate;
  s.xpmin = xmin.value_or(s.xpmin);
  s.xpmax = xmax.value_or(s.xpmax);
  s.ypmin = ymin.value_or(s.ypmin);
  s.ypmax = ymax.value_or(s.ypmax);
  s.zpmin = zmin.value_or(s.zpmin);
  s.zpmax = zmax.value_or(s.zpmax);
  bool bad = false;
  auto reset = [&bad](float& low, float& high) {
    low = 0;
    high = 1;
    bad = true;
  };
  // Limits that are not numbers count as equal ones.
  auto usable = [](float low, float high) { return std::isfinite(low) && std::isfinite(high) && low != high; };
  if (!usable(s.xpmin, s.xpmax)) reset(s.xpmin, s.xpmax);
  if (!usable(s.ypmin, s.ypmax)) reset(s.ypmin, s.ypmax);
  if (!usable(s.zpmin, s.zpmax) || !(s.zpmax > s.zpmin)) reset(s.zpmin, s.zpmax);
  if (bad) yyerror(16, "IPgUnitsXYZ");
  derive_lengths();
}

bool low_in_range(float v) { return v >= 0 && v < 1; }
bool high_in_range(float v) { return v > 0 && v <= 1; }

void set_user_scale(std::vector<float>& scale, int& length, const float* values, int count) {
  length = std::max(count, 0);
  if (count < 1 || !values) return;
  scale.assign(values, values + count);
  // Sorted by exchange, as few values come here (a dozen ticks).
  for (std::size_t i = 0; i < scale.size(); ++i)
    for (std::size_t j = i + 1; j < scale.size(); ++j)
      if (scale[j] < scale[i]) std::swap(scale[i], scale[j]);
}

}  // namespace

void ipgnewplot2(int igtype, int nsets, std::span<const int> nvals, std::optional<int> layer,
                 std::optional<int> idefault) {
  auto& s = ipgstate;
  s.npset = std::clamp(nsets, 1, max_plot_sets);
  s.npval1 = std::max(nvals.empty() ? 1 : nvals[0], 1);
  s.rnval1 = static_cast<float>(s.npval1);
  s.rnval11 = static_cast<float>(s.npval1 - 1);
  s.npdone = 0;
  s.number_reach = {};
  s.igtype = igtype >= 1 && igtype <= 11 ? igtype : 4;
  decode_layer(layer.value_or(0));
  if (s.laydim == 1 || s.igtype == 8 || s.igtype == 10) {
    auto value = [&](std::size_t k) { return nvals.size() > k ? nvals[k] : 1; };
    s.npval1 = std::max(s.npval1, 2);
    s.npval2 = std::max(s.igtype == 6 || s.igtype == 7 ? s.npval1 : value(1), 2);
    if (s.igtype == 10) s.npval3 = std::max(value(2), 1);
    s.rnval1 = static_cast<float>(s.npval1);
    s.rnval11 = static_cast<float>(s.npval1 - 1);
    s.rnval2 = static_cast<float>(s.npval2);
    s.rnval21 = static_cast<float>(s.npval2 - 1);
  }
  if (s.laydim == 1) {
    if (s.laygrd == 0) s.skew3d = 0.5f;
    else if (s.npval1 <= s.npval2) s.skew3d = 0.5f * s.rnval1 / s.rnval2;
    else s.skew3d = 1 - 0.5f * s.rnval2 / s.rnval1;
  }
  s.hb3d = std::min(0.25f, 0.6f / s.rnval1);
  // Logarithmic axes are not offered, and no default styles are supplied:
  // callers set every set's style themselves.
  (void)idefault;
}

void ipgstyle(int iset, std::optional<int> style1, std::optional<int> style2, std::optional<int> style3,
              std::optional<int> colour1, std::optional<int> colour2, std::optional<int> thickness) {
  if (iset < 1 || iset > max_plot_sets) return;
  auto& s = ipgstate;
  if (style1) s.ipgstyl[iset][0] = *style1;
  if (style2) s.ipgstyl[iset][1] = *style2;
  if (style3) s.ipgstyl[iset][2] = *style3;
  if (colour1) s.ipgcol[iset][0] = *colour1;
  if (colour2) s.ipgcol[iset][1] = *colour2;
  if (thickness && *thickness > 0) s.ipgthick[iset] = *thickness;
}

void ipgarea(float xlow, float ylow, float xhigh, float yhigh) {
  auto& s = ipgstate;
  if (low_in_range(xlow)) s.xpgamn = xlow;
  if (low_in_range(ylow)) s.ypgamn = ylow;
  if (high_in_range(xhigh)) s.xpgamx = xhigh;
  if (high_in_range(yhigh)) s.ypgamx = yhigh;
}

void ipgunits(std::optional<float> xmin, std::optional<float> ymin, std::optional<float> xmax,
              std::optional<float> ymax) {
  set_units(xmin, ymin, xmax, ymax, std::nullopt, std::nullopt);
}

void ipgunitsz(float zmin, float zmax) {
  set_units(std::nullopt, std::nullopt, std::nullopt, std::nullopt, zmin, zmax);
}

void ipgkeyarea(float xlow, float ylow, float xhigh, float yhigh) {
  auto& s = ipgstate;
  if (xlow >= xhigh || ylow >= yhigh) {
    s.xpgkmn = 1;
    s.xpgkmx = 0;
    s.ypgkmn = 1;
    s.ypgkmx = 0;
    return;
  }
  if (low_in_range(xlow)) s.xpgkmn = xlow;
  if (low_in_range(ylow)) s.ypgkmn = ylow;
  if (high_in_range(xhigh)) s.xpgkmx = xhigh;
  if (high_in_range(yhigh)) s.ypgkmx = yhigh;
}

void ipgxlabelpos(float position) { ipgstate.rlabpos[0] = std::clamp(position, 0.0f, 1.0f); }
void ipgylabelpos(float position) { ipgstate.rlabpos[1] = std::clamp(position, 0.0f, 1.0f); }
void ipgzlabelpos(float position) { ipgstate.rlabpos[2] = std::clamp(position, 0.0f, 1.0f); }

void ipgxuserscale(const float* values, int count) {
  set_user_scale(ipgstate.userscalex, ipgstate.iuslen[0], values, count);
}
void ipgyuserscale(const float* values, int count) {
  set_user_scale(ipgstate.userscaley, ipgstate.iuslen[1], values, count);
}

void ipgunitstogrunits(float x, float y, float& gx, float& gy) {
  const auto& s = ipgstate;
  const auto& g = igrstate;
  const float tx = (x - s.xpmin) / s.xplen;
  const float ty = (y - s.ypmin) / s.yplen;
  gx = (s.xpgamn + (s.xpgamx - s.xpgamn) * tx) * g.xunlen + g.xmin;
  gy = (s.ypgamn + (s.ypgamx - s.ypgamn) * ty) * g.yunlen + g.ymin;
}

void ipgunitsfromgrunits(float gx, float gy, float& x, float& y) {
  const auto& s = ipgstate;
  const auto& g = igrstate;
  const float sx = (gx - g.xmin) / g.xunlen;
  const float sy = (gy - g.ymin) / g.yunlen;
  x = (sx - s.xpgamn) * s.xplen / (s.xpgamx - s.xpgamn) + s.xpmin;
  y = (sy - s.ypgamn) * s.yplen / (s.ypgamx - s.ypgamn) + s.ypmin;
}

void ipgconfill2granul(int n) {
  if (n > 0) ipgstate.igranul = n;
}
