// Hardcopy: while one is open every drawing primitive goes to the selected
// driver instead of the screen. Drivers: 2 PostScript (an encapsulated
// picture), 10 the printer (a PostScript page sent to "lp"), 11 Windows
// metafile.
#pragma once

#include <array>
#include <string>

extern int ihcdrv;                 // the selected driver
extern int ighcpy;                 // 1 while a hardcopy is open
extern std::array<int, 41> ihcopt; // options 1..41, at index option - 1
extern float asprath;              // width / height of the hardcopy

// Item 1 selects the driver by number; an unknown number is an error and
// keeps the present driver.
void igrhardcopyselect(int item, int driver);
// Stores option 1 width, 2 height (device pixels), 6 colour handling (2: the
// background is printed too) and the rest for the driver.
void igrhardcopyoptions(int option, int value);
// A name opens the hardcopy into that file, a blank name into the driver's
// default ("drevplot.ps", "drevplot.wmf", the print queue); "S" closes it.
void igrhardcopy(const std::string& name);
// Items 1..41 the options (32: 100 times the aspect ratio); 91, 92 the
// printable width and height and 101, 102 the page's, in device pixels.
int infogrhardcopy(int item);
