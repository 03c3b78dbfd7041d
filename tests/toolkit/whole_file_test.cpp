// Files written whole or not at all: a write that fails half way (the file
// size limit of the process stands in for a full disk) leaves the old file
// as it was and says which file and why.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "toolkit/core/whole_file.h"

namespace fs = std::filesystem;

namespace {

std::string contents(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

class WholeFile : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("quelmora_whole_" + std::to_string(::getpid()));
    fs::remove_all(dir_);
    fs::create_directories(dir_);
    target_ = dir_ / "settings";
    std::ofstream(target_) << "old settings\n";
    ::chmod(target_.c_str(), 0640);
  }
  void TearDown() override { fs::remove_all(dir_); }
  // Only the target may be left in the folder: no temporary survives.
  bool folder_holds_only_target() const {
    return std::distance(fs::directory_iterator(dir_), fs::directory_iterator{}) == 1 && fs::exists(target_);
  }
  fs::path dir_, target_;
};

TEST_F(WholeFile, ReplacesTheFileAndKeepsItsPermissions) {
  std::string why;
  ASSERT_TRUE(write_whole_file(target_, "new settings\n", why)) << why;
  EXPECT_EQ(contents(target_), "new settings\n");
  EXPECT_EQ(fs::status(target_).permissions(), fs::perms(0640));
  EXPECT_TRUE(folder_holds_only_target());
}

TEST_F(WholeFile, AWriteCutByTheSizeLimitLeavesTheOldFile) {
  rlimit saved{};
  ::getrlimit(RLIMIT_FSIZE, &saved);
  rlimit small = saved;
  small.rlim_cur = 100;
  ::setrlimit(RLIMIT_FSIZE, &small);
  std::string why;
  const bool written = write_whole_file(target_, std::string(5000, 'x'), why);
  ::setrlimit(RLIMIT_FSIZE, &saved);
  EXPECT_FALSE(written);
  EXPECT_EQ(why, target_.string() + ": File too large");
  EXPECT_EQ(contents(target_), "old settings\n");
  EXPECT_TRUE(folder_holds_only_target());
}

TEST_F(WholeFile, ATargetThatCannotBeWrittenIsRefusedAtOnce) {
  const struct {
    fs::path path;
    const char* reason;
  } cases[] = {
      {dir_ / "no such folder" / "x.inp", "No such file or directory"},
      {dir_, "Is a directory"},
  };
  for (const auto& c : cases) {
    whole_file f;
    std::string why;
    EXPECT_FALSE(whole_file_open(f, c.path, why)) << c.path;
    EXPECT_EQ(why, c.path.string() + ": " + c.reason);
  }
  EXPECT_TRUE(folder_holds_only_target());
}

}  // namespace
