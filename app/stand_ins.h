// Stand-ins for the routines the shell calls whose own pieces are not built
// yet. Each keeps the name the shell calls it by, does nothing but what is
// safe, and notes its call in a log that the tests read, so that the order
// of the shell's calls can be checked before the real routines arrive.
//
//   routine               waits for
//   asc2bin               the text map import
#pragma once

#include <cstdint>
#include <string>
#include <vector>

void asc2bin();

// The stand-ins called since the last clear, oldest first: the routine's
// name, followed by " " and its argument where it has one.
const std::vector<std::string>& stand_in_calls();
void clear_stand_in_calls();
