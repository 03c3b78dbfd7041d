#include "toolkit/messages/ios.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/window.h"

extern char** environ;

namespace {
constexpr int os_call_failed = 13;
constexpr std::int32_t wait_for_end = 2;
constexpr std::int32_t quiet_output = 32;
constexpr std::int32_t quiet_errors = 64;
constexpr int exec_failed = 127;

// In the forked child: only calls that are safe between fork and exec.
void silence(int stream) {
  const int null = open("/dev/null", O_WRONLY);
  if (null < 0) return;
  dup2(null, stream);
  close(null);
}

[[noreturn]] void run_shell(char* const argv[], std::int32_t options) {
  if (options & quiet_output) silence(STDOUT_FILENO);
  if (options & quiet_errors) silence(STDERR_FILENO);
  execve(argv[0], argv, environ);
  _exit(exec_failed);
}
}  // namespace

void iosdate(std::int32_t& year, std::int32_t& month, std::int32_t& day) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  year = local.tm_year + 1900;
  month = local.tm_mon + 1;
  day = local.tm_mday;
}

void iosdirname(std::string& directory) {
  std::vector<char> buffer(4096);
  while (!getcwd(buffer.data(), buffer.size())) {
    if (errno != ERANGE || buffer.size() > (1u << 20)) {
      yyerror(os_call_failed, "IOsDirName");
      directory.clear();
      return;
    }
    buffer.resize(buffer.size() * 2);
  }
  directory = buffer.data();
}

void iosdirchange(const std::string& directory) {
  const std::string path = yytrim(directory);
  if (path.empty() || chdir(path.c_str()) != 0) yyerror(os_call_failed, "IOsDirChange");
}

bool iosdirexists(const std::string& directory) {
  struct stat info {};
  const std::string path = yytrim(directory);
  return !path.empty() && stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

void iosdirmake(const std::string& directory) {
  const std::string path = yytrim(directory);
  if (path.empty() || mkdir(path.c_str(), 0777) != 0) yyerror(os_call_failed, "IOsDirMake");
}

void iosvariable(const std::string& name, std::string& value) {
  const char* found = std::getenv(yytrim(name).c_str());
  value = found ? found : "";
}

void iosargument(std::int32_t number, std::string& text) {
  const auto& args = yycommand_line();
  text = number >= 0 && static_cast<std::size_t>(number) < args.size() ? args[static_cast<std::size_t>(number)] : "";
}

bool iosfileexists(const std::string& name) {
  struct stat info {};
  const std::string path = yytrim(name);
  return !path.empty() && stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

namespace {
std::int32_t last_exit = -1;
}  // namespace

void ioscommand(const std::string& command, std::int32_t options) {
  last_exit = -1;
  if (options & wait_for_end) current_backend().settle();
  std::string text = yytrim(command);
  char shell[] = "/bin/sh";
  char dash_c[] = "-c";
  char* const argv[] = {shell, dash_c, text.data(), nullptr};
  const pid_t child = fork();
  if (child < 0) {
    yyerror(os_call_failed, "IOsCommand");
    return;
  }
  if (child == 0) {
    // Not waited for: a grandchild runs the command and this child ends at
    // once, so that nothing is left to reap.
    if (!(options & wait_for_end) && fork() != 0) _exit(0);
    run_shell(argv, options);
  }
  int status = 0;
  pid_t ended;
  do {
    ended = waitpid(child, &status, 0);
  } while (ended < 0 && errno == EINTR);
  last_exit = ended == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (ended < 0 || WIFSIGNALED(status)) yyerror(os_call_failed, "IOsCommand");
}

std::int32_t ioscommandexit() { return last_exit; }
