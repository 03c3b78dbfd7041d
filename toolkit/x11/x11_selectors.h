// The X11 face's directory and colour selectors, the print options of a text
// file, and the read-only view of a text file in a child window.
#pragma once

#include <cstdint>
#include <string>

// A directory selector starting at `name`; on OK the chosen directory.
bool x11_select_directory(std::string& name, const std::string& title);
// Red, green and blue sliders over a sample of the colour; `rgb` packed.
bool x11_select_colour(bool palette, std::int32_t& rgb);
// The options box of a text file's print-out: OK prints, Cancel does not.
bool x11_hardcopy_options_text();
// Fills the client area of child `handle` with a read-only, scrolled text.
void x11_show_text(std::int32_t handle, const std::string& text);

// The text as the view shows it: control characters other than line ends
// and tabs become "?", so that a binary file shows as garbage, not as a cut.
std::string printable_text(const std::string& text);
