#include "crystal/vant_math_degrees.h"

#include <cmath>
#include <numbers>

namespace {
constexpr double radians_per_degree = std::numbers::pi / 180.0;
}

float cosd_sp(float x) { return static_cast<float>(std::cos(static_cast<double>(x) * radians_per_degree)); }

float sind_sp(float x) { return static_cast<float>(std::sin(static_cast<double>(x) * radians_per_degree)); }

float acosd_sp(float x) {
  if (x > 1.0f) return 0.0f;
  if (x < -1.0f) return 180.0f;
  return static_cast<float>(std::acos(static_cast<double>(x)) * 57.29577951308232);
}
