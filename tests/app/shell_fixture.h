// A clean start for the shell's tests: the headless face, a fresh toolkit, a
// scratch directory (made current) holding a copy of the
// example map, a scratch home (HOME set to it, KELDRANE and QUELMORA
// blank) so that no test reads or writes the user's settings, and a search
// path whose first folder is the scratch bin/, so that the program runs the
// test's own sintrel, or none, never one installed on the machine.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "app/quelmora_main.h"
#include "resources/quelmo_rc.h"
#include "tests/data_files.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/ios.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmenu.h"

class Shell : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::install();
    winitialise();
    iosdirname(start_dir_);
    dir_ = std::filesystem::temp_directory_path() /
           ("quelmora_shell_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + "_" +
            std::to_string(getpid()));
    home_ = dir_ / "home";
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(home_);
    std::filesystem::copy_file(std::string(QUELMORA_SOURCE_DIR) + "/examples/nacl.bin", dir_ / "nacl.bin");
    iosdirchange(dir_.string());
    for (auto& [name, value] : saved_env_)
      if (const char* old = std::getenv(name)) value = old;
    set_env("HOME", home_.string());
    set_env("KELDRANE", "");
    set_env("QUELMORA", "");
    set_env("PATH", (dir_ / "bin").string() + ":/usr/bin:/bin");
  }
  void TearDown() override {
    iosdirchange(start_dir_);
    for (const auto& [name, value] : saved_env_) value ? setenv(name, value->c_str(), 1) : unsetenv(name);
    std::filesystem::remove_all(dir_);
  }

  static void set_env(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }

  // An empty file of that name in the scratch directory.
  void touch(const std::string& name) {
    std::filesystem::create_directories((dir_ / name).parent_path());
    std::ofstream(dir_ / name) << "";
  }

  // An executable bin/<program> in the scratch directory running the script.
  void fake_program(const std::string& program, const std::string& script) {
    std::filesystem::create_directories(dir_ / "bin");
    std::ofstream(dir_ / "bin" / program) << "#!/bin/sh\n" << script;
    std::filesystem::permissions(dir_ / "bin" / program, std::filesystem::perms::owner_all);
  }

  // The enabled state of the main menu items that change with a file.
  static std::map<int, int> file_states() {
    std::map<int, int> s;
    for (int id : {40005, 40008, 40011, 40021, 40022, 40027, 40028}) s[id] = wmenugetstate(id, 1);
    return s;
  }

  std::filesystem::path dir_;
  std::filesystem::path home_;
  std::string start_dir_;
  std::map<const char*, std::optional<std::string>> saved_env_{{"HOME", {}}, {"KELDRANE", {}}, {"QUELMORA", {}}, {"PATH", {}}};
};

// Runs the program with the arguments, as a user starts it.
inline int start(std::vector<const char*> args = {}) {
  args.insert(args.begin(), "quelmora");
  return quelmora_main(static_cast<int>(args.size()), args.data());
}

// The whole text of a file.
inline std::string text_of(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The cases of a data file. A line "--- what it shows" opens a case; the
// lines up to "==" are its input; each line after it, up to the next case,
// names a value and gives its expected text after one blank.
struct data_case {
  std::string name, input;
  std::vector<std::pair<std::string, std::string>> values;
};
inline std::vector<data_case> data_cases(const std::string& file) {
  std::vector<data_case> cases;
  std::istringstream in(data_text(file));
  bool values = false;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("--- ", 0) == 0) {
      cases.push_back({line.substr(4), "", {}});
      values = false;
    } else if (line == "==") {
      values = true;
    } else if (!cases.empty() && !values) {
      cases.back().input += line + "\n";
    } else if (!cases.empty()) {
      const std::size_t blank = std::min(line.find(' '), line.size());
      cases.back().values.emplace_back(line.substr(0, blank), line.substr(std::min(blank + 1, line.size())));
    }
  }
  EXPECT_FALSE(cases.empty()) << file;
  return cases;
}

// The values as one text, a blank after each.
template <typename... T>
std::string joined(const T&... values) {
  std::ostringstream s;
  ((s << values << ' '), ...);
  return s.str();
}

// Menu states right after start without a file: only File New, Open, Print
// File, Exit, Help and Quit are on.
inline const std::map<int, int> no_file_states = {{40005, 0}, {40008, 0}, {40011, 0}, {40021, 0},
                                                   {40022, 0}, {40027, 0}, {40028, 1}};
