#include "toolkit/messages/child_window.h"

#include <map>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/messages/backend.h"
#include "toolkit/messages/window.h"

namespace {

std::map<std::int32_t, std::string> children;  // handle -> caption
std::int32_t last_handle = 0;
std::int32_t shape_now = 0;

}  // namespace

void windowopenchild2(std::int32_t& handle, const std::string& caption, std::int32_t) {
  if (!window_is_open()) {
    yyerror(1003, "WindowOpenChild");
    return;
  }
  handle = ++last_handle;
  children[handle] = yytrim(caption);
  current_backend().show_child(handle, true, children[handle]);
}

void windowclosechild(std::int32_t handle) {
  const auto it = children.find(handle);
  if (it == children.end()) {
    yyerror(1003, "WindowCloseChild");
    return;
  }
  current_backend().show_child(handle, false, it->second);
  children.erase(it);
}

bool child_is_open(std::int32_t handle) { return children.contains(handle); }

std::int32_t yynewest_child() { return children.empty() ? 0 : children.rbegin()->first; }

void wcursorshape(std::int32_t shape) {
  if (shape < 0) {
    yyerror(1015, "WCursorShape");
    return;
  }
  shape_now = shape;
  current_backend().show_cursor(shape);
}

std::int32_t cursor_shape() { return shape_now; }

std::int32_t winfowindow(std::int32_t item) {
  std::int32_t width = 0, height = 0;
  current_backend().client_size(width, height);
  if (item == 1) return width;
  if (item == 2) return height;
  return 0;
}

void yyreset_children() {
  for (const auto& [handle, caption] : children) current_backend().show_child(handle, false, caption);
  children.clear();
  shape_now = 0;
}
