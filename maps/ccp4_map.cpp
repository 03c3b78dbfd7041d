// CCP4/MRC maps through libccp4's cmaplib. The library trusts the header's
// sizes, so the few words that say how much data follows are checked against
// the file's size here first; the library is kept silent (it would print its
// own errors, and end the process on a fatal one) and its results checked.
#include "maps/ccp4_map.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <vector>

#include <ccp4_errno.h>
#include <cmaplib.h>

#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_maps_calculations.h"
#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/message_box.h"

namespace qp = quelmora_parametros;
using CMap_io::CMMFile;

namespace {

constexpr std::size_t header_size = 1024;
constexpr std::size_t stamp_offset = 208;  // "MAP " at bytes 209 to 212
constexpr std::size_t title_length = 80;
// The largest cell grid taken: rho and rhonew each need 4 bytes a point. A
// grid also may not exceed the file's points more than a map of a small box
// in a large cell does, so that a damaged header cannot size it.
constexpr std::int64_t max_cell_points = std::int64_t{1} << 28;
constexpr std::int64_t cell_points_per_file_point = 1024;
constexpr std::int64_t small_cell_points = std::int64_t{1} << 24;

using int3 = std::array<std::int32_t, 3>;

void fail(const std::string& path, const std::string& what) {
  error_message("CCP4 map " + path + ": " + what);
  qp::kerror = true;
}

std::int32_t mode_width(std::int32_t mode) {
  switch (mode) {
    case 0: return 1;  // signed bytes
    case 1: return 2;  // 16-bit integers
    case 2: return 4;  // 32-bit reals
    default: return 0;
  }
}

// The header word w (counted from 1), in the byte order the machine stamp
// (word 54) gives: 0x11 in its first byte is big endian, anything else is
// taken as little endian, as older files have no stamp.
std::int32_t header_word(const unsigned char* h, std::size_t w) {
  const unsigned char* b = h + 4 * (w - 1);
  const bool big = h[212] == 0x11;
  std::uint32_t v = 0;
  for (std::size_t i = 0; i < 4; ++i) v |= std::uint32_t{b[big ? 3 - i : i]} << (8 * i);
  return static_cast<std::int32_t>(v);
}

// The file holds the header, the symmetry records and the data its header
// announces; otherwise the reason, naming what is wrong.
std::string sizes_problem(const std::string& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  std::ifstream in(path, std::ios::binary);
  unsigned char h[header_size];
  if (error || size < header_size || !in.read(reinterpret_cast<char*>(h), header_size))
    return "the file is shorter than the 1024 bytes of a map header";
  const std::int32_t mode = header_word(h, 4), symbols = header_word(h, 24);
  if (mode_width(mode) == 0) return "data mode " + std::to_string(mode) + " is not read (modes 0, 1 and 2 are)";
  if (symbols < 0) return "a negative length of the symmetry records";
  if (const std::int32_t labels = header_word(h, 56); labels < 0 || labels > 10)
    return std::to_string(labels) + " labels, where a header has room for 10";
  std::uint64_t bytes = static_cast<std::uint64_t>(mode_width(mode));
  for (std::size_t w = 1; w <= 3; ++w) {
    const std::int32_t n = header_word(h, w);
    if (n < 1) return "an empty section (" + std::to_string(n) + " points along an axis)";
    if (__builtin_mul_overflow(bytes, static_cast<std::uint64_t>(n), &bytes)) return "a section too large to hold";
  }
  if (header_size + static_cast<std::uint64_t>(symbols) + bytes > size)
    return "the file is truncated: its header announces " + std::to_string(bytes) + " bytes of data after " +
           std::to_string(header_size + static_cast<std::uint64_t>(symbols)) + ", the file has " +
           std::to_string(size) + " bytes";
  return {};
}

// What the library gives of the header, in the file's own axis terms:
// along columns, rows and sections.
struct map_header_type {
  int3 dim{}, start{}, order{};  // NC NR NS, their first indices, MAPC MAPR MAPS
  int3 grid{};                   // MX MY MZ: the cell's sampling along x, y, z
  std::array<float, 6> cell{};
  std::int32_t group = 0;
  std::int32_t mode = 0;
  std::string title;
};

std::string header_problem(const map_header_type& m) {
  int3 seen{};
  for (std::int32_t a : m.order)
    if (a < 1 || a > 3 || seen[static_cast<std::size_t>(a - 1)]++) return "the axis order is not a permutation of 1 2 3";
  const std::int64_t file_points = std::int64_t{m.dim[0]} * m.dim[1] * m.dim[2];
  const std::int64_t most = std::min(max_cell_points, std::max(small_cell_points, cell_points_per_file_point * file_points));
  std::int64_t points = 1;
  for (std::int32_t n : m.grid) {
    if (n < 1) return "the cell's grid has an axis of " + std::to_string(n) + " points";
    points *= n;
    if (points > most)
      return "the cell's grid of " + std::to_string(m.grid[0]) + " x " + std::to_string(m.grid[1]) + " x " +
             std::to_string(m.grid[2]) + " points is far larger than the map the file holds";
  }
  for (std::size_t i = 0; i < 3; ++i)
    if (!(m.cell[i] > 0.0f) || !std::isfinite(m.cell[i]) || !(m.cell[i + 3] > 0.0f && m.cell[i + 3] < 180.0f))
      return "bad cell parameters";
  return {};
}

map_header_type header_of(CMMFile* f) {
  map_header_type m;
  CMap_io::ccp4_cmap_get_dim(f, m.dim.data());
  CMap_io::ccp4_cmap_get_origin(f, m.start.data());
  CMap_io::ccp4_cmap_get_order(f, m.order.data());
  CMap_io::ccp4_cmap_get_grid(f, m.grid.data());
  CMap_io::ccp4_cmap_get_cell(f, m.cell.data());
  m.group = CMap_io::ccp4_cmap_get_spacegroup(f);
  m.mode = static_cast<std::int32_t>(CMap_io::ccp4_cmap_get_datamode(f));
  if (f->labels.number > 0 && f->labels.labels[0] != nullptr) m.title = f->labels.labels[0];
  m.title = m.title.substr(0, title_length);
  m.title.erase(m.title.find_last_not_of(' ') + 1);
  return m;
}

// A section of 8- or 16-bit integers (modes 0 and 1) as reals.
void integers_to_reals(const std::vector<unsigned char>& raw, std::int32_t mode, float* to) {
  const std::size_t n = raw.size() / static_cast<std::size_t>(mode_width(mode));
  for (std::size_t i = 0; i < n; ++i) {
    std::int16_t v = static_cast<signed char>(raw[i]);
    if (mode == 1) std::memcpy(&v, raw.data() + 2 * i, 2);
    to[i] = v;
  }
}

// The file's values, columns fastest, as reals; false on a short read.
bool read_values(CMMFile* f, const map_header_type& m, std::vector<float>& values) {
  const std::size_t section = static_cast<std::size_t>(m.dim[0]) * static_cast<std::size_t>(m.dim[1]);
  values.resize(section * static_cast<std::size_t>(m.dim[2]));
  std::vector<unsigned char> raw(m.mode == 2 ? 0 : section * static_cast<std::size_t>(mode_width(m.mode)));
  for (std::int32_t s = 0; s < m.dim[2]; ++s) {
    float* to = values.data() + section * static_cast<std::size_t>(s);
    if (CMap_io::ccp4_cmap_read_section(f, m.mode == 2 ? static_cast<void*>(to) : raw.data()) != 1) return false;
    if (m.mode != 2) integers_to_reals(raw, m.mode, to);
  }
  return true;
}

// The group by its number; 0 (electron microscopy) and numbers beyond the
// 230 are taken as P 1, the latter with a word to the user. The first origin
// choice is the one CCP4 files use.
void set_group(const std::string& path, std::int32_t number, std::string& note) {
  const bool known = number >= 1 && number <= 230;
  if (!known && number != 0)
    note = "Space group number " + std::to_string(number) + " is not one of the 230: the map is taken as P 1. ";
  set_spacegroup(known ? std::to_string(number) + ":1" : "1", qp::grp_espacial);
  if (err_symm) fail(path, "space group " + std::to_string(number) + ":" + err_symm_mess);
}

// An operator as it acts on grid indices of the cell, x' = r x + t; false
// when it does not map the grid onto itself (a translation between grid
// points, or a rotation mixing axes of different sampling).
struct grid_op {
  std::array<int3, 3> r{};
  int3 t{};
};

bool grid_op_of(const sym_oper_type& op, const int3& grid, grid_op& g) {
  for (std::size_t a = 0; a < 3; ++a) {
    for (std::size_t b = 0; b < 3; ++b) {
      if (op.rot[a][b] != 0 && grid[a] != grid[b]) return false;
      g.r[a][b] = op.rot[a][b];
    }
    const float t = op.tr[a] * static_cast<float>(grid[a]);
    if (std::fabs(t - std::round(t)) > 1e-3f) return false;
    g.t[a] = static_cast<std::int32_t>(std::lround(t));
  }
  return true;
}

std::int32_t wrap(std::int64_t i, std::int32_t n) {
  const std::int64_t r = i % n;
  return static_cast<std::int32_t>(r < 0 ? r + n : r);
}

// The same for an index within a few cells of the cell, as an operator's
// image of a point of the cell is: cheaper than a division.
std::int32_t fold_near(std::int64_t i, std::int32_t n) {
  while (i < 0) i += n;
  while (i >= n) i -= n;
  return static_cast<std::int32_t>(i);
}

// Calls take(n, p) for the n-th value of the file and its grid point p of the
// cell: the file's indices placed at its start indices, turned to x, y, z and
// folded into the cell.
template <typename Take>
void each_point(const map_header_type& m, Take take) {
  std::array<std::vector<std::int32_t>, 3> folded;  // per file axis, its cell index at each file index
  std::array<std::size_t, 3> axis{};
  for (std::size_t k = 0; k < 3; ++k) {
    axis[k] = static_cast<std::size_t>(m.order[k] - 1);
    for (std::int32_t i = 0; i < m.dim[k]; ++i) folded[k].push_back(wrap(std::int64_t{m.start[k]} + i, m.grid[axis[k]]));
  }
  std::size_t n = 0;
  int3 at{};
  for (std::int32_t s : folded[2]) {
    at[axis[2]] = s;
    for (std::int32_t r : folded[1]) {
      at[axis[1]] = r;
      for (std::int32_t c : folded[0]) {
        at[axis[0]] = c;
        take(n++, at);
      }
    }
  }
}

// Writes each value at its point and at the point's images under the
// operators, into rho, the file's own points first so that they win over
// images; reached marks what was written. Returns the count of operators
// that could not act on the grid.
std::int32_t spread(const map_header_type& m, const std::vector<float>& values, std::vector<unsigned char>& reached) {
  std::vector<grid_op> ops(1);
  for (std::size_t a = 0; a < 3; ++a) ops[0].r[a][a] = 1;
  std::int32_t unusable = 0;
  for (const sym_oper_type& op : qp::grp_espacial.sym_op) {
    grid_op g;
    if (grid_op_of(op, m.grid, g)) ops.push_back(g);
    else ++unusable;
  }
  float* rho = qp::rho.data();
  for (const grid_op& g : ops)
    each_point(m, [&](std::size_t n, const int3& p) {
      std::size_t index = 0;
      for (std::size_t a = 3; a-- > 0;) {
        const std::int64_t x = std::int64_t{g.r[a][0]} * p[0] + std::int64_t{g.r[a][1]} * p[1] +
                               std::int64_t{g.r[a][2]} * p[2] + g.t[a];
        index = index * static_cast<std::size_t>(m.grid[a]) + static_cast<std::size_t>(fold_near(x, m.grid[a]));
      }
      if (reached[index]) return;
      reached[index] = 1;
      rho[index] = values[n];
    });
  return unusable;
}

void set_limits(const map_header_type& m) {
  std::array<std::array<float, 2>*, 3> lim{&qp::xlim, &qp::ylim, &qp::zlim};
  std::array<float*, 3> inc{&qp::xinc, &qp::yinc, &qp::zinc};
  for (std::size_t k = 0; k < 3; ++k) {
    const auto a = static_cast<std::size_t>(m.order[k] - 1);
    const auto n = static_cast<float>(m.grid[a]);
    const bool whole = m.dim[k] >= m.grid[a];
    *lim[a] = whole ? std::array<float, 2>{0.0f, 1.0f}
                    : std::array<float, 2>{static_cast<float>(m.start[k]) / n,
                                           static_cast<float>(m.start[k] + m.dim[k] - 1) / n};
    *inc[a] = ((*lim[a])[1] - (*lim[a])[0]) / n;
  }
}

// The cell's grid from the file's values: rho filled, and the user told what
// part of it neither the file nor its symmetry reached.
void fill_cell(const std::string& path, const map_header_type& m, const std::vector<float>& values,
               std::string note) {
  qp::ngrid = m.grid;
  memory_maps();
  std::vector<unsigned char> reached;
  try {
    if (!qp::kerror) reached.assign(qp::rho.size(), 0);
  } catch (const std::bad_alloc&) {
    qp::kerror = true;
  }
  if (qp::kerror) return fail(path, "no memory for the cell's grid");
  const std::int32_t unusable = spread(m, values, reached);
  double sum = 0.0;
  for (float v : values) sum += v;
  const auto mean = static_cast<float>(sum / static_cast<double>(values.size()));
  std::size_t missing = 0;
  for (std::size_t i = 0; i < reached.size(); ++i)
    if (!reached[i]) qp::rho.data()[i] = mean, ++missing;
  if (unusable > 0)
    note += std::to_string(unusable) + " symmetry operators do not map the grid onto itself and were not used. ";
  if (missing > 0) {
    char text[200];
    std::snprintf(text, sizeof text,
                  "%.1f%% of the cell is reached neither by the file nor by its symmetry: those points take the "
                  "mean of the file, %g.",
                  100.0 * static_cast<double>(missing) / static_cast<double>(reached.size()), double{mean});
    note += text;
  }
  if (!note.empty()) info_message(note);
}

}  // namespace

