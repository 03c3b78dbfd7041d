#include "toolkit/plots/surface_view.h"

#include <algorithm>
#include <cmath>

#include "toolkit/plots/plot_setup.h"
#include "toolkit/plots/plot_state.h"

namespace {

constexpr float degree = 0.017453292f;

float lowest(float a, float b, float c, float d) { return std::min({a, b, c, d}); }
float highest(float a, float b, float c, float d) { return std::max({a, b, c, d}); }

}  // namespace

void ipgelevation(float angle) { ipgstate.elev3d = std::clamp(angle, 0.0f, 45.0f) / 45.0f; }

void ipgrotation(float angle) {
  float a = angle;
  if (std::fabs(a) >= 360) a = 0;
  if (a < 0) a += 360;
  auto& s = ipgstate;
  s.rota3d = a;
  s.cosr3d1 = std::cos((a - 45) * degree);
  s.cosr3d2 = std::cos((a + 45) * degree);
}

surface_projection yypg3dxy() {
  const auto& s = ipgstate;
  const float e = s.elev3d;
  const float h = 0.5f * s.yplen;
  const float w = e * h;
  const float b = 0.5f * (s.ypmax + s.ypmin - (1 - e) * s.yplen) - s.ypmin;
  const float p = 1.4142f * s.cosr3d1, q = 1.4142f * s.cosr3d2;
  surface_projection r;
  r.zs = h / s.zplen;
  r.ax = s.skew3d * p * s.xplen / s.rnval11;
  r.bx = (1 - s.skew3d) * q * s.xplen / s.rnval21;
  r.by = p * b / s.rnval21;
  r.ay = q * w / s.rnval11;

  // The base must fit the plot's width: shrink it as a whole when it does not.
  float X = s.rnval11 * r.ax, Y = s.rnval21 * r.bx;
  const float width = highest(0, X, Y, X + Y) - lowest(0, X, Y, X + Y);
  if (width > s.xplen) {
    const float f = s.xplen / width;
    r.ax *= f;
    r.bx *= f;
    r.by *= f;
    r.ay *= f;
    X *= f;
    Y *= f;
  }
  r.x0 = 0.5f * (s.xplen - X - Y) + s.xpmin;

  // Corners of the base relative to node (1, 1); the picture, base and
  // height together, is centred upright when it leaves room.
  const float I = s.rnval11 * r.ay, J = -s.rnval21 * r.by;
  const float low = lowest(0, I, J, I + J);
  const float height = highest(0, I, J, I + J) - low + h;
  r.y0 = s.ypmin - low;
  if (height < s.yplen) r.y0 += 0.5f * (s.yplen - height);
  return r;
}

void yypg3dnode(const surface_projection& p, float t, float u, float z, float& gx, float& gy) {
  const auto& s = ipgstate;
  const float zc = std::clamp(z, s.zpmin, s.zpmax);
  const float x = p.ax * t + p.bx * u + p.x0;
  const float y = p.y0 - p.by * u + p.ay * t + p.zs * (zc - s.zpmin);
  ipgunitstogrunits(x, y, gx, gy);
}

void ipgunitstogrunits3(float x, float y, float z, float& gx, float& gy) {
  const auto& s = ipgstate;
  const float t = (x - s.xpmin) * s.rnval11 / s.xplen;
  const float u = (y - s.ypmin) * s.rnval21 / s.yplen;
  yypg3dnode(yypg3dxy(), t, u, z, gx, gy);
}
