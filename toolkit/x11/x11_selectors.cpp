#include "toolkit/x11/x11_selectors.h"

#include <Xm/DrawingA.h>
#include <Xm/FileSB.h>
#include <Xm/Form.h>
#include <Xm/MessageB.h>
#include <Xm/RowColumn.h>
#include <Xm/Scale.h>
#include <Xm/Text.h>

#include "toolkit/core/resources.h"
#include "toolkit/x11/x11_child_window.h"
#include "toolkit/x11/x11_dialog_units.h"
#include "toolkit/x11/x11_display.h"
#include "toolkit/x11/x11_modal.h"

namespace {

// Catalogue numbers of the toolkit's own dialogs.
constexpr int colour_dialog = 32102;
constexpr int palette_dialog = 32119;
constexpr int text_hardcopy_dialog = 32099;

std::string caption_of(int dialog, const char* fallback) {
  const dialog_type* d = find_dialog(dialog);
  return d != nullptr && !d->caption.empty() ? d->caption : fallback;
}

std::string text_of(XmString s) {
  char* t = nullptr;
  if (s == nullptr || !XmStringGetLtoR(s, XmFONTLIST_DEFAULT_TAG, &t) || t == nullptr) return "";
  std::string out = t;
  XtFree(t);
  return out;
}

struct colour_box {
  Widget scales[3] = {};
  Widget sample = nullptr;
};

Pixel pixel_of(Widget w, std::int32_t rgb) {
  XColor c{};
  c.red = static_cast<unsigned short>((rgb & 0xff) * 257);
  c.green = static_cast<unsigned short>(((rgb >> 8) & 0xff) * 257);
  c.blue = static_cast<unsigned short>(((rgb >> 16) & 0xff) * 257);
  c.flags = DoRed | DoGreen | DoBlue;
  XAllocColor(XtDisplay(w), DefaultColormapOfScreen(XtScreen(w)), &c);
  return c.pixel;
}

std::int32_t rgb_of(const colour_box& box) {
  int v[3] = {};
  for (int i = 0; i < 3; ++i) XmScaleGetValue(box.scales[i], &v[i]);
  return v[0] + 256 * v[1] + 65536 * v[2];
}

void slid(Widget, XtPointer data, XtPointer) {
  const auto* box = static_cast<colour_box*>(data);
  XtVaSetValues(box->sample, XmNbackground, pixel_of(box->sample, rgb_of(*box)), nullptr);
}

}  // namespace

std::string printable_text(const std::string& text) {
  std::string out = text;
  for (char& c : out) {
    const auto u = static_cast<unsigned char>(c);
    if (u < 32 && c != '\n' && c != '\t') c = '?';
  }
  return out;
}

bool x11_select_directory(std::string& name, const std::string& title) {
  XmString dir = XmStringCreateLocalized(const_cast<char*>(name.empty() ? "." : name.c_str()));
  Arg args[] = {
      {const_cast<char*>(XmNdirectory), reinterpret_cast<XtArgVal>(dir)},
      {const_cast<char*>(XmNfileTypeMask), static_cast<XtArgVal>(XmFILE_DIRECTORY)},
      {const_cast<char*>(XmNdialogStyle), static_cast<XtArgVal>(XmDIALOG_FULL_APPLICATION_MODAL)},
      {const_cast<char*>(XmNdeleteResponse), static_cast<XtArgVal>(XmDO_NOTHING)},
  };
  Widget box = XmCreateFileSelectionDialog(x11_modal_parent(), const_cast<char*>("directory"), args, XtNumber(args));
  XmStringFree(dir);
  const std::string caption = title.empty() ? caption_of(32101, "Select Directory") : title;
  XtVaSetValues(XtParent(box), XmNtitle, caption.c_str(), nullptr);
  XtUnmanageChild(XmFileSelectionBoxGetChild(box, XmDIALOG_HELP_BUTTON));
  const bool ok = x11_run_modal(box) == 1;
  if (ok) {
    XmString chosen = nullptr;
    XtVaGetValues(box, XmNdirectory, &chosen, nullptr);
    std::string path = text_of(chosen);
    if (chosen != nullptr) XmStringFree(chosen);
    if (path.size() > 1 && path.back() == '/') path.pop_back();
    if (!path.empty()) name = path;
  }
  XtDestroyWidget(XtParent(box));
  return ok;
}

