// Reference rows kept as text under tests/data/crystal/; lines starting with
// '#' say where the rows come from.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

// The data lines of tests/data/crystal/<name>; a missing file fails the test
// that asked for it, naming the path.
inline std::vector<std::string> reference_lines(const std::string& name) {
  const std::string path = std::string(QUELMORA_SOURCE_DIR) + "/tests/data/crystal/" + name;
  std::ifstream in(path);
  std::vector<std::string> lines;
  if (!in) ADD_FAILURE() << "missing reference file " << path;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line[0] != '#') lines.push_back(line);
  }
  return lines;
}
