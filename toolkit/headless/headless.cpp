#include "toolkit/headless/headless.h"

#include <deque>
#include <optional>
#include <utility>

#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/messages/backend.h"

namespace headless {

namespace {

class scripted_backend final : public toolkit_backend {
 public:
  std::deque<std::pair<std::int32_t, message_record>> events;
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
    type = events.front().first;
    record = events.front().second;
    events.pop_front();
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
  face.events.clear();
  face.files.clear();
  face.answers.clear();
  face.shown.clear();
  face.runs.clear();
  face.root = recording_canvas{800, 600};
  set_toolkit_backend(&face);
}

void queue_event(std::int32_t type, const message_record& record) { face.events.emplace_back(type, record); }
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
