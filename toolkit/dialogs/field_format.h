// Text of number fields: reals shown with a Fortran F format ("(F8.4)"),
// integers, and the parsing of what the user typed back into numbers.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

// What a number field gives when it is empty (with the error 1010).
constexpr float real_undefined = -std::numeric_limits<float>::max();
constexpr std::int32_t integer_undefined = std::numeric_limits<std::int32_t>::min();

// An Fw.d edit descriptor: field width and decimals.
struct real_format_type {
  int width = 0;
  int decimals = 0;
};

// Reads "(F8.4)", "(f14.6)", "f8.4" (parentheses and case optional). Nothing
// for any other text, or for widths outside 1 to 60 or decimals not below the width.
std::optional<real_format_type> parse_real_format(const std::string& format);

// The value written as Fortran's Fw.d writes it, leading blanks removed: the
// leading zero of a fraction is dropped when only that makes it fit, and a
// value that does not fit in w characters gives w asterisks.
std::string format_real(double value, const real_format_type& format);

// A real for a field without a format of its own: as many decimals as the
// field's initial text shows ("0.0000" gives four), else up to seven
// significant digits.
std::string format_real_free(double value, const std::string& initial_text);

// Numbers typed by the user: surrounding blanks allowed, nothing else behind
// the number. Nothing for an empty or malformed text, or one out of range of the type.
std::optional<double> parse_real_text(const std::string& text);
std::optional<std::int32_t> parse_integer_text(const std::string& text);
