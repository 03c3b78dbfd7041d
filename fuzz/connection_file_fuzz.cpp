// Any bytes as the connection file (.enl) of a molecule of two atoms in a
// cubic cell of P -1.
#include "crystal/vant_crystal_metrics.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "fuzz/fuzz_input.h"
#include "maps/molecular_bonds.h"
#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  set_crystal_cell({10, 10, 10}, {90, 90, 90}, qp::celda);
  set_spacegroup("P -1", qp::grp_espacial);
  allocate_atom_list(2, qp::atomos);
  qp::atomos.atom[0].x = {0.1f, 0.2f, 0.3f};
  qp::atomos.atom[1].x = {0.2f, 0.2f, 0.3f};
  qp::codefil = (scratch_folder() / "molecule").string();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  input_file(data, size, "molecule.enl");
  calculate_bonds();
  return 0;
}
