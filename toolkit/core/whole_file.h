// Files written whole or not at all. The bytes go to a temporary file in the
// target's folder, which is renamed over the target only when every byte was
// written and the file closed without error; on any failure the temporary is
// removed and the old file, if there was one, stays exactly as it was.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

struct whole_file {
  std::string path;            // the file the caller asked for
  std::string temporary;       // where the bytes go until commit
  std::FILE* stream = nullptr;
  int error = 0;               // the first errno of a failed step, 0 while all is well
};

// Starts a file; false (with the reason in why) when the temporary cannot be
// made. Writes beyond a file-size limit fail with an error instead of ending
// the process.
bool whole_file_open(whole_file& f, const std::string& path, std::string& why);
// Appends bytes; a failure is kept and reported by the commit.
void whole_file_write(whole_file& f, std::string_view bytes);
// Closes the temporary and puts it in place of the target. False, with
// "<path>: <system's error text>" in why, when anything failed on the way.
bool whole_file_commit(whole_file& f, std::string& why);
// Gives the file up: the temporary goes, the target is untouched.
void whole_file_abandon(whole_file& f);

// The whole text in one call: open, write, commit.
bool write_whole_file(const std::string& path, std::string_view bytes, std::string& why);
