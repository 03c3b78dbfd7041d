// Any text as a space group for set_spacegroup. The first byte picks the way
// (automatic, Hall, Hermann-Mauguin, number, generators, full list); for the
// last two the first line is the lattice and each further line an operator.
#include <sstream>
#include <string>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const char* const modes[] = {nullptr, "HAL", "HMS", "ITC", "GEN", "FIX"};
  const char* mode = modes[data[0] % 6];
  std::istringstream text(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  std::string symbol;
  std::getline(text, symbol);
  std::vector<std::string> operators;
  for (std::string line; std::getline(text, line);) operators.push_back(line);
  const auto count = static_cast<std::int32_t>(operators.size());
  const std::string mode_text = mode ? mode : "";
  space_group_type group;
  // Without operators the automatic way falls back on a Hall symbol.
  set_spacegroup(symbol, group, operators.empty() ? nullptr : &operators, &count, mode ? &mode_text : nullptr);
  return 0;
}
