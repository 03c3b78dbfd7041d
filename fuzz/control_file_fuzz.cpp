// Any bytes as a control file (.inp), read into the control data as the
// program and sintrel read it.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "control/control_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  read_control_file(in);
  return 0;
}
