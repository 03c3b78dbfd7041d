// The SHELX reader (.ins, .res): CELL and ZERR, LATT and SYMM for the group,
// SFAC for the elements, FVAR for the free variables, then the atom lines
// "label sfac x y z sof U [U22 U33 U23 U13 U12]", a line ending in "="
// going on in the next one.
#include <algorithm>
#include <cmath>
#include <set>

#include "crystal/fixed_text.h"
#include "crystal/vant_io_formats.h"
#include "crystal/vant_string_utilities.h"

namespace {

constexpr float eight_pi2 = 78.956835f;
constexpr std::size_t max_operators = 192;

// Instructions that are no atoms even when numbers follow them. The
// special-position instruction stands as two joined literals ("SP" "EC").
const std::set<std::string> instructions = {
    "TITL", "CELL", "ZERR", "LATT", "SYMM", "SFAC", "DISP", "UNIT", "LAUE", "REM",  "MORE", "TIME", "END",
    "HKLF", "OMIT", "SHEL", "BASF", "TWIN", "EXTI", "SWAT", "HOPE", "MERG", "SP" "EC", "RESI", "MOVE", "ANIS",
    "AFIX", "HFIX", "FRAG", "FEND", "EXYZ", "EADP", "EQIV", "CONN", "PART", "BIND", "FREE", "DFIX", "DANG",
    "BUMP", "SAME", "SADI", "CHIV", "FLAT", "DELU", "SIMU", "DEFS", "ISOR", "NCSY", "SUMP", "L.S.", "CGLS",
    "BLOC", "DAMP", "STIR", "WGHT", "FVAR", "BOND", "CONF", "MPLA", "RTAB", "HTAB", "LIST", "ACTA", "SIZE",
    "TEMP", "WPDB", "FMAP", "GRID", "PLAN", "MOLE", "NEUT", "ABIN", "ANSC", "ANSR", "XNPD", "RIGU"};

std::string keyword_of(const std::string& line) {
  std::string rest = line, word;
  cutst(rest, nullptr, &word);
  return u_case(word.substr(0, 4));
}

// The numbers behind the first line whose keyword is key; count 0 without one.
std::int32_t keyword_numbers(const file_lines& lines, std::int32_t first, std::int32_t last, const char* key,
                             std::span<float> v) {
  std::vector<std::int32_t> iv(v.size());
  for (std::int32_t i = first; i <= last; ++i) {
    std::string rest = lines[static_cast<std::size_t>(i - 1)];
    if (keyword_of(rest) != key) continue;
    cutst(rest);
    std::int32_t n = 0;
    getnum(rest, v, iv, n);
    return n;
  }
  return 0;
}

// A value coded as 10 m + p: m 1 fixes p, m above 1 is p times free
// variable m (or p times (fv - 1) when negative).
bool decoded(float code, const std::vector<float>& fvar, float& value) {
  const float a = std::fabs(code);
  const auto m = static_cast<std::size_t>(whole_number(std::floor((a + 5.0f) / 10.0f)));
  if (m == 0 && a >= 5.0f) return false;  // too large to be a code
  const float p = a - 10.0f * static_cast<float>(m);
  if (m == 0) value = code;
  else if (m == 1) value = std::copysign(p, code);
  else if (m > fvar.size()) return false;
  else value = code > 0.0f ? p * fvar[m - 1] : p * (fvar[m - 1] - 1.0f);
  return true;
}

// The atom lines of the range, each with its continuation lines joined.
std::vector<std::string> atom_lines(const file_lines& lines, std::int32_t first, std::int32_t last) {
  std::vector<std::string> found;
  for (std::int32_t i = first; i <= last; ++i) {
    std::string line(fixed_text::trimmed(lines[static_cast<std::size_t>(i - 1)]));
    const std::string key = keyword_of(line);
    if (key == "HKLF" || key == "END") break;
    while (!line.empty() && line.back() == '=' && i < last) {
      line.pop_back();
      line += " " + std::string(fixed_text::trimmed(lines[static_cast<std::size_t>(i++)]));
    }
    if (key.empty() || line[0] == ' ' || instructions.contains(key)) continue;
    if (key[0] == 'Q' && key.size() > 1 && std::isdigit(static_cast<unsigned char>(key[1]))) continue;  // peaks
    found.push_back(line);
  }
  return found;
}

}  // namespace

void read_shx_cell(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                   const std::optional<std::string>& cartype) {
  std::array<float, 8> c{}, z{};
  const std::int32_t n = keyword_numbers(lines, first, last, "CELL", c);
  bool good = n == 7;
  for (int k = 1; k <= 3 && good; ++k) good = c[k] > 0.0f && c[k + 3] > 0.0f && c[k + 3] < 180.0f;
  if (!good) return set_form_error(" Bad Cell Parameters...");
  keyword_numbers(lines, first, last, "ZERR", z);
  set_crystal_cell({c[1], c[2], c[3]}, {c[4], c[5], c[6]}, cell, cartype, vec3f{z[1], z[2], z[3]},
                   vec3f{z[4], z[5], z[6]});
  if (err_crys) set_form_error(" Bad Cell Parameters...");
}

