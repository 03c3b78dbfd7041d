// The cube table of the isosurface mesh. The polygon half is written out
// below; the triangle half is made from it by fanning each polygon.
#include <algorithm>
#include <utility>

#include "crystal/vant_maps_mesh.h"

const std::array<vec3f, 13> cube_edge_mid{{{0.0f, 0.0f, 0.0f},
                                           {0.5f, 0.0f, 0.0f},
                                           {1.0f, 0.5f, 0.0f},
                                           {0.5f, 1.0f, 0.0f},
                                           {0.0f, 0.5f, 0.0f},
                                           {0.5f, 0.0f, 1.0f},
                                           {1.0f, 0.5f, 1.0f},
                                           {0.5f, 1.0f, 1.0f},
                                           {0.0f, 0.5f, 1.0f},
                                           {0.0f, 0.0f, 0.5f},
                                           {1.0f, 0.0f, 0.5f},
                                           {0.0f, 1.0f, 0.5f},
                                           {1.0f, 1.0f, 0.5f}}};

std::int32_t cube_edges_read(std::int32_t t) {
  static constexpr std::int32_t reads[7] = {0, 3, 4, 7, 10, 4, 7};
  return t >= 1 && t <= 6 ? reads[t] : 0;
}

namespace {

// Rows 1 to 127: n, t, then the edges of the primitives one after another.
// Rows 25 and 81 carry one edge more than their type reads (the trailing 8
// and 7); the walk never reads it, and it stays as the table has always had it.
constexpr cube_row polygon_rows[128] = {
    {},  // 0
    {1, 1, 1, 4, 9},  // 1
    {1, 1, 1, 2, 10},  // 2
    {1, 2, 2, 4, 9, 10},  // 3
    {1, 1, 2, 3, 12},  // 4
    {2, 1, 1, 4, 9, 2, 3, 12},  // 5
    {1, 2, 1, 3, 12, 10},  // 6
    {1, 3, 9, 10, 12, 3, 4, 9, 12},  // 7
    {1, 1, 3, 4, 11},  // 8
    {1, 2, 1, 3, 11, 9},  // 9
    {2, 1, 1, 2, 10, 3, 4, 11},  // 10
    {1, 3, 9, 10, 11, 2, 3, 11, 10},  // 11
    {1, 2, 2, 4, 11, 12},  // 12
    {1, 3, 9, 11, 12, 1, 2, 12, 9},  // 13
    {1, 3, 10, 11, 12, 1, 4, 11, 10},  // 14
    {1, 2, 9, 10, 12, 11},  // 15
    {1, 1, 5, 8, 9},  // 16
    {1, 2, 1, 4, 8, 5},  // 17
    {2, 1, 1, 2, 10, 5, 8, 9},  // 18
    {1, 3, 2, 4, 8, 2, 8, 5, 10},  // 19
    {2, 1, 2, 3, 12, 5, 8, 9},  // 20
    {1, 3, 2, 3, 12, 1, 4, 8, 5},  // 21
    {1, 3, 5, 8, 9, 1, 3, 12, 10},  // 22
    {3, 1, 3, 4, 12, 4, 5, 8, 5, 10, 12},  // 23
    {2, 1, 3, 4, 11, 5, 8, 9},  // 24
    {1, 3, 1, 3, 5, 3, 11, 8, 5, 8},  // 25
    {3, 1, 1, 2, 10, 3, 4, 11, 5, 8, 9},  // 26
    {2, 5, 2, 5, 10, 3, 8, 11, 3, 5},  // 27
    {1, 3, 5, 8, 9, 2, 4, 11, 12},  // 28
    {3, 1, 1, 2, 5, 5, 8, 11, 2, 11, 12},  // 29
    {1, 4, 5, 8, 9, 10, 11, 12, 1, 10, 11, 4},  // 30
    {1, 6, 5, 10, 8, 11, 12, 10, 8},  // 31
    {1, 1, 5, 6, 10},  // 32
    {2, 1, 1, 4, 9, 5, 6, 10},  // 33
    {1, 2, 1, 2, 6, 5},  // 34
    {1, 3, 2, 4, 6, 5, 6, 4, 9},  // 35
    {2, 1, 2, 3, 12, 5, 6, 10},  // 36
    {3, 1, 1, 4, 9, 2, 3, 12, 5, 6, 10},  // 37
    {1, 3, 1, 3, 5, 3, 5, 6, 12},  // 38
    {2, 5, 4, 5, 9, 3, 6, 3, 12, 5},  // 39
    {2, 1, 3, 4, 11, 5, 6, 10},  // 40
    {1, 3, 5, 6, 10, 1, 3, 11, 9},  // 41
    {1, 3, 3, 4, 11, 1, 2, 6, 5},  // 42
    {3, 1, 2, 3, 6, 5, 6, 9, 3, 9, 11},  // 43
    {1, 3, 5, 6, 10, 2, 4, 11, 12},  // 44
    {1, 4, 1, 2, 10, 9, 11, 12, 5, 6, 12, 9},  // 45
    {3, 1, 1, 4, 5, 4, 11, 12, 5, 6, 12},  // 46
    {1, 3, 9, 11, 12, 5, 6, 12, 9},  // 47
    {1, 2, 6, 8, 9, 10},  // 48
    {1, 3, 4, 6, 8, 1, 4, 6, 10},  // 49
    {1, 3, 2, 6, 8, 1, 2, 8, 9},  // 50
    {1, 2, 2, 4, 8, 6},  // 51
    {1, 3, 2, 3, 12, 6, 8, 9, 10},  // 52
    {1, 4, 2, 3, 12, 4, 6, 8, 1, 4, 6, 10},  // 53
    {3, 1, 1, 3, 9, 6, 8, 9, 3, 6, 12},  // 54
    {1, 6, 4, 8, 6, 12, 4, 3, 6},  // 55
    {1, 3, 3, 4, 11, 6, 8, 9, 10},  // 56
    {3, 1, 1, 3, 10, 6, 8, 10, 3, 8, 11},  // 57
    {1, 4, 3, 4, 11, 2, 6, 8, 1, 2, 8, 9},  // 58
    {1, 6, 2, 6, 8, 11, 3, 2, 8},  // 59
    {2, 2, 2, 4, 11, 12, 6, 8, 9, 10},  // 60
    {1, 3, 1, 2, 10, 6, 8, 11, 12},  // 61
    {1, 3, 1, 4, 9, 6, 8, 11, 12},  // 62
    {1, 2, 6, 8, 11, 12},  // 63
    {1, 1, 6, 7, 12},  // 64
    {2, 1, 1, 4, 9, 6, 7, 12},  // 65
    {2, 1, 1, 2, 10, 6, 7, 12},  // 66
    {1, 3, 6, 7, 12, 2, 4, 9, 10},  // 67
    {1, 2, 2, 3, 7, 6},  // 68
    {1, 3, 1, 4, 9, 2, 3, 7, 6},  // 69
    {1, 3, 1, 3, 7, 1, 7, 6, 10},  // 70
    {3, 1, 3, 4, 7, 4, 9, 10, 6, 7, 10},  // 71
    {2, 1, 3, 4, 11, 6, 7, 12},  // 72
    {1, 3, 6, 7, 12, 1, 3, 11, 9},  // 73
    {3, 1, 1, 2, 10, 3, 4, 11, 6, 7, 12},  // 74
    {1, 4, 6, 7, 12, 9, 10, 11, 2, 3, 11, 10},  // 75
    {1, 3, 2, 4, 6, 4, 6, 7, 11},  // 76
    {3, 1, 1, 2, 6, 1, 9, 11, 6, 7, 11},  // 77
    {2, 5, 4, 7, 11, 1, 6, 10, 1, 7},  // 78
    {1, 3, 9, 10, 11, 6, 7, 11, 10},  // 79
    {2, 1, 5, 8, 9, 6, 7, 12},  // 80
    {1, 3, 6, 7, 12, 1, 4, 8, 5, 7},  // 81
    {3, 1, 1, 2, 10, 5, 8, 9, 6, 7, 12},  // 82
    {1, 4, 6, 7, 12, 2, 4, 8, 2, 8, 5, 10},  // 83
    {1, 3, 5, 8, 9, 2, 3, 7, 6},  // 84
    {2, 2, 1, 4, 8, 5, 2, 3, 7, 6},  // 85
    {1, 4, 5, 8, 9, 1, 3, 7, 1, 7, 6, 10},  // 86
    {1, 3, 5, 6, 10, 3, 4, 8, 7},  // 87
    {3, 1, 3, 4, 11, 5, 8, 9, 6, 7, 12},  // 88
    {1, 4, 6, 7, 12, 1, 3, 5, 3, 5, 8, 11},  // 89
    {4, 1, 1, 4, 9, 2, 3, 12, 5, 6, 10, 7, 8, 11},  // 90
    {3, 1, 2, 3, 12, 5, 6, 10, 7, 8, 11},  // 91
    {1, 4, 5, 8, 9, 2, 4, 6, 4, 6, 7, 11},  // 92
    {1, 3, 7, 8, 11, 1, 2, 6, 5},  // 93
    {3, 1, 1, 4, 9, 5, 6, 10, 7, 8, 11},  // 94
    {2, 1, 5, 6, 10, 7, 8, 11},  // 95
    {1, 2, 5, 7, 12, 10},  // 96
    {1, 3, 1, 4, 9, 5, 7, 12, 10},  // 97
    {1, 3, 1, 5, 7, 1, 2, 12, 7},  // 98
    {3, 1, 2, 4, 9, 5, 7, 9, 2, 7, 12},  // 99
    {1, 3, 3, 5, 7, 2, 3, 5, 10},  // 100
    {1, 4, 1, 4, 9, 3, 5, 7, 2, 3, 5, 10},  // 101
    {1, 2, 1, 3, 7, 5},  // 102
    {1, 3, 3, 5, 7, 3, 4, 9, 5},  // 103
    {1, 3, 3, 4, 11, 5, 7, 12, 10},  // 104
    {2, 2, 1, 3, 11, 9, 5, 7, 12, 10},  // 105
    {1, 4, 3, 4, 11, 1, 5, 7, 1, 2, 12, 7},  // 106
    {1, 3, 2, 3, 12, 5, 7, 11, 9},  // 107
    {3, 1, 2, 4, 10, 5, 7, 10, 4, 7, 11},  // 108
    {1, 3, 1, 2, 10, 5, 7, 11, 9},  // 109
    {1, 3, 1, 5, 7, 1, 4, 11, 7},  // 110
    {1, 2, 5, 7, 11, 9},  // 111
    {1, 3, 9, 10, 12, 7, 8, 9, 12},  // 112
    {3, 1, 1, 10, 12, 1, 4, 8, 7, 8, 12},  // 113
    {2, 5, 2, 7, 12, 1, 8, 9, 1, 7},  // 114
    {1, 3, 2, 4, 8, 2, 8, 7, 12},  // 115
    {3, 1, 2, 3, 7, 2, 9, 10, 7, 8, 9},  // 116
    {1, 3, 1, 2, 10, 3, 4, 8, 7},  // 117
    {1, 3, 1, 3, 7, 1, 7, 8, 9},  // 118
    {1, 2, 3, 4, 8, 7},  // 119
    {1, 4, 3, 4, 11, 9, 10, 12, 7, 8, 9, 12},  // 120
    {1, 3, 7, 8, 11, 1, 3, 12, 10},  // 121
    {3, 1, 1, 4, 9, 2, 3, 12, 7, 8, 11},  // 122
    {2, 1, 2, 3, 12, 7, 8, 11},  // 123
    {1, 3, 7, 8, 11, 2, 4, 9, 10},  // 124
    {2, 1, 1, 2, 10, 7, 8, 11},  // 125
    {2, 1, 1, 4, 9, 7, 8, 11},  // 126
    {1, 1, 7, 8, 11},  // 127
};

using triangle = std::array<std::int32_t, 3>;

// Up to four triangles of one cube, written as a type-1 row.
struct triangle_row {
  cube_row row{};
  void add(std::int32_t a, std::int32_t b, std::int32_t c) {
    const std::int32_t at = 2 + 3 * row[0];
    if (at > 11) return;  // more than four would not fit; no row needs it
    row[at] = a;
    row[at + 1] = b;
    row[at + 2] = c;
    ++row[0];
    row[1] = 1;
  }
  // A convex polygon, its corners in order around it, fanned from the first.
  void fan(const std::int32_t* corners, std::int32_t count) {
    for (std::int32_t k = 2; k < count; ++k) add(corners[0], corners[k - 1], corners[k]);
  }
};

// Two edges are neighbours on the surface's outline when a face of the cube
// holds both of their midpoints.
bool share_face(std::int32_t a, std::int32_t b) {
  for (int axis = 0; axis < 3; ++axis) {
    const float u = cube_edge_mid[a][axis];
    if (u != 0.5f && u == cube_edge_mid[b][axis]) return true;
  }
  return false;
}

// The primitives of types 5 and 6 of one row outline a single pentagon or
// hexagon, whose inner diagonals are their lines. Its distinct edges are put
// in order around it, each followed by one that shares a cube face with it.
void order_around(std::int32_t* ring, std::int32_t count) {
  for (std::int32_t at = 1; at < count; ++at) {
    for (std::int32_t k = at; k < count; ++k) {
      if (share_face(ring[at - 1], ring[k])) {
        std::swap(ring[at], ring[k]);
        break;
      }
    }
  }
}

// The surface of a polygon row in triangles.
cube_row in_triangles(const cube_row& polygons) {
  triangle_row out;
  std::int32_t ring[12];
  std::int32_t ring_size = 0;
  const std::int32_t t = polygons[1];
  const std::int32_t per = cube_edges_read(t);
  for (std::int32_t p = 0; p < polygons[0] && per > 0; ++p) {
    const std::int32_t* e = &polygons[static_cast<std::size_t>(2 + p * per)];
    if (t == 1 || t == 3 || t == 4) out.add(e[0], e[1], e[2]);
    if (t == 4) out.add(e[3], e[4], e[5]);
    if (t == 2) out.fan(e, 4);
    if (t == 3) out.fan(e + 3, 4);
    if (t == 4) out.fan(e + 6, 4);
    if (t == 5 || t == 6) {
      for (std::int32_t k = 0; k < per; ++k) {
        if (std::find(ring, ring + ring_size, e[k]) == ring + ring_size) ring[ring_size++] = e[k];
      }
    }
  }
  order_around(ring, ring_size);
  out.fan(ring, ring_size);
  return out.row;
}

}  // namespace

void set_cube_info() {
  for (std::size_t r = 0; r < cube_info.size(); ++r) {
    cube_info[r] = {};
    if (r >= 1 && r <= 127) cube_info[r] = polygon_rows[r];
    if (r >= 128 && r <= 254) cube_info[r] = in_triangles(polygon_rows[255 - r]);
  }
}
