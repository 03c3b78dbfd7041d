#include "crystal/vant_string_utilities_fraction.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "crystal/vant_math_general.h"

namespace {

// A real in a field of `width` characters with 4 decimals, right adjusted;
// a value that does not fit fills the field with asterisks.
std::string fixed_decimal(float v, int width) {
  char buffer[64];
  const int n = std::snprintf(buffer, sizeof buffer, "%*.4f", width, static_cast<double>(v));
  if (n < 0 || n > width) return std::string(static_cast<std::size_t>(width), '*');
  return buffer;
}

}  // namespace

std::string get_fraction_2dig(float v) {
  std::string text;
  if (zbelongn(v)) {
    const long n = std::lround(v);
    text = (n > 0 ? "+" : "") + std::to_string(n);
  } else {
    // The first fraction num/den within epss of |v|, num from 1 and den from
    // 2 up to 24. For one num the fractions fall as den grows, so the dens
    // past the first fraction below |v| - epss are not looked at.
    static const std::array<float, 25> inverse = [] {
      std::array<float, 25> r{};
      for (int den = 1; den <= 24; ++den) r[static_cast<std::size_t>(den)] = 1.0f / static_cast<float>(den);
      return r;
    }();
    const float av = std::fabs(v);
    const float eps = epss_val();
    for (int num = 1; num <= 24 && text.empty(); ++num) {
      for (int den = 2; den <= 24; ++den) {
        const float d = static_cast<float>(num) * inverse[static_cast<std::size_t>(den)] - av;
        if (d < -eps) break;
        if (d <= eps) {
          text = (v > 0.0f ? "+" : "-") + std::to_string(num) + "/" + std::to_string(den);
          break;
        }
      }
    }
    if (text.empty()) text = v > 0.0f ? "+" + fixed_decimal(v, 9) : fixed_decimal(v, 10);
  }
  return pack_string(text);
}

std::string pack_string(const std::string& s) {
  std::string out;
  for (char c : s) {
    if (c != ' ') out += c;
  }
  return out;
}
