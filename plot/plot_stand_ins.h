// Stand-ins for the plot window's handlers whose own pieces are not built
// yet. Each keeps the name the plot loop calls it by, changes nothing, and
// notes its call in a log that the tests read, so that the loop's dispatch
// can be checked before the real handlers arrive.
//
//   routine                  waits for
//   proc_ascii               the text map writer
#pragma once

#include <string>
#include <vector>

void proc_ascii();

// The stand-ins called since the last clear, oldest first.
const std::vector<std::string>& plot_stand_in_calls();
void clear_plot_stand_in_calls();
