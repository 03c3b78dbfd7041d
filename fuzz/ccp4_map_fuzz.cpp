// Any bytes as a CCP4/MRC map, loaded as the shell opens one.
#include "fuzz/fuzz_input.h"
#include "maps/ccp4_map.h"
#include "state/quelmora_parametros.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = input_file(data, size, "map.ccp4");
  quelmora_parametros::kerror = false;
  if (is_ccp4_map(path)) read_ccp4_map(path);
  return 0;
}
