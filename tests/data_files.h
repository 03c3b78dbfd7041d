// Reference data of the tests, kept as text under tests/data/. Names are
// relative to that folder ("crystal/hall_reference.txt"). A missing file fails
// the test that asked for it, naming the path.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

inline std::string data_path(const std::string& name) { return std::string(QUELMORA_SOURCE_DIR) + "/tests/data/" + name; }

// The whole text of a data file.
inline std::string data_text(const std::string& name) {
  std::ifstream in(data_path(name), std::ios::binary);
  if (!in) ADD_FAILURE() << "missing data file " << data_path(name);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The lines that hold data: blank lines and lines starting with "#" (where
// the rows come from, what the columns are) are left out.
inline std::vector<std::string> data_lines(const std::string& name) {
  std::istringstream in(data_text(name));
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);)
    if (line.find_first_not_of(" \t") != std::string::npos && line[0] != '#') lines.push_back(line);
  return lines;
}

// The rows of a table whose fields are parted by "|" (one blank on either
// side of a bar is not part of the field). A row with another number of
// fields fails the test, naming the line.
inline std::vector<std::vector<std::string>> data_table(const std::string& name, std::size_t fields) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : data_lines(name)) {
    std::vector<std::string> row;
    for (std::size_t from = 0, bar = 0; bar != std::string::npos; from = bar + 1) {
      bar = line.find('|', from);
      std::string field = line.substr(from, bar == std::string::npos ? bar : bar - from);
      if (from > 0 && field.starts_with(' ')) field.erase(0, 1);
      if (bar != std::string::npos && field.ends_with(' ')) field.pop_back();
      row.push_back(field);
    }
    if (row.size() == fields) rows.push_back(row);
    else ADD_FAILURE() << name << ": " << row.size() << " fields, not " << fields << ", in " << line;
  }
  return rows;
}

// The numbers of a field.
template <typename T = float>
std::vector<T> numbers(const std::string& field) {
  std::istringstream in(field);
  return {std::istream_iterator<T>(in), std::istream_iterator<T>()};
}
