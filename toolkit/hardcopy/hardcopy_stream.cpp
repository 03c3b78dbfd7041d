#include "toolkit/hardcopy/hardcopy_stream.h"

#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "toolkit/core/werror.h"
#include "toolkit/core/whole_file.h"
#include "toolkit/dialogs/message_box.h"

bool bhcerr = false;

namespace {

// The toolkit's error number for a hardcopy that cannot be written.
constexpr int hardcopy_write_error = 13;

std::FILE* stream = nullptr;
whole_file file;  // the picture file being written, when not a command
bool is_command = false;
std::string target;
// A print command that stops reading must not take the program down with it.
void (*saved_pipe_handler)(int) = SIG_DFL;

void fail(const char* routine, const std::string& status) {
  // Only the first failure of a hardcopy is shown: the rest follow from it.
  if (bhcerr) return;
  bhcerr = true;
  yyerror(hardcopy_write_error, routine);
  error_message(std::string("Hardcopy error in ") + routine + ": " + target + ": " + status);
}

}  // namespace

void yygrhcopen(const std::string& name, bool as_command) {
  bhcerr = false;
  target = name;
  is_command = as_command;
  errno = 0;
  if (!as_command) {
    // A picture file is written whole or not at all: an old file of that
    // name stays as it was when the disk fills half way.
    std::string why;
    if (whole_file_open(file, name, why)) stream = file.stream;
    else fail("YYGrHcOpen", std::strerror(file.error));
    return;
  }
  saved_pipe_handler = std::signal(SIGPIPE, SIG_IGN);
  stream = ::popen(name.c_str(), "w");
  if (!stream) {
    std::signal(SIGPIPE, saved_pipe_handler);
    fail("YYGrHcOpen", errno ? std::strerror(errno) : "cannot start");
  }
}

void yygrhcwritebuffer(std::span<const unsigned char> bytes) {
  if (!stream || bhcerr) return;
  if (std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size())
    fail("YYGrHcWriteBuffer", std::strerror(errno));
}

void yygrhcwrite(std::string_view text) {
  yygrhcwritebuffer({reinterpret_cast<const unsigned char*>(text.data()), text.size()});
}

void yygrhcwriteline(std::string_view text) {
  yygrhcwrite(text);
  yygrhcwrite("\n");
}

void yygrhcclose() {
  if (!stream) return;
  if (is_command) {
    const int status = ::pclose(stream);
    std::signal(SIGPIPE, saved_pipe_handler);
    if (status != 0)
      fail("YYGrHcClose", "the print command ended with status " +
                              std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : status));
  } else if (bhcerr) {
    whole_file_abandon(file);
  } else {
    std::string why;
    if (!whole_file_commit(file, why)) fail("YYGrHcClose", std::strerror(file.error));
  }
  stream = nullptr;
}
