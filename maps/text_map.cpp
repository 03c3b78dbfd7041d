#include "maps/text_map.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "crystal/fixed_text.h"
#include "crystal/vant_io_formats.h"
#include "crystal/vant_maps_calculations.h"
#include "crystal/vant_string_utilities.h"
#include "maps/binary_map.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/whole_file.h"
#include "toolkit/dialogs/message_box.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t text_line = 80;
const char* const grid_message = "Opening the Ascii File in MAP format (Grid Dimensions)";
const char* const data_message = "Error reading the Ascii File in MAP format (data)";

void fail(const std::string& message) {
  error_message(message);
  qp::kerror = true;
}

bool next_line(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.size() > text_line) line.resize(text_line);
  return true;
}

// Title on line 2, then the grid from the first line that starts with
// "GRID" once left adjusted: three extents and six more integers.
bool read_head(std::istream& in) {
  std::string line;
  if (!next_line(in, line) || !next_line(in, line)) return false;
  qp::titulo = fixed_text::assigned(line, text_line);
  while (next_line(in, line)) {
    const std::string grid(fixed_text::adjusted(line));
    if (!grid.starts_with("GRID")) continue;
    std::array<float, 9> v{};
    std::array<std::int32_t, 9> iv{};
    std::int32_t n = 0;
    getnum(grid.substr(4), v, iv, n);
    if (n < 9) return false;
    qp::ngrid = {iv[0], iv[1], iv[2]};
    return true;
  }
  return false;
}

// The values in free form (blanks, commas and line ends between them) into
// map; false when there are fewer than it holds or one is no number.
bool read_values(std::istream& in, farray3<float>& map) {
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  const char* p = text.data();
  const char* const end = p + text.size();
  for (std::size_t k = 0; k < map.size(); ++k) {
    while (p < end && (*p == ' ' || *p == ',' || *p == '\n' || *p == '\r' || *p == '\t')) ++p;
    if (p < end && *p == '+') ++p;  // from_chars takes no leading plus
    const auto [next, error] = std::from_chars(p, end, map.data()[k]);
    if (error != std::errc{}) return false;
    p = next;
  }
  return true;
}

}  // namespace

void map2bin() {
  readn_set_xtal_structure_split(qp::filasc, qp::celda, qp::grp_espacial, qp::atomos, "VTL");
  if (err_form) return fail(err_form_mess);
  // A group that could not be built would go into the file without operators.
  if (err_symm) return fail(err_symm_mess);
  std::ifstream in(qp::filasc, std::ios::binary);
  if (!in) return fail("Opening the Ascii File");
  const bool head = read_head(in);
  qp::ntype = 1;
  qp::f000 = 0.0f;
  qp::f000s = 1.0f;
  if (!head || qp::ngrid[0] <= 0 || qp::ngrid[1] <= 0 || qp::ngrid[2] <= 0) return fail(grid_message);
  std::string line;
  if (!next_line(in, line) || !line.starts_with("DENSITY_MAP")) return fail("Keyword DENSITY_MAP not provided!");

  // Each value takes at least two characters of the file: a larger grid is
  // refused before anything is sized from it.
  const auto here = in.tellg();
  in.seekg(0, std::ios::end);
  const auto left = static_cast<std::int64_t>(in.tellg() - here) / 2 + 1;
  in.seekg(here);
  std::int64_t points = 1;
  for (std::int32_t e : qp::ngrid)
    if ((points *= e) > left) return fail(data_message);
  farray3<float> map;
  map.allocate(qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]);
  if (!read_values(in, map)) return fail(data_message);

  statistic_map(map, qp::denmax, qp::denmin, qp::denave, qp::densigma);
  qp::xlim = {0.0f, 1.0f};
  qp::ylim = {0.0f, 1.0f};
  qp::zlim = {0.0f, 1.0f};
  qp::xinc = 1.0f / static_cast<float>(qp::ngrid[0]);
  qp::yinc = 1.0f / static_cast<float>(qp::ngrid[1]);
  qp::zinc = 1.0f / static_cast<float>(qp::ngrid[2]);
  qp::npeaks = 0;

  std::ostringstream out(std::ios::binary);
  write_filebin_head(out);
  whole_file file;
  std::string why;
  if (!whole_file_open(file, qp::filbin, why)) return fail("Opening the Binary File");
  whole_file_write(file, out.str());
  whole_file_write(file, {reinterpret_cast<const char*>(map.data()), map.size() * sizeof(float)});
  if (!whole_file_commit(file, why)) fail("Opening the Binary File");
}
