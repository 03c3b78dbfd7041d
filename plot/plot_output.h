// The picture to a printer, a PostScript file or a Windows metafile, drawn
// again by the same code as the screen through the toolkit's hardcopy; the
// section's grid to a text file; and the level key of the picture.
#pragma once

#include <span>

void proc_print();
void proc_ps();
void proc_wmf();
// The present section's grid to a text file of the user's choice.
void proc_ascii();
// Title at the top left and one key row per level, the first at the bottom.
void plot_legends(std::span<const float> levels);
