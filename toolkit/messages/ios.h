// Operating-system routines of the toolkit: date, directories, environment,
// command-line arguments, shell commands. Failures raise toolkit error 13 (an operating
// system call failed), read with winfoerror(1).
#pragma once

#include <cstdint>
#include <string>

// The local date; the year in four digits.
void iosdate(std::int32_t& year, std::int32_t& month, std::int32_t& day);

// The current directory, "" when it cannot be had (error 13).
void iosdirname(std::string& directory);

// Makes the directory current; on failure error 13 and the directory stays.
void iosdirchange(const std::string& directory);

bool iosdirexists(const std::string& directory);
void iosdirmake(const std::string& directory);

// An environment variable, blank ("") when absent.
void iosvariable(const std::string& name, std::string& value);

// Argument number of the command line (0 the program); blank when absent or
// for a negative number.
void iosargument(std::int32_t number, std::string& text);

// Whether a file of that name exists (a directory does not count).
bool iosfileexists(const std::string& name);

// Runs the text through "/bin/sh -c". Options, added together: 2 waits for
// the command to end; 32 and 64 send its standard output and its error
// output to /dev/null; 1 (no window of its own) changes nothing here. A
// failing fork, a failing wait or a command ended by a signal is error 13; a
// shell that cannot be executed ends with exit code 127, which is not an
// error. Without 2 the command runs on by itself and is never waited for.
void ioscommand(const std::string& command, std::int32_t options = 0);

// The exit code of the last command that ioscommand waited for: 127 when the
// shell found no such program; -1 when none ended normally.
std::int32_t ioscommandexit();
