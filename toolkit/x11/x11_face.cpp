#include "toolkit/x11/x11_face.h"

#include <Xm/Xm.h>

#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/window.h"
#include "toolkit/messages/wmessage.h"
#include "toolkit/x11/x11_child_window.h"
#include "toolkit/x11/x11_dialog.h"
#include "toolkit/x11/x11_selectors.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_events.h"
#include "toolkit/x11/x11_file_selector.h"
#include "toolkit/x11/x11_message_box.h"
#include "toolkit/x11/x11_root_window.h"
#include "toolkit/x11/x11_statusbar.h"

namespace {

bool carries_position(std::int32_t type) {
  return type == msg_key || type == msg_mouse_down || type == msg_mouse_up || type == msg_mouse_move;
}

class x11_backend final : public toolkit_backend {
 public:
  void next_event(std::int32_t& type, message_record& record) override {
    // With the display gone nothing can happen any more but the end.
    if (x11_display() == nullptr) {
      type = msg_close_request;
      record = message_record{};
      return;
    }
    x11_dialog_flush();
    while (!x11_take(type, record)) {
      // A user's action in a dialog queued messages in the toolkit itself.
      if (yymessages_waiting()) {
        type = 0;
        return;
      }
      XEvent event;
      XtAppNextEvent(x11_app(), &event);
      XtDispatchEvent(&event);
    }
    // Positions in drawing units follow the area and units in force now.
    if (carries_position(type)) igrunitsfrompixels(record.raw_x, record.raw_y, record.gx, record.gy);
  }

  // After the window closed there is no screen to ask on: a box takes its
  // default button and a selector is cancelled.
  int message_box(int buttons, int icon, int default_button, const std::string& text,
                  const std::string& title) override {
    if (x11_display() == nullptr) return default_button;
    return x11_message_box(buttons, icon, default_button, text, title);
  }

  bool select_file(const std::string& filter, int flags, std::string& name,
                   const std::string& title) override {
    if (x11_display() == nullptr) return false;
    return x11_select_file(filter, flags, name, title);
  }

  void show_window(bool open) override {
    if (open) {
      x11_root_open(window_opened_with());
      return;
    }
    x11_child_close_all();
    x11_root_close();
    x11_close_display();
  }

  bool select_directory(int, std::string& name, const std::string& title) override {
    return x11_display() != nullptr && x11_select_directory(name, title);
  }
  bool select_colour(bool palette, std::int32_t& rgb) override {
    return x11_display() != nullptr && x11_select_colour(palette, rgb);
  }
  bool hardcopy_options_text() override { return x11_display() != nullptr && x11_hardcopy_options_text(); }
  void edit_file(std::int32_t handle, const std::string&, const std::string& text) override {
    if (x11_display() != nullptr) x11_show_text(handle, text);
  }

  void show_dialog(int dialog, bool shown) override { x11_dialog_show(dialog, shown); }
  // A progress bar moves while the program is busy and reads no events: it
  // is drawn at once.
  void show_field(int dialog, int field) override {
    x11_dialog_field(dialog, field);
    loaded_dialog_type* d = yyfind_dialog(dialog);
    const field_state_type* f = d ? yyfind_field(*d, field) : nullptr;
    if (f && f->resource.kind == field_progress) settle();
  }
  void unload_dialog(int dialog) override { x11_dialog_unload(dialog); }

  void show_caption(const std::string& caption) override { x11_root_caption(caption); }

  void show_status_parts() override {
    if (!x11_root_is_open()) return;
    const std::vector<std::int32_t>& widths = status_widths();
    x11_statusbar_parts(std::vector<int>(widths.begin(), widths.end()), false);
  }

  void show_status_text(int part, const std::string& text) override {
    if (x11_root_is_open()) x11_statusbar_text(part, text);
  }

  void show_menus() override { x11_root_sync_menus(); }

  void show_message_enabled(std::int32_t, bool) override { x11_apply_event_mask(); }

  void show_child(std::int32_t handle, bool open, const std::string& caption) override {
    if (open) {
      x11_child_open(handle, caption);
    } else {
      x11_child_close(handle);
    }
  }

  void show_cursor(std::int32_t shape) override { x11_root_cursor(shape); }

  // The requests go to the server, whose exposures of the new windows come
  // back and are drawn; twice, since a dialog that settles its size exposes again.
  void settle() override {
    if (x11_display() == nullptr) return;
    x11_dialog_flush();
    for (int round = 0; round < 2; ++round) {
      XSync(x11_display(), False);
      XmUpdateDisplay(x11_application_shell());
    }
    XFlush(x11_display());
  }

  void client_size(std::int32_t& width, std::int32_t& height) override {
    int w = 0, h = 0;
    x11_root_client_size(w, h);
    width = w;
    height = h;
  }
};

x11_backend face;

}  // namespace

bool x11_install(std::string& why) {
  if (!x11_open_display(why)) return false;
  set_toolkit_backend(&face);
  return true;
}
