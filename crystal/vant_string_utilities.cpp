#include "crystal/vant_string_utilities.h"

#include <algorithm>
#include <cmath>

#include "crystal/fixed_text.h"

namespace {

constexpr char not_a_number[] = "The variable cannot be computed as a number in GETNUM";
constexpr char digit_limits[] = "Limits of digit variable exceeded in GETNUM";
constexpr char bad_std_format[] = "Wrong format using Standard values";

void fault(const char* message) {
  err_string = true;
  err_string_mess = message;
}

std::string adjusted(std::string_view s) { return std::string(fixed_text::adjusted(s)); }

struct number_type {
  float real = 0.0f;
  std::int32_t integer = 0;
};

// Digits of an exponent, optionally signed; false when it isn't one.
bool parse_exponent(std::string_view e, std::int32_t& exponent) {
  bool negative = false;
  if (!e.empty() && e[0] == '-') {
    negative = true;
    e.remove_prefix(1);
  }
  if (e.empty()) return false;
  exponent = 0;
  for (char c : e) {
    if (c < '0' || c > '9') return false;
    // Beyond 99 a float is infinite or zero anyway.
    exponent = std::min(exponent * 10 + (c - '0'), 99);
  }
  if (negative) exponent = -exponent;
  return true;
}

// One word of getnum, already upper-cased. Sets the fault and returns false
// when the word is not a number.
bool parse_number(std::string_view word, number_type& out) {
  if (word.find_first_not_of("E0123456789.-") != std::string_view::npos) {
    fault(not_a_number);
    return false;
  }
  const auto e = word.find('E');
  std::string_view mantissa = word.substr(0, e);
  const bool negative = !mantissa.empty() && mantissa[0] == '-';
  if (negative) mantissa.remove_prefix(1);
  if (mantissa.find('-') != std::string_view::npos) {
    fault(digit_limits);
    return false;
  }
  const auto point = mantissa.find('.');
  const bool two_points = point != std::string_view::npos && mantissa.find('.', point + 1) != std::string_view::npos;
  const std::size_t digits = mantissa.size() - (point == std::string_view::npos ? 0 : 1);
  std::int32_t exponent = 0;
  if (two_points || digits == 0 || (e != std::string_view::npos && !parse_exponent(word.substr(e + 1), exponent))) {
    fault(not_a_number);
    return false;
  }

  // Each digit adds digit x 10^place in single precision; the integer takes
  // the digits before the point only (32-bit, wrapping as such a sum does).
  std::int32_t place = static_cast<std::int32_t>(point == std::string_view::npos ? mantissa.size() : point) - 1;
  std::uint32_t integer = 0;
  float real = 0.0f;
  for (char c : mantissa) {
    if (c == '.') continue;
    const int d = c - '0';
    if (place >= 0) integer = integer * 10u + static_cast<std::uint32_t>(d);
    real += static_cast<float>(d) * std::pow(10.0f, static_cast<float>(place));
    --place;
  }
  real *= std::pow(10.0f, static_cast<float>(exponent));
  out.real = negative ? -real : real;
  out.integer = static_cast<std::int32_t>(negative ? 0u - integer : integer);
  return true;
}

// The one number of a piece of a getnum_std word; false with the fault set
// when there isn't exactly one.
bool single_number(std::string_view text, float& value) {
  float v[2];
  std::int32_t iv_[2];
  std::int32_t n = 0;
  getnum(text, v, iv_, n);
  if (n != 1) {
    if (!err_string) fault("Bad format");
    return false;
  }
  value = v[0];
  return true;
}

}  // namespace

void cutst(std::string& line, std::int32_t* nlong1, std::string* word, std::int32_t* nlong2, std::size_t word_size) {
  if (nlong1) *nlong1 = 0;
  if (nlong2) *nlong2 = 0;
  if (word) word->clear();
  line = adjusted(line);
  if (line.empty()) return;
  const auto blank = line.find(' ');
  std::string first = line.substr(0, blank);
  line = blank == std::string::npos ? std::string{} : adjusted(line.substr(blank + 1));
  first = first.substr(0, word_size);
  if (word) *word = first;
  if (nlong2) *nlong2 = static_cast<std::int32_t>(first.size());
  if (nlong1) *nlong1 = static_cast<std::int32_t>(line.size());
}

