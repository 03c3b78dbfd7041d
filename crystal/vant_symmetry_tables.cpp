#include "crystal/vant_symmetry_tables.h"

#include <cctype>
#include <climits>
#include <cstdlib>
#include <unordered_map>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"
#include "crystal/vant_symmetry_tables_data.h"

std::vector<spgr_info_type> spgr_info;
std::vector<wyckoff_info_type> wyckoff_info;
std::array<std::string, 230> spg_gen;
bool it_set = false;
bool err_symtab = false;
std::string err_symtab_mess;

const std::array<std::string, 7> sys_cry = {"Triclinic", "Monoclinic", "Orthorhombic", "Tetragonal",
                                            "Trigonal",  "Hexagonal",  "Cubic"};

const std::array<std::string, 16> laue_class = {"-1",   "2/m",  "mmm",   "4/m",  "4/mmm", "-3 R",
                                                "-3m R", "-3",  "-3m1",  "-31m", "6/m",   "6/mmm",
                                                "m-3",  "m-3m", "m3",    "m3m"};

const std::array<std::string, 41> point_group = {
    "1",   "-1",   "2",    "m",    "2/m",  "222",  "mm2", "m2m",   "2mm",  "mmm", "4",
    "-4",  "4/m",  "422",  "4mm",  "-42m", "-4m2", "4/mmm", "3",   "-3",   "32",  "3m",
    "-3m", "312",  "31m",  "-31m", "6",    "-6",   "6/m",  "622",  "6mm",  "-62m", "-6m2",
    "6/mmm", "23", "m-3",  "432",  "-43m", "m-3m", "m3",   "m3m"};

const std::array<std::string, 7> latt = {
    "  P: { 000 }",
    "  A: { 000;  0  1/2 1/2 }+",
    "  B: { 000; 1/2  0  1/2 }+",
    "  C: { 000; 1/2 1/2  0  }+",
    "  I: { 000; 1/2 1/2 1/2 }+",
    "  R: { 000; 2/3 1/3 1/3; 1/3 2/3 2/3   }+",
    "  F: { 000;  0  1/2 1/2; 1/2  0  1/2; 1/2 1/2  0 }+"};

const std::array<std::string, 3> centro = {"Centric (-1 not at origin)", "Acentric",
                                           "Centric (-1 at origin)"};

// Row by row: x' = m[0].(x,y,z), y' = m[1].(x,y,z), z' = m[2].(x,y,z).
const std::array<mat3i, 36> mod6 = {{
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},      // x,y,z
    {{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}},    // -x,-y,z
    {{{-1, 0, 0}, {0, 1, 0}, {0, 0, -1}}},    // -x,y,-z
    {{{1, 0, 0}, {0, -1, 0}, {0, 0, -1}}},    // x,-y,-z
    {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}},      // z,x,y
    {{{0, 0, 1}, {-1, 0, 0}, {0, -1, 0}}},    // z,-x,-y
    {{{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}}},    // -z,-x,y
    {{{0, 0, -1}, {1, 0, 0}, {0, -1, 0}}},    // -z,x,-y
    {{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}},      // y,z,x
    {{{0, -1, 0}, {0, 0, 1}, {-1, 0, 0}}},    // -y,z,-x
    {{{0, 1, 0}, {0, 0, -1}, {-1, 0, 0}}},    // y,-z,-x
    {{{0, -1, 0}, {0, 0, -1}, {1, 0, 0}}},    // -y,-z,x
    {{{0, 1, 0}, {1, 0, 0}, {0, 0, -1}}},     // y,x,-z
    {{{0, -1, 0}, {-1, 0, 0}, {0, 0, -1}}},   // -y,-x,-z
    {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}},     // y,-x,z
    {{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}},     // -y,x,z
    {{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}},     // x,z,-y
    {{{-1, 0, 0}, {0, 0, 1}, {0, 1, 0}}},     // -x,z,y
    {{{-1, 0, 0}, {0, 0, -1}, {0, -1, 0}}},   // -x,-z,-y
    {{{1, 0, 0}, {0, 0, -1}, {0, 1, 0}}},     // x,-z,y
    {{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}},     // z,y,-x
    {{{0, 0, 1}, {0, -1, 0}, {1, 0, 0}}},     // z,-y,x
    {{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}},     // -z,y,x
    {{{0, 0, -1}, {0, -1, 0}, {-1, 0, 0}}},   // -z,-y,-x
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},      // x,y,z
    {{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}},    // -y,x-y,z
    {{{-1, 1, 0}, {-1, 0, 0}, {0, 0, 1}}},    // -x+y,-x,z
    {{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}},    // -x,-y,z
    {{{0, 1, 0}, {-1, 1, 0}, {0, 0, 1}}},     // y,-x+y,z
    {{{1, -1, 0}, {1, 0, 0}, {0, 0, 1}}},     // x-y,x,z
    {{{0, 1, 0}, {1, 0, 0}, {0, 0, -1}}},     // y,x,-z
    {{{1, -1, 0}, {0, -1, 0}, {0, 0, -1}}},   // x-y,-y,-z
    {{{-1, 0, 0}, {-1, 1, 0}, {0, 0, -1}}},   // -x,-x+y,-z
    {{{0, -1, 0}, {-1, 0, 0}, {0, 0, -1}}},   // -y,-x,-z
    {{{-1, 1, 0}, {0, 1, 0}, {0, 0, -1}}},    // -x+y,y,-z
    {{{1, 0, 0}, {1, -1, 0}, {0, 0, -1}}},    // x,x-y,-z
}};

