// The KDC reader: the control file of a Rietveld refinement program. Lines
// starting with "!" are comments that name the columns of the line after
// them; each phase starts at "Data for PHASE" and holds "!Nat", the group in
// front of "<--Space", the atoms behind "!Atom" and the cell behind the
// comment naming "alpha" and "gamma".
#include <algorithm>

#include "crystal/fixed_text.h"
#include "crystal/vant_io_formats.h"
#include "crystal/vant_string_utilities.h"

namespace {

bool comment(const std::string& line) {
  const auto a = fixed_text::adjusted(line);
  return a.empty() || a[0] == '!';
}

// The first data line after line i (counted from 1), or 0.
std::int32_t data_line_after(const file_lines& lines, std::int32_t i, std::int32_t last) {
  for (std::int32_t k = i + 1; k <= last; ++k)
    if (!comment(lines[static_cast<std::size_t>(k - 1)])) return k;
  return 0;
}

// The first comment line of the range holding every one of the words.
std::int32_t comment_with(const file_lines& lines, std::int32_t first, std::int32_t last,
                          std::initializer_list<const char*> words) {
  for (std::int32_t i = first; i <= last; ++i) {
    const std::string line = l_case(lines[static_cast<std::size_t>(i - 1)]);
    if (comment(line) && std::all_of(words.begin(), words.end(), [&](const char* w) { return line.find(w) != std::string::npos; }))
      return i;
  }
  return 0;
}

std::int32_t numbers_at(const file_lines& lines, std::int32_t i, std::span<float> v) {
  if (i <= 0) return 0;
  std::vector<std::int32_t> iv(v.size());
  std::int32_t n = 0;
  getnum(lines[static_cast<std::size_t>(i - 1)], v, iv, n);
  return n;
}

// The number of phases the file declares: the column "Nph" of a comment
// names it in the data line below; -1 when no comment does.
std::int32_t declared_phases(const file_lines& lines, std::int32_t first, std::int32_t last) {
  const std::int32_t at = comment_with(lines, first, last, {"nph"});
  if (at == 0) return -1;
  std::string heading = l_case(lines[static_cast<std::size_t>(at - 1)]);
  std::replace(heading.begin(), heading.end(), '!', ' ');
  std::array<std::string, 40> words;
  std::int32_t n = 0;
  getword(heading, words, n);
  const auto column = static_cast<std::size_t>(std::find(words.begin(), words.begin() + n, "nph") - words.begin());
  std::array<float, 40> v{};
  if (column >= static_cast<std::size_t>(n) || static_cast<std::size_t>(numbers_at(lines, data_line_after(lines, at, last), v)) <= column)
    return -1;
  return whole_number(v[column]);
}

void read_kdc_atoms(const file_lines& lines, const interval_type& range, std::int32_t nat, atom_list_type& a) {
  a = atom_list_type{};
  std::int32_t at = comment_with(lines, range.mina, range.maxb, {"!atom"});
  if (at == 0 || nat <= 0) return;
  allocate_atom_list(std::min(nat, range.maxb - at), a);
  std::int32_t n = 0;
  while (n < static_cast<std::int32_t>(a.atom.size()) && (at = data_line_after(lines, at, range.maxb)) > 0) {
    std::string rest(fixed_text::adjusted(lines[static_cast<std::size_t>(at - 1)]));
    atom_type& atom = a.atom[static_cast<std::size_t>(n)];
    std::string label, type;
    cutst(rest, nullptr, &label);
    cutst(rest, nullptr, &type);
    std::array<float, 12> v{};
    std::array<std::int32_t, 12> iv{};
    std::int32_t count = 0;
    getnum(rest, v, iv, count);
    if (count < 3) return set_form_error("Error reading Coordinates of atom:" + label);
    atom.lab = fixed_text::assigned(label, 20);
    std::erase_if(type, [](char c) { return std::isdigit(static_cast<unsigned char>(c)); });
    set_atom_symbol(atom, type);
    atom.x = {v[0], v[1], v[2]};
    atom.biso = v[3];
    atom.occ = v[4];
    ++n;
    // The codes line follows; an anisotropic atom (N_t 2) adds its betas and
    // their codes.
    const std::int32_t skip = count >= 8 && iv[7] == 2 ? 3 : 1;
    for (std::int32_t k = 0; k < skip && at > 0; ++k) at = data_line_after(lines, at, range.maxb);
    if (at == 0) break;
  }
  a.natoms = n;
}

}  // namespace

void readn_set_xtal_kdc(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype,
                        std::optional<std::int32_t> phase) {
  init_err_form();
  clamp_to_file(lines, first, last);
  std::vector<interval_type> phases;
  for (std::int32_t i = first; i <= last; ++i)
    if (u_case(lines[static_cast<std::size_t>(i - 1)]).find("DATA FOR PHASE") != std::string::npos) {
      if (!phases.empty()) phases.back().maxb = i - 1;
      phases.push_back({i, last});
    }
  if (phases.empty()) return set_form_error(" No Phase information was found in this KDC file. Please, check it!");
  const std::int32_t declared = declared_phases(lines, first, last);
  if (declared >= 0 && declared != static_cast<std::int32_t>(phases.size()))
    return set_form_error(" Locating Phases failed in this KDC. Please, check it!");
  const interval_type range = chosen_phase(phases, phase);

  std::array<float, 20> v{};
  const std::int32_t nat_line = comment_with(lines, range.mina, range.maxb, {"!nat"});
  const std::int32_t nat = numbers_at(lines, data_line_after(lines, nat_line, range.maxb), v) > 0 && nat_line > 0
                               ? whole_number(v[0])
                               : 0;

  std::string symbol;
  for (std::int32_t i = range.mina; i <= range.maxb && symbol.empty(); ++i) {
    const std::string& line = lines[static_cast<std::size_t>(i - 1)];
    if (const auto tag = line.find("<--Space"); tag != std::string::npos)
      symbol = fixed_text::assigned(fixed_text::adjusted(line.substr(0, tag)), 20);
  }
  if (symbol.empty()) return set_form_error(" => Problems reading Space group on KDC file ");
  set_spacegroup(symbol, spg);

  const std::int32_t heading = comment_with(lines, range.mina, range.maxb, {"alpha", "gamma"});
  v = {};
  const std::int32_t n = heading > 0 ? numbers_at(lines, data_line_after(lines, heading, range.maxb), v) : 0;
  bool good = n >= 6;
  for (int k = 0; k < 3 && good; ++k) good = v[k] > 0.0f && v[k + 3] > 0.0f && v[k + 3] < 180.0f;
  if (!good) return set_form_error(" => Problems reading Cell Parameters on KDC file ");
  set_crystal_cell({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, cell, cartype);

  read_kdc_atoms(lines, range, nat, a);
  if (err_form) return;
  complete_atoms(cell, spg, a);
}