void read_shx_cont(const file_lines& lines, std::int32_t first, std::int32_t last, std::vector<std::string>& sfac,
                   std::vector<float>& unit) {
  sfac.clear();
  for (std::int32_t i = first; i <= last; ++i) {
    std::string rest = lines[static_cast<std::size_t>(i - 1)];
    if (keyword_of(rest) != "SFAC") continue;
    cutst(rest);
    std::array<std::string, 40> words;
    std::int32_t n = 0;
    getword(rest, words, n);
    // The long form "SFAC El a1 b1 ..." names one element and its coefficients.
    std::array<float, 1> v{};
    std::array<std::int32_t, 1> iv{};
    std::int32_t numbers = 0;
    if (n > 1) getnum(words[1], v, iv, numbers);
    for (std::int32_t k = 0; k < (numbers > 0 ? 1 : n); ++k) sfac.push_back(words[static_cast<std::size_t>(k)]);
  }
  std::array<float, 40> u{};
  unit.assign(u.begin(), u.begin() + keyword_numbers(lines, first, last, "UNIT", u));
}

void read_shx_fvar(const file_lines& lines, std::int32_t first, std::int32_t last, std::vector<float>& fvar) {
  fvar.clear();
  for (std::int32_t i = first; i <= last; ++i) {
    std::string rest = lines[static_cast<std::size_t>(i - 1)];
    if (keyword_of(rest) != "FVAR") continue;
    cutst(rest);
    std::array<float, 40> v{};
    std::array<std::int32_t, 40> iv{};
    std::int32_t n = 0;
    getnum(rest, v, iv, n);
    fvar.insert(fvar.end(), v.begin(), v.begin() + n);
  }
}

void read_shx_atom(const file_lines& lines, std::int32_t first, std::int32_t last, const cell_metrics_type& cell,
                   const std::vector<std::string>& sfac, const std::vector<float>& fvar, atom_list_type& a) {
  const std::vector<std::string> found = atom_lines(lines, first, last);
  a = atom_list_type{};
  allocate_atom_list(static_cast<std::int32_t>(found.size()), a);
  std::int32_t n = 0;
  float u_last = 0.0f;  // U (or U equivalent) of the last atom that rides on none
  for (const std::string& line : found) {
    std::string rest = line, label;
    cutst(rest, nullptr, &label);
    std::array<float, 12> v{};
    std::array<std::int32_t, 12> iv{};
    std::int32_t count = 0;
    getnum(rest, v, iv, count);
    // Lines of other instructions with a number behind them are passed over.
    if (count < 5 || iv[0] < 1 || static_cast<std::size_t>(iv[0]) > sfac.size() || v[0] != static_cast<float>(iv[0]))
      continue;
    atom_type& atom = a.atom[static_cast<std::size_t>(n)];
    atom.lab = fixed_text::assigned(label, 20);
    bool good = true;
    for (int k = 0; k < 3; ++k) good = good && decoded(v[1 + k], fvar, atom.x[k]);
    good = good && decoded(v[4], fvar, atom.occ);
    if (count >= 11) {
      const std::array<float, 6> shelx{v[5], v[6], v[7], v[8], v[9], v[10]};  // U11 U22 U33 U23 U13 U12
      const int order[6] = {0, 1, 2, 5, 4, 3};
      for (int k = 0; k < 6; ++k) good = good && decoded(shelx[order[k]], fvar, atom.u[k]);
      atom.th_type = "aniso";
      atom.u_type = "u_ij";
      u_last = u_equiv(cell, atom.u);
      atom.biso = eight_pi2 * u_last;
    } else if (count >= 6) {
      float u = v[5];
      if (u <= -0.5f && u >= -5.0f) {
        u = -u * u_last;  // riding on the atom before
      } else {
        good = good && decoded(u, fvar, u);
        u_last = u;
      }
      atom.biso = eight_pi2 * u;
    }
    if (!good) return set_form_error(" Free variable not given by FVAR for atom: " + atom.lab);
    set_atom_symbol(atom, sfac[static_cast<std::size_t>(iv[0] - 1)]);
    ++n;
  }
  a.natoms = n;
}

void readn_set_xtal_shx(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype) {
  static const std::vector<std::vector<std::string>> centring = {
      {},
      {"X+1/2,Y+1/2,Z+1/2"},
      {"X+2/3,Y+1/3,Z+1/3", "X+1/3,Y+2/3,Z+2/3"},
      {"X,Y+1/2,Z+1/2"},
      {"X,Y+1/2,Z+1/2", "X+1/2,Y,Z+1/2", "X+1/2,Y+1/2,Z"},
      {"X+1/2,Y,Z+1/2"},
      {"X+1/2,Y+1/2,Z"}};
  init_err_form();
  clamp_to_file(lines, first, last);
  read_shx_cell(lines, first, last, cell, cartype);
  if (err_form) return;

  std::array<float, 2> latt{1.0f};
  keyword_numbers(lines, first, last, "LATT", latt);
  const std::int32_t n_latt = whole_number(latt[0]);
  if (n_latt == 0 || std::abs(n_latt) > 7) return set_form_error(" Wrong LATT instruction in the SHELX file");
  std::vector<std::string> ops;
  for (std::int32_t i = first; i <= last && ops.size() < max_operators; ++i) {
    std::string rest = lines[static_cast<std::size_t>(i - 1)];
    if (keyword_of(rest) != "SYMM") continue;
    cutst(rest);
    ops.push_back(fixed_text::assigned(rest, 40));
  }
  for (const auto& t : centring[static_cast<std::size_t>(std::abs(n_latt) - 1)]) ops.push_back(t);
  if (n_latt > 0) ops.push_back("-X,-Y,-Z");
  const auto n = static_cast<std::int32_t>(ops.size());
  const std::string mode = "gen";
  set_spacegroup(" ", spg, &ops, &n, &mode);

  std::vector<std::string> sfac;
  std::vector<float> unit, fvar;
  read_shx_cont(lines, first, last, sfac, unit);
  read_shx_fvar(lines, first, last, fvar);
  read_shx_atom(lines, first, last, cell, sfac, fvar, a);
  if (err_form) return;
  complete_atoms(cell, spg, a);
}