bool x11_select_colour(bool palette, std::int32_t& rgb) {
  // A template dialog makes only the buttons whose labels it is created
  // with: without these it has no way out.
  XmString ok = XmStringCreateLocalized(const_cast<char*>("OK"));
  XmString cancel = XmStringCreateLocalized(const_cast<char*>("Cancel"));
  Arg args[] = {
      {const_cast<char*>(XmNdialogStyle), static_cast<XtArgVal>(XmDIALOG_FULL_APPLICATION_MODAL)},
      {const_cast<char*>(XmNdeleteResponse), static_cast<XtArgVal>(XmDO_NOTHING)},
      {const_cast<char*>(XmNokLabelString), reinterpret_cast<XtArgVal>(ok)},
      {const_cast<char*>(XmNcancelLabelString), reinterpret_cast<XtArgVal>(cancel)},
  };
  Widget box = XmCreateTemplateDialog(x11_modal_parent(), const_cast<char*>("colour"), args, XtNumber(args));
  XmStringFree(ok);
  XmStringFree(cancel);
  const std::string caption = palette ? caption_of(palette_dialog, "Colour Palette") : caption_of(colour_dialog, "Colour");
  XtVaSetValues(XtParent(box), XmNtitle, caption.c_str(), nullptr);
  XtVaSetValues(box, XmNdefaultButton, XmMessageBoxGetChild(box, XmDIALOG_OK_BUTTON), nullptr);

  colour_box parts;
  Widget column = XtVaCreateManagedWidget("sliders", xmRowColumnWidgetClass, box, XmNorientation, XmVERTICAL, nullptr);
  const char* names[] = {"Red", "Green", "Blue"};
  for (int i = 0; i < 3; ++i) {
    XmString label = XmStringCreateLocalized(const_cast<char*>(names[i]));
    parts.scales[i] = XtVaCreateManagedWidget(
        "component", xmScaleWidgetClass, column, XmNorientation, XmHORIZONTAL, XmNminimum, 0, XmNmaximum, 255,
        XmNvalue, (rgb >> (8 * i)) & 0xff, XmNshowValue, True, XmNtitleString, label, XmNwidth, 260, nullptr);
    XmStringFree(label);
    XtAddCallback(parts.scales[i], XmNvalueChangedCallback, slid, &parts);
    XtAddCallback(parts.scales[i], XmNdragCallback, slid, &parts);
  }
  parts.sample = XtVaCreateManagedWidget("sample", xmDrawingAreaWidgetClass, column, XmNheight, 40, XmNbackground,
                                         pixel_of(column, rgb & 0xffffff), nullptr);
  const bool chosen = x11_run_modal(box) == 1;
  if (chosen) rgb = rgb_of(parts);
  XtDestroyWidget(XtParent(box));
  return chosen;
}

bool x11_hardcopy_options_text() {
  Arg args[] = {
      {const_cast<char*>(XmNdialogStyle), static_cast<XtArgVal>(XmDIALOG_FULL_APPLICATION_MODAL)},
      {const_cast<char*>(XmNdeleteResponse), static_cast<XtArgVal>(XmDO_NOTHING)},
  };
  Widget box = XmCreateMessageDialog(x11_modal_parent(), const_cast<char*>("hardcopy"), args, XtNumber(args));
  XtVaSetValues(XtParent(box), XmNtitle, caption_of(text_hardcopy_dialog, "Text file hardcopy").c_str(), nullptr);
  XmString text = XmStringCreateLocalized(const_cast<char*>("Print the file on the default printer."));
  XmString ok = XmStringCreateLocalized(const_cast<char*>("OK"));
  XtVaSetValues(box, XmNmessageString, text, XmNokLabelString, ok, nullptr);
  XmStringFree(text);
  XmStringFree(ok);
  XtUnmanageChild(XmMessageBoxGetChild(box, XmDIALOG_HELP_BUTTON));
  const bool chosen = x11_run_modal(box) == 1;
  XtDestroyWidget(XtParent(box));
  return chosen;
}

namespace {

void fit_to_area(Widget area, XtPointer scrolled, XtPointer) {
  Dimension w = 0, h = 0;
  XtVaGetValues(area, XmNwidth, &w, XmNheight, &h, nullptr);
  XtVaSetValues(static_cast<Widget>(scrolled), XmNwidth, w, XmNheight, h, nullptr);
}

}  // namespace

void x11_show_text(std::int32_t handle, const std::string& text) {
  Widget area = x11_child_client_area(handle);
  if (area == nullptr) return;
  Widget view = XtNameToWidget(area, "*listing");
  if (view == nullptr) {
    Arg args[] = {
        {const_cast<char*>(XmNeditMode), static_cast<XtArgVal>(XmMULTI_LINE_EDIT)},
        {const_cast<char*>(XmNeditable), static_cast<XtArgVal>(False)},
        {const_cast<char*>(XmNcursorPositionVisible), static_cast<XtArgVal>(False)},
        {const_cast<char*>(XmNscrollHorizontal), static_cast<XtArgVal>(True)},
        {const_cast<char*>(XmNresizeWidth), static_cast<XtArgVal>(False)},
        {const_cast<char*>(XmNresizeHeight), static_cast<XtArgVal>(False)},
        // Listings line up in columns: a fixed-width face.
        {const_cast<char*>(XmNrenderTable), reinterpret_cast<XtArgVal>(x11_render_table("DejaVu Sans Mono", 9))},
    };
    // The area keeps its size and lets the view take whatever fits in it.
    XtVaSetValues(area, XmNresizePolicy, XmRESIZE_NONE, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
    view = XmCreateScrolledText(area, const_cast<char*>("listing"), args, XtNumber(args));
    XtManageChild(view);
    XtAddCallback(area, XmNresizeCallback, fit_to_area, XtParent(view));
  }
  XmTextSetString(view, const_cast<char*>(printable_text(text).c_str()));
  // The view covers the whole client area, whatever size the text asked for.
  fit_to_area(area, XtParent(view), nullptr);
}
