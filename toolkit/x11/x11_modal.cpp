#include "toolkit/x11/x11_modal.h"

#include <X11/keysym.h>
#include <Xm/Protocols.h>

#include <vector>

#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

void pressed(Widget, XtPointer answer, XtPointer call) {
  *static_cast<int*>(answer) = static_cast<XmAnyCallbackStruct*>(call)->reason == XmCR_OK ? 1 : 2;
}

void closed(Widget, XtPointer answer, XtPointer) { *static_cast<int*>(answer) = 2; }

// The answers of the boxes open now, the innermost last: Escape answers the
// innermost with 2, as its Cancel would.
std::vector<int*> open_answers;

void escape(Widget, XtPointer, XEvent* event, Boolean*) {
  if (event->type == KeyPress && XLookupKeysym(&event->xkey, 0) == XK_Escape && !open_answers.empty())
    *open_answers.back() = 2;
}

// Escape reaches whichever part of the box has the keyboard, so every part
// listens for it. Gadgets have no window and take no keys: their manager does.
void learn_escape(Widget w) {
  if (!XtIsWidget(w)) return;
  XtAddEventHandler(w, KeyPressMask, False, escape, nullptr);
  if (!XtIsComposite(w)) return;
  WidgetList children = nullptr;
  Cardinal count = 0;
  XtVaGetValues(w, XtNchildren, &children, XtNnumChildren, &count, nullptr);
  for (Cardinal i = 0; i < count; ++i) learn_escape(children[i]);
}

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
  learn_escape(box);
  XtManageChild(box);
  open_answers.push_back(answer);
  x11_wait_for_answer(answer);
  open_answers.pop_back();
}

int x11_run_modal(Widget box) {
  int answer = 0;
  XtAddCallback(box, XmNokCallback, pressed, &answer);
  XtAddCallback(box, XmNcancelCallback, pressed, &answer);
  x11_wait_modal(box, &answer);
  return answer;
}
