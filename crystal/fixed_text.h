// Rules of fixed-length text fields (char(n)): blank padded on the right, no
// terminator, trailing blanks ignored in lengths and comparisons. In memory a
// field is a std::string; these helpers apply the rules where the length
// matters (file records, dialog fields, buffers whose cut is part of the
// behaviour).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fixed_text {

// The text without trailing blanks.
inline std::string_view trimmed(std::string_view s) {
  const auto end = s.find_last_not_of(' ');
  return end == std::string_view::npos ? std::string_view{} : s.substr(0, end + 1);
}

// The text left-adjusted (Fortran adjustl), without trailing blanks.
inline std::string_view adjusted(std::string_view s) {
  const auto first = s.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : trimmed(s.substr(first));
}

// The length of the text ignoring trailing blanks (Fortran len_trim).
inline std::size_t len_trim(std::string_view s) { return trimmed(s).size(); }

// True when the text holds nothing but blanks.
inline bool is_blank(std::string_view s) { return len_trim(s) == 0; }

// Two fields are equal when they differ only in trailing blanks.
inline bool same(std::string_view a, std::string_view b) { return trimmed(a) == trimmed(b); }

// The field as it lies in a record of n characters: cut at n, padded with blanks.
inline std::string padded(std::string_view s, std::size_t n) {
  std::string out(s.substr(0, n));
  out.resize(n, ' ');
  return out;
}

// The value a char(n) variable holds after an assignment: cut at n, trailing
// blanks dropped (they carry no meaning in memory).
inline std::string assigned(std::string_view s, std::size_t n) {
  return std::string(trimmed(s.substr(0, n)));
}

}  // namespace fixed_text
