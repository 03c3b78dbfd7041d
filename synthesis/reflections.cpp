#include "synthesis/reflections.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace {

constexpr const char* slot_names[column_slots] = {"h", "k", "l", "fo", "fc", "si", "ph", "a", "b"};
// Columns when the control file has no Form line: "h k l fo fc phase".
constexpr std::array<std::int32_t, 9> default_columns = {1, 2, 3, 4, 5, 0, 6, 0, 0};

// The lines of a text one after the other, without copies, counted from 1.
struct line_reader {
  std::string_view text;
  std::size_t at = 0;
  std::size_t number = 0;
  bool next(std::string_view& line) {
    if (at >= text.size()) return false;
    const std::size_t end = std::min(text.find('\n', at), text.size());
    line = text.substr(at, end - at);
    at = end + 1;
    ++number;
    return true;
  }
};

void fail(std::string message) {
  err_synthesis = true;
  err_synthesis_mess = std::move(message);
}

std::string line_place(const std::string& path, std::size_t line) {
  return path + ", line " + std::to_string(line) + ": ";
}

// The blank separated words of a line up to its comment ("!" or "#"), into
// a list kept from line to line.
const std::vector<std::string_view>& words_of(std::string_view line) {
  static std::vector<std::string_view> words;
  line = line.substr(0, line.find_first_of("!#"));
  words.clear();
  std::size_t at = 0;
  while (true) {
    const std::size_t start = line.find_first_not_of(" \t\r\v\f", at);
    if (start == std::string_view::npos) break;
    at = std::min(line.find_first_of(" \t\r\v\f", start), line.size());
    words.push_back(line.substr(start, at - start));
  }
  return words;
}

std::string lower(std::string_view word) {
  std::string s(word);
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return s;
}

// A finite number taking the whole word; a leading "+" is allowed.
bool number_of(std::string_view word, double& value) {
  if (!word.empty() && word[0] == '+') word.remove_prefix(1);
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  return error == std::errc{} && end == word.data() + word.size() && std::isfinite(value);
}

// Stores one value of a reflection; false, with the message, when the word
// is no number or no index.
bool take(reflection_type& r, column_slot slot, std::string_view word, const std::string& path, std::size_t line) {
  double v = 0.0;
  if (!number_of(word, v)) {
    fail(line_place(path, line) + "the " + slot_names[slot] + " column holds '" + std::string(word) +
         "', not a number");
    return false;
  }
  if (slot <= col_l) {
    if (v != std::round(v) || std::fabs(v) > max_reflection_index) {
      fail(line_place(path, line) + "the index " + slot_names[slot] + " is '" + std::string(word) +
           "', not a whole number up to 4096");
      return false;
    }
    r.hkl[slot] = static_cast<std::int32_t>(v);
  }
  r.value[slot] = v;
  return true;
}

// The columns to read: the indices, what the synthesis needs, and the sigma
// when the file has one. False, with a message, when one needed is not there.
bool columns_to_read(const std::array<std::int32_t, 9>& columns, std::int32_t ntype, std::vector<column_slot>& slots) {
  slots = {col_h, col_k, col_l};
  for (column_slot s : needed_columns(ntype)) slots.push_back(s);
  for (column_slot s : slots)
    if (columns[s] < 1) {
      fail(std::string("The Form line names no column ") + slot_names[s] + ", which this kind of synthesis needs");
      return false;
    }
  if (columns[col_si] > 0) slots.push_back(col_si);
  return true;
}

void read_plain(line_reader& in, const std::string& path, std::array<std::int32_t, 9> columns, std::int32_t ntype,
                reflection_set_type& set) {
  if (std::all_of(columns.begin(), columns.end(), [](std::int32_t c) { return c == 0; })) columns = default_columns;
  std::vector<column_slot> slots;
  if (!columns_to_read(columns, ntype, slots)) return;
  std::size_t widest = 0;
  for (column_slot s : slots) {
    widest = std::max(widest, static_cast<std::size_t>(columns[s]));
    set.layout += std::string(set.layout.empty() ? "" : " ") + slot_names[s] + "(" + std::to_string(columns[s]) + ")";
  }
  set.has_sigma = columns[col_si] > 0;
  set.list.reserve(static_cast<std::size_t>(std::count(in.text.begin(), in.text.end(), '\n')) + 1);
  for (std::string_view line; in.next(line);) {
    const std::size_t number = in.number;
    const auto& words = words_of(line);
    if (words.empty()) continue;
    if (words.size() < widest) {
      fail(line_place(path, number) + std::to_string(words.size()) + " columns, where " + set.layout + " needs " +
           std::to_string(widest));
      return;
    }
    reflection_type r;
    for (column_slot s : slots)
      if (!take(r, s, words[static_cast<std::size_t>(columns[s] - 1)], path, number)) return;
    set.list.push_back(r);
  }
}

// The items of a CIF reflection loop that are read, by their tag.
struct cif_item {
  const char* tag;
  column_slot slot;
  bool squared;  // Fo^2 or sigma(Fo^2)
};
constexpr cif_item cif_items[] = {
    {"_refln_index_h", col_h, false},       {"_refln_index_k", col_k, false},
    {"_refln_index_l", col_l, false},       {"_refln_f_squared_meas", col_fo, true},
    {"_refln_f_squared_sigma", col_si, true}, {"_refln_f_meas", col_fo, false},
    {"_refln_f_sigma", col_si, false},      {"_refln_f_calc", col_fc, false},
    {"_refln_phase_calc", col_ph, false},   {"_refln_a_calc", col_a, false},
    {"_refln_b_calc", col_b, false},
};

