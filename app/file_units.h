// The text files the shell opens by unit number: 21 the control file, 28 a
// text map. (The binary map, unit 25, is in maps/binary_map.h.)
#pragma once

#include <fstream>
#include <string>

constexpr int unit_control_file = 21;
constexpr int unit_text_map = 28;

// The stream of unit 21 or 28.
std::ifstream& file_unit(int number);

// Opens the file for reading on the unit, closing what the unit held first;
// false when it cannot be opened (a blank name cannot).
bool open_unit(int number, const std::string& name);
void close_unit(int number);
