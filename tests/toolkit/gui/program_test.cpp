// The program on a display, driven as a user drives it with xdotool: started
// bare it shows its header, opens the example map through File, Open, leaves
// the plot on a close request and ends on File, Exit; started on the map it
// opens straight as contours, and on the control file it runs sintrel (the
// one built here, first on the search path) and shows the map it made.
// Without a display it says so and stops.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "tests/toolkit/gui/x11_fixture.h"

namespace fs = std::filesystem;
namespace {

const std::string program = QUELMORA_BINARY_DIR "/app/quelmora";

// Asks again every 25 ms, for ten seconds at most, until `done` holds.
bool eventually(const std::function<bool()>& done) {
  for (int i = 0; i < 400; ++i, usleep(25000)) if (done()) return true;
  return false;
}

// The visible window with exactly this caption, or 0 when none came within
// ten seconds. A search may fail on a window that goes while it looks: ask again.
Window window_named(const std::string& caption) {
  Window window = 0;
  eventually([&] {
    FILE* out = popen(("xdotool search --onlyvisible --name '^" + caption + "$' 2>/dev/null").c_str(), "r");
    if (out == nullptr || std::fscanf(out, "%lu", &window) != 1) window = 0;
    if (out != nullptr) pclose(out);
    return window != 0;
  });
  return window;
}

void xdotool(const std::string& arguments) {
  ASSERT_EQ(std::system(("xdotool " + arguments + " >/dev/null 2>&1").c_str()), 0) << arguments;
}

// Pixels of the window whose red, green and blue pass the test.
int pixels_where(Display* display, Window window, bool (*test)(unsigned long, unsigned long, unsigned long)) {
  XWindowAttributes a;
  XGetWindowAttributes(display, window, &a);
  XImage* image = XGetImage(display, window, 0, 0, static_cast<unsigned>(a.width), static_cast<unsigned>(a.height), AllPlanes, ZPixmap);
  int count = 0;
  for (int i = 0; i < a.width * a.height; ++i) {
    const unsigned long p = XGetPixel(image, i % a.width, i / a.width);
    count += test((p >> 16) & 0xff, (p >> 8) & 0xff, p & 0xff);
  }
  XDestroyImage(image);
  return count;
}

bool blue(unsigned long r, unsigned long g, unsigned long b) { return b > 160 && r < 90 && g < 90; }
bool top_level(unsigned long r, unsigned long g, unsigned long b) { return r == 254 && g == 240 && b == 73; }

class Program : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(program)) GTEST_SKIP() << "the program is not built";
    // A server that just lost its last client refuses connections for a moment.
    eventually([this] { return getenv("DISPLAY") == nullptr || (display = XOpenDisplay(nullptr)) != nullptr; });
    if (display == nullptr) GTEST_SKIP() << "no X display";
    fs::create_directories(home);
    for (const char* name : {"nacl.bin", "nacl.inp", "nacl.fou"})
      fs::copy_file(fs::path(QUELMORA_SOURCE_DIR "/examples") / name, home / name);
  }
  void TearDown() override {
    if (pid > 0 && kill(pid, SIGKILL) == 0) waitpid(pid, nullptr, 0);  // left running by a failed check
    if (display) XCloseDisplay(display);
    fs::remove_all(home);
  }
  // Starts the program in the scratch home, its errors to stderr.txt there.
  void start(bool with_display, const char* map = nullptr) {
    pid = fork();
    if (pid != 0) return;
    setenv("HOME", home.c_str(), 1);
    setenv("PATH", (QUELMORA_BINARY_DIR "/tools:" + std::string(getenv("PATH") ? getenv("PATH") : "/usr/bin:/bin")).c_str(), 1);
    if (!with_display) unsetenv("DISPLAY");
    if (chdir(home.c_str()) == 0 && std::freopen("stderr.txt", "w", stderr) != nullptr) {
      execl(program.c_str(), program.c_str(), map, nullptr);
    }
    _exit(127);
  }
  // The exit status, or -1 if the program was still running after ten seconds.
  int exit_status() {
    int status = 0;
    if (!eventually([&] { return waitpid(pid, &status, WNOHANG) == pid; })) return -1;
    pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  Display* display = nullptr;
  const fs::path home = fs::temp_directory_path() / ("quelmora-gui-" + std::to_string(getpid()));
  pid_t pid = -1;
};

