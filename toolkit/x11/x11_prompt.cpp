#include "toolkit/x11/x11_prompt.h"

#include <Xm/SelectioB.h>

#include "toolkit/x11/x11_modal.h"
#include "toolkit/x11/x11_strings.h"

std::optional<std::string> x11_prompt(const std::string& title, const std::string& label,
                                      const std::string& initial) {
  Widget parent = x11_modal_parent();
  XmString label_text = XmStringCreateLocalized(const_cast<char*>(label.c_str()));
  XmString value = XmStringCreateLocalized(const_cast<char*>(initial.c_str()));
  Arg args[] = {
      {const_cast<char*>(XmNselectionLabelString), reinterpret_cast<XtArgVal>(label_text)},
      {const_cast<char*>(XmNtextString), reinterpret_cast<XtArgVal>(value)},
      {const_cast<char*>(XmNdialogStyle), static_cast<XtArgVal>(XmDIALOG_FULL_APPLICATION_MODAL)},
      {const_cast<char*>(XmNdeleteResponse), static_cast<XtArgVal>(XmDO_NOTHING)},
  };
  Widget box = XmCreatePromptDialog(parent, const_cast<char*>("prompt"), args, XtNumber(args));
  XmStringFree(label_text);
  XmStringFree(value);
  XtVaSetValues(XtParent(box), XmNtitle, title.c_str(), nullptr);
  XtUnmanageChild(XmSelectionBoxGetChild(box, XmDIALOG_HELP_BUTTON));
  const int answer = x11_run_modal(box);

  std::optional<std::string> typed;
  if (answer == 1) typed = x11_widget_text(box, XmNtextString);
  XtDestroyWidget(XtParent(box));
  return typed;
}
