#include "toolkit/messages/wmessage.h"

#include <array>
#include <deque>
#include <optional>
#include <utility>

#include "toolkit/core/werror.h"
#include "toolkit/messages/backend.h"

namespace {

constexpr std::int32_t table_size = 19;

// Types enabled at start: menu choice, push button, mouse button down,
// expose, resize, close. Release and move (5, 6) are turned on by the plot
// kinds that drag, field changes (10) by the dialogs that follow them.
std::array<bool, table_size> initial_table() {
  std::array<bool, table_size> t{};
  for (std::int32_t type : {msg_menu_select, msg_push_button, msg_mouse_down, msg_expose, msg_resize, msg_close_request})
    t[static_cast<std::size_t>(type - 1)] = true;
  return t;
}

std::array<bool, table_size> enabled = initial_table();
std::optional<std::pair<std::int32_t, message_record>> pushed;
std::deque<std::pair<std::int32_t, message_record>> queued;

}  // namespace

bool message_enabled(std::int32_t type) {
  if (type < 1 || type > table_size) return true;
  return enabled[static_cast<std::size_t>(type - 1)];
}

void wmessage(std::int32_t& type, message_record& record) {
  if (pushed) {
    type = pushed->first;
    record = pushed->second;
    pushed.reset();
    return;
  }
  for (;;) {
    if (!queued.empty()) {
      type = queued.front().first;
      record = queued.front().second;
      queued.pop_front();
    } else {
      current_backend().next_event(type, record);
    }
    if (type == 0 || !message_enabled(type)) continue;
    record.x = record.raw_x;
    record.y = record.raw_y;
    return;
  }
}

void wmessagepush(std::int32_t type, const message_record& record) { pushed.emplace(type, record); }

void wmessageenable(std::int32_t type, std::int32_t state) {
  if (state != 0 && state != 1) {
    yyerror(1015, "WMessageEnable");
    return;
  }
  if (type < 1 || type > table_size) return;
  enabled[static_cast<std::size_t>(type - 1)] = state == 1;
  current_backend().show_message_enabled(type, state == 1);
}

void yyqueue_message(std::int32_t type, const message_record& record) { queued.emplace_back(type, record); }

bool yymessages_waiting() { return !queued.empty(); }

void yyreset_messages() {
  enabled = initial_table();
  pushed.reset();
  queued.clear();
}