void getnum(std::string_view line, std::span<float> vet, std::span<std::int32_t> ivet, std::int32_t& iv) {
  err_string = false;
  err_string_mess.clear();
  iv = 0;
  std::fill(vet.begin(), vet.end(), 0.0f);
  std::fill(ivet.begin(), ivet.end(), 0);
  const std::size_t capacity = std::min(vet.size(), ivet.size());
  std::string work = u_case(line);
  for (;;) {
    std::string word;
    cutst(work, nullptr, &word);
    if (word.empty()) return;
    number_type number;
    if (!parse_number(word, number)) return;
    if (static_cast<std::size_t>(iv) >= capacity) {
      fault(digit_limits);
      return;
    }
    vet[static_cast<std::size_t>(iv)] = number.real;
    ivet[static_cast<std::size_t>(iv)] = number.integer;
    ++iv;
  }
}

void getword(std::string_view line, std::span<std::string> dire, std::int32_t& iv, std::size_t word_size) {
  iv = 0;
  for (std::string& d : dire) d.clear();
  std::string work = adjusted(line);
  while (!work.empty()) {
    std::string word;
    if (work[0] == '"') {
      const auto close = work.find('"', 1);
      if (close == std::string::npos) {
        fault("Non balanced quotes!");
        iv = 0;
        return;
      }
      word = work.substr(1, close - 1);
      work = adjusted(work.substr(close + 1));
    } else {
      cutst(work, nullptr, &word);
    }
    if (static_cast<std::size_t>(iv) >= dire.size()) {
      fault("Dimension of DIRE exceeded");
      return;
    }
    dire[static_cast<std::size_t>(iv)] = word.substr(0, word_size);
    ++iv;
  }
}

void lcase(std::string& line) {
  for (char& c : line)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
}

void ucase(std::string& line) {
  for (char& c : line)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
}

std::string l_case(std::string_view text) {
  std::string s(text);
  lcase(s);
  return s;
}

std::string u_case(std::string_view text) {
  std::string s(text);
  ucase(s);
  return s;
}

void getnum_std(std::string_view line, std::span<float> value, std::span<float> std_dev, std::int32_t& iv) {
  std::fill(value.begin(), value.end(), 0.0f);
  std::fill(std_dev.begin(), std_dev.end(), 0.0f);
  iv = 0;
  err_string = false;
  err_string_mess.clear();
  if (fixed_text::is_blank(line)) {
    fault("Blank line");
    return;
  }
  auto cut = line.find('!');
  if (cut == std::string_view::npos) cut = line.find('#');
  std::string work = adjusted(line.substr(0, cut));
  const std::size_t capacity = std::min(value.size(), std_dev.size());
  while (!work.empty()) {
    std::string word;
    cutst(work, nullptr, &word);
    const auto p = word.find('('), q = word.find(')');
    if ((p == std::string::npos) != (q == std::string::npos) || (p != std::string::npos && q < p)) {
      fault(bad_std_format);
      return;
    }
    float v = 0.0f, s = 0.0f;
    const std::string value_text = word.substr(0, p);
    if (!single_number(value_text, v)) return;
    if (p != std::string::npos) {
      if (!single_number(std::string_view(word).substr(p + 1, q - p - 1), s)) return;
      // The uncertainty counts in units of the value's last decimal.
      const auto d = value_text.find('.');
      if (d != std::string::npos) s *= std::pow(10.0f, static_cast<float>(static_cast<int>(d) - static_cast<int>(p) + 1));
    }
    if (static_cast<std::size_t>(iv) >= capacity) {
      fault(digit_limits);
      return;
    }
    value[static_cast<std::size_t>(iv)] = v;
    std_dev[static_cast<std::size_t>(iv)] = s;
    ++iv;
  }
}
