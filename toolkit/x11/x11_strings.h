// Motif compound strings to plain text and back.
#pragma once

#include <Xm/Xm.h>

#include <string>

// The text of a compound string; "" for none.
std::string x11_text(XmString s);

// The text a widget holds in a compound-string resource (XmNlabelString,
// XmNtextString, XmNdirectory...); "" when it holds none.
std::string x11_widget_text(Widget w, const char* resource);
