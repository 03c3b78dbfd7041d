// Any bytes as a structure file: the first byte picks the reader (VTL, CIF,
// SHELX or KDC), the rest is the file. Then the same bytes as a text map,
// which goes through the VTL reader and the grid and density reader.
#include "crystal/vant_io_formats.h"
#include "fuzz/fuzz_input.h"
#include "maps/text_map.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const char* const modes[] = {"vtl", "cif", "shx", "kdc"};
  const std::string name = input_file(data + 1, size - 1, "structure");
  cell_metrics_type cell;
  space_group_type spg;
  atom_list_type atoms;
  readn_set_xtal_structure_split(name, cell, spg, atoms, modes[data[0] % 4]);
  qp::filasc = name;
  qp::filbin = (scratch_folder() / "structure.bin").string();
  qp::kerror = false;
  map2bin();
  return 0;
}
