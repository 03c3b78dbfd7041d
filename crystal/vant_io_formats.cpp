// The entry of the structure readers and what they share: the cell and group
// keys of a VTL file, atom lines, anisotropic lines, scattering symbols and
// the completion of every atom once cell and group are known.
#include "crystal/vant_io_formats.h"

#include <algorithm>
#include <cmath>

#include "crystal/fixed_text.h"
#include "crystal/vant_scattering_chemical_tables.h"
#include "crystal/vant_string_utilities.h"

namespace {

constexpr std::size_t line_length = 180;
constexpr float eight_pi2 = 78.956835f;

std::string first_word_upper(const std::string& line) {
  std::string rest = line, word;
  cutst(rest, nullptr, &word);
  return u_case(word);
}

// The numbers behind a made-up key, with their uncertainties: fewer than the
// arrays hold are counted, more are dropped.
template <std::size_t N>
std::int32_t numbers_of(const std::string& key, const std::string& text, std::array<float, N>& v,
                        std::array<float, N>& s) {
  const file_lines one{key + " " + text};
  std::int32_t first = 1, n = 0;
  read_key_valuestd(one, first, 1, key, v, s, n);
  return n;
}

// The charge a scattering symbol carries: a sign at place 2 to 4, and the
// digits next to it (none: 1).
float charge_of_symbol(const std::string& symbol) {
  const auto sign = symbol.find_first_of("+-");
  if (sign == std::string::npos || sign < 1 || sign > 3) return 0.0f;
  auto digits_at = [&](std::size_t from, int step) {
    std::string d;
    for (auto k = static_cast<std::ptrdiff_t>(from);
         k >= 0 && k < static_cast<std::ptrdiff_t>(symbol.size()) && std::isdigit(static_cast<unsigned char>(symbol[k]));
         k += step)
      d.insert(step < 0 ? d.begin() : d.end(), symbol[k]);
    return d;
  };
  std::string d = digits_at(sign - 1, -1);
  if (d.empty()) d = digits_at(sign + 1, 1);
  const float value = d.empty() ? 1.0f : static_cast<float>(std::stoi(d.substr(0, 3)));
  return symbol[sign] == '-' ? -value : value;
}

// Equivalent isotropic U of anisotropic values of any kind.
float u_eq_of(const cell_metrics_type& cell, const atom_type& atom) {
  std::array<float, 6> u = atom.u;
  if (atom.u_type == "b_ij") {
    for (float& v : u) v /= eight_pi2;
  } else if (atom.u_type == "beta") {
    // beta_ij = 2 pi^2 a*_i a*_j U_ij
    const int pairs[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
    for (int k = 0; k < 6; ++k) {
      const float f = 0.25f * eight_pi2 * cell.rcell[pairs[k][0]] * cell.rcell[pairs[k][1]];
      u[k] = f > 0.0f ? u[k] / f : 0.0f;
    }
  }
  return u_equiv(cell, u);
}

}  // namespace

void init_err_form() {
  err_form = false;
  err_form_mess.clear();
}

void set_form_error(const std::string& message) {
  err_form = true;
  err_form_mess = message.substr(0, 150);
}

void clamp_to_file(const file_lines& lines, std::int32_t& first, std::int32_t& last) {
  first = std::max(first, 1);
  last = std::min<std::int32_t>(last, static_cast<std::int32_t>(lines.size()));
}

std::int32_t whole_number(float v) { return std::fabs(v) <= 1.0e6f ? static_cast<std::int32_t>(v) : 0; }

interval_type chosen_phase(const std::vector<interval_type>& phases, std::optional<std::int32_t> iphase) {
  const bool given = iphase && *iphase >= 1 && static_cast<std::size_t>(*iphase) <= phases.size();
  return phases[given ? static_cast<std::size_t>(*iphase - 1) : 0];
}

void readn_set_xtal_structure_split(const std::string& filenam, cell_metrics_type& cell, space_group_type& spg,
                                    atom_list_type& a, const std::string& mode, std::optional<std::int32_t> iphase,
                                    job_info_type* job_type) {
  init_err_form();
  std::int32_t n = 0;
  number_lines(filenam, n);
  if (n == 0) return set_form_error("The file " + std::string(fixed_text::trimmed(filenam)) + " contains nothing");
  file_lines lines;
  reading_lines(filenam, n, lines);
  for (auto& line : lines) {
    if (line.size() > line_length) line.resize(line_length);
    std::replace(line.begin(), line.end(), '\t', ' ');
  }
  const std::int32_t last = static_cast<std::int32_t>(lines.size());
  const std::string kind = l_case(fixed_text::adjusted(mode).substr(0, 3));
  if (kind == "cif") readn_set_xtal_cif(lines, 1, last, cell, spg, a, {}, iphase);
  else if (kind == "kdc") readn_set_xtal_kdc(lines, 1, last, cell, spg, a, {}, iphase);
  else if (kind == "shx") readn_set_xtal_shx(lines, 1, last, cell, spg, a);
  else readn_set_xtal_vtl(lines, 1, last, cell, spg, a, {}, iphase, job_type);
}

void read_file_cellt(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                     const std::optional<std::string>& cartype) {
  std::array<float, 7> v{}, s{};
  std::int32_t n = 0;
  read_key_valuestd(lines, first, last, "cell", v, s, n);
  bool good = n == 6;
  for (int k = 0; k < 3 && good; ++k) good = v[k] > 0.0f && v[k + 3] > 0.0f && v[k + 3] < 180.0f;
  if (!good) return set_form_error(" Bad Cell Parameters...");
  set_crystal_cell({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, cell, cartype, vec3f{s[0], s[1], s[2]},
                   vec3f{s[3], s[4], s[5]});
  if (err_crys) set_form_error(" Bad Cell Parameters...");
}

void read_file_spg(const file_lines& lines, std::int32_t first, std::int32_t last, space_group_type& spg, bool sub) {
  for (const char* key : {sub ? "subg" : "spgr", "spaceg", "shub"}) {
    std::int32_t at = first;
    std::string text;
    read_key_strval(lines, at, last, key, text);
    if (fixed_text::is_blank(text)) continue;
    set_spacegroup(fixed_text::assigned(fixed_text::adjusted(text), 20), spg);
    return;
  }
  set_form_error(" Problems reading the Space Group symbol/number");
}

void set_atom_symbol(atom_type& atom, const std::string& symbol) {
  std::string element = symbol.substr(0, 2);
  if (element.size() == 2 && std::string_view("0123456789+-").find(element[1]) != std::string_view::npos)
    element.resize(1);
  std::string chem;
  get_chemsymb(element, chem, &atom.z);
  if (chem == "**") {
    chem = element;
    if (chem.size() == 2) chem[1] = static_cast<char>(std::tolower(static_cast<unsigned char>(chem[1])));
  }
  atom.chem_symb = std::string(fixed_text::trimmed(chem));
  atom.sf_symb = u_case(symbol.substr(0, 4));
  if (std::fabs(atom.charge) < 1.0e-5f) atom.charge = charge_of_symbol(symbol);
}

void read_atom(const std::string& text, atom_type& atom) {
  atom = atom_type{};
  std::string line = text;
  if (const auto hash = line.find('#'); hash != std::string::npos) {
    atom.info = fixed_text::assigned(fixed_text::adjusted(line.substr(hash + 1)), 80);
    line.resize(hash);
  }
  std::string magnetic;
  const bool has_moment = line.find("Moment:") != std::string::npos;
  if (has_moment) {
    const auto at = line.find("Moment:");
    magnetic = line.substr(at + 7, 40);
    line.resize(at);
  }
  std::string word;
  cutst(line, nullptr, &word);
  if (u_case(word) != "ATOM") return set_form_error(" Error reading the ATOM keyword");
  cutst(line, nullptr, &word, nullptr, 5);
  atom.lab = word;
  std::string symbol;
  cutst(line, nullptr, &symbol, nullptr, 5);
  if (has_moment) {
    const char m = static_cast<char>(std::toupper(static_cast<unsigned char>(symbol.empty() ? ' ' : symbol[0])));
    if (m != 'J' && m != 'M') return set_form_error(" Error reading the magnetic form factor of ATOM: " + atom.lab);
  }

  std::array<float, 7> v{}, s{};
  const std::int32_t n = numbers_of("atm", line, v, s);
  if (n == 0) return set_form_error("Error reading parameters of atom:" + atom.lab);
  if (n < 3) return set_form_error("Error reading Coordinates of atom:" + atom.lab);
  atom.x = {v[0], v[1], v[2]};
  atom.x_sigma = {s[0], s[1], s[2]};
  atom.biso = v[3];
  atom.biso_sigma = s[3];
  atom.occ = v[4];
  atom.occ_sigma = s[4];
  atom.moment = v[5];
  atom.charge = v[6];
  // A magnetic form factor ("MFE3") names its element behind the first letter.
  set_atom_symbol(atom, has_moment ? symbol.substr(1) : symbol);
  if (has_moment) atom.sf_symb = u_case(symbol.substr(0, 4));

  if (has_moment) {
    std::array<float, 3> m{}, ms{};
    if (numbers_of("mom", magnetic, m, ms) < 3)
      return set_form_error("Error reading magnetic moment components of atom:" + atom.lab);
    // The components are kept in the first three free variables.
    atom.nvar = 3;
    std::copy(m.begin(), m.end(), atom.var.begin());
    if (atom.moment < 0.001f) atom.moment = std::fabs(m[0]) + std::fabs(m[1]) + std::fabs(m[2]);
  }
}

void read_uvals(const std::string& line, atom_type& atom, const std::string& type) {
  std::array<float, 7> v{}, s{};
  if (numbers_of("Uval", line, v, s) != 6)
    return set_form_error(" Error reading the anisotropic thermal parameters of atom:" + atom.lab);
  std::copy_n(v.begin(), 6, atom.u.begin());
  std::copy_n(s.begin(), 6, atom.u_sigma.begin());
  atom.th_type = "aniso";
  atom.u_type = type;
}

void read_file_atomlist(const file_lines& lines, std::int32_t first, std::int32_t last, atom_list_type& a) {
  const std::int32_t end = std::min<std::int32_t>(last, static_cast<std::int32_t>(lines.size()));
  std::int32_t read = 0;
  for (std::int32_t i = std::max(first, 1); i <= end; ++i) {
    const std::string& line = lines[static_cast<std::size_t>(i - 1)];
    const std::string key = first_word_upper(line);
    if (key.substr(0, 4) == "ATOM" && read < static_cast<std::int32_t>(a.atom.size())) {
      read_atom(line, a.atom[static_cast<std::size_t>(read)]);
      if (err_form) break;
      ++read;
    } else if (read > 0 && (key == "U_IJ" || key == "B_IJ" || key == "BETA")) {
      std::string rest = line;
      cutst(rest);
      read_uvals(rest, a.atom[static_cast<std::size_t>(read - 1)], l_case(key));
      if (err_form) break;
    }
  }
  a.natoms = read;
}

void complete_atoms(const cell_metrics_type& cell, const space_group_type& spg, atom_list_type& a) {
  for (std::int32_t i = 0; i < a.natoms && i < static_cast<std::int32_t>(a.atom.size()); ++i) {
    atom_type& atom = a.atom[static_cast<std::size_t>(i)];
    // A group that could not be built has no operators: its multiplicity is
    // left at 0 and the caller sees the group's error.
    if (spg.multip <= 0 || spg.sym_op.empty()) continue;
    atom.mult = get_multip_pos_crys(atom.x, spg);
    if (std::fabs(atom.occ) <= 1.0e-5f) atom.occ = static_cast<float>(atom.mult) / static_cast<float>(spg.multip);
    if (atom.th_type != "aniso") continue;
    atom.u_eq = u_eq_of(cell, atom);
    if (atom.u_type == "u_ij") atom.u = convert_u_betas(atom.u, cell);
    else if (atom.u_type == "b_ij") atom.u = convert_b_betas(atom.u, cell);
    atom.u_type = "beta";
  }
}
