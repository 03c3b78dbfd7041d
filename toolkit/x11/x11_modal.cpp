#include "toolkit/x11/x11_modal.h"

#include <Xm/Protocols.h>

#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

void pressed(Widget, XtPointer answer, XtPointer call) {
  *static_cast<int*>(answer) = static_cast<XmAnyCallbackStruct*>(call)->reason == XmCR_OK ? 1 : 2;
}

void closed(Widget, XtPointer answer, XtPointer) { *static_cast<int*>(answer) = 2; }

}  // namespace

Widget x11_modal_parent() { return x11_root_is_open() ? x11_root_shell() : x11_application_shell(); }

void x11_wait_for_answer(const int* answered) {
  // One event, timer or input at a time, so that the loop ends as soon as
  // whatever was handled gave the answer.
  while (*answered == 0) XtAppProcessEvent(x11_app(), XtIMAll);
}

void x11_wait_modal(Widget box, int* answer) {
  Atom delete_window = XmInternAtom(x11_display(), const_cast<char*>("WM_DELETE_WINDOW"), False);
  XmAddWMProtocolCallback(XtParent(box), delete_window, closed, answer);
  XtManageChild(box);
  x11_wait_for_answer(answer);
}

int x11_run_modal(Widget box) {
  int answer = 0;
  XtAddCallback(box, XmNokCallback, pressed, &answer);
  XtAddCallback(box, XmNcancelCallback, pressed, &answer);
  x11_wait_modal(box, &answer);
  return answer;
}
