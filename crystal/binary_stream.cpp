#include "crystal/binary_stream.h"

#include <bit>

#include "crystal/fixed_text.h"

namespace binary_stream {

namespace {

bool read_u32(std::istream& in, std::uint32_t& value) {
  unsigned char b[4];
  if (!in.read(reinterpret_cast<char*>(b), 4)) return false;
  value = static_cast<std::uint32_t>(b[0]) | static_cast<std::uint32_t>(b[1]) << 8 |
          static_cast<std::uint32_t>(b[2]) << 16 | static_cast<std::uint32_t>(b[3]) << 24;
  return true;
}

void write_u32(std::ostream& out, std::uint32_t value) {
  const char b[4] = {static_cast<char>(value & 0xffu), static_cast<char>((value >> 8) & 0xffu),
                     static_cast<char>((value >> 16) & 0xffu), static_cast<char>((value >> 24) & 0xffu)};
  out.write(b, 4);
}

}  // namespace

void byte_reader::number(std::int32_t& v) {
  std::uint32_t u = 0;
  if (ok && (ok = read_u32(in, u))) v = std::bit_cast<std::int32_t>(u);
}

void byte_reader::number(float& v) {
  std::uint32_t u = 0;
  if (ok && (ok = read_u32(in, u))) v = std::bit_cast<float>(u);
}

void byte_reader::logical(bool& v) {
  std::uint32_t u = 0;
  if (ok && (ok = read_u32(in, u))) v = (u & 1u) != 0;
}

void byte_reader::text(std::string& v, std::size_t n) {
  if (!ok) return;
  std::string raw(n, ' ');
  if (n > 0 && !in.read(raw.data(), static_cast<std::streamsize>(n))) {
    ok = false;
    return;
  }
  v = std::string(fixed_text::trimmed(raw));
}

bool byte_reader::fits(std::int64_t count, std::size_t bytes_each) {
  if (count <= 0) return true;
  if (!ok || !in) return false;
  const std::istream::pos_type here = in.tellg();
  if (here == std::istream::pos_type(-1)) return false;
  in.seekg(0, std::ios::end);
  const std::istream::pos_type end = in.tellg();
  in.seekg(here);
  if (end == std::istream::pos_type(-1) || !in) return false;
  const std::int64_t remaining = static_cast<std::int64_t>(end - here);
  return count <= remaining / static_cast<std::int64_t>(bytes_each);
}

void byte_writer::number(std::int32_t v) { write_u32(out, std::bit_cast<std::uint32_t>(v)); }

void byte_writer::number(float v) { write_u32(out, std::bit_cast<std::uint32_t>(v)); }

void byte_writer::logical(bool v) { number(std::int32_t{v ? -1 : 0}); }

void byte_writer::text(const std::string& v, std::size_t n) {
  const std::string field = fixed_text::padded(v, n);
  out.write(field.data(), static_cast<std::streamsize>(n));
}

}  // namespace binary_stream