bool is_ccp4_map(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  char stamp[4];
  return in.seekg(static_cast<std::streamoff>(stamp_offset)) && in.read(stamp, 4) &&
         std::memcmp(stamp, "MAP ", 4) == 0;
}

void read_ccp4_map(const std::string& path) {
  if (const std::string why = sizes_problem(path); !why.empty()) return fail(path, why);
  CCP4::ccp4_liberr_verbosity(0);
  auto* f = static_cast<CMMFile*>(CMap_io::ccp4_cmap_open(path.c_str(), O_RDONLY));
  if (f == nullptr) return fail(path, "libccp4 cannot read its header");
  const map_header_type m = header_of(f);
  std::vector<float> values;
  std::string why = header_problem(m);
  if (why.empty() && !read_values(f, m, values)) why = "the data cannot be read";
  CMap_io::ccp4_cmap_close(f);
  if (!why.empty()) return fail(path, why);

  std::string note;
  set_group(path, m.group, note);
  if (qp::kerror) return;
  set_crystal_cell({m.cell[0], m.cell[1], m.cell[2]}, {m.cell[3], m.cell[4], m.cell[5]}, qp::celda);
  if (err_crys) return fail(path, "bad cell parameters: " + err_crys_mess);
  qp::titulo = m.title;
  deallocate_atom_list(qp::atomos);
  qp::npeaks = 0;
  fill_cell(path, m, values, note);
  if (qp::kerror) return;
  set_limits(m);
  proc_carga();
  // All four from the whole cell, over the range of the box proc_carga took.
  statistic_map(qp::rho, qp::denmax, qp::denmin, qp::denave, qp::densigma);
}
