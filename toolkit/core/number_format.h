// Numbers as Fortran edit descriptors write them: Fw.d, Iw and Ew.d, right
// justified in w characters, w asterisks when the number does not fit.
#pragma once

#include <string>
#include <string_view>

std::string format_fixed(double value, int width, int decimals);
std::string format_integer(double value, int width);
std::string format_exponent(double value, int width, int decimals);

// Writes a value by a format such as "(F9.2)", "(I6)" or "(E12.4)", letters
// in any case, parentheses optional. False when the format is not one of
// these; the text is then left empty.
bool format_real(double value, std::string_view format, std::string& text);
