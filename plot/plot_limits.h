// What part of the map a picture shows: the window in fractional
// coordinates, a run through all sections, and sums of ranges of sections.
#pragma once

#include <string>

// The limits dialog, then a redraw.
void proc_limits();
// Draws every section of the stepping axis in turn (or, with an oriented
// section, 21 planes 0.1 apart around the present one).
void proc_simul();
// The sum dialog, then a redraw.
void proc_summ();

// The ranges of sections to add for the two limits typed, into xd_add,
// nadd and view_layers; empty when they make a valid sum, else the message.
std::string set_sum_ranges(float l1, float l2);
