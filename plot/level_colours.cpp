// The colour set dialog: two built-in sets and one of the user's own. A
// level always draws with its own palette slot, so choosing a set only
// refills the slots.
#include <cstddef>

#include "plot/plot_levels.h"
#include "state/quelmora_parametros.h"
#include "toolkit/dialogs/selectors.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/messages/wmessage.h"

namespace qp = quelmora_parametros;

namespace {

constexpr std::int32_t colours_dialog = 112;
constexpr std::int32_t first_user_box = 1222;
constexpr int scratch_colour = 250;
constexpr int first_level_slot = 197;

colour_set_type built_in(std::int32_t set) {
  if (set == 1) return {qp::set1_rojo, qp::set1_verde, qp::set1_azul};
  return {qp::set2_rojo, qp::set2_verde, qp::set2_azul};
}

std::int32_t colour_of(const colour_set_type& s, std::size_t k) { return wrgb(s.red[k], s.green[k], s.blue[k]); }

// Paints the colour box of a level of the user's set.
void paint_box(std::size_t k, std::int32_t rgb) {
  igrselect(igr_field, first_user_box + static_cast<int>(k));
  igrarea(0.0f, 0.0f, 1.0f, 1.0f);
  igrunits(0.0f, 0.0f, 1.0f, 1.0f);
  igrpalette(scratch_colour, rgb);
  igrcolourn(scratch_colour);
  igrfillpattern(4);
  igrrectangle(0.0f, 0.0f, 1.0f, 1.0f);
  igrselect(igr_window, 0);
}

std::int32_t chosen_set() {
  std::int32_t n = qp::set_color;
  wdialoggetradiobutton(1198, n);
  return n;
}

// The user picks a colour for the level of the box pressed.
bool pick_colour(colour_set_type& work, std::int32_t box) {
  const std::int32_t k = box - first_user_box;
  if (k < 0 || k >= 20 || chosen_set() != 3) return false;
  const auto i = static_cast<std::size_t>(k);
  std::int32_t rgb = colour_of(work, i);
  wselectcolour2(rgb);
  wdialogselect(colours_dialog);
  if (winfodialog(4) != 1) return false;
  int red = 0, green = 0, blue = 0;
  wrgbsplit(rgb, red, green, blue);
  work.red[i] = red;
  work.green[i] = green;
  work.blue[i] = blue;
  paint_box(i, rgb);
  return true;
}

void take_set(const colour_set_type& work, bool edited) {
  const std::int32_t before = qp::set_color;
  qp::set_color = chosen_set();
  if (qp::set_color != 3) {
    use_colour_set(built_in(qp::set_color));
  } else {
    use_colour_set(work);
    if (edited || before != 3) {
      qp::set3_rojo = work.red;
      qp::set3_verde = work.green;
      qp::set3_azul = work.blue;
      qp::kset3 = true;
    }
  }
  qp::ksettings = true;
}

}  // namespace

void use_colour_set(const colour_set_type& set) {
  for (std::size_t k = 0; k < 20; ++k) igrpalette(first_level_slot + static_cast<int>(k), colour_of(set, k));
}

void proc_lcolor() {
  colour_set_type work;
  if (qp::kset3) work = {qp::set3_rojo, qp::set3_verde, qp::set3_azul};
  wdialogload(colours_dialog);
  const std::int32_t radios[] = {1198, 1221, 1242};
  wdialogputradiobutton(radios[qp::set_color >= 1 && qp::set_color <= 3 ? qp::set_color - 1 : 0]);
  wdialogshow(-1, -1, 0, 3);
  if (qp::kset3)
    for (std::size_t k = 0; k < 20; ++k) paint_box(k, colour_of(work, k));
  bool edited = false;
  for (;;) {
    std::int32_t type = 0;
    message_record r;
    wmessage(type, r);
    if (type == msg_mouse_down && r.value3 == 1) {
      edited = pick_colour(work, r.value4) || edited;
    } else if (type == msg_close_request || (type == msg_push_button && r.value1 == 2)) {
      if (type == msg_close_request) wmessagepush(type, r);
      break;
    } else if (type == msg_push_button && r.value1 == 1) {
      take_set(work, edited);
      break;
    }
  }
  wdialogselect(colours_dialog);
  wdialogunload();
}
