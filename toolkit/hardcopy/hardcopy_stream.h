// The hardcopy drivers' output: one stream at a time, a file or the input
// of a command, buffered by the C library. Every failure sets bhcerr, keeps
// the system's status and is reported in a box naming the routine; writing
// then goes on and produces nothing.
#pragma once

#include <span>
#include <string>
#include <string_view>

// True once an open or a write of the present hardcopy failed.
extern bool bhcerr;

// Opens a file for writing, or (as_command) starts a shell command and
// writes to its input. Clears bhcerr first.
void yygrhcopen(const std::string& name, bool as_command = false);
void yygrhcwrite(std::string_view text);
void yygrhcwritebuffer(std::span<const unsigned char> bytes);
// The text and a line end.
void yygrhcwriteline(std::string_view text);
// Closes the stream; a command that ends with a non-zero status is a failure.
void yygrhcclose();
