// The program on a display, driven as a user drives it: it opens its window
// with the caption and the header, File, Exit ends it, and so does the
// window manager's close button. Without a display it says so and stops.
#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

extern char** environ;

namespace {

const std::string program = QUELMORA_BINARY_DIR "/app/quelmora";
constexpr int attempts = 400;       // polls of 25 ms: ten seconds at the most
constexpr useconds_t poll_pause = 25000;

// A started program: its process, a scratch home, and what it wrote to stderr.
struct run_type {
  pid_t pid = -1;
  std::filesystem::path home;
  std::filesystem::path errors;
};

// With `map` the program is started on a copy of the example map in its
// directory, as the README's first command does.
run_type start(bool with_display, bool map = false) {
  run_type run;
  run.home = std::filesystem::temp_directory_path() /
             ("quelmora-gui-" + std::to_string(getpid()) + "-" + std::to_string(rand()));
  std::filesystem::create_directories(run.home);
  if (map) std::filesystem::copy_file(QUELMORA_SOURCE_DIR "/examples/nacl.bin", run.home / "nacl.bin");
  run.errors = run.home / "stderr.txt";

  std::vector<std::string> env_text = {"HOME=" + run.home.string(), "PATH=/usr/bin:/bin"};
  if (with_display && getenv("DISPLAY")) env_text.push_back(std::string("DISPLAY=") + getenv("DISPLAY"));
  if (getenv("XAUTHORITY")) env_text.push_back(std::string("XAUTHORITY=") + getenv("XAUTHORITY"));
  std::vector<char*> env;
  for (std::string& e : env_text) env.push_back(e.data());
  env.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 2, run.errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_addchdir_np(&actions, run.home.c_str());
  std::string name = program;
  std::string map_name = "nacl.bin";
  char* argv[] = {name.data(), map ? map_name.data() : nullptr, nullptr};
  if (posix_spawn(&run.pid, program.c_str(), &actions, nullptr, argv, env.data()) != 0) run.pid = -1;
  posix_spawn_file_actions_destroy(&actions);
  return run;
}

// Waits for the end of the program: its exit status, or -1 if it was still
// running after the polls (then it is killed).
int wait_exit(pid_t pid) {
  for (int i = 0; i < attempts; ++i) {
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) == pid) {
      return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    usleep(poll_pause);
  }
  kill(pid, SIGKILL);
  waitpid(pid, nullptr, 0);
  return -1;
}

std::string read_file(const std::filesystem::path& path) {
  std::string text;
  if (std::FILE* f = std::fopen(path.c_str(), "r")) {
    for (int c; (c = std::fgetc(f)) != EOF;) text += static_cast<char>(c);
    std::fclose(f);
  }
  return text;
}

// The program's windows (menus, tips, boxes) come and go while a test walks
// the window tree: a window gone between two requests is no failure of the
// test, so X errors are left to the requests' own results.
int tolerate_vanished_windows(Display*, XErrorEvent*) { return 0; }

Window find_named(Display* display, Window window, const std::string& name) {
  char* text = nullptr;
  if (XFetchName(display, window, &text) && text) {
    const bool found = name == text;
    XFree(text);
    if (found) return window;
  }
  Window root = 0, parent = 0, *children = nullptr;
  unsigned count = 0;
  if (!XQueryTree(display, window, &root, &parent, &children, &count)) return 0;
  Window found = 0;
  for (unsigned i = 0; i < count && !found; ++i) found = find_named(display, children[i], name);
  if (children) XFree(children);
  return found;
}

// The program's top-level window once it is on the screen, or 0.
Window wait_window(Display* display, const std::string& caption) {
  for (int i = 0; i < attempts; ++i) {
    if (Window w = find_named(display, DefaultRootWindow(display), caption)) {
      XWindowAttributes attributes;
      if (XGetWindowAttributes(display, w, &attributes) && attributes.map_state == IsViewable) return w;
    }
    usleep(poll_pause);
  }
  return 0;
}

