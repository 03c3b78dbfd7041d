// Reading the control file. Each line is left adjusted, skipped when blank or
// a "!" comment, and lower-cased as a whole (titles, labels and file names
// included); its first four characters are the directive. Sub-keywords are
// the first four characters behind the directive word, so "file fou" matches
// "fou " and a word "four" does not.
#include <algorithm>
#include <array>
#include <istream>
#include <string>

#include "control/control_data.h"
#include "control/control_file.h"
#include "crystal/fixed_text.h"
#include "crystal/vant_scattering_chemical_tables.h"
#include "crystal/vant_string_utilities.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t line_length = 120;
constexpr std::size_t title_length = 80;
constexpr std::size_t file_name_length = 150;
constexpr std::int32_t max_atoms = 800;

// The atoms of one read, in the order of the file; moved into atomos at the
// end. A fixed work area, set back to fresh records at the start of a read.
std::array<atom_type, max_atoms> atom_table;
std::int32_t atom_count = 0;
// Lines taken from the file so far, to name the line of a failed directive.
std::int32_t line_number = 0;

// The numbers of a text. Room for more than any directive takes, so that a
// count one too high is seen as such.
struct numbers_type {
  std::array<float, 20> real{};
  std::array<std::int32_t, 20> integer{};
  std::int32_t count = 0;
};

numbers_type numbers_of(std::string_view text) {
  numbers_type n;
  getnum(text, n.real, n.integer, n.count);
  return n;
}

// The first four characters of a text, blank padded: a word of three letters
// keeps a blank as its fourth character.
std::string key_of(std::string_view text) { return fixed_text::padded(text, 4); }

// The word in front of the text is removed; the text behind it is left adjusted.
void cut_word(std::string& text) { cutst(text); }

// One line of the file, cut at 120 characters. A line ending of the other
// platform ("\r\n") is dropped with the line end.
bool read_line(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  ++line_number;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.size() > line_length) line.resize(line_length);
  return true;
}

void clear_control_data() {
  err_control = control_failure::none;
  err_control_mess.clear();
  line_number = 0;
  qp::celda.cell = {};
  qp::celda.ang = {};
  qp::f000 = 0.0f;
  qp::f000s = 1.0f;
  qp::spgr.clear();
  qp::atomos.natoms = 0;
  qp::ntype = 1;
  qp::smin = qp::smax = qp::sigm = 0.0f;
  qp::ngrid = {};
  qp::lugar = {};
  qp::filbin.clear();
  qp::filfou.clear();
  qp::filatm.clear();
  qp::npeaks = 0;
  for (std::int32_t* j : {&qp::jtitle, &qp::jcell, &qp::jspace, &qp::jgrid, &qp::jatoms, &qp::jfourier, &qp::jtrans,
                          &qp::jreflim, &qp::jpeaks, &qp::jfiles, &qp::jbin, &qp::jform, &qp::jlist})
    *j = 0;
  qp::dist1 = qp::dist2 = qp::dist3 = 0.0f;
  atom_table.fill(atom_type{});
  atom_count = 0;
}

// Each directive reads the rest of its line (behind the directive word, left
// adjusted); false means its arguments are wrong and the reading stops.

bool read_title(std::string& rest, std::istream&) {
  qp::jtitle = 1;
  qp::titulo = rest.empty() ? std::string(" !****  Fourier Maps Calculations Program ****!")
                            : fixed_text::assigned(rest, title_length);
  return true;
}

// A cell with another count than six numbers is left as it is, without error.
bool read_cell(std::string& rest, std::istream&) {
  qp::jcell = 1;
  const numbers_type n = numbers_of(rest);
  if (n.count == 6) {
    qp::celda.cell = {n.real[0], n.real[1], n.real[2]};
    qp::celda.ang = {n.real[3], n.real[4], n.real[5]};
  }
  return true;
}

bool read_f000(std::string& rest, std::istream&) {
  const numbers_type n = numbers_of(rest);
  if (n.count <= 2) qp::f000 = n.real[0];
  if (n.count == 2) qp::f000s = n.real[1];
  return true;
}

