// Motif compound strings to plain text and back.
#pragma once

#include <Xm/Xm.h>

#include <string>

// The text of a compound string; "" for none.
std::string x11_text(XmString s);

// The text a widget holds in a compound-string resource that Motif hands out
// as a copy (XmNlabelString, XmNtextString, XmNdirectory); the copy is freed.
// Not for XmNtoolTipString, which comes as the widget's own string.
// "" when the widget holds none.
std::string x11_widget_text(Widget w, const char* resource);
