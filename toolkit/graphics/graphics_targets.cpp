#include "toolkit/graphics/graphics_targets.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_wires.h"

namespace {

std::map<std::pair<int, int>, canvas*> attached;
std::map<int, std::unique_ptr<canvas>> bitmaps;
int next_bitmap = 1;
canvas* hardcopy = nullptr;

}  // namespace

canvas* target_canvas(int kind, int handle) {
  if (kind == igr_bitmap) {
    const auto it = bitmaps.find(handle);
    return it == bitmaps.end() ? nullptr : it->second.get();
  }
  const auto it = attached.find({kind, handle});
  return it == attached.end() ? nullptr : it->second;
}

canvas* current_canvas() {
  if (hardcopy) return hardcopy;
  return target_canvas(igrstate.itarg, igrstate.itargid);
}

void refresh_target_size() {
  const canvas* c = current_canvas();
  igrstate.nxgraf = c ? c->width() : 0;
  igrstate.nygraf = c ? c->height() : 0;
}

void attach_target(int kind, int handle, canvas* surface) {
  igrwiresflush();
  if (surface)
    attached[{kind, handle}] = surface;
  else
    attached.erase({kind, handle});
  refresh_target_size();
}

void attach_hardcopy(canvas* surface) {
  igrwiresflush();
  hardcopy = surface;
  refresh_target_size();
}

void igrselect(int target, std::optional<int> handle) {
  igrwiresflush();
  if (target < igr_window || target > igr_metafile) {
    yyerror(1003, "IGrSelect");
    return;
  }
  igrstate.itarg = target;
  igrstate.itargid = handle.value_or(target == igr_bitmap ? 1 : 0);
  if (target == igr_window) igrstate.iwindow = igrstate.itargid;
  refresh_target_size();
}

void windowselect(int handle) { igrselect(igr_window, handle); }

void windowclear() {
  canvas* c = target_canvas(igr_window, igrstate.iwindow);
  if (c) c->clear(0, 0, c->width(), c->height(), palette_colour(0));
}

void wbitmapget(int& handle, int window, std::optional<pixel_area> area) {
  const canvas* c = target_canvas(igr_window, window);
  if (!c) {
    handle = 0;
    yyerror(1003, "WBitmapGet");
    return;
  }
  pixel_area a = area.value_or(pixel_area{0, 0, c->width(), c->height()});
  // The rectangle is cut to the window, so a bitmap is never larger than it.
  const int left = std::clamp(a[0], 0, c->width());
  const int top = std::clamp(a[1], 0, c->height());
  const int w = std::clamp(a[2], 0, c->width() - left);
  const int h = std::clamp(a[3], 0, c->height() - top);
  handle = next_bitmap++;
  bitmaps[handle] = c->copy_area(left, top, w, h);
}

void wbitmapput(int handle, int x, int y) {
  const canvas* bitmap = target_canvas(igr_bitmap, handle);
  canvas* c = current_canvas();
  if (!bitmap || !c) {
    yyerror(1003, "WBitmapPut");
    return;
  }
  if (bitmap != c) c->put_bitmap(*bitmap, handle, x, y);
}

void wbitmapdestroy(int handle) {
  igrwiresflush();
  if (bitmaps.erase(handle) == 0) {
    yyerror(1003, "WBitmapDestroy");
    return;
  }
  if (igrstate.itarg == igr_bitmap && igrstate.itargid == handle) igrselect(igr_window, 0);
}