const std::array<vec3f, 2> ltr_a = {{{0.0f, 0.0f, 0.0f}, {0.0f, 0.5f, 0.5f}}};
const std::array<vec3f, 2> ltr_b = {{{0.0f, 0.0f, 0.0f}, {0.5f, 0.0f, 0.5f}}};
const std::array<vec3f, 2> ltr_c = {{{0.0f, 0.0f, 0.0f}, {0.5f, 0.5f, 0.0f}}};
const std::array<vec3f, 2> ltr_i = {{{0.0f, 0.0f, 0.0f}, {0.5f, 0.5f, 0.5f}}};
const std::array<vec3f, 3> ltr_r = {
    {{0.0f, 0.0f, 0.0f}, {2.0f / 3.0f, 1.0f / 3.0f, 1.0f / 3.0f}, {1.0f / 3.0f, 2.0f / 3.0f, 2.0f / 3.0f}}};
const std::array<vec3f, 4> ltr_f = {
    {{0.0f, 0.0f, 0.0f}, {0.0f, 0.5f, 0.5f}, {0.5f, 0.0f, 0.5f}, {0.5f, 0.5f, 0.0f}}};

void set_spgr_info() {
  if (!spgr_info.empty()) return;
  spgr_info.reserve(spgr_info_row_count);
  for (const auto& row : spgr_info_rows) {
    spgr_info_type r;
    r.n = row.n;
    r.hm = row.hm;
    r.hall = row.hall;
    r.laue = row.laue;
    r.pg = row.pg;
    for (int i = 0; i < 6; ++i) r.asu[i] = row.asu[i];
    r.inf_extra = row.inf_extra;
    spgr_info.push_back(std::move(r));
  }
}

std::int32_t spgr_row_of_symbol(std::string_view hm) {
  static const std::unordered_map<std::string_view, std::int32_t> rows = [] {
    std::unordered_map<std::string_view, std::int32_t> index;
    for (int k = 0; k < spgr_info_row_count; ++k) index.emplace(fixed_text::trimmed(spgr_info_rows[k].hm), k + 1);
    return index;
  }();
  const auto it = rows.find(fixed_text::trimmed(hm));
  return it == rows.end() ? 0 : it->second;
}

void remove_spgr_info() {
  spgr_info.clear();
  spgr_info.shrink_to_fit();
}

void set_wyckoff_info() {
  if (!wyckoff_info.empty()) return;
  wyckoff_info.reserve(wyckoff_info_row_count);
  for (const auto& row : wyckoff_info_rows) {
    wyckoff_info_type r;
    r.hm = row.hm;
    r.orbits = row.orbits;
    for (int i = 0; i < row.orbits; ++i) r.orbit[i] = row.orbit[i];
    wyckoff_info.push_back(std::move(r));
  }
}

void remove_wyckoff_info() {
  wyckoff_info.clear();
  wyckoff_info.shrink_to_fit();
}

void set_it_gen() {
  for (int i = 0; i < spg_gen_row_count; ++i) spg_gen[i] = spg_gen_rows[i];
  it_set = true;
}

namespace {


// The generators of a row of spg_gen: its text from column 12 on (109 characters).
std::string generators_of(const std::string& row) { return row.size() > 11 ? row.substr(11, 109) : ""; }

}  // namespace

bool read_integer(const std::string& text, std::int32_t& value) {
  const auto start = text.find_first_not_of(' ');
  if (start == std::string::npos) return false;
  const auto end = text.find_first_of(" ,/", start);
  const std::string item = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
  std::size_t digits = (item[0] == '+' || item[0] == '-') ? 1 : 0;
  if (digits == item.size() || item.size() - digits > 9) return false;
  for (std::size_t i = digits; i < item.size(); ++i) {
    if (!std::isdigit(static_cast<unsigned char>(item[i]))) return false;
  }
  value = static_cast<std::int32_t>(std::strtol(item.c_str(), nullptr, 10));
  return true;
}

void get_generators(const std::string& spg, std::string& gener) {
  err_symtab = false;
  err_symtab_mess.clear();
  if (!it_set) set_it_gen();
  std::int32_t number = 0;
  if (read_integer(spg, number)) {
    if (number >= 1 && number <= 230) {
      gener = generators_of(spg_gen[number - 1]);
    } else {
      gener = generators_of(spg_gen[0]);
      err_symtab = true;
      err_symtab_mess = " Error in the symbol or number";
    }
    return;
  }
  const std::string wanted = u_case(std::string(fixed_text::trimmed(spg)));
  for (const auto& row : spg_gen) {
    if (fixed_text::same(u_case(row.substr(0, 10)), wanted)) {
      gener = generators_of(row);
      return;
    }
  }
  err_symtab = true;
  err_symtab_mess = " Error in the symbol or number";
}

void get_laue_class(std::string& out, std::int32_t number) {
  struct range {
    std::int32_t first, last;
    const char* laue;
  };
  // Numbers 149 to 156 are taken as "-3m1", 157 to 167 as "-31m", whatever
  // the orientation of the group.
  static const range ranges[] = {{3, 15, "2/m"},     {16, 74, "mmm"},     {75, 88, "4/m"},
                                 {89, 142, "4/mmm"}, {143, 148, "-3"},    {149, 156, "-3m1"},
                                 {157, 167, "-31m"}, {168, 176, "6/m"},   {177, 194, "6/mmm"},
                                 {195, 206, "m-3"},  {207, 230, "m-3m"}};
  out = "-1";
  for (const auto& r : ranges) {
    if (number >= r.first && number <= r.last) out = r.laue;
  }
}
