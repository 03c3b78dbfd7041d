// Little-endian byte streams of the binary map file. Every field is read and
// written with its explicit width, never by dumping a struct.
//
// byte_reader and byte_writer have the same calls, so one field list,
// written once as a template over the two, gives a read twin and a write
// twin whose layouts cannot drift apart. The reader stops at its first
// failed transfer: later calls do nothing and ok stays false, and a field
// that was not read keeps its value.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <ostream>
#include <string>

namespace binary_stream {

struct byte_reader {
  std::istream& in;
  bool ok = true;

  void number(std::int32_t& v);
  void number(float& v);
  // logical32: -1 true, 0 false; only the lowest bit is looked at.
  void logical(bool& v);
  // char[n]: exactly n bytes, kept without trailing blanks.
  void text(std::string& v, std::size_t n);

  template <typename T, std::size_t N>
  void numbers(std::array<T, N>& values) {
    for (T& v : values) number(v);
  }
  // 3 x 3 matrices lie with the first (row) index fastest: M(1,1), M(2,1)...
  template <typename T>
  void matrix(std::array<std::array<T, 3>, 3>& m) {
    for (int col = 0; col < 3; ++col)
      for (int row = 0; row < 3; ++row) number(m[row][col]);
  }

  // True when what is left of the stream can hold count elements of the
  // given size; a count of 0 or below always fits. Asked before allocating
  // from a count found in the file, so a corrupt count fails the read
  // instead of asking for a huge block.
  bool fits(std::int64_t count, std::size_t bytes_each);
};

struct byte_writer {
  std::ostream& out;

  void number(std::int32_t v);
  void number(float v);
  void logical(bool v);
  // char[n]: the text cut at n and padded with blanks to n bytes.
  void text(const std::string& v, std::size_t n);

  template <typename T, std::size_t N>
  void numbers(const std::array<T, N>& values) {
    for (T v : values) number(v);
  }
  template <typename T>
  void matrix(const std::array<std::array<T, 3>, 3>& m) {
    for (int col = 0; col < 3; ++col)
      for (int row = 0; row < 3; ++row) number(m[row][col]);
  }
};

}  // namespace binary_stream
