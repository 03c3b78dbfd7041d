#include "toolkit/x11/x11_events.h"

#include <algorithm>
#include <deque>
#include <map>
#include <utility>

#include "toolkit/messages/wmessage.h"

namespace {

struct area_type {
  std::int32_t win = 0;
  void (*on_resize)(std::int32_t) = nullptr;
  int width = 0, height = 0;
  long mask = 0;  // the switchable part of the mask now selected
};

std::deque<std::pair<std::int32_t, message_record>> queue;
std::map<Widget, area_type> areas;

void expose_handler(Widget w, XtPointer, XEvent*, Boolean*) {
  // Take the rest of the burst off the queue: one redraw serves them all.
  XEvent more;
  while (XCheckTypedWindowEvent(XtDisplay(w), XtWindow(w), Expose, &more)) {
  }
  x11_queue(msg_expose, areas[w].win);
}

void structure_handler(Widget w, XtPointer, XEvent* event, Boolean*) {
  if (event->type != ConfigureNotify) return;
  area_type& area = areas[w];
  const int width = event->xconfigure.width, height = event->xconfigure.height;
  if (width == area.width && height == area.height) return;
  area.width = width;
  area.height = height;
  if (area.on_resize != nullptr) area.on_resize(area.win);
  x11_queue(msg_resize, area.win);
}

message_record pointer_record(std::int32_t win, int x, int y) {
  message_record r;
  r.win = win;
  r.value3 = 0;  // from a window
  r.raw_x = x;
  r.raw_y = y;
  return r;
}

void button_handler(Widget w, XtPointer, XEvent* event, Boolean*) {
  if (event->type != ButtonPress && event->type != ButtonRelease) return;
  message_record r = pointer_record(areas[w].win, event->xbutton.x, event->xbutton.y);
  r.value1 = static_cast<std::int32_t>(event->xbutton.button);
  x11_queue(event->type == ButtonPress ? msg_mouse_down : msg_mouse_up, r.win, r);
}

void motion_handler(Widget w, XtPointer, XEvent* event, Boolean*) {
  x11_queue(msg_mouse_move, areas[w].win,
            pointer_record(areas[w].win, event->xmotion.x, event->xmotion.y));
}

void key_handler(Widget w, XtPointer, XEvent* event, Boolean*) {
  message_record r = pointer_record(areas[w].win, event->xkey.x, event->xkey.y);
  r.value1 = static_cast<std::int32_t>(XLookupKeysym(&event->xkey, 0));
  x11_queue(msg_key, r.win, r);
}

void select_switchable(Widget w, area_type& area, long mask) {
  const std::pair<long, XtEventHandler> switchable[] = {
      {KeyPressMask, key_handler}, {PointerMotionMask, motion_handler}, {ExposureMask, expose_handler}};
  for (const auto& [bit, handler] : switchable) {
    const bool was = area.mask & bit, wanted = mask & bit;
    if (wanted && !was) XtAddEventHandler(w, bit, False, handler, nullptr);
    if (was && !wanted) XtRemoveEventHandler(w, bit, False, handler, nullptr);
  }
  area.mask = mask;
}

}  // namespace

void x11_queue(std::int32_t type, std::int32_t win, const message_record& record) {
  // A redraw or a new layout that is still waiting covers the later ones of
  // its window: the program reads the size when it handles the message.
  if (type == msg_expose || type == msg_resize) {
    const bool waiting = std::any_of(queue.begin(), queue.end(), [&](const auto& m) {
      return m.first == type && m.second.win == win;
    });
    if (waiting) return;
  }
  message_record r = record;
  r.win = win;
  queue.emplace_back(type, r);
}

bool x11_take(std::int32_t& type, message_record& record) {
  if (queue.empty()) return false;
  type = queue.front().first;
  record = queue.front().second;
  queue.pop_front();
  return true;
}

void x11_queue_clear() { queue.clear(); }

long x11_client_event_mask() {
  long mask = 0;
  if (message_enabled(msg_key)) mask |= KeyPressMask;
  if (message_enabled(msg_mouse_move)) mask |= PointerMotionMask;
  if (message_enabled(msg_expose)) mask |= ExposureMask;
  return mask;
}

void x11_watch_client_area(Widget area, std::int32_t win, void (*on_resize)(std::int32_t)) {
  // The area's own key and button bindings would keep their events selected
  // whatever the enable table says; the toolkit reads those events itself.
  XtUninstallTranslations(area);
  area_type& a = areas[area];
  a.win = win;
  a.on_resize = on_resize;
  XtAddEventHandler(area, StructureNotifyMask, False, structure_handler, nullptr);
  XtAddEventHandler(area, ButtonPressMask | ButtonReleaseMask, False, button_handler, nullptr);
  select_switchable(area, a, x11_client_event_mask());
}

void x11_apply_event_mask() {
  const long mask = x11_client_event_mask();
  for (auto& [w, area] : areas) select_switchable(w, area, mask);
  // A drag in progress keeps the pointer grabbed: its mask changes at once too.
  if (!areas.empty()) {
    Display* display = XtDisplay(areas.begin()->first);
    XChangeActivePointerGrab(display,
                             static_cast<unsigned>(ButtonPressMask | ButtonReleaseMask |
                                                   (mask & PointerMotionMask)),
                             None, CurrentTime);
  }
}

void x11_unwatch_client_area(Widget area) { areas.erase(area); }
