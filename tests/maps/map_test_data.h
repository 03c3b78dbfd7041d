// Tables of cases kept in tests/data/maps: one case a line, '#' lines and
// blank lines left out. A missing file fails the test that asked for it.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

inline std::vector<std::string> table_rows(const std::string& name) {
  const std::string path = QUELMORA_SOURCE_DIR "/tests/data/maps/" + name;
  std::ifstream in(path);
  if (!in) ADD_FAILURE() << "missing test data file " << path;
  std::vector<std::string> rows;
  for (std::string line; std::getline(in, line);)
    if (line.find_first_not_of(" \t") != std::string::npos && line[0] != '#') rows.push_back(line);
  return rows;
}
