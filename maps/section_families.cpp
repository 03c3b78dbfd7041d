#include "maps/section_families.h"

section_family_type section_family(std::int32_t imap) {
  // The program only ever sets 1 to 3; anything else reads as family 1
  // rather than outside the table.
  if (imap < 1 || imap > 3) imap = 1;
  static constexpr std::array<section_family_type, 3> families{{
      {1, 2, 3},
      {2, 3, 1},
      {3, 1, 2},
  }};
  return families[static_cast<std::size_t>(imap - 1)];
}
