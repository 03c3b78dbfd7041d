// The constant rows from which chem_info is built (written by
// tools/gen_chem_info.py into vant_chem_info_rows.cpp).
#pragma once

#include <array>
#include <cstdint>

struct chem_info_row {
  const char* symb;
  const char* name;
  std::int32_t z;
  float atwe, rcov, rwaals, vatm;
  std::array<std::int32_t, 5> oxid;
  std::array<float, 5> rion;
  float sctf, sedinc, sea;
};

extern const std::array<chem_info_row, 108> chem_info_rows;
