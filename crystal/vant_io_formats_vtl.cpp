// The VTL reader: free text, one keyword a line ("cell", "spgr", "symm",
// "gen", "atom", "u_ij", ...), keywords compared in lower case. Lines starting
// with "phase_" cut a file into phases; the caller picks one.
#include <algorithm>

#include "crystal/fixed_text.h"
#include "crystal/vant_io_formats.h"
#include "crystal/vant_string_utilities.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

constexpr std::size_t max_phases = 30;
constexpr std::size_t max_operators = 192;
constexpr std::size_t operator_length = 40;

// The line, left adjusted and in lower case, starts with key.
bool starts_with(const std::string& line, std::string_view key) {
  return l_case(fixed_text::adjusted(line)).starts_with(key);
}

std::vector<interval_type> phase_ranges(const file_lines& lines, std::int32_t first, std::int32_t last) {
  std::vector<interval_type> phases;
  for (std::int32_t i = first; i <= last; ++i)
    if (starts_with(lines[static_cast<std::size_t>(i - 1)], "phase_") && phases.size() < max_phases) {
      if (!phases.empty()) phases.back().maxb = i - 1;
      phases.push_back({i, last});
    }
  if (phases.empty()) phases.push_back({first, last});
  return phases;
}

// The lines of the range that start with key, keyword removed, cut to an
// operator text.
std::vector<std::string> keyed_lines(const file_lines& lines, const interval_type& range, std::string_view key) {
  std::vector<std::string> texts;
  for (std::int32_t i = range.mina; i <= range.maxb && texts.size() < max_operators; ++i) {
    std::string line(fixed_text::adjusted(lines[static_cast<std::size_t>(i - 1)]));
    if (!starts_with(line, key)) continue;
    cutst(line);
    texts.push_back(fixed_text::assigned(line, operator_length));
  }
  return texts;
}

// The group from operator lines: "symm" lines (a full list) before "gen"
// lines (generators). False when the range has neither.
bool group_from_operators(const file_lines& lines, const interval_type& range, space_group_type& spg) {
  for (const auto& [key, mode] : {std::pair{"symm", "fix"}, std::pair{"gen", "gen"}}) {
    const std::vector<std::string> list = keyed_lines(lines, range, key);
    if (list.empty()) continue;
    const auto n = static_cast<std::int32_t>(list.size());
    const std::string how = mode;
    set_spacegroup(" ", spg, &list, &n, &how);
    return true;
  }
  return false;
}

std::int32_t count_atom_lines(const file_lines& lines, const interval_type& range) {
  std::int32_t n = 0;
  for (std::int32_t i = range.mina; i <= range.maxb; ++i) n += starts_with(lines[static_cast<std::size_t>(i - 1)], "atom");
  return n;
}

}  // namespace

void readn_set_xtal_vtl(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype,
                        std::optional<std::int32_t> iphase, job_info_type* job) {
  init_err_form();
  clamp_to_file(lines, first, last);
  const std::vector<interval_type> phases = phase_ranges(lines, first, last);
  const interval_type range = chosen_phase(phases, iphase);
  if (job) get_job_info(lines, first, last, *job);

  read_file_cellt(lines, range.mina, range.maxb, cell, cartype);
  if (err_form) return;
  read_file_spg(lines, range.mina, range.maxb, spg);
  if (err_form && group_from_operators(lines, range, spg)) init_err_form();
  if (err_form) return;

  a = atom_list_type{};
  const std::int32_t n = count_atom_lines(lines, range);
  if (n > 0) {
    allocate_atom_list(n, a);
    read_file_atomlist(lines, range.mina, range.maxb, a);
  }
  complete_atoms(cell, spg, a);
}

void get_job_info(const file_lines& lines, std::int32_t first, std::int32_t last, job_info_type& job) {
  static const char* const kinds[] = {"XRAY_2THE", "NEUT_2THE", "XRAY_SXTA", "NEUT_SXTA", "NEUT_TOF", "XRAY_ENER"};
  job = job_info_type{};
  last = std::min<std::int32_t>(last, static_cast<std::int32_t>(lines.size()));
  std::size_t current = 0;  // the pattern whose block is being read
  for (std::int32_t i = std::max(first, 1); i <= last; ++i) {
    std::string rest(fixed_text::adjusted(lines[static_cast<std::size_t>(i - 1)]));
    std::string word;
    cutst(rest, nullptr, &word);
    word = u_case(word);
    std::array<float, 10> v{};
    std::array<std::int32_t, 10> iv{};
    std::int32_t n = 0;
    getnum(rest, v, iv, n);
    if (word == "TITLE") job.title = fixed_text::assigned(rest, 120);
    else if (word.starts_with("PHASE_")) ++job.num_phases;
    else if (word == "NPATT" && n > 0 && job.patt_typ.empty()) {
      const auto count = static_cast<std::size_t>(std::clamp(iv[0], 0, 100));
      job.patt_typ.assign(count, "XRAY_2THE");
      job.uvwxy.assign(count, {});
      job.backgd_points.assign(count, 0);
      job.step.assign(count, 0.0f);
    } else if (word.starts_with("PATT_") && !job.patt_typ.empty()) {
      const std::string kind = u_case(fixed_text::adjusted(rest).substr(0, 9));
      std::int32_t k = 0;
      read_integer(word.substr(5), k);
      if (k < 1 || static_cast<std::size_t>(k) > job.patt_typ.size()) continue;
      current = static_cast<std::size_t>(k - 1);
      for (const char* name : kinds)
        if (kind.starts_with(name)) job.patt_typ[current] = name;
    } else if (!job.patt_typ.empty() && word == "UVWXY" && n >= 5) {
      std::copy_n(v.begin(), 5, job.uvwxy[current].begin());
    } else if (!job.patt_typ.empty() && word == "BACKGD") {
      ++job.backgd_points[current];
    } else if (!job.patt_typ.empty() && word == "STEP" && n > 0) {
      job.step[current] = v[0];
    } else if (word == "CMDL") {
      job.cmd.push_back(rest);
    }
  }
  if (job.title.empty()) job.title = " General Job: Quelmora";
  if (job.num_phases == 0) job.num_phases = 1;
}
