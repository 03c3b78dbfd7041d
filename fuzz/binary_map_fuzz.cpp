// Any bytes as a binary map, loaded whole as the shell opens a .bin.
#include "fuzz/fuzz_input.h"
#include "maps/binary_map.h"
#include "state/quelmora_parametros.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!open_filebin(input_file(data, size, "map.bin"))) return 0;
  quelmora_parametros::kerror = false;
  read_filebin(true);
  close_filebin();
  return 0;
}
