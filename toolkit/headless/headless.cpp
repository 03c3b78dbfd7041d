#include "toolkit/headless/headless.h"

#include <deque>
#include <map>
#include <functional>
#include <optional>
#include <utility>

#include "toolkit/dialogs/dialog_model.h"
#include "toolkit/dialogs/dialog_user.h"

#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/messages/backend.h"

namespace headless {

namespace {

// One step of the script: a message, or an action in a dialog.
struct script_step {
  std::int32_t type = 0;
  message_record record;
  std::function<bool()> action;
  std::string what;
};

class scripted_backend final : public toolkit_backend {
 public:
  std::deque<script_step> events;
  std::vector<std::string> refusals;
  std::deque<std::string> directories;
  std::deque<std::int32_t> colours;
  std::deque<bool> print_options;
  std::vector<shown_file> edited;
  std::map<int, recording_canvas> boxes;  // colour boxes of the dialogs shown, by field
  std::vector<std::string> trace;         // see dialog_trace()

  // A shown dialog's colour boxes become drawing targets, one pixel a dialog unit.
  void show_dialog(int dialog, bool visible) override {
    trace.push_back((visible ? "show " : "hide ") + std::to_string(dialog));
    const loaded_dialog_type* d = yyfind_dialog(dialog);
    if (d == nullptr || !visible) return;
    for (const field_state_type& f : d->fields) {
      if (f.resource.kind != field_picture || boxes.contains(f.resource.id)) continue;
      auto [it, added] = boxes.emplace(f.resource.id, recording_canvas{f.resource.width, f.resource.height});
      attach_target(igr_field, f.resource.id, &it->second);
    }
  }

  void show_field(int dialog, int field) override {
    loaded_dialog_type* d = yyfind_dialog(dialog);
    const field_state_type* f = d ? yyfind_field(*d, field) : nullptr;
    if (f && f->resource.kind == field_progress)
      trace.push_back(std::to_string(dialog) + " " + std::to_string(field) + " " + std::to_string(f->value));
  }

  void unload_dialog(int dialog) override {
    trace.push_back("unload " + std::to_string(dialog));
    const loaded_dialog_type* d = yyfind_dialog(dialog);
    if (d == nullptr) return;
    for (const field_state_type& f : d->fields) {
      if (boxes.erase(f.resource.id) > 0) attach_target(igr_field, f.resource.id, nullptr);
    }
  }
  std::deque<std::optional<std::string>> files;
  std::deque<int> answers;
  std::vector<shown_box> shown;
  std::vector<selector_run> runs;
  recording_canvas root{800, 600};

  void next_event(std::int32_t& type, message_record& record) override {
    if (events.empty()) {
      type = msg_close_request;
      record = message_record{};
      return;
    }
    const script_step step = events.front();
    events.pop_front();
    if (step.action) {
      if (!step.action()) refusals.push_back(step.what);
      type = 0;  // the action's messages wait in the toolkit's queue
      return;
    }
    type = step.type;
    record = step.record;
  }

  bool select_directory(int, std::string& name, const std::string&) override {
    if (directories.empty()) return false;
    name = directories.front();
    directories.pop_front();
    return true;
  }

  bool select_colour(bool, std::int32_t& rgb) override {
    if (colours.empty()) return false;
    rgb = colours.front();
    colours.pop_front();
    return true;
  }

  bool hardcopy_options_text() override {
    if (print_options.empty()) return false;
    const bool ok = print_options.front();
    print_options.pop_front();
    return ok;
  }

  void edit_file(std::int32_t handle, const std::string& path, const std::string& text) override {
    edited.push_back({handle, path, text});
  }

  int message_box(int buttons, int icon, int default_button, const std::string& text,
                  const std::string& title) override {
    int pressed = default_button;
    if (!answers.empty()) {
      pressed = answers.front();
      answers.pop_front();
    }
    shown.push_back({buttons, icon, default_button, text, title, pressed});
    return pressed;
  }

  bool select_file(const std::string& filter, int flags, std::string& name, const std::string& title) override {
    runs.push_back({filter, flags, name, title});
    if (files.empty()) return false;
    const std::optional<std::string> answer = files.front();
    files.pop_front();
    if (!answer) return false;
    name = *answer;
    return true;
  }

  // The root window draws on a recording canvas while it is open.
  void show_window(bool open) override { attach_target(igr_window, 0, open ? &root : nullptr); }