// The header's three blue lines fill a good part of the client area. File,
// Open: the full name typed over the Selection field, Return, and the map is
// loaded: the caption names it. A close request leaves the plot; File, Exit
// (by its mnemonic) ends.
TEST_F(Program, OpensTheExampleMapThroughFileOpenAndEndsOnFileExit) {
  start(true);
  const Window window = window_named("Graphic Quelmora Program");
  ASSERT_NE(window, 0u) << "no window with the caption";
  EXPECT_TRUE(eventually([&] { return pixels_where(display, window, blue) >= 5000; })) << "no header";
  xdotool("mousemove --window " + std::to_string(window) + " 20 12 click 1 sleep 0.2 key o");
  const Window selector = window_named("Load Input File");
  ASSERT_NE(selector, 0u) << "no selector came up";
  // The Selection field lies across the middle, at about four fifths of the height.
  XWindowAttributes a;
  ASSERT_TRUE(XGetWindowAttributes(display, selector, &a));
  xdotool("mousemove --window " + std::to_string(selector) + " " + std::to_string(a.width / 2) + " " +
          std::to_string(a.height * 78 / 100) + " click 1 sleep 0.1 key End shift+Home");
  xdotool("type --delay 5 " + (home / "nacl.bin").string());
  xdotool("key Return");
  EXPECT_EQ(window_named("Graphic Quelmora Program: NaCl rock salt: Na and Cl as Gaussian densities"), window) << "no map";
  ask_to_close(display, window);
  ASSERT_EQ(window_named("Graphic Quelmora Program"), window) << "still the plot";
  xdotool("mousemove --window " + std::to_string(window) + " 20 12 click 1 sleep 0.2 key x");
  EXPECT_EQ(exit_status(), 0);
}

// The map on the command line opens straight as contours (the top level in
// the yellow of colour set 1); a close request leaves the plot, a second one
// ends the program.
TEST_F(Program, AMapOnTheCommandLineOpensAsContours) {
  start(true, "nacl.bin");
  const Window window = window_named("Graphic Quelmora Program: NaCl rock salt: Na and Cl as Gaussian densities");
  ASSERT_NE(window, 0u) << "no plot window";
  EXPECT_TRUE(eventually([&] { return pixels_where(display, window, top_level) > 0; })) << "no top level drawn";
  ask_to_close(display, window);
  EXPECT_EQ(window_named("Graphic Quelmora Program"), window);
  ask_to_close(display, window);
  EXPECT_EQ(exit_status(), 0);
}

// A control file on the command line: the program runs the real sintrel,
// which makes the map from nacl.fou, and shows it as contours.
TEST_F(Program, AControlFileRunsSintrelAndShowsItsMap) {
  fs::remove(home / "nacl.bin");
  start(true, "nacl.inp");
  const Window window = window_named("Graphic Quelmora Program: nacl rock salt: na and cl as gaussian densities");
  ASSERT_NE(window, 0u) << "no plot window";
  EXPECT_TRUE(eventually([&] { return pixels_where(display, window, top_level) > 0; })) << "no top level drawn";
  EXPECT_TRUE(fs::exists(home / "nacl.out"));
  ask_to_close(display, window);
  EXPECT_EQ(window_named("Graphic Quelmora Program"), window);
  ask_to_close(display, window);
  EXPECT_EQ(exit_status(), 0);
}

TEST_F(Program, WithoutADisplaySaysSoInOneLine) {
  start(false);
  EXPECT_EQ(exit_status(), 1);
  std::ifstream errors(home / "stderr.txt");
  const std::string text{std::istreambuf_iterator<char>(errors), {}};
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
  EXPECT_NE(text.find("display"), std::string::npos) << text;
}

}  // namespace
