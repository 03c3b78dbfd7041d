// The CIF reader: one data block, its cell keys, the loop of atoms (and of
// anisotropic values), and the group from the Hermann-Mauguin symbol, else
// the Hall symbol, else the loop of operators.
#include <algorithm>

#include "crystal/fixed_text.h"
#include "crystal/vant_io_formats.h"
#include "crystal/vant_string_utilities.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

constexpr float eight_pi2 = 78.956835f;
constexpr std::size_t max_operators = 192;

std::string adjusted_lower(const std::string& line) { return l_case(fixed_text::adjusted(line)); }

// A value that stands for nothing.
bool absent(const std::string& v) { return v.empty() || v == "?" || v == "."; }

// The values of a line: blank separated, or in quotes that close before a
// blank or the end of the line ('O2-', 'x, y, z').
std::vector<std::string> cif_tokens(const std::string& line) {
  std::vector<std::string> tokens;
  std::size_t i = 0;
  while (i < line.size()) {
    if (line[i] == ' ') {
      ++i;
      continue;
    }
    const char q = line[i];
    if (q == '\'' || q == '"') {
      std::size_t end = i + 1;
      while (end < line.size() && !(line[end] == q && (end + 1 == line.size() || line[end + 1] == ' '))) ++end;
      tokens.push_back(line.substr(i + 1, end - i - 1));
      i = end + 1;
    } else {
      const std::size_t end = std::min(line.find(' ', i), line.size());
      tokens.push_back(line.substr(i, end - i));
      i = end;
    }
  }
  return tokens;
}

struct cif_loop {
  std::vector<std::string> keys;    // lower case
  std::vector<std::string> values;  // row after row
  std::vector<std::string> rows;    // the value lines as they stand
  std::int32_t column(const std::string& key) const {
    const auto at = std::find(keys.begin(), keys.end(), key);
    return at == keys.end() ? -1 : static_cast<std::int32_t>(at - keys.begin());
  }
};

// The loop of the range that has key among its keys.
bool find_loop(const file_lines& lines, const interval_type& range, const std::string& key, cif_loop& loop) {
  for (std::int32_t i = range.mina; i <= range.maxb; ++i) {
    if (!adjusted_lower(lines[static_cast<std::size_t>(i - 1)]).starts_with("loop_")) continue;
    loop = cif_loop{};
    std::int32_t k = i + 1;
    for (; k <= range.maxb; ++k) {
      const std::string line = adjusted_lower(lines[static_cast<std::size_t>(k - 1)]);
      if (line.empty() || line[0] == '#') continue;
      if (line[0] != '_') break;
      loop.keys.push_back(cif_tokens(line)[0]);
    }
    if (loop.column(key) < 0) continue;
    for (; k <= range.maxb; ++k) {
      const std::string line(fixed_text::adjusted(lines[static_cast<std::size_t>(k - 1)]));
      if (line.empty() || line[0] == '#') continue;
      const std::string lower = l_case(line);
      if (line[0] == '_' || lower.starts_with("loop_") || lower.starts_with("data_")) break;
      if (line[0] == ';') {  // a text field runs to the next line starting with ';'
        while (++k <= range.maxb && !fixed_text::trimmed(lines[static_cast<std::size_t>(k - 1)]).starts_with(";")) {
        }
        loop.values.push_back("?");
        continue;
      }
      loop.rows.push_back(line);
      for (auto& t : cif_tokens(line)) loop.values.push_back(std::move(t));
    }
    return true;
  }
  return false;
}

// The value of a single key, on its line or the next one, quotes removed.
std::string key_value(const file_lines& lines, const interval_type& range, const std::string& key) {
  for (std::int32_t i = range.mina; i <= range.maxb; ++i) {
    std::string line(fixed_text::adjusted(lines[static_cast<std::size_t>(i - 1)]));
    std::string word;
    cutst(line, nullptr, &word);
    if (l_case(word) != l_case(key)) continue;
    if (fixed_text::is_blank(line) && i < range.maxb) line = fixed_text::adjusted(lines[static_cast<std::size_t>(i)]);
    const auto tokens = cif_tokens(line);
    if (tokens.empty() || line.starts_with("_")) return {};
    const bool quoted = line[0] == '\'' || line[0] == '"';
    const std::string value = quoted ? tokens[0] : std::string(fixed_text::trimmed(line));
    return absent(value) ? std::string{} : value;
  }
  return {};
}

// A group of the table that has two origin choices.
bool has_origin_choices(const std::string& symbol) {
  set_spgr_info();
  const std::string with = u_case(symbol) + ":1";
  return std::any_of(spgr_info.begin(), spgr_info.end(), [&](const spgr_info_type& r) { return r.hm == with; });
}

