// What every fuzz target shares: the bytes of one input as a file in a
// scratch folder of this process (the readers take files, not buffers), and
// a fresh headless face, whose boxes get their default button, so that the
// boxes of earlier inputs do not pile up.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "toolkit/headless/headless.h"

// A folder of this process in the current one. The script runs each target
// in its own folder of the build and clears it before each run: libFuzzer
// ends without running exit handlers, so the target cannot.
inline const std::filesystem::path& scratch_folder() {
  static const std::filesystem::path folder = [] {
    const auto path = std::filesystem::current_path() / ("scratch_" + std::to_string(getpid()));
    std::filesystem::create_directories(path);
    return path;
  }();
  return folder;
}

// Writes the input as the file `name` of the scratch folder; its path.
inline std::string input_file(const std::uint8_t* data, std::size_t size, const std::string& name) {
  headless::install();
  const std::filesystem::path path = scratch_folder() / name;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  return path.string();
}
