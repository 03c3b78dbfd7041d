#include "crystal/vant_math_general.h"

#include <cmath>

namespace {
float epss = 1.0e-5f;
}

float epss_val() { return epss; }

void set_epsg(float eps) { epss = eps; }

bool negligibler(float x) { return std::fabs(x) <= epss; }

bool equal_vector_r(const vec3f& a, const vec3f& b) {
  for (int i = 0; i < 3; ++i) {
    if (std::fabs(a[i] - b[i]) > epss) return false;
  }
  return true;
}

bool zbelongn(float x) { return std::fabs(std::round(x) - x) <= epss; }

bool zbelongv(const vec3f& v) { return zbelongn(v[0]) && zbelongn(v[1]) && zbelongn(v[2]); }