// The end of a symbol in the form the table uses: "R -3 H" gives "R -3:H",
// "F d -3 m S" "F d -3 m:1", "P n n n 2" "P n n n:2"; a suffix behind ":"
// stays, blanks before it dropped. A final digit counts as an origin only
// where the group has two, so that "P -3 m 1" and "P m m 2" keep theirs.
std::string normalised_hm(std::string symbol) {
  if (const auto colon = symbol.find(':'); colon != std::string::npos)
    return std::string(fixed_text::trimmed(symbol.substr(0, colon))) + ":" +
           std::string(fixed_text::adjusted(symbol.substr(colon + 1)));
  symbol = std::string(fixed_text::trimmed(symbol));
  if (symbol.size() < 2) return symbol;
  const char c = static_cast<char>(std::toupper(static_cast<unsigned char>(symbol.back())));
  std::string stem(fixed_text::trimmed(symbol.substr(0, symbol.size() - 1)));
  if (c == 'H' || c == 'R') return stem + ":" + c;
  if (std::string_view("SZ12").find(c) == std::string_view::npos) return symbol;
  const char origin = (c == 'S' || c == '1') ? '1' : '2';
  if (std::isdigit(static_cast<unsigned char>(c)) && !has_origin_choices(stem)) return symbol;
  return stem + ":" + origin;
}

std::vector<interval_type> data_blocks(const file_lines& lines, std::int32_t first, std::int32_t last) {
  std::vector<interval_type> blocks;
  for (std::int32_t i = first; i <= last; ++i) {
    const std::string line = adjusted_lower(lines[static_cast<std::size_t>(i - 1)]);
    if (!line.starts_with("data_")) continue;
    if (!blocks.empty()) blocks.back().maxb = i - 1;
    if (line.starts_with("data_global")) blocks.push_back({0, 0});  // closes the block before, not used
    else blocks.push_back({i, last});
  }
  std::erase_if(blocks, [](const interval_type& b) { return b.mina == 0; });
  if (blocks.empty()) blocks.push_back({first, last});
  return blocks;
}

// One number of a CIF value ("0.2500(3)"); false when it holds none.
bool cif_number(const std::string& text, float& value, float* sigma = nullptr) {
  if (absent(text)) return false;
  std::array<float, 2> v{}, s{};
  std::int32_t n = 0;
  getnum_std(text, v, s, n);
  if (n != 1 || err_string) return false;
  value = v[0];
  if (sigma) *sigma = s[0];
  return true;
}

}  // namespace

