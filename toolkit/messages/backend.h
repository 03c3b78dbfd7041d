// The face of the toolkit: what a backend does for the backend-independent
// routines of toolkit/messages and toolkit/dialogs.
//
// Every toolkit routine keeps its state (message queue and enable table,
// menu item states, caption, status bar, the exit button of the last common
// dialog) in backend-independent code. A backend only shows that state and
// turns the user's actions into messages. Two backends implement this
// interface: toolkit/headless (a scripted user, for tests and for running
// without a display) and toolkit/x11 (Motif and Xlib).
//
// Rules for an implementation:
// - next_event blocks until the user does something and fills type and
//   record. Type 0 means "nothing for the program": the toolkit queued
//   messages of its own meanwhile (a user's action on a dialog), and wmessage
//   looks at its queue again. Pixel positions go in raw_x, raw_y (words 12, 13) and the
//   position in drawing units in gx, gy; wmessage copies raw_x, raw_y to
//   x, y and applies the enable table, so the backend need not filter.
// - message_box shows a modal box and returns the button pressed: 1 for OK
//   or Yes, 2 for No or Cancel.
// - select_file runs a modal file selector. On OK it writes the chosen file,
//   as a path the process can open from its current directory or as an
//   absolute path, into name and returns true; on Cancel it leaves name
//   alone and returns false. Changing the process's directory is done by
//   wselectfile2, not by the backend.
// - The show_* calls tell the backend that the state changed; the state
//   itself can always be read back from the toolkit (window.h, wmenu.h,
//   wmessage.h), so a backend overrides only what it shows.
#pragma once

#include <cstdint>
#include <string>

#include "toolkit/messages/message_record.h"

class toolkit_backend {
 public:
  virtual ~toolkit_backend() = default;

  // The defaults make a face without a user: every event is a close request
  // of the root window, every box gets its default button, every selector
  // is cancelled. A real face overrides all three.
  virtual void next_event(std::int32_t& type, message_record& record);
  virtual int message_box(int buttons, int icon, int default_button, const std::string& text,
                          const std::string& title);
  virtual bool select_file(const std::string& filter, int flags, std::string& name, const std::string& title);

  // Changes of the state, for a face that shows them; by default ignored.
  // The root window opened (windowopen2) or closed (windowclose).
  virtual void show_window(bool /*open*/) {}
  virtual void show_caption(const std::string& /*caption*/) {}
  // The number of status parts or their widths changed.
  virtual void show_status_parts() {}
  virtual void show_status_text(int /*part*/, const std::string& /*text*/) {}
  // The menu bar or a toolbar was loaded or removed, or an item's state changed.
  virtual void show_menus() {}
  // The event mask follows the enable table (mouse motion, exposure...).
  virtual void show_message_enabled(std::int32_t /*type*/, bool /*enabled*/) {}
  // A child window opened (with its caption) or closed; handles start at 1.
  virtual void show_child(std::int32_t /*handle*/, bool /*open*/, const std::string& /*caption*/) {}
  // The pointer's shape over the windows: 0 arrow, 1 busy, 3 the probe cursor.
  virtual void show_cursor(std::int32_t /*shape*/) {}
  // A dialog came on the screen (wdialogshow) or left it (wdialoghide); its
  // fields are read from toolkit/dialogs/dialog_model.h.
  virtual void show_dialog(int /*dialog*/, bool /*shown*/) {}
  // The program changed a field of a loaded dialog: value, list, state, page or grid.
  virtual void show_field(int /*dialog*/, int /*field*/) {}
  // A dialog was destroyed (wdialogunload, or loaded afresh).
  virtual void unload_dialog(int /*dialog*/) {}
  // Modal selectors. Each returns true on OK with the answer written, and
  // false on Cancel with the argument untouched. By default: cancelled.
  virtual bool select_directory(int /*flags*/, std::string& /*name*/, const std::string& /*title*/) { return false; }
  // A colour as red + 256 green + 65536 blue; `palette` for the palette dialog.
  virtual bool select_colour(bool /*palette*/, std::int32_t& /*rgb*/) { return false; }
  // The print options of a text file.
  virtual bool hardcopy_options_text() { return false; }
  // Shows a text file, read-only, in child window `handle` (0 the current one).
  virtual void edit_file(std::int32_t /*handle*/, const std::string& /*path*/, const std::string& /*text*/) {}
  // The process is about to block on something other than the user (a
  // command it waits for): what the program just showed must reach the
  // screen first, drawn, or the window looks hung during the wait.
  virtual void settle() {}
  // The client area of the root window in pixels; 0 by 0 for a face without one.
  virtual void client_size(std::int32_t& width, std::int32_t& height) { width = height = 0; }
};

// The backend in use. Until one is set, a face without a user (the defaults
// above) answers, so that nothing waits forever.
void set_toolkit_backend(toolkit_backend* backend);
toolkit_backend& current_backend();
