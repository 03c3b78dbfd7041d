#include "plot/isosurface_box.h"

#include <algorithm>
#include <cstddef>

#include "maps/section_extraction.h"
#include "plot/isosurface_view.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t box_dialog = 121;
constexpr std::int32_t point_fields[] = {1261, 1262, 1263};
constexpr std::int32_t radius_field = 1260;

std::array<float, 6> box{};
vec3f box_point{};  // in Angstrom

// The point and the radius from the dialog; false when a field holds no number.
bool read_box(vec3f& point, float& radius) {
  winfoerror(1);
  for (std::size_t i = 0; i < 3; ++i) wdialoggetreal(point_fields[i], point[i]);
  wdialoggetreal(radius_field, radius);
  return winfoerror(1) == 0;
}

}  // namespace

void isosurface_box() {
  vec3f point{};
  float radius = 0.0f;
  wdialogload(box_dialog);
  bool ok = false;
  do {
    wdialogshow(-1, -1, 0, 1);
    ok = winfodialog(4) == 1;
  } while (ok && !read_box(point, radius));
  wdialogunload();
  if (!ok) return;

  for (std::size_t i = 0; i < 3; ++i) {
    const float half = radius / qp::celda.cell[i];
    box[2 * i] = point[i] - half;
    box[2 * i + 1] = point[i] + half;
    if (qp::kbonds)
      for (const vec3f& atom : qp::at_bonds) {
        box[2 * i] = std::min(box[2 * i], atom[i]);
        box[2 * i + 1] = std::max(box[2 * i + 1], atom[i]);
      }
  }
  qp::klimits = 1;
  frac2orth(point[0], point[1], point[2], box_point[0], box_point[1], box_point[2]);
  refresh_isosurface(true);
}

std::optional<std::array<float, 6>> isosurface_box_limits() {
  if (!qp::klimits) return std::nullopt;
  return box;
}

void centre_on_box_point() {
  for (vec3f& p : qp::at_bonds_o)
    for (std::size_t c = 0; c < 3; ++c) p[c] += qp::baric[c] - box_point[c];
  qp::baric = box_point;
}
