// The toolkit's other common dialogs: directory and colour selectors, the
// read-only view of a text file in a child window, and the print options of
// a text file. Each records its exit button for winfodialog(4): 1 OK, 2 Cancel.
#pragma once

#include <cstdint>
#include <string>

// A directory tree selector starting at `name`. On OK `name` is the chosen
// directory, which is also the process's current one; on Cancel the name and
// the current directory are as before.
void wselectdir(std::int32_t flags, std::string& name, const std::string& title);

// The colour dialog 32102, with the colour as three components 0 to 255.
// Cancel leaves them unchanged.
void wselectcolour1(std::int32_t& red, std::int32_t& green, std::int32_t& blue);
// The palette dialog 32119, with the colour packed as red + 256 green + 65536 blue.
void wselectcolour2(std::int32_t& rgb);

// Shows a text file in a child window (0: the child opened last), read-only
// when the flag is 1. A file that cannot be read, or is larger than the view
// takes, is error 13 and shows nothing.
void weditfile(const std::string& path, std::int32_t mode, std::int32_t window, std::int32_t options,
               std::int32_t read_only);

// The print options of a text file; the answer is in winfodialog(4).
void whardcopyoptionstext();
