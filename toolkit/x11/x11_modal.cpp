#include "toolkit/x11/x11_modal.h"

#include <X11/Intrinsic.h>

#include "toolkit/x11/x11_display.h"

void x11_wait_for_answer(const int* answered) {
  while (*answered == 0) {
    XEvent event;
    XtAppNextEvent(x11_app(), &event);
    XtDispatchEvent(&event);
  }
}