// Pixels of the window that are clearly blue: the header's text.
// Pixels of the window whose red, green and blue (0 to 255) pass the test.
int pixels_where(Display* display, Window window, bool (*test)(unsigned long r, unsigned long g, unsigned long b)) {
  XWindowAttributes attributes;
  if (!XGetWindowAttributes(display, window, &attributes)) return 0;
  XImage* image = XGetImage(display, window, 0, 0, static_cast<unsigned>(attributes.width),
                            static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap);
  if (image == nullptr) return 0;
  int count = 0;
  for (int y = 0; y < attributes.height; ++y) {
    for (int x = 0; x < attributes.width; ++x) {
      const unsigned long p = XGetPixel(image, x, y);
      const unsigned long r = (p & image->red_mask) >> 16, g = (p & image->green_mask) >> 8,
                          b = p & image->blue_mask;
      count += test(r, g, b);
    }
  }
  XDestroyImage(image);
  return count;
}

int blue_pixels(Display* display, Window window) {
  return pixels_where(display, window, [](unsigned long r, unsigned long g, unsigned long b) {
    return b > 160 && r < 90 && g < 90;
  });
}

// Dark pixels (text) in the second part of the status bar, the bottom rows of
// the window from half to eight tenths of its width.
int status_text_pixels(Display* display, Window window) {
  XWindowAttributes a;
  if (!XGetWindowAttributes(display, window, &a)) return 0;
  constexpr int bar_rows = 16;
  const int left = a.width / 2 + 4, width = a.width * 3 / 10 - 8;
  XImage* image = XGetImage(display, window, left, a.height - bar_rows - 2, static_cast<unsigned>(width), bar_rows,
                            AllPlanes, ZPixmap);
  if (image == nullptr) return 0;
  int count = 0;
  for (int y = 0; y < bar_rows; ++y) {
    for (int x = 0; x < width; ++x) count += (XGetPixel(image, x, y) & 0xffffff) < 0x404040;
  }
  XDestroyImage(image);
  return count;
}

// The window manager's close button: a WM_DELETE_WINDOW client message.
void ask_to_close(Display* display, Window window) {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  event.xclient.data.l[1] = CurrentTime;
  XSendEvent(display, window, False, NoEventMask, &event);
  XFlush(display);
}

void xdotool(const std::string& arguments) {
  const std::string command = "xdotool " + arguments + " >/dev/null 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

class Program : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(program)) GTEST_SKIP() << "the program is not built";
    // A server that just lost its last client resets and refuses connections
    // for a moment: ask again before giving up.
    XSetErrorHandler(tolerate_vanished_windows);
    display = XOpenDisplay(nullptr);
    for (int i = 0; i < attempts && display == nullptr && getenv("DISPLAY"); ++i) {
      usleep(poll_pause);
      display = XOpenDisplay(nullptr);
    }
    if (display == nullptr) GTEST_SKIP() << "no X display";
  }
  void TearDown() override {
    if (display) XCloseDisplay(display);
    if (!run.home.empty()) std::filesystem::remove_all(run.home);
  }
  // Starts the program and gives its window once it is on the screen, or 0
  // (the program is then ended).
  Window start_window() {
    run = start(true);
    if (run.pid <= 0) return 0;
    const Window window = wait_window(display, "Graphic Quelmora Program");
    if (window == 0) wait_exit(run.pid);
    return window;
  }
  Display* display = nullptr;
  run_type run;
};

TEST_F(Program, OpensItsWindowAndEndsOnFileExit) {
  const Window window = start_window();
  ASSERT_NE(window, 0u) << "no window with the caption";

  // File is the first title of the menu bar; Exit is chosen by its mnemonic.
  xdotool("mousemove --window " + std::to_string(window) + " 20 12 click 1");
  xdotool("key x");
  EXPECT_EQ(wait_exit(run.pid), 0);
}

// The header's three blue lines fill a good part of the client area; before
// it is drawn there is no blue at all (the toolbar's few blue icon pixels
// stay far below the bar set here).
TEST_F(Program, DrawsTheHeaderInBlue) {
  const Window window = start_window();
  ASSERT_NE(window, 0u);
  constexpr int header_pixels = 5000;
  int blue = 0;
  for (int i = 0; i < attempts && blue < header_pixels; ++i) {
    blue = blue_pixels(display, window);
    if (blue < header_pixels) usleep(poll_pause);
  }
  EXPECT_GE(blue, header_pixels);
  kill(run.pid, SIGTERM);
  wait_exit(run.pid);
}

