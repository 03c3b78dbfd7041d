// Any bytes as a control file (.inp), read into the shared state.
#include "app/file_units.h"
#include "app/quelmora_fourier.h"
#include "app/quelmora_initialize.h"
#include "fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  init_var_prog();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!open_unit(unit_control_file, input_file(data, size, "control.inp"))) return 0;
  lee_datos();
  close_unit(unit_control_file);
  return 0;
}
