// Byte-by-byte builder of binary map fixtures for the tests. It is written
// apart from the program's writers (plain copies of host values on a
// little-endian machine) so that a test compares two independent encodings.
#pragma once

#include <bit>
#include <cstdint>
#include <sstream>
#include <string>

static_assert(std::endian::native == std::endian::little, "fixtures assume a little-endian host");

struct byte_fixture {
  std::string bytes;

  byte_fixture& i32(std::int32_t v) { return raw(&v, 4); }
  byte_fixture& f32(float v) { return raw(&v, 4); }
  byte_fixture& text(std::string s, std::size_t n) { return raw(s.append(n, ' ').data(), n); }  // blank padded
  byte_fixture& append(const byte_fixture& other) { return raw(other.bytes.data(), other.size()); }
  byte_fixture& raw(const void* p, std::size_t n) { return bytes.append(static_cast<const char*>(p), n), *this; }
  std::size_t size() const { return bytes.size(); }
  std::istringstream stream(std::size_t cut = std::string::npos) const {
    return std::istringstream(bytes.substr(0, cut));
  }
};
