// Translation of X events into the toolkit's messages. Handlers on the client
// areas and callbacks of menus, toolbars and window-manager protocols put
// messages in one queue of this face, in the order the user acted; the face's
// next_event takes them from it.
#pragma once

#include <X11/Intrinsic.h>

#include <cstdint>

#include "toolkit/messages/message_record.h"

// Adds a message for window `win` (0 the root) to the queue. An expose or a
// resize for a window that already has one of its kind waiting is not added
// again: a burst gives one redraw.
void x11_queue(std::int32_t type, std::int32_t win, const message_record& record = {});

// Takes the oldest message of the queue; false when it is empty.
bool x11_take(std::int32_t& type, message_record& record);

// Empties the queue (the window it was for is gone).
void x11_queue_clear();

// Makes `area` the client area of window `win`: exposes, size changes, mouse
// buttons, and as far as the enable table asks, motion and keys become
// messages. `on_resize` runs after the area took its new size and before the
// resize message is queued.
void x11_watch_client_area(Widget area, std::int32_t win, void (*on_resize)(std::int32_t win));

// The X event mask that the enable table asks for on a client area, beyond
// the structure and button events every area gets.
long x11_client_event_mask();

// Applies the enable table to every watched client area and to an active
// pointer grab.
void x11_apply_event_mask();

// Forgets a client area that is being destroyed.
void x11_unwatch_client_area(Widget area);
