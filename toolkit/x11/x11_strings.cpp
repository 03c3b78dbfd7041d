#include "toolkit/x11/x11_strings.h"

std::string x11_text(XmString s) {
  char* text = nullptr;
  if (s == nullptr || !XmStringGetLtoR(s, XmFONTLIST_DEFAULT_TAG, &text) || text == nullptr) return "";
  std::string out = text;
  XtFree(text);
  return out;
}

std::string x11_widget_text(Widget w, const char* resource) {
  XmString s = nullptr;
  XtVaGetValues(w, resource, &s, nullptr);
  std::string out = x11_text(s);
  // Getting a compound-string resource hands out a copy.
  if (s != nullptr) XmStringFree(s);
  return out;
}
