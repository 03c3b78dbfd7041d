#include "toolkit/graphics/graphics_text.h"

#include <string>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/core/number_format.h"

void wgrtextfont(std::optional<int> family, std::optional<int> style, std::optional<float> width,
                 std::optional<float> height) {
  if (family) igrstate.ifamily = *family;
  if (style) igrstate.ifontstyle = *style;
  if (width && *width > 0) igrstate.chsizx = *width;
  if (height && *height > 0) igrstate.chsizy = *height;
}

void wgrtextorientation(int alignment, std::optional<float> angle) {
  if (alignment >= 0 && alignment <= 2) igrstate.ichali = alignment;
  if (angle) igrstate.chrotar = *angle;
}

canvas_text_style current_text_style() {
  const auto& s = igrstate;
  canvas_text_style style;
  style.colour = current_colour();
  style.family = s.ifamily;
  style.style = s.ifontstyle;
  style.char_width = s.chsizx * (s.xgamax - s.xgamin) * static_cast<float>(s.nxgraf);
  style.char_height = s.chsizy * (s.ygamax - s.ygamin) * static_cast<float>(s.nygraf);
  style.alignment = s.ichali;
  style.angle = s.chrotar;
  return style;
}

void wgrtextstring(float x, float y, std::string_view text) {
  canvas* c = current_canvas();
  const std::string shown = yytrim(text);
  if (!c || shown.empty()) return;
  c->text(units_to_canvas(x, y), shown, current_text_style());
}

void wgrtextreal(float x, float y, float value, std::string_view format) {
  std::string text;
  if (!format_real(value, format, text)) {
    yyerror(1015, "WGrTextReal");
    return;
  }
  // The field's leading blanks are padding, not part of the number.
  const auto first = text.find_first_not_of(' ');
  wgrtextstring(x, y, first == std::string::npos ? std::string_view{} : std::string_view(text).substr(first));
}

float wgrtextlength(std::string_view text) {
  const std::string shown = yytrim(text);
  const canvas* c = current_canvas();
  const canvas_text_style style = current_text_style();
  if (!c || style.char_width <= 0) return static_cast<float>(shown.size());
  return c->text_width(shown, style) / style.char_width;
}
