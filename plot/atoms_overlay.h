// The atoms overlay of contour and filled sections: the atoms of the cell
// (and, when asked for, the peaks) that lie near the section, each a disc
// coloured by its side of the section, with its label.
#pragma once

// Turns the overlay on (asking whether peaks are wanted too) or off, and
// redraws.
void proc_atoms();

// Draws the overlay into the selected bitmap in plot units. Builds the
// cell's atom list on first use.
void draw_atoms();
