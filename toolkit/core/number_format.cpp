#include "toolkit/core/number_format.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int max_width = 60;

// Right-justifies a text in `width` characters. A text one character too
// long loses its optional leading zero ("0.5" or "-0.5"); any longer one
// becomes asterisks.
std::string justify(std::string text, int width) {
  if (static_cast<int>(text.size()) > width) {
    const std::size_t zero = text[0] == '-' ? 1 : 0;
    if (text.size() > zero + 1 && text[zero] == '0' && text[zero + 1] == '.') text.erase(zero, 1);
  }
  if (static_cast<int>(text.size()) > width) return std::string(static_cast<std::size_t>(width), '*');
  return std::string(static_cast<std::size_t>(width) - text.size(), ' ') + text;
}

// A minus sign in front of nothing but zeros carries no information.
void drop_negative_zero(std::string& text) {
  if (text.empty() || text[0] != '-') return;
  for (char c : text)
    if (c >= '1' && c <= '9') return;
  text.erase(0, 1);
}

bool read_number(std::string_view s, std::size_t& pos, int& value) {
  const std::size_t start = pos;
  value = 0;
  while (pos < s.size() && std::isdigit(static_cast<unsigned char>(s[pos])) && value < 1000)
    value = value * 10 + (s[pos++] - '0');
  return pos > start;
}

}  // namespace

std::string format_fixed(double value, int width, int decimals) {
  if (width < 1) return {};
  width = std::min(width, max_width);
  decimals = std::clamp(decimals, 0, width);
  if (!std::isfinite(value) || std::fabs(value) >= 1e40) return std::string(static_cast<std::size_t>(width), '*');
  char buf[96];
  std::snprintf(buf, sizeof buf, "%.*f", decimals, value);
  std::string text(buf);
  drop_negative_zero(text);
  return justify(text, width);
}

std::string format_integer(double value, int width) {
  if (width < 1) return {};
  width = std::min(width, max_width);
  if (!std::isfinite(value) || std::fabs(value) >= 1e18) return std::string(static_cast<std::size_t>(width), '*');
  const long long n = std::llround(value);
  return justify(std::to_string(n), width);
}

std::string format_exponent(double value, int width, int decimals) {
  if (width < 1) return {};
  width = std::min(width, max_width);
  decimals = std::clamp(decimals, 1, width);
  if (!std::isfinite(value)) return std::string(static_cast<std::size_t>(width), '*');
  std::string digits(static_cast<std::size_t>(decimals), '0');
  int exponent = 0;
  if (value != 0) {
    // printf gives d.ddd e±x; Fortran writes the same digits as 0.dddd with
    // the exponent one higher.
    char buf[96];
    std::snprintf(buf, sizeof buf, "%.*e", decimals - 1, std::fabs(value));
    std::string mantissa(buf, std::strchr(buf, 'e'));
    digits.clear();
    for (char c : mantissa)
      if (std::isdigit(static_cast<unsigned char>(c))) digits += c;
    exponent = std::atoi(std::strchr(buf, 'e') + 1) + 1;
  }
  char exp_text[16];
  std::snprintf(exp_text, sizeof exp_text, "%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
  std::string text = std::string(value < 0 ? "-" : "") + "0." + digits + "E" + exp_text;
  return justify(text, width);
}

bool format_real(double value, std::string_view format, std::string& text) {
  text.clear();
  std::string_view f = format;
  while (!f.empty() && (f.front() == ' ' || f.front() == '(')) f.remove_prefix(1);
  while (!f.empty() && (f.back() == ' ' || f.back() == ')')) f.remove_suffix(1);
  if (f.empty()) return false;
  const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(f[0])));
  std::size_t pos = 1;
  int width = 0, decimals = 0;
  if (!read_number(f, pos, width) || width < 1) return false;
  if (kind == 'I') {
    if (pos != f.size()) return false;
    text = format_integer(value, width);
    return true;
  }
  if (pos >= f.size() || f[pos] != '.') return false;
  ++pos;
  if (!read_number(f, pos, decimals) || pos != f.size()) return false;
  if (kind == 'F') text = format_fixed(value, width, decimals);
  else if (kind == 'E') text = format_exponent(value, width, decimals);
  else return false;
  return true;
}
