#include "synthesis/map_file.h"

#include <bit>
#include <cstdio>
#include <sstream>

#include "control/map_run_block.h"
#include "crystal/binary_stream.h"

namespace qp = quelmora_parametros;

// The density is written as one block of host floats.
static_assert(std::endian::native == std::endian::little, "the map file is little endian");

namespace {

constexpr std::size_t title_length = 80;
constexpr std::size_t version_length = 5;

void grid_block(binary_stream::byte_writer& w, const synthesis_result_type& result) {
  w.numbers(result.grid);
  w.number(result.denmin);
  w.number(result.denmax);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    w.number(0.0f);
    w.number(1.0f);
  }
  for (std::int32_t n : result.grid) w.number(1.0f / static_cast<float>(n));
}

}  // namespace

atom_list_type peak_atoms(const std::vector<peak_type>& peaks) {
  atom_list_type list;
  allocate_atom_list(static_cast<std::int32_t>(peaks.size()), list);
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    atom_type& a = list.atom[i];
    a.lab = "PK" + std::to_string(i + 1);
    a.x = peaks[i].x;
    a.mult = peaks[i].mult;
    a.occ = 1.0f;
    a.nvar = 1;
    a.var[0] = peaks[i].height;
    char info[48];
    std::snprintf(info, sizeof info, "peak height %.4f e/A^3", static_cast<double>(peaks[i].height));
    a.info = info;
  }
  return list;
}

void write_map_file(whole_file& file, const cell_metrics_type& cell, const space_group_type& group,
                    const synthesis_result_type& result, const atom_list_type& peaks) {
  std::ostringstream out(std::ios::binary);
  binary_stream::byte_writer w{out};
  w.text(qp::titulo, title_length);
  w.text(qp::version, version_length);
  write_bin_crystal_cell(cell, out);
  write_bin_spacegroup(group, out);
  write_bin_atom_list(qp::atomos, out);
  map_run_block::files(w);
  map_run_block::variables(w);
  grid_block(w, result);
  w.number(result.denave);
  w.number(result.densigma);
  whole_file_write(file, out.str());
  whole_file_write(file, {reinterpret_cast<const char*>(result.rho.data()), result.rho.size() * sizeof(float)});
  out.str({});
  if (qp::npeaks > 0) write_bin_atom_list(peaks, out);
  whole_file_write(file, out.str());
}
