#include "toolkit/x11/x11_statusbar.h"

#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>

#include <algorithm>

#include "toolkit/x11/x11_strings.h"

namespace {

struct statusbar_type {
  Widget bar = nullptr;
  std::vector<int> widths{-1};
  bool in_pixels = false;
  std::vector<Widget> parts;   // the frames, laid out by the form
  std::vector<Widget> labels;  // the texts inside them
};

statusbar_type statusbar;

void show_text(Widget label, const std::string& text) {
  // A blank text still needs one character, or the label would shrink its height.
  XmString s = XmStringCreateLocalized(const_cast<char*>(text.empty() ? " " : text.c_str()));
  XtVaSetValues(label, XmNlabelString, s, nullptr);
  XmStringFree(s);
}

}  // namespace

std::vector<int> status_part_pixels(const std::vector<int>& widths, bool in_pixels, int total) {
  total = std::max(total, 0);
  std::vector<int> pixels(widths.size(), 0);
  int fixed = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (widths[i] < 0) continue;
    const long long w = in_pixels ? widths[i] : static_cast<long long>(widths[i]) * total / 10000;
    pixels[i] = static_cast<int>(std::min<long long>(w, total));
    fixed += pixels[i];
  }
  int used = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (widths[i] < 0) pixels[i] = std::max(total - fixed, 0);
    pixels[i] = std::min(pixels[i], total - used);
    used += pixels[i];
  }
  return pixels;
}

Widget x11_statusbar_create(Widget parent) {
  statusbar = statusbar_type{};
  statusbar.bar = XtVaCreateManagedWidget("statusbar", xmFormWidgetClass, parent, nullptr);
  x11_statusbar_parts({-1}, false);
  return statusbar.bar;
}

void x11_statusbar_parts(const std::vector<int>& widths, bool in_pixels) {
  if (statusbar.bar == nullptr) return;
  statusbar.widths = widths;
  statusbar.in_pixels = in_pixels;
  while (statusbar.parts.size() > widths.size()) {
    XtDestroyWidget(statusbar.parts.back());
    statusbar.parts.pop_back();
    statusbar.labels.pop_back();
  }
  while (statusbar.parts.size() < widths.size()) {
    // Each part sits sunken in a frame of its own, the text left aligned.
    Widget frame = XtVaCreateManagedWidget(
        "part", xmFrameWidgetClass, statusbar.bar, XmNshadowType, XmSHADOW_IN, XmNtopAttachment,
        XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
        nullptr);
    Widget label = XtVaCreateManagedWidget("text", xmLabelWidgetClass, frame, XmNalignment,
                                           XmALIGNMENT_BEGINNING, XmNrecomputeSize, False,
                                           XmNmarginWidth, 3, XmNmarginHeight, 1, nullptr);
    show_text(label, "");
    statusbar.parts.push_back(frame);
    statusbar.labels.push_back(label);
  }
  x11_statusbar_layout();
}

void x11_statusbar_text(int part, const std::string& text) {
  if (part < 1 || part > static_cast<int>(statusbar.parts.size())) return;
  show_text(statusbar.labels[part - 1], text);
}

std::string x11_statusbar_read(int part) {
  if (part < 1 || part > static_cast<int>(statusbar.labels.size())) return "";
  const std::string shown = x11_widget_text(statusbar.labels[part - 1], XmNlabelString);
  // An empty part holds one blank to keep its height.
  return shown == " " ? "" : shown;
}

void x11_statusbar_layout() {
  if (statusbar.bar == nullptr) return;
  Dimension width = 0;
  XtVaGetValues(statusbar.bar, XmNwidth, &width, nullptr);
  const std::vector<int> pixels =
      status_part_pixels(statusbar.widths, statusbar.in_pixels, static_cast<int>(width));
  int x = 0;
  for (std::size_t i = 0; i < statusbar.parts.size(); ++i) {
    // A label cannot be 0 pixels wide in Xt; an empty part keeps one pixel.
    const int w = std::max(pixels[i], 1);
    XtVaSetValues(statusbar.parts[i], XmNleftOffset, x, XmNwidth, static_cast<Dimension>(w),
                  nullptr);
    x += pixels[i];
  }
}
