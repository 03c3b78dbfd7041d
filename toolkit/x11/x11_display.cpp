#include "toolkit/x11/x11_display.h"

#include <X11/Shell.h>
#include <X11/extensions/Xinerama.h>
#include <Xm/Xm.h>

#include <clocale>

namespace {

XtAppContext app = nullptr;
Display* display = nullptr;
Widget application_shell = nullptr;

// Default look of every widget: a legible scalable font for labels, menus and
// texts, and tool tips on. Ctrl+A selects the whole text of a field, as users
// of other toolkits expect (Motif's own binding would insert the character),
// so that typing then replaces it.
const char* fallback_resources[] = {
    "*renderTable: quelmora",
    "*quelmora.fontType: FONT_IS_XFT",
    "*quelmora.fontName: DejaVu Sans",
    "*quelmora.fontSize: 10",
    "*toolTipEnable: True",
    "*toolTipPostDelay: 500",
    "*XmTextField.translations: #override Ctrl<Key>a: select-all()",
    nullptr,
};

}  // namespace

bool x11_open_display(std::string& why) {
  if (display != nullptr) return true;
  // Texts follow the user's locale (UTF-8 labels such as "Range (Å)"), but
  // numbers are read and written with a decimal point whatever it says.
  XtSetLanguageProc(nullptr, nullptr, nullptr);
  XtToolkitInitialize();
  app = XtCreateApplicationContext();
  XtAppSetFallbackResources(app, const_cast<String*>(fallback_resources));
  int argc = 0;
  display = XtOpenDisplay(app, nullptr, "quelmora", "Quelmora", nullptr, 0, &argc, nullptr);
  std::setlocale(LC_NUMERIC, "C");
  if (display == nullptr) {
    XtDestroyApplicationContext(app);
    app = nullptr;
    const char* name = XDisplayName(nullptr);
    why = std::string("cannot open the X display \"") + (name ? name : "") + "\"";
    return false;
  }
  application_shell = XtVaAppCreateShell("quelmora", "Quelmora", applicationShellWidgetClass,
                                         display, XmNmappedWhenManaged, False, nullptr);
  XtRealizeWidget(application_shell);
  return true;
}

void x11_close_display() {
  if (display == nullptr) return;
  XtDestroyWidget(application_shell);
  application_shell = nullptr;
  XtCloseDisplay(display);
  display = nullptr;
  XtDestroyApplicationContext(app);
  app = nullptr;
}

XtAppContext x11_app() { return app; }
Display* x11_display() { return display; }
Widget x11_application_shell() { return application_shell; }

void x11_monitor_size(int& width, int& height) {
  const int screen = DefaultScreen(display);
  width = DisplayWidth(display, screen);
  height = DisplayHeight(display, screen);
  int count = 0;
  if (!XineramaIsActive(display)) return;
  XineramaScreenInfo* monitors = XineramaQueryScreens(display, &count);
  if (monitors != nullptr && count > 0) {
    width = monitors[0].width;
    height = monitors[0].height;
  }
  if (monitors != nullptr) XFree(monitors);
}
