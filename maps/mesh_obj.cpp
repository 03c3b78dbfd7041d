#include "maps/mesh_obj.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "crystal/vant_maps_mesh.h"
#include "maps/section_extraction.h"
#include "toolkit/core/whole_file.h"

namespace {

// How a primitive of each type is drawn: up to three polygons, each a first
// record and a count (counted within the primitive), then a line from record
// line_from to record line_to (0: none).
struct primitive_shape {
  struct { int first, count; } polygons[3];
  int line_from, line_to;
};

constexpr primitive_shape shapes[7] = {
    {},
    {{{1, 3}}, 0, 0},
    {{{1, 4}}, 0, 0},
    {{{1, 3}, {4, 4}}, 0, 0},
    {{{1, 3}, {4, 3}, {7, 4}}, 0, 0},
    {{{1, 3}}, 1, 4},
    {{{1, 3}, {4, 3}}, 4, 7},
};

void append_primitive(std::string& out, const primitive_shape& shape, std::int32_t base) {
  for (const auto& polygon : shape.polygons) {
    if (polygon.count == 0) break;
    out += 'f';
    for (int k = 0; k < polygon.count; ++k) out += ' ' + std::to_string(base + polygon.first + k);
    out += '\n';
  }
  if (shape.line_from > 0) {
    out += "l " + std::to_string(base + shape.line_from) + ' ' + std::to_string(base + shape.line_to) + '\n';
  }
}

}  // namespace

bool write_mesh_obj(const std::string& path, const farray2<float>& xyz, std::int32_t npoints, std::string& why) {
  const std::int32_t records = std::max(0, std::min(npoints, xyz.extent(2)));
  whole_file f;
  if (!whole_file_open(f, path, why)) return false;
  std::string out = "# isosurface mesh, Angstrom\n";
  for (std::int32_t p = 1; p <= records; ++p) {
    float x = 0.0f, y = 0.0f, z = 0.0f;
    frac2orth(xyz(1, p), xyz(2, p), xyz(3, p), x, y, z);
    char line[96];
    std::snprintf(line, sizeof line, "v %.5f %.5f %.5f\n", x, y, z);
    out += line;
  }
  // Primitive by primitive as the records run; a record of no known type is
  // passed over alone, and a primitive cut short by the end is left out.
  for (std::int32_t p = 1; p <= records;) {
    const auto t = static_cast<std::int32_t>(std::lround(xyz(4, p)));
    const std::int32_t reads = cube_edges_read(t);
    if (reads == 0) {
      ++p;
      continue;
    }
    if (p + reads - 1 > records) break;
    append_primitive(out, shapes[t], p - 1);
    p += reads;
  }
  whole_file_write(f, out);
  return whole_file_commit(f, why);
}
