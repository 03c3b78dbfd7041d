#include "maps/molecular_bonds.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <limits>
#include <string>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"
#include "maps/map_geometry.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/message_box.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::size_t line_length = 150;
constexpr std::int32_t max_links = 10;
constexpr std::size_t max_values = 25;

void clear_bonds(std::int32_t n) {
  const auto size = static_cast<std::size_t>(std::max(n, 0));
  qp::nbonds = n;
  qp::bonds.assign(size, {});
  qp::at_bonds.assign(size, {});
  qp::at_bonds_o.assign(size, {});
}

std::int32_t usable_atoms() {
  return static_cast<std::int32_t>(std::min<std::size_t>(static_cast<std::size_t>(std::max(qp::atomos.natoms, 0)),
                                                         qp::atomos.atom.size()));
}

// One data line into record r (counted from 1); false when the line names
// something that does not exist.
bool read_record(const std::string& line, std::int32_t r) {
  std::array<float, max_values> reals{};
  std::array<std::int32_t, max_values> v{};
  std::int32_t count = 0;
  getnum(line, reals, v, count);
  if (r > qp::nbonds || count < 3) return false;
  const std::int32_t atom = v[0], op = v[1], links = v[2];
  if (atom < 1 || atom > usable_atoms()) return false;
  if (op < 1 || op > static_cast<std::int32_t>(qp::grp_espacial.sym_op.size())) return false;
  if (links < 0 || links > max_links || count < 3 + links) return false;

  auto& record = qp::bonds[static_cast<std::size_t>(r - 1)];
  record[0] = atom;
  record[1] = links;
  for (std::int32_t k = 0; k < links; ++k) {
    const std::int32_t target = v[static_cast<std::size_t>(3 + k)];
    if (target < 1 || target > qp::nbonds) return false;
    record[static_cast<std::size_t>(2 + k)] = target;
  }
  qp::at_bonds[static_cast<std::size_t>(r - 1)] =
      applyso(qp::grp_espacial.sym_op[static_cast<std::size_t>(op - 1)],
              qp::atomos.atom[static_cast<std::size_t>(atom - 1)].x);
  return true;
}

}  // namespace

void calculate_bonds() {
  const std::string name = qp::codefil + ".enl";
  std::int32_t lines = 0;
  number_lines(name, lines);
  if (lines < 2) return;

  clear_bonds(lines - 1);
  std::ifstream in(name);
  std::string line;
  std::int32_t r = 0;
  for (std::int32_t n = 1; std::getline(in, line); ++n) {
    const std::string text(fixed_text::adjusted(line.substr(0, line_length)));
    if (!text.empty() && text[0] == '!') continue;
    if (!read_record(text, ++r)) {
      clear_bonds(0);
      error_message("Connection file " + name + ", line " + std::to_string(n) +
                    ": not a valid connection record");
      return;
    }
  }
  init_molecular_coord();
  qp::kbonds = true;
}

void init_molecular_coord() {
  qp::baric = {};
  for (std::size_t k = 0; k < qp::at_bonds.size(); ++k) {
    qp::at_bonds_o[k] = map_geometry::times(qp::celda.cr_orth, qp::at_bonds[k]);
    for (std::size_t c = 0; c < 3; ++c) qp::baric[c] += qp::at_bonds_o[k][c];
  }
  if (qp::nbonds > 0)
    for (float& c : qp::baric) c /= static_cast<float>(qp::nbonds);

  constexpr float huge = std::numeric_limits<float>::max();
  float xmin = huge, xmax = -huge, ymin = huge, ymax = -huge;
  for (vec3f& p : qp::at_bonds_o) {
    for (std::size_t c = 0; c < 3; ++c) p[c] -= qp::baric[c];
    xmin = std::min(xmin, p[0]);
    xmax = std::max(xmax, p[0]);
    ymin = std::min(ymin, p[1]);
    ymax = std::max(ymax, p[1]);
  }
  const float wx = 0.2f * (xmax - xmin), wy = 0.2f * (ymax - ymin);
  qp::u_max = xmax + wx;
  qp::u_min = xmin - wx;
  qp::v_max = ymax + wy;
  qp::v_min = ymin - wy;
}
