#include "plot/plane_dialog.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "crystal/fixed_text.h"
#include "crystal/vant_string_utilities.h"
#include "crystal/vector_types.h"
#include "maps/oriented_section.h"
#include "maps/section_extraction.h"
#include "plot/menu_plot.h"
#include "state/quelmora_parametros.h"
#include "toolkit/core/werror.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/core/number_format.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t point_fields[] = {1095, 1096, 1097};
constexpr std::int32_t half_size_field = 1059;
constexpr float tolerance = 0.0001f;
// The three bytes between "aren" and "t", and "don" and "t", of the two messages.
const std::string apostrophe = "\xEF\xBF\xBD";

// A point as typed: three numbers, or the origin for anything else.
vec3f typed_point(const std::string& line) {
  std::array<float, 4> value{};
  std::array<std::int32_t, 4> whole{};
  std::int32_t count = 0;
  getnum(line, value, whole, count);
  if (count != 3) return {0.0f, 0.0f, 0.0f};
  return {value[0], value[1], value[2]};
}

// The point written back as the next dialog shows it.
std::string point_text(const vec3f& p) {
  std::string text;
  for (std::size_t k = 0; k < 3; ++k) {
    if (k > 0) text += "   ";
    text += fixed_text::adjusted(format_fixed(p[k], 12, 4));
  }
  return fixed_text::assigned(text, 40);
}

// Shows the dialog until it is cancelled or closed with a readable size.
bool ask_points(std::array<vec3f, 3>& frac, float& half_size) {
  wdialogload(101);
  for (std::size_t k = 0; k < 3; ++k) wdialogputstring(point_fields[k], qp::plane_points[k]);
  for (;;) {
    wdialogshow(-1, -1, 0, 1);
    if (winfodialog(4) != 1) {
      wdialogunload();
      return false;
    }
    winfoerror(1);
    wdialoggetreal(half_size_field, half_size);
    if (winfoerror(1) == 0) break;
  }
  for (std::size_t k = 0; k < 3; ++k) {
    std::string line;
    wdialoggetstring(point_fields[k], line);
    frac[k] = typed_point(line);
  }
  wdialogunload();
  return true;
}

vec3f to_orth(const vec3f& f) {
  vec3f o{};
  frac2orth(f[0], f[1], f[2], o[0], o[1], o[2]);
  return o;
}

vec3f cross(const vec3f& a, const vec3f& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

float degrees(double radians) { return static_cast<float>(radians * 180.0 / 3.14159265358979323846); }

// The middle of the extremes of one coordinate of the three points, less and
// plus the half size.
std::array<float, 2> window_along(const std::array<vec3f, 3>& p, std::size_t axis, float half_size) {
  const auto [low, high] = std::minmax({p[0][axis], p[1][axis], p[2][axis]});
  const float middle = (low + high) / 2.0f;
  return {middle - half_size, middle + half_size};
}

// Sets the plane through the three points; false, with the message, when
// they give none. The two messages read against their cases, as users know them.
bool set_plane(const std::array<vec3f, 3>& frac, float half_size) {
  const vec3f p1 = to_orth(frac[0]), p2 = to_orth(frac[1]), p3 = to_orth(frac[2]);
  const vec3f normal = cross({p2[0] - p1[0], p2[1] - p1[1], p2[2] - p1[2]},
                             {p3[0] - p1[0], p3[1] - p1[1], p3[2] - p1[2]});
  qp::plane_a = normal[0];
  qp::plane_b = normal[1];
  qp::plane_c = normal[2];
  if (std::fabs(qp::plane_a) <= tolerance && std::fabs(qp::plane_b) <= tolerance &&
      std::fabs(qp::plane_c) >= tolerance) {
    info_message("The points aren" + apostrophe + "t defining a plane");
    return false;
  }
  const float n = std::sqrt(qp::plane_a * qp::plane_a + qp::plane_b * qp::plane_b + qp::plane_c * qp::plane_c);
  if (n <= tolerance) {
    info_message("For these points you don" + apostrophe + "t need define a plane");
    return false;
  }
  qp::phi = std::fmod(degrees(std::atan2(qp::plane_b, qp::plane_a)) + 360.0f, 360.0f);
  qp::theta = std::fmod(degrees(std::acos(qp::plane_c / n)) + 360.0f, 360.0f);
  std::array<vec3f, 3> turned{};
  rotad(turned[0], p1);
  rotad(turned[1], p2);
  rotad(turned[2], p3);
  const auto x = window_along(turned, 0, half_size);
  const auto y = window_along(turned, 1, half_size);
  qp::xl1 = x[0];
  qp::xl2 = x[1];
  qp::yl1 = y[0];
  qp::yl2 = y[1];
  qp::zt = turned[2][2];
  qp::plane_def = true;
  return true;
}

}  // namespace

void proc_plane() {
  qp::theta = 0.0f;
  qp::phi = 0.0f;
  std::array<vec3f, 3> frac{};
  float half_size = 0.0f;
  if (!ask_points(frac, half_size)) return;
  if (!set_plane(frac, half_size)) return;
  for (std::size_t k = 0; k < 3; ++k) qp::plane_points[k] = point_text(frac[k]);
  redraw_plot();
}
