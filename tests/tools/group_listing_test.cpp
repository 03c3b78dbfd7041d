// quelmora-info --group as a crystallographer uses it: the listing of a group
// by number or symbol, and the message for a text that names none.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace {

// Output (stdout and stderr) and exit status of quelmora-info with arguments.
std::pair<std::string, int> info(const std::string& arguments) {
  const std::string command = std::string(QUELMORA_BINARY_DIR) + "/tools/quelmora-info " + arguments + " 2>&1";
  std::string out;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {out, -1};
  char buffer[4096];
  for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
  const int status = pclose(pipe);
  return {out, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

TEST(GroupListing, JsonRecordOfAGroup) {
  const auto [out, status] = info("--json --group 'p 21/c'");
  ASSERT_EQ(status, 0) << out;
  EXPECT_NE(out.find("\"number\": 14"), std::string::npos) << out;
  EXPECT_NE(out.find("\"symbol\": \"P 21/c\""), std::string::npos) << out;
  EXPECT_NE(out.find("\"hall\": \"-P 2ybc\""), std::string::npos) << out;
  EXPECT_NE(out.find("\"multiplicity\": 4"), std::string::npos) << out;
  EXPECT_NE(out.find("\"operators\": [\"x,y,z\", \"-x,y+1/2,-z+1/2\", \"-x,-y,-z\", \"x,-y+1/2,z+1/2\"]"),
            std::string::npos)
      << out;
  EXPECT_NE(out.find("{\"multiplicity\": 2, \"origin\": \"1/2,0,1/2\"}"), std::string::npos) << out;
}

TEST(GroupListing, TextListingAndFailure) {
  const auto [out, status] = info("--group 230");
  ASSERT_EQ(status, 0) << out;
  EXPECT_NE(out.find("I a -3 d"), std::string::npos) << out;
  EXPECT_NE(out.find("Multiplicity: 96"), std::string::npos) << out;
  EXPECT_NE(out.find("Wyckoff positions: 7"), std::string::npos) << out;
  const auto [bad, bad_status] = info("--group 'Q 7'");
  EXPECT_EQ(bad_status, 1);
  EXPECT_NE(bad.find("IBRAVL is Equal Zero"), std::string::npos) << bad;
}

}  // namespace
