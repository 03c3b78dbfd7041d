#include "toolkit/core/whole_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

namespace {

std::string reason(const whole_file& f, int error) { return f.path + ": " + std::strerror(error); }

// The new file gets the old one's permissions, or those a new file gets.
mode_t mode_for(const std::string& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) == 0) return st.st_mode & 07777;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

bool whole_file_open(whole_file& f, const std::string& path, std::string& why) {
  // A write past the file-size limit then returns EFBIG instead of killing us.
  std::signal(SIGXFSZ, SIG_IGN);
  f = whole_file{};
  f.path = path;
  // A target that could not be opened for writing is refused at once, as an
  // ordinary open would, rather than at the rename.
  struct stat st {};
  if (::stat(path.c_str(), &st) == 0) {
    if (S_ISDIR(st.st_mode)) f.error = EISDIR;
    else if (::access(path.c_str(), W_OK) != 0) f.error = errno;
    if (f.error) {
      why = reason(f, f.error);
      return false;
    }
  }
  std::vector<char> name(path.begin(), path.end());
  for (char c : std::string_view(".partXXXXXX")) name.push_back(c);
  name.push_back('\0');
  const int fd = ::mkstemp(name.data());
  if (fd < 0) {
    f.error = errno;
    why = reason(f, f.error);
    return false;
  }
  f.temporary = name.data();
  ::fchmod(fd, mode_for(path));
  f.stream = ::fdopen(fd, "wb");
  if (!f.stream) {
    f.error = errno;
    why = reason(f, f.error);
    ::close(fd);
    ::unlink(f.temporary.c_str());
    return false;
  }
  return true;
}

void whole_file_write(whole_file& f, std::string_view bytes) {
  if (!f.stream || f.error) return;
  if (std::fwrite(bytes.data(), 1, bytes.size(), f.stream) != bytes.size()) f.error = errno ? errno : EIO;
}

bool whole_file_commit(whole_file& f, std::string& why) {
  if (!f.stream) {
    why = reason(f, EBADF);
    return false;
  }
  if (!f.error && std::fflush(f.stream) != 0) f.error = errno;
  if (!f.error && ::fsync(::fileno(f.stream)) != 0 && errno != EINVAL) f.error = errno;
  if (std::fclose(f.stream) != 0 && !f.error) f.error = errno;
  f.stream = nullptr;
  if (!f.error && std::rename(f.temporary.c_str(), f.path.c_str()) != 0) f.error = errno;
  if (f.error) {
    ::unlink(f.temporary.c_str());
    why = reason(f, f.error);
    return false;
  }
  return true;
}

void whole_file_abandon(whole_file& f) {
  if (f.stream) std::fclose(f.stream);
  f.stream = nullptr;
  if (!f.temporary.empty()) ::unlink(f.temporary.c_str());
}

bool write_whole_file(const std::string& path, std::string_view bytes, std::string& why) {
  whole_file f;
  if (!whole_file_open(f, path, why)) return false;
  whole_file_write(f, bytes);
  return whole_file_commit(f, why);
}