  void client_size(std::int32_t& width, std::int32_t& height) override {
    width = root.width();
    height = root.height();
  }

};

scripted_backend face;

message_record with_value(std::int32_t value1) {
  message_record r;
  r.value1 = value1;
  return r;
}

}  // namespace

void install() {
  attach_target(igr_window, 0, nullptr);
  yyreset_dialogs();
  for (const auto& entry : face.boxes) attach_target(igr_field, entry.first, nullptr);
  face.boxes.clear();
  face.events.clear();
  face.refusals.clear();
  face.directories.clear();
  face.colours.clear();
  face.print_options.clear();
  face.edited.clear();
  face.trace.clear();
  face.files.clear();
  face.answers.clear();
  face.shown.clear();
  face.runs.clear();
  face.root = recording_canvas{800, 600};
  set_toolkit_backend(&face);
}

void queue_event(std::int32_t type, const message_record& record) { face.events.push_back({type, record, {}, ""}); }

void queue_look(std::function<void()> look) {
  face.events.push_back({0, {}, [look = std::move(look)] {
                           look();
                           return true;
                         },
                         "look"});
}

namespace {
void queue_action(int dialog, int field, std::function<bool()> action) {
  face.events.push_back({0, {}, std::move(action), std::to_string(dialog) + " " + std::to_string(field)});
}
}  // namespace

void move_focus(int dialog, int field) {
  queue_action(dialog, field, [=] { return yyuser_focus(dialog, field); });
}
void type_text(int dialog, int field, const std::string& text) {
  queue_action(dialog, field, [=] { return yyuser_text(dialog, field, text); });
}
void set_check(int dialog, int field, int checked) {
  queue_action(dialog, field, [=] { return yyuser_check(dialog, field, checked); });
}
void choose_radio(int dialog, int field) {
  queue_action(dialog, field, [=] { return yyuser_radio(dialog, field); });
}
void choose_option(int dialog, int field, int selection) {
  queue_action(dialog, field, [=] { return yyuser_option(dialog, field, selection); });
}
void choose_tab(int dialog, int field, int page) {
  queue_action(dialog, field, [=] { return yyuser_tab(dialog, field, page); });
}
void type_cell(int dialog, int field, int column, int row, const std::string& text) {
  queue_action(dialog, field, [=] { return yyuser_cell(dialog, field, column, row, text); });
}
void press(int dialog, int button) {
  queue_action(dialog, button, [=] { return yyuser_press(dialog, button); });
}
void click_field(int dialog, int field) {
  queue_action(dialog, field, [=] { return yyuser_mouse_on_field(dialog, field, 1); });
}
const std::vector<std::string>& refused() { return face.refusals; }

const std::vector<std::string>& dialog_trace() { return face.trace; }

recording_canvas* field_canvas(int field) {
  const auto it = face.boxes.find(field);
  return it == face.boxes.end() ? nullptr : &it->second;
}

void answer_directory(const std::string& name) { face.directories.push_back(name); }
void answer_colour(std::int32_t rgb) { face.colours.push_back(rgb); }
void answer_print_options(bool ok) { face.print_options.push_back(ok); }
const std::vector<shown_file>& files_shown() { return face.edited; }
void queue_menu(std::int32_t item) { queue_event(msg_menu_select, with_value(item)); }
void queue_push_button(std::int32_t button) { queue_event(msg_push_button, with_value(button)); }
void queue_expose() { queue_event(msg_expose, message_record{}); }
void queue_resize() { queue_event(msg_resize, message_record{}); }

void queue_close(std::int32_t window) {
  message_record r;
  r.win = window;
  queue_event(msg_close_request, r);
}

void queue_mouse(std::int32_t type, std::int32_t button, float gx, float gy) {
  message_record r = with_value(button);
  r.gx = gx;
  r.gy = gy;
  queue_event(type, r);
}

void answer_file(const std::string& name) { face.files.emplace_back(name); }
void answer_file_cancel() { face.files.emplace_back(std::nullopt); }
void answer_box(int button) { face.answers.push_back(button); }

const std::vector<shown_box>& boxes() { return face.shown; }
const std::vector<selector_run>& selectors() { return face.runs; }

std::vector<std::string> box_texts() {
  std::vector<std::string> texts;
  for (const shown_box& b : face.shown) texts.push_back(b.text);
  return texts;
}

std::size_t events_left() { return face.events.size(); }

recording_canvas& root_canvas() { return face.root; }

}  // namespace headless
