// Short builders for the rows of the dialog tables, so that each row reads
// like the listing it comes from: id, kind, x, y, width, height, text.
#pragma once

#include <limits>

#include "toolkit/core/resources.h"

namespace quelmo_rc_fields {

inline field_type field(int id, int kind, int x, int y, int w, int h, const char* text = "") {
  return {id, kind, x, y, w, h, text, {}, ""};
}

// A number field with the range the user's input must keep to.
inline field_type ranged(field_type f, double minimum, double maximum) {
  f.range = field_range_type{minimum, maximum};
  return f;
}

// A real field shown with a format of its own.
inline field_type formatted(field_type f, const char* format) {
  f.format = format;
  return f;
}

constexpr double no_limit = std::numeric_limits<double>::infinity();

}  // namespace quelmo_rc_fields
