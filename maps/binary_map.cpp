#include "maps/binary_map.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdint>
#include <fstream>
#include <limits>

#include "control/map_run_block.h"
#include "crystal/binary_stream.h"
#include "maps/loading_progress.h"
#include "maps/map_memory.h"
#include "maps/section_extraction.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/message_box.h"

namespace qp = quelmora_parametros;
using binary_stream::byte_reader;
using binary_stream::byte_writer;

// The density grid is read and written as one block of host floats.
static_assert(std::endian::native == std::endian::little, "the map file is little endian");

namespace {

constexpr std::size_t title_length = 80;
constexpr std::size_t version_length = 5;

std::ifstream unit25;
std::string file_version;

void fail(const char* message) {
  if (*message) error_message(message);
  qp::kerror = true;
}

template <typename Stream>
void grid_block(Stream& s) {
  s.numbers(qp::ngrid);
  s.number(qp::denmin);
  s.number(qp::denmax);
  s.numbers(qp::xlim);
  s.numbers(qp::ylim);
  s.numbers(qp::zlim);
  s.number(qp::xinc);
  s.number(qp::yinc);
  s.number(qp::zinc);
}

template <typename Stream>
void summary_block(Stream& s) {
  s.number(qp::denave);
  s.number(qp::densigma);
}

// The number of grid points, or the largest count when the product of a
// hostile header's extents would not fit.
std::int64_t grid_points() {
  std::int64_t n = 1;
  for (std::int32_t e : qp::ngrid)
    if (__builtin_mul_overflow(n, e > 0 ? e : 0, &n)) return std::numeric_limits<std::int64_t>::max();
  return n;
}

bool empty_grid() {
  for (std::int32_t e : qp::ngrid)
    if (e < 1) return true;
  return false;
}

// The cell is stored whole, not recomputed: a damaged one (an angle of 0, a
// NaN) would turn every coordinate into NaN, so it is refused at the door.
bool sane_cell(const cell_metrics_type& c) {
  for (std::size_t i = 0; i < 3; ++i) {
    if (!(c.cell[i] > 0.0f) || !std::isfinite(c.cell[i])) return false;
    if (!(c.ang[i] > 0.0f && c.ang[i] < 180.0f)) return false;
  }
  for (const mat3f* m : {&c.cr_orth, &c.orth_cr})
    for (const auto& row : *m)
      for (float v : row)
        if (!std::isfinite(v)) return false;
  return true;
}

std::string bad_cell_message(const cell_metrics_type& c) {
  char text[160];
  std::snprintf(text, sizeof text, "Bad cell parameters in the binary file: %g %g %g %g %g %g", c.cell[0],
                c.cell[1], c.cell[2], c.ang[0], c.ang[1], c.ang[2]);
  return text;
}

}  // namespace

bool open_filebin(const std::string& name) {
  close_filebin();
  unit25.open(name, std::ios::in | std::ios::binary);
  return unit25.is_open();
}

void close_filebin() {
  if (unit25.is_open()) unit25.close();
  unit25.clear();
}

std::istream& filebin_unit() { return unit25; }

void read_filebin_head() {
  byte_reader r{unit25};
  r.text(qp::titulo, title_length);
  if (!r.ok) return fail("Error reading the binary file...(Title)");
  file_version.clear();
  r.text(file_version, version_length);
  if (!r.ok) return fail("Version of Sintrel-Quelmora NOT FOUND in the binary file");

  bool ok = true;
  read_bin_crystal_cell(qp::celda, unit25, ok);
  if (!ok) return fail("Error reading the binary file...(Cell...)");
  if (!sane_cell(qp::celda)) return fail(bad_cell_message(qp::celda).c_str());
  read_bin_spacegroup(qp::grp_espacial, unit25, ok);
  if (!ok) return fail("Error reading the binary file...(Symmetry...)");
  read_bin_atom_list(qp::atomos, unit25, ok);
  if (!ok) return fail("Error reading the binary file...(Number of Atoms ...)");

  map_run_block::files(r);
  if (!r.ok) return fail("Error reading the binary file...(Files...)");
  map_run_block::variables(r);
  if (!r.ok) return fail("Error reading the binary file...(Variables...)");
  grid_block(r);
  if (!r.ok) return fail("Error reading the binary file...(Grid size of FFT...)");
  summary_block(r);
  if (!r.ok) return fail("");
  // A grid without points would leave nothing to show, while the closing
  // planes would still size the second array from the other extents.
  if (empty_grid()) return fail("The binary file holds an empty map: a grid extent is 0");
  // A grid larger than the rest of the file would fail its read anyway;
  // refusing it here keeps a corrupt ngrid from sizing the map arrays.
  if (!r.fits(grid_points(), sizeof(float))) return fail("Error reading the binary file...(Density Map...)");
}

const std::string& filebin_version() { return file_version; }

// The density is read a chunk at a time so that a long load can show how far
// it has come; the dialog stays up while the map is closed.
void read_filebin_rho() {
  const std::size_t bytes = qp::rho.size() * sizeof(float);
  auto* to = reinterpret_cast<char*>(qp::rho.data());
  loading_progress progress(bytes);
  for (std::size_t done = 0; done < bytes;) {
    const std::size_t n = std::min(std::max<std::size_t>(loading_pace.chunk, 1), bytes - done);
    if (!unit25.read(to + done, static_cast<std::streamsize>(n))) {
      progress.finish();
      return fail("Error reading the binary file...(Density Map...)");
    }
    done += n;
    progress.advanced(done);
  }
  proc_carga();
}

void read_filebin_atm_pks() {
  if (qp::npeaks <= 0) return;
  bool ok = true;
  read_bin_atom_list(qp::atomos, unit25, ok);
  if (!ok) fail("Error reading the binary file...( Peaks data...)");
}

void read_filebin(bool with_peaks) {
  read_filebin_head();
  if (!qp::kerror) memory_maps();
  if (!qp::kerror) read_filebin_rho();
  if (!qp::kerror && with_peaks) read_filebin_atm_pks();
}

void write_filebin_head(std::ostream& out) {
  byte_writer w{out};
  w.text(qp::titulo, title_length);
  w.text(qp::version, version_length);
  write_bin_crystal_cell(qp::celda, out);
  write_bin_spacegroup(qp::grp_espacial, out);
  write_bin_atom_list(qp::atomos, out);
  map_run_block::files(w);
  map_run_block::variables(w);
  grid_block(w);
  summary_block(w);
}

void write_filebin_rho(std::ostream& out) {
  out.write(reinterpret_cast<const char*>(qp::rho.data()), static_cast<std::streamsize>(qp::rho.size() * sizeof(float)));
}

void write_filebin_peaks(std::ostream& out, const atom_list_type& peaks) {
  if (qp::npeaks > 0) write_bin_atom_list(peaks, out);
}