const cif_item* item_of(const std::string& tag) {
  for (const cif_item& item : cif_items)
    if (tag == item.tag) return &item;
  return nullptr;
}

// A tag, a loop or a data block: what ends a loop's rows, and what a CIF
// file starts with.
bool is_cif_keyword(const std::string& first_word) {
  return first_word[0] == '_' || first_word == "loop_" || first_word.rfind("data_", 0) == 0;
}

// Fo from Fo^2 (0 where negative), and its sigma: sigma(Fo^2) / (2 Fo), or
// the root of sigma(Fo^2) for a reflection measured at or below zero.
void from_squares(reflection_type& r, bool squared_fo, bool squared_sigma) {
  if (!squared_fo) return;
  const double f2 = r.value[col_fo];
  r.value[col_fo] = f2 > 0.0 ? std::sqrt(f2) : 0.0;
  if (squared_sigma) {
    const double s2 = std::max(r.value[col_si], 0.0);
    r.value[col_si] = f2 > 0.0 ? s2 / (2.0 * r.value[col_fo]) : std::sqrt(s2);
  }
}

// The loop whose items include _refln_index_h. Its rows are read as a stream
// of values, so a row may run over several lines.
void read_cif(line_reader& in, const std::string& path, std::int32_t ntype, reflection_set_type& set) {
  std::vector<std::string> tags;
  std::string_view line;
  bool in_loop_head = false;
  while (in.next(line)) {
    const auto& words = words_of(line);
    if (words.empty()) continue;
    const std::string first = lower(words[0]);
    if (first == "loop_") {
      tags.clear();
      in_loop_head = true;
    } else if (in_loop_head && first[0] == '_') {
      tags.push_back(first);
    } else if (in_loop_head && std::find(tags.begin(), tags.end(), "_refln_index_h") != tags.end()) {
      break;
    } else {
      in_loop_head = false;
    }
  }
  if (tags.empty() || std::find(tags.begin(), tags.end(), "_refln_index_h") == tags.end()) {
    fail(path + ": a CIF file without a reflection loop (_refln_index_h)");
    return;
  }
  std::array<std::int32_t, 9> columns{};
  bool squared_fo = false, squared_sigma = false;
  for (std::size_t i = 0; i < tags.size(); ++i)
    if (const cif_item* item = item_of(tags[i]); item && columns[item->slot] == 0) {
      columns[item->slot] = static_cast<std::int32_t>(i + 1);
      squared_fo |= item->squared && item->slot == col_fo;
      squared_sigma |= item->squared && item->slot == col_si;
    }
  std::vector<column_slot> slots;
  if (!columns_to_read(columns, ntype, slots)) {
    err_synthesis_mess = path + ": the reflection loop lacks an item this synthesis needs (" + err_synthesis_mess + ")";
    return;
  }
  set.layout = "CIF reflection loop of " + std::to_string(tags.size()) + " items";
  set.has_sigma = columns[col_si] > 0;
  std::vector<std::string> row;
  std::size_t row_line = in.number;
  do {
    const auto& words = words_of(line);
    if (words.empty()) continue;
    if (is_cif_keyword(lower(words[0]))) break;
    for (std::string_view w : words) {
      if (row.empty()) row_line = in.number;
      row.emplace_back(w);
      if (row.size() < tags.size()) continue;
      reflection_type r;
      for (column_slot s : slots)
        if (!take(r, s, row[static_cast<std::size_t>(columns[s] - 1)], path, row_line)) return;
      from_squares(r, squared_fo, squared_sigma);
      set.list.push_back(r);
      row.clear();
    }
  } while (in.next(line));
  if (!row.empty()) fail(line_place(path, row_line) + "the last row of the reflection loop is incomplete");
}

// A CIF file is told by its first word: a data block, a loop or a tag,
// where a list of reflections starts with a number.
bool is_cif(std::string_view text) {
  line_reader in{text};
  for (std::string_view line; in.next(line);)
    if (const auto& words = words_of(line); !words.empty()) return is_cif_keyword(lower(words[0]));
  return false;
}

}  // namespace

std::vector<column_slot> needed_columns(std::int32_t ntype) {
  switch (ntype) {
    case 1: return {col_fo, col_ph};
    case 2: return {col_fc, col_ph};
    case 3: return {col_fo, col_fc, col_ph};
    case 4: return {col_fo};
    case 5: return {col_fc};
    default: return {col_a, col_b};
  }
}

void read_reflections(const std::string& path, const std::array<std::int32_t, 9>& lugar, std::int32_t ntype,
                      reflection_set_type& set) {
  err_synthesis = false;
  err_synthesis_mess.clear();
  set = {};
  std::error_code error;
  std::ifstream file(path, std::ios::binary);
  if (!std::filesystem::is_regular_file(path, error) || !file) {
    fail("Cannot read the reflection file " + path);
    return;
  }
  const auto size = static_cast<std::size_t>(std::filesystem::file_size(path, error));
  std::vector<char, map_allocator<char>> bytes(size);
  if (error || !file.read(bytes.data(), static_cast<std::streamsize>(size))) {
    fail("Cannot read the reflection file " + path);
    return;
  }
  const std::string_view text(bytes.data(), bytes.size());
  line_reader in{text};
  if (is_cif(text))
    read_cif(in, path, ntype, set);
  else
    read_plain(in, path, lugar, ntype, set);
}
