#include "toolkit/dialogs/field_format.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int widest_format = 60;

std::string strip(const std::string& s) {
  const auto first = s.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

std::string fixed(double value, int decimals) {
  char buffer[512];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

}  // namespace

std::optional<real_format_type> parse_real_format(const std::string& format) {
  std::string f = strip(format);
  if (f.size() >= 2 && f.front() == '(' && f.back() == ')') f = strip(f.substr(1, f.size() - 2));
  if (f.size() < 4 || (f[0] != 'F' && f[0] != 'f')) return std::nullopt;
  const auto dot = f.find('.');
  if (dot == std::string::npos || dot == 1 || dot + 1 == f.size()) return std::nullopt;
  for (std::size_t i = 1; i < f.size(); ++i) {
    if (i != dot && !std::isdigit(static_cast<unsigned char>(f[i]))) return std::nullopt;
  }
  if (dot > 3 || f.size() - dot - 1 > 2) return std::nullopt;
  const int width = std::atoi(f.substr(1, dot - 1).c_str());
  const int decimals = std::atoi(f.substr(dot + 1).c_str());
  if (width < 1 || width > widest_format || decimals >= width) return std::nullopt;
  return real_format_type{width, decimals};
}

std::string format_real(double value, const real_format_type& format) {
  const std::string stars(static_cast<std::size_t>(format.width), '*');
  if (!std::isfinite(value)) return stars;
  // Fw.0 still writes the decimal point.
  std::string text = fixed(value, format.decimals) + (format.decimals == 0 ? "." : "");
  // "-0.0000" is written without its sign when nothing but zeros remain.
  if (text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  const auto width = static_cast<std::size_t>(format.width);
  if (text.size() == width + 1) {
    if (text.rfind("0.", 0) == 0) text.erase(0, 1);
    else if (text.rfind("-0.", 0) == 0) text.erase(1, 1);
  }
  return text.size() > width ? stars : text;
}

std::string format_real_free(double value, const std::string& initial_text) {
  const std::string initial = strip(initial_text);
  const auto dot = initial.find('.');
  if (dot != std::string::npos && parse_real_text(initial)) {
    return fixed(value, static_cast<int>(initial.size() - dot - 1));
  }
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.7g", value);
  return buffer;
}

std::optional<double> parse_real_text(const std::string& text) {
  const std::string t = strip(text);
  if (t.empty()) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const double v = std::strtod(t.c_str(), &end);
  if (end != t.c_str() + t.size() || errno == ERANGE || !std::isfinite(v)) return std::nullopt;
  if (std::fabs(v) > std::numeric_limits<float>::max()) return std::nullopt;
  return v;
}

std::optional<std::int32_t> parse_integer_text(const std::string& text) {
  const std::string t = strip(text);
  if (t.empty()) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const long long v = std::strtoll(t.c_str(), &end, 10);
  if (end != t.c_str() + t.size() || errno == ERANGE) return std::nullopt;
  if (v < std::numeric_limits<std::int32_t>::min() + 1LL || v > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(v);
}