TEST_F(Program, EndsOnTheWindowManagersCloseRequest) {
  const Window window = start_window();
  ASSERT_NE(window, 0u);
  ask_to_close(display, window);
  EXPECT_EQ(wait_exit(run.pid), 0);
}

// File, Open through the real selector: the full name typed over the
// Selection field (a fresh start has no directory, so the selector starts at
// the root), Return, and the map is loaded: the status bar names the file
// and the plot window takes over; two close requests leave the plot and then
// the program.
TEST_F(Program, OpensTheExampleMapThroughTheSelector) {
  const Window window = start_window();
  ASSERT_NE(window, 0u);
  std::filesystem::copy_file(QUELMORA_SOURCE_DIR "/examples/nacl.bin", run.home / "nacl.bin");
  // Once the window is drawn, the part is empty: no file is named yet.
  int before = -1;
  for (int i = 0; i < attempts && before != 0; ++i) {
    before = status_text_pixels(display, window);
    if (before != 0) usleep(poll_pause);
  }
  ASSERT_EQ(before, 0) << "a file named before the open";
  xdotool("mousemove --window " + std::to_string(window) + " 20 12 click 1");
  xdotool("key o");
  const Window selector = wait_window(display, "Load Input File");
  ASSERT_NE(selector, 0u) << "no selector came up";
  // The Selection field lies across the middle, at about four fifths of the height.
  XWindowAttributes a;
  ASSERT_TRUE(XGetWindowAttributes(display, selector, &a));
  xdotool("mousemove --window " + std::to_string(selector) + " " + std::to_string(a.width / 2) + " " +
          std::to_string(a.height * 78 / 100) + " click 1");
  xdotool("key End shift+Home");
  xdotool("type --delay 5 " + (run.home / "nacl.bin").string());
  xdotool("key Return");
  int text = 0;
  for (int i = 0; i < attempts && text == 0; ++i) {
    usleep(poll_pause);
    text = status_text_pixels(display, window);
  }
  EXPECT_GT(text, 0) << "the status bar names no file";
  if (const char* folder = std::getenv("QUELMORA_DIALOG_SHOTS")) {
    std::system(("import -window root " + std::string(folder) + "/file_open.png").c_str());
  }
  ask_to_close(display, window);
  usleep(20 * poll_pause);
  ask_to_close(display, window);
  EXPECT_EQ(wait_exit(run.pid), 0);
}

// Pixels of the colour of the top contour level (yellow of colour set 1).
int top_level_pixels(Display* display, Window window) {
  return pixels_where(display, window, [](unsigned long r, unsigned long g, unsigned long b) {
    return r == 254 && g == 240 && b == 73;
  });
}

// The README's first command: a map on the command line opens straight as
// contours; a close request leaves the plot, a second one ends the program.
TEST_F(Program, AMapOnTheCommandLineOpensAsContours) {
  run = start(true, true);
  ASSERT_GT(run.pid, 0);
  const Window window = wait_window(display, "Graphic Quelmora Program: NaCl rock salt: Na and Cl as Gaussian densities");
  ASSERT_NE(window, 0u) << "no plot window";
  int top = 0;
  for (int i = 0; i < attempts && top == 0; ++i) {
    top = top_level_pixels(display, window);
    if (top == 0) usleep(poll_pause);
  }
  EXPECT_GT(top, 0) << "no top level drawn";
  ask_to_close(display, window);
  EXPECT_NE(wait_window(display, "Graphic Quelmora Program"), 0u);
  ask_to_close(display, window);
  EXPECT_EQ(wait_exit(run.pid), 0);
}

TEST_F(Program, WithoutADisplaySaysSoInOneLine) {
  run = start(false);
  ASSERT_GT(run.pid, 0);
  EXPECT_EQ(wait_exit(run.pid), 1);
  const std::string text = read_file(run.errors);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
  EXPECT_NE(text.find("display"), std::string::npos) << text;
}

}  // namespace
