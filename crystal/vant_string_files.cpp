// Counting and reading the lines of a text file.
#include <fstream>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"

namespace {

constexpr std::size_t line_buffer = 256;

// One line, without the carriage return of a DOS file, cut to the buffer.
bool read_line(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.size() > line_buffer) line.resize(line_buffer);
  return true;
}

}  // namespace

void number_lines(const std::string& filename, std::int32_t& n, std::string_view key) {
  n = 0;
  std::ifstream in(filename);
  if (!in) return;
  const std::string k = u_case(fixed_text::adjusted(key));
  std::string line;
  while (read_line(in, line)) {
    ++n;
    if (!k.empty() && u_case(fixed_text::adjusted(line).substr(0, k.size())) == k) return;
  }
}

void reading_lines(const std::string& filename, std::int32_t n, std::vector<std::string>& filevar) {
  filevar.clear();
  std::ifstream in(filename);
  if (!in) return;
  std::string line;
  while (static_cast<std::int32_t>(filevar.size()) < n && read_line(in, line)) filevar.push_back(line);
}
