#include "app/file_units.h"

#include "crystal/fixed_text.h"

namespace {
std::ifstream control_file;
std::ifstream text_map;
}  // namespace

std::ifstream& file_unit(int number) { return number == unit_text_map ? text_map : control_file; }

bool open_unit(int number, const std::string& name) {
  close_unit(number);
  const std::string path(fixed_text::trimmed(name));
  if (path.empty()) return false;
  file_unit(number).open(path);
  return file_unit(number).is_open();
}

void close_unit(int number) {
  std::ifstream& unit = file_unit(number);
  if (unit.is_open()) unit.close();
  unit.clear();
}
