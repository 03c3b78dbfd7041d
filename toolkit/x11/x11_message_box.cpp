#include "toolkit/x11/x11_message_box.h"

#include <Xm/MessageB.h>

#include "toolkit/x11/x11_box_symbols.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_icons.h"
#include "toolkit/x11/x11_modal.h"

namespace {

unsigned char dialog_type_of(int icon) {
  switch (icon) {
    case 1: return XmDIALOG_ERROR;
    case 2: return XmDIALOG_QUESTION;
    case 3: return XmDIALOG_WARNING;
    case 4: return XmDIALOG_INFORMATION;
    default: return XmDIALOG_MESSAGE;
  }
}

}  // namespace

int x11_message_box(int buttons, int icon, int default_button, const std::string& text,
                    const std::string& title) {
  Widget parent = x11_modal_parent();
  const bool yes_no = buttons == 3;
  XmString message = XmStringCreateLocalized(const_cast<char*>(text.c_str()));
  XmString ok = XmStringCreateLocalized(const_cast<char*>(yes_no ? "Yes" : "OK"));
  XmString no = XmStringCreateLocalized(const_cast<char*>("No"));
  // A blank title would let the window manager show the program's name; keep one blank.
  const std::string caption = title.empty() ? " " : title;
  Arg args[] = {
      {const_cast<char*>(XmNmessageString), reinterpret_cast<XtArgVal>(message)},
      {const_cast<char*>(XmNokLabelString), reinterpret_cast<XtArgVal>(ok)},
      {const_cast<char*>(XmNcancelLabelString), reinterpret_cast<XtArgVal>(no)},
      {const_cast<char*>(XmNdialogType), static_cast<XtArgVal>(dialog_type_of(icon))},
      {const_cast<char*>(XmNdialogStyle), static_cast<XtArgVal>(XmDIALOG_FULL_APPLICATION_MODAL)},
      {const_cast<char*>(XmNdefaultButtonType),
       static_cast<XtArgVal>(yes_no && default_button == 2 ? XmDIALOG_CANCEL_BUTTON
                                                           : XmDIALOG_OK_BUTTON)},
      {const_cast<char*>(XmNdeleteResponse), static_cast<XtArgVal>(XmDO_NOTHING)},
  };
  Pixmap symbol_pixmap = None;
  Widget box = XmCreateMessageDialog(parent, const_cast<char*>("message"), args, XtNumber(args));
  XmStringFree(message);
  XmStringFree(ok);
  XmStringFree(no);
  XtVaSetValues(XtParent(box), XmNtitle, caption.c_str(), nullptr);
  if (const icon_type* symbol = box_symbol(icon)) {
    Pixel background = 0;
    XtVaGetValues(box, XmNbackground, &background, nullptr);
    symbol_pixmap = x11_icon_pixmap(x11_display(), RootWindowOfScreen(XtScreen(box)), *symbol,
                                    background);
    XtVaSetValues(box, XmNsymbolPixmap, symbol_pixmap, nullptr);
  }
  XtUnmanageChild(XmMessageBoxGetChild(box, XmDIALOG_HELP_BUTTON));
  if (!yes_no) XtUnmanageChild(XmMessageBoxGetChild(box, XmDIALOG_CANCEL_BUTTON));

  const int answer = x11_run_modal(box);
  XtDestroyWidget(XtParent(box));
  if (symbol_pixmap != None) XFreePixmap(x11_display(), symbol_pixmap);
  return answer;
}
