#include "toolkit/x11/x11_child_window.h"

#include <X11/Shell.h>
#include <Xm/DrawingA.h>
#include <Xm/Protocols.h>

#include <map>

#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_events.h"
#include "toolkit/x11/x11_root_window.h"

namespace {

struct child_type {
  Widget shell = nullptr;
  Widget client = nullptr;
};

std::map<std::int32_t, child_type> children;

void close_requested(Widget, XtPointer handle, XtPointer) {
  x11_queue(msg_close_request, static_cast<std::int32_t>(reinterpret_cast<intptr_t>(handle)));
}

}  // namespace

void x11_child_open(std::int32_t handle, const std::string& caption) {
  if (children.contains(handle)) return;
  int root_width = 0, root_height = 0;
  x11_root_client_size(root_width, root_height);
  child_type child;
  // The toolkit places a child itself: two thirds of the root's client area.
  child.shell = XtVaCreatePopupShell(
      "child", topLevelShellWidgetClass, x11_application_shell(), XmNtitle, caption.c_str(),
      XmNdeleteResponse, XmDO_NOTHING, XmNwidth, static_cast<Dimension>(std::max(2 * root_width / 3, 200)),
      XmNheight, static_cast<Dimension>(std::max(2 * root_height / 3, 150)), nullptr);
  Atom delete_window = XmInternAtom(x11_display(), const_cast<char*>("WM_DELETE_WINDOW"), False);
  XmAddWMProtocolCallback(child.shell, delete_window, close_requested,
                          reinterpret_cast<XtPointer>(intptr_t{handle}));
  child.client = XtVaCreateManagedWidget("client", xmDrawingAreaWidgetClass, child.shell,
                                         XmNbackground, WhitePixelOfScreen(XtScreen(child.shell)),
                                         nullptr);
  x11_watch_client_area(child.client, handle, nullptr);
  XtPopup(child.shell, XtGrabNone);
  children[handle] = child;
}

void x11_child_close(std::int32_t handle) {
  const auto it = children.find(handle);
  if (it == children.end()) return;
  x11_unwatch_client_area(it->second.client);
  XtDestroyWidget(it->second.shell);
  children.erase(it);
}

void x11_child_close_all() {
  while (!children.empty()) x11_child_close(children.begin()->first);
}

Widget x11_child_client_area(std::int32_t handle) {
  const auto it = children.find(handle);
  return it == children.end() ? nullptr : it->second.client;
}