void read_cif_cell(const file_lines& lines, const interval_type& range, cell_metrics_type& cell,
                   const std::optional<std::string>& cartype) {
  static const char* const keys[] = {"_cell_length_a", "_cell_length_b", "_cell_length_c",
                                     "_cell_angle_alpha", "_cell_angle_beta", "_cell_angle_gamma"};
  std::array<float, 6> v{}, s{};
  for (int k = 0; k < 6; ++k) {
    std::array<float, 2> value{}, sd{};
    std::int32_t first = range.mina, n = 0;
    read_key_valuestd(lines, first, range.maxb, keys[k], value, sd, n);
    const bool good = n >= 1 && value[0] > 0.0f && (k < 3 || value[0] < 180.0f);
    if (!good) return set_form_error(" Bad Cell Parameters...");
    v[k] = value[0];
    s[k] = sd[0];
  }
  set_crystal_cell({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, cell, cartype, vec3f{s[0], s[1], s[2]},
                   vec3f{s[3], s[4], s[5]});
  if (err_crys) set_form_error(" Bad Cell Parameters...");
}

void read_cif_atom(const file_lines& lines, const interval_type& range, atom_list_type& a) {
  a = atom_list_type{};
  cif_loop loop;
  if (!find_loop(lines, range, "_atom_site_fract_x", loop)) return;
  const std::size_t width = loop.keys.size();
  if (loop.values.size() % width != 0) return set_form_error(" Error reading atoms");
  const auto col = [&](const char* key) { return loop.column(key); };
  const std::int32_t label = col("_atom_site_label"), type = col("_atom_site_type_symbol"),
                     fx = col("_atom_site_fract_x"), fy = col("_atom_site_fract_y"), fz = col("_atom_site_fract_z"),
                     uiso = col("_atom_site_u_iso_or_equiv"), biso = col("_atom_site_b_iso_or_equiv"),
                     occ = col("_atom_site_occupancy");
  const auto rows = static_cast<std::int32_t>(loop.values.size() / width);
  allocate_atom_list(rows, a);
  for (std::int32_t r = 0; r < rows; ++r) {
    const auto field = [&](std::int32_t c) {
      return c < 0 ? std::string("?") : loop.values[static_cast<std::size_t>(r) * width + static_cast<std::size_t>(c)];
    };
    atom_type& atom = a.atom[static_cast<std::size_t>(r)];
    atom.lab = fixed_text::assigned(field(label >= 0 ? label : type), 20);
    for (int k = 0; k < 3; ++k)
      if (!cif_number(field(k == 0 ? fx : k == 1 ? fy : fz), atom.x[k], &atom.x_sigma[k]))
        return set_form_error(" Error reading atoms");
    float u = 0.0f, su = 0.0f;
    if (cif_number(field(uiso), u, &su)) {
      atom.biso = eight_pi2 * u;
      atom.biso_sigma = eight_pi2 * su;
    } else {
      cif_number(field(biso), atom.biso, &atom.biso_sigma);
    }
    cif_number(field(occ), atom.occ, &atom.occ_sigma);
    set_atom_symbol(atom, absent(field(type)) ? atom.lab : field(type));
  }

  cif_loop aniso;
  if (!find_loop(lines, range, "_atom_site_aniso_label", aniso) || aniso.values.size() % aniso.keys.size() != 0)
    return;
  static const char* const u_keys[] = {"_atom_site_aniso_u_11", "_atom_site_aniso_u_22", "_atom_site_aniso_u_33",
                                       "_atom_site_aniso_u_12", "_atom_site_aniso_u_13", "_atom_site_aniso_u_23"};
  const std::size_t w = aniso.keys.size();
  const auto lab = static_cast<std::size_t>(aniso.column("_atom_site_aniso_label"));
  for (std::size_t r = 0; r < aniso.values.size() / w; ++r) {
    const auto atom = std::find_if(a.atom.begin(), a.atom.end(),
                                   [&](const atom_type& t) { return t.lab == aniso.values[r * w + lab]; });
    if (atom == a.atom.end()) continue;
    bool all = true;
    for (int k = 0; k < 6 && all; ++k) {
      const std::int32_t c = aniso.column(u_keys[k]);
      all = c >= 0 && cif_number(aniso.values[r * w + static_cast<std::size_t>(c)], atom->u[k], &atom->u_sigma[k]);
    }
    if (!all) continue;
    atom->th_type = "aniso";
    atom->u_type = "u_ij";
  }
}

std::string read_cif_hm(const file_lines& lines, const interval_type& range) {
  std::string symbol = key_value(lines, range, "_symmetry_space_group_name_H-M");
  if (symbol.empty()) symbol = key_value(lines, range, "_space_group_name_H-M_alt");
  return symbol.empty() ? symbol : normalised_hm(symbol);
}

std::string read_cif_hall(const file_lines& lines, const interval_type& range) {
  std::string symbol = key_value(lines, range, "_symmetry_space_group_name_Hall");
  return symbol.empty() ? key_value(lines, range, "_space_group_name_Hall") : symbol;
}

std::vector<std::string> read_cif_symm(const file_lines& lines, const interval_type& range) {
  std::vector<std::string> ops;
  for (const char* key : {"_symmetry_equiv_pos_as_xyz", "_space_group_symop_operation_xyz"}) {
    cif_loop loop;
    if (!find_loop(lines, range, key, loop)) continue;
    // With one key a row is the whole line, so that an unquoted "x, y, z"
    // with blanks stays one operator.
    std::vector<std::string> texts = loop.rows;
    if (loop.keys.size() > 1) {
      texts.clear();
      const auto c = static_cast<std::size_t>(loop.column(key));
      for (std::size_t at = c; at < loop.values.size(); at += loop.keys.size()) texts.push_back(loop.values[at]);
    }
    for (std::string text : texts) {
      std::erase_if(text, [](char ch) { return ch == '\'' || ch == '"'; });
      text = std::string(fixed_text::adjusted(text));
      const auto start = text.find_first_not_of("0123456789");
      if (start != 0 && start != std::string::npos && text[start] == ' ') text = fixed_text::adjusted(text.substr(start));
      if (!text.empty() && ops.size() < max_operators) ops.push_back(text);
    }
    if (!ops.empty()) break;
  }
  return ops;
}

void readn_set_xtal_cif(const file_lines& lines, std::int32_t first, std::int32_t last, cell_metrics_type& cell,
                        space_group_type& spg, atom_list_type& a, const std::optional<std::string>& cartype,
                        std::optional<std::int32_t> phase) {
  init_err_form();
  clamp_to_file(lines, first, last);
  const std::vector<interval_type> blocks = data_blocks(lines, first, last);
  if (blocks.size() > 1 && !phase) return set_form_error(" => Too many phases in this file ");
  const interval_type range = chosen_phase(blocks, phase);

  read_cif_cell(lines, range, cell, cartype);
  if (err_form) return;
  read_cif_atom(lines, range, a);
  if (err_form) return;
  std::string symbol = read_cif_hm(lines, range);
  if (symbol.empty()) symbol = read_cif_hall(lines, range);
  if (symbol.empty()) {
    const std::vector<std::string> ops = read_cif_symm(lines, range);
    if (ops.empty()) return set_form_error(" => No Space Group/No Symmetry information in this file ");
    const auto n = static_cast<std::int32_t>(ops.size());
    const std::string mode = "GEN";
    set_spacegroup(" ", spg, &ops, &n, &mode);
  } else {
    set_spacegroup(symbol, spg);
  }
  complete_atoms(cell, spg, a);
}