bool read_space_group(std::string& rest, std::istream&) {
  qp::jspace = 1;
  qp::spgr = fixed_text::assigned(u_case(rest.substr(0, 12)), 20);
  return true;
}

// A label of four characters that is not a number, then x, y, z and
// optionally the occupation. Atoms beyond the table are checked and dropped.
bool read_atom(std::string& rest, std::istream&) {
  qp::jatoms = 1;
  std::string label;
  cutst(rest, nullptr, &label, nullptr, 4);
  if (numbers_of(label).count > 0) return false;
  const numbers_type n = numbers_of(rest);
  if (n.count < 3) return false;
  if (atom_count >= max_atoms) return true;
  atom_type& atom = atom_table[static_cast<std::size_t>(atom_count++)];
  atom.lab = label;
  get_chemsymb(label, atom.chem_symb);
  atom.x = {n.real[0], n.real[1], n.real[2]};
  if (n.count == 3) atom.occ = 0.0f;
  if (n.count == 4) atom.occ = n.real[3];
  return true;
}

// An unknown kind leaves ntype as it is.
bool read_fourier(std::string& rest, std::istream&) {
  qp::jfourier = 1;
  const std::string kind = key_of(rest);
  static const struct {
    const char* key;
    std::int32_t ntype;
  } kinds[] = {{"fobs", 1}, {"fcal", 2}, {"diff", 3}, {"aabb", 6}, {"user", 6}};
  for (const auto& k : kinds)
    if (kind == k.key) qp::ntype = k.ntype;
  if (kind == "patt") {
    cut_word(rest);
    const std::string square = key_of(rest);
    if (square == "fosq") qp::ntype = 4;
    if (square == "fcsq") qp::ntype = 5;
  }
  return true;
}

// Three numbers from the next line of the file, read as it stands.
bool read_matrix_row(std::istream& in, std::array<float, 3>& row) {
  std::string line;
  if (!read_line(in, line)) return false;
  const numbers_type n = numbers_of(fixed_text::adjusted(line));
  if (n.count != 3) return false;
  row = {n.real[0], n.real[1], n.real[2]};
  return true;
}

// Nine numbers on the line; or three here and three on each of the next two
// lines; or three on each of the next three lines. Any other count here
// changes nothing. A following line without its three numbers, or missing,
// fails.
bool read_transformation(std::string& rest, std::istream& in) {
  qp::jtrans = 1;
  if (key_of(rest) != "matr") return true;
  cut_word(rest);
  const numbers_type n = numbers_of(rest);
  if (n.count == 9) {
    for (std::size_t i = 0; i < 3; ++i) qp::trans[i] = {n.real[3 * i], n.real[3 * i + 1], n.real[3 * i + 2]};
    return true;
  }
  if (n.count != 3 && n.count != 0) return true;
  std::size_t row = 0;
  if (n.count == 3) qp::trans[row++] = {n.real[0], n.real[1], n.real[2]};
  for (; row < 3; ++row)
    if (!read_matrix_row(in, qp::trans[row])) return false;
  return true;
}

bool read_reflection_limits(std::string& rest, std::istream&) {
  qp::jreflim = 1;
  const std::string limit = key_of(rest);
  cut_word(rest);
  const numbers_type n = numbers_of(rest);
  if (limit == "sran") {
    if (n.count != 2) return false;
    qp::smin = std::min(n.real[0], n.real[1]);
    qp::smax = std::max(n.real[0], n.real[1]);
    return true;
  }
  static const struct {
    const char* key;
    float* value;
  } singles[] = {{"smax", &qp::smax}, {"smin", &qp::smin}, {"sigm", &qp::sigm}};
  for (const auto& s : singles)
    if (limit == s.key) {
      if (n.count != 1) return false;
      *s.value = n.real[0];
    }
  return true;
}

bool read_grid(std::string& rest, std::istream&) {
  qp::jgrid = 1;
  const numbers_type n = numbers_of(rest);
  if (n.count != 3) return false;
  qp::ngrid = {n.integer[0], n.integer[1], n.integer[2]};
  return true;
}

