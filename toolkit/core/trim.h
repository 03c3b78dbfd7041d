// Toolkit strings are blank padded; trailing blanks carry no meaning.
#pragma once

#include <string>
#include <string_view>

inline std::string yytrim(std::string_view s) {
  const auto end = s.find_last_not_of(' ');
  return end == std::string_view::npos ? std::string{} : std::string(s.substr(0, end + 1));
}
