// The constant rows behind the reference tables of vant_symmetry_tables.
// Each array lives in a generated source of its own (see
// tools/gen_symmetry_tables.py), so that a change elsewhere never recompiles
// them.
#pragma once

struct spgr_info_row {
  int n;
  const char* hm;
  const char* hall;
  int laue;
  int pg;
  int asu[6];
  const char* inf_extra;
};

struct wyckoff_info_row {
  const char* hm;
  int orbits;
  const char* orbit[26];
};

inline constexpr int spgr_info_row_count = 612;
inline constexpr int wyckoff_info_row_count = 273;
inline constexpr int spg_gen_row_count = 230;

extern const spgr_info_row spgr_info_rows[spgr_info_row_count];
extern const wyckoff_info_row wyckoff_info_rows[wyckoff_info_row_count];
extern const char* const spg_gen_rows[spg_gen_row_count];