// Word i of the line names column i of the reflection file; an unknown word
// still takes a column.
bool read_form(std::string& rest, std::istream&) {
  qp::jform = 1;
  std::array<std::string, 15> words;
  std::int32_t count = 0;
  getword(rest, words, count, 5);
  if (count == 0) return false;
  static const char* const names[9] = {"h ", "k ", "l ", "fo", "fc", "si", "ph", "a ", "b "};
  qp::lugar = {};
  for (std::int32_t i = 0; i < count; ++i) {
    const std::string letters = fixed_text::padded(words[static_cast<std::size_t>(i)], 2);
    const auto slot = std::find_if(std::begin(names), std::end(names), [&](const char* n) { return letters == n; });
    if (slot != std::end(names)) qp::lugar[static_cast<std::size_t>(slot - std::begin(names))] = i + 1;
  }
  return true;
}

// The names are kept as written (lower-cased with the line), unchecked.
bool read_file_name(std::string& rest, std::istream&) {
  const std::string kind = key_of(rest);
  cut_word(rest);
  const std::string name = fixed_text::assigned(rest, file_name_length);
  if (kind == "bin ") {
    qp::jbin = 1;
    qp::filbin = name.empty() || name.find('.') != std::string::npos ? name : name + ".bin";
  } else if (kind == "fou ") {
    qp::jfiles = 1;
    qp::filfou = name;
  } else if (kind == "atom") {
    qp::jfiles = qp::jfiles == 1 ? 3 : 2;
    qp::filatm = name;
  }
  return true;
}

bool read_peak_count(std::string& rest, std::istream&) {
  qp::jpeaks = 1;
  const numbers_type n = numbers_of(rest);
  if (n.count != 1) return false;
  qp::npeaks = n.integer[0];
  return true;
}

// jlist: 1 atoms listed, 2 distances, 3 both.
bool read_list(std::string& rest, std::istream&) {
  const std::string what = key_of(rest);
  if (what == "atom") qp::jlist = qp::jlist < 2 ? 1 : 3;
  if (what != "dist") return true;
  if (qp::jlist <= 3) qp::jlist = qp::jlist % 2 == 0 ? 2 : 3;
  cut_word(rest);
  const numbers_type n = numbers_of(rest);
  if (n.count == 0) return true;
  if (n.count != 2 && n.count != 3) return false;
  qp::dist1 = std::min(n.real[0], n.real[1]);
  qp::dist2 = std::max(n.real[0], n.real[1]);
  qp::dist3 = n.count == 3 ? n.real[2] : qp::dist2;
  return true;
}

const struct {
  const char* key;
  bool (*read)(std::string& rest, std::istream& in);
} directives[] = {
    {"titl", read_title}, {"cell", read_cell},   {"f000", read_f000},        {"spgr", read_space_group},
    {"atom", read_atom},  {"four", read_fourier}, {"tran", read_transformation}, {"refl", read_reflection_limits},
    {"grid", read_grid},  {"form", read_form},   {"file", read_file_name},   {"scan", read_peak_count},
    {"list", read_list},
};

void keep_atoms() {
  allocate_atom_list(atom_count, qp::atomos);
  std::copy_n(atom_table.begin(), atom_count, qp::atomos.atom.begin());
}

}  // namespace

void read_control_file(std::istream& in) {
  clear_control_data();
  std::string line;
  while (read_line(in, line)) {
    line = fixed_text::adjusted(line);
    if (line.empty() || line[0] == '!') continue;
    lcase(line);
    const std::string key = key_of(line);
    if (key == "end ") break;
    const auto directive =
        std::find_if(std::begin(directives), std::end(directives), [&](const auto& d) { return key == d.key; });
    if (directive == std::end(directives)) continue;
    const std::string as_read = line;
    const std::int32_t number = line_number;
    cut_word(line);
    if (!directive->read(line, in)) {
      err_control = control_failure::directive;
      err_control_mess = "Wrong arguments on line " + std::to_string(number) + " of the control file: " + as_read;
      break;
    }
  }
  if (in.bad()) {
    err_control = control_failure::input;
    err_control_mess = "Reading instructions on Input File";
  }
  keep_atoms();
}
