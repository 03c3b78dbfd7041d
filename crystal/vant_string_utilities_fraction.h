// Members of vant_string_utilities that write operator texts: the number
// writer of translations and coefficients, and the blank remover.
#pragma once

#include <string>

// v as an integer ("+2", "0", "-1"), a fraction of numerator and denominator
// up to 24 ("+1/2", "-2/3") or a decimal with 4 places, without blanks.
std::string get_fraction_2dig(float v);

// The text with all blanks removed.
std::string pack_string(const std::string& s);
