#include "toolkit/plots/plot_key.h"

#include <algorithm>

#include "toolkit/core/trim.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_shapes.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_text.h"
#include "toolkit/plots/plot_geometry.h"
#include "toolkit/plots/plot_state.h"
#include "toolkit/plots/plot_style_save.h"

namespace {

// A sample is 2.35 characters wide, then half a character to the text:
// with the widest text w, w + 3.35 characters fill a row.
constexpr float sample_chars = 2.35f;
constexpr float row_chars = 3.35f;

float key_left() { return ipgstate.xpgkmn * igrstate.xunlen + igrstate.xmin; }

// Fits the character size: the width by the widest text, the height keeping
// the font's proportions while npset rows fit the key's height, shrinking
// the width by 1% a round for at most 30 rounds, then capped by the row.
void fit_key_font(float widest, float key_width, float key_height, int rows) {
  auto& g = igrstate;
  const float proportion = g.chsizy / g.chsizx;
  g.chsizx = key_width / (widest + row_chars);
  g.chsizy = g.chsizx * proportion;
  for (int round = 0; round < 30 && g.chsizy * static_cast<float>(rows) > key_height; ++round) {
    g.chsizx *= 0.99f;
    g.chsizy = g.chsizx * proportion;
  }
  g.chsizy = std::min(g.chsizy, key_height / static_cast<float>(rows));
}

}  // namespace

void ipgkeysingle(int iset, float y, std::string_view text) {
  const auto& s = ipgstate;
  if (iset < 1 || iset > max_plot_sets) return;
  const graphics_style_type saved = yypgsaverestore();
  const float cw = text_width_in_x_units();
  const float ch = text_height_in_y_units();
  const float left = key_left() + 0.25f * cw;
  const float right = key_left() + sample_chars * cw;
  igrcolourn(s.ipgcol[iset][0]);
  if (s.layfil == 1) {
    igrfillpattern(s.ipgstyl[iset][0], s.ipgstyl[iset][1], s.ipgstyl[iset][2]);
    igrrectangle(left, y - 0.35f * ch, right, y + 0.35f * ch);
  } else {
    igrlinetype(std::max(s.ipgstyl[iset][0], 0));
    igrjoin(left, y, right, y);
  }
  yypgsaverestore(saved);
  wgrtextorientation(0, 0);
  wgrtextstring(right + 0.5f * cw, y, text);
  yypgsaverestore(saved);
}

void ipgkeyall(std::span<const std::string> texts, std::string_view options,
               std::optional<std::string_view> heading) {
  const auto& s = ipgstate;
  const auto& g = igrstate;
  if (s.igtype != 8 || s.xpgkmn >= s.xpgkmx || s.ypgkmn >= s.ypgkmx) return;
  const int rows = std::min<int>(s.npset, static_cast<int>(texts.size()));
  if (rows < 1) return;
  const graphics_style_type saved = yypgsaverestore();
  float widest = 0;
  for (int i = 0; i < rows; ++i) widest = std::max(widest, wgrtextlength(texts[i]));
  const float height = (s.ypgkmx - s.ypgkmn) * g.yunlen;
  fit_key_font(widest, s.xpgkmx - s.xpgkmn, s.ypgkmx - s.ypgkmn, s.npset);
  // Rows stand ((npset + 1) / 2 - f) row heights from the middle of the key
  // area, f = 1 the top row: npset rows spread evenly over its height.
  const float centre = (s.ypgkmn + s.ypgkmx) / 2 * g.yunlen + g.ymin;
  const bool from_bottom = options.find('R') != std::string_view::npos || options.find('r') != std::string_view::npos;
  for (int i = 1; i <= rows; ++i) {
    const float f = static_cast<float>(from_bottom ? s.npset - i + 1 : i);
    const float y = ((static_cast<float>(s.npset + 1) * 0.5f - f) * height) / static_cast<float>(s.npset + 1) + centre;
    ipgkeysingle(i, y, yytrim(texts[i - 1]));
  }
  if (heading && !yytrim(*heading).empty()) {
    wgrtextorientation(0, 0);
    wgrtextstring(key_left(), s.ypgkmx * g.yunlen + g.ymin + text_height_in_y_units(), yytrim(*heading));
  }
  yypgsaverestore(saved);
}
