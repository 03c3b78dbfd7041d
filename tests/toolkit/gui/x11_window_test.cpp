// The X11 face on a display: the root window as the program opens it, its
// menu bar, toolbars and status bar from the catalogue, item states in the
// widgets, the translation of X events into messages, the catalogue's dialogs
// at their size, with typing and drawing reaching them, and fills and broken
// lines landing as pixels in an X pixmap.
#include <gtest/gtest.h>

#include <X11/Xutil.h>
#include <Xm/ComboBox.h>
#include <Xm/DrawingA.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <tuple>
#include <vector>

#include "tests/toolkit/gui/x11_fixture.h"
#include "tests/toolkit/peaks_field.h"
#include "toolkit/dialogs/wdialog.h"
#include "toolkit/dialogs/wgrid.h"
#include "toolkit/graphics/graphics.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/recording_canvas.h"
#include "toolkit/messages/child_window.h"
#include "toolkit/messages/wmessage.h"
#include "toolkit/plots/contour.h"
#include "toolkit/plots/plot_setup.h"
#include "toolkit/x11/x11_canvas.h"
#include "toolkit/x11/x11_dialog.h"
#include "toolkit/x11/x11_dialog_units.h"
#include "toolkit/x11/x11_menubar.h"
#include "toolkit/x11/x11_root_window.h"
#include "toolkit/x11/x11_statusbar.h"
#include "toolkit/x11/x11_toolbar.h"

namespace {

using messages = std::vector<std::pair<std::int32_t, message_record>>;
using X11Window = X11Test;

// The messages the face has queued, taken off the queue.
messages drain() {
  settle();
  messages got;
  std::pair<std::int32_t, message_record> m;
  while (x11_take(m.first, m.second)) got.push_back(m);
  return got;
}

int count_of(const messages& got, std::int32_t type) {
  return static_cast<int>(std::count_if(got.begin(), got.end(), [&](const auto& m) { return m.first == type; }));
}

Window client_window() { return XtWindow(x11_root_client_area()); }

TEST(StatusBarWidths, InTenThousandthsAndPixels) {
  using row = std::tuple<std::vector<int>, bool, int, std::vector<int>>;  // widths, in pixels, total: parts
  for (const auto& [widths, pixels, total, expected] : {
           row{{5000, 3000, -1}, false, 1023, {511, 306, 206}}, row{{100, -1, 50}, true, 400, {100, 250, 50}},
           row{{8000, -1, 4000}, false, 1000, {800, 0, 200}}, row{{300, 300}, true, 400, {300, 100}},  // too wide: cut
           row{{5000, -1}, false, -20, {0, 0}}}) {
    EXPECT_EQ(status_part_pixels(widths, pixels, total), expected) << total;
  }
}

TEST(DialogScale, QuarterOfTheAverageWidthAndAnEighthOfTheHeight) {
  EXPECT_EQ(std::pair(dialog_scale_from_font(7.0, 16.0).across, dialog_scale_from_font(7.0, 16.0).down), std::pair(1.75, 2.0));
  EXPECT_DOUBLE_EQ(dialog_scale_from_font(0.0, 16.0).across, 1.5) << "no font measured: the classic 8-point scale";
}

// A menu entry and a toolbar button of one id share its state, a fresh load
// of the menu enables everything again, and a click delivers the id: from an
// entry in a pane, an entry of the bar itself and a toolbar button.
TEST_F(X11Window, MenuAndToolbarItemsShowTheirStateAndDeliverTheirIds) {
  EXPECT_EQ(label_of(x11_menubar_item(40028)), "Print File");
  for (int id : {40011, 40027, 40005}) wmenusetstate(id, 1, 0);
  settle();
  for (const auto& [id, toolbar, enabled] : {std::tuple{40011, false, false}, {40027, false, false}, {40005, true, false},
                                             {40026, false, true}, {40026, true, true}}) {
    EXPECT_EQ(XtIsSensitive(toolbar ? x11_toolbar_button(id) : x11_menubar_item(id)), enabled) << id << toolbar;
  }
  wmenu(30001);
  settle();
  EXPECT_TRUE(XtIsSensitive(x11_menubar_item(40027))) << "a fresh menu is all enabled";
  for (const auto& [id, toolbar] : {std::pair{40007, false}, {40024, false}, {40026, true}}) {
    drain();
    XtCallCallbacks(toolbar ? x11_toolbar_button(id) : x11_menubar_item(id),
                    toolbar ? XmNvalueChangedCallback : XmNactivateCallback, nullptr);
    const messages got = drain();
    ASSERT_EQ(got.size(), 1u) << id;
    EXPECT_EQ(std::pair(got[0].first, got[0].second.value1), std::pair(msg_menu_select, id));
  }
}

// The plot mode: no menu bar, its two toolbars instead of the main one, a
// checked item shown pressed, tool tips from the catalogue. Damaged tables
// still show: levels that jump hang on the nearest pane, a popup without
// items, a mnemonic out of the label and a button without icon do no harm.
TEST_F(X11Window, PlotAndDamagedTablesReplaceTheMainMenuAndToolbar) {
  wmenu(0);
  wmenutoolbar(30102, 0, 1);
  wmenutoolbar(30103, 0, 2);
  wmenusetstate(40072, 2, 1);
  settle();
  EXPECT_EQ(std::pair(x11_menubar_item(40001), x11_toolbar_button(40025)), std::pair(Widget{}, Widget{}));
  ASSERT_NE(x11_toolbar_button(40003), nullptr);
  EXPECT_EQ(std::pair(XmToggleButtonGetState(x11_toolbar_button(40072)), XmToggleButtonGetState(x11_toolbar_button(40074))),
            (std::pair<Boolean, Boolean>(True, False)));
  XmString tip = nullptr;  // the widget's own string: not freed
  XtVaGetValues(x11_toolbar_button(40036), XmNtoolTipString, &tip, nullptr);
  EXPECT_EQ(x11_text(tip), "Actual Layer +1");
  register_menu({99001, {{99002, menu_item_kind::popup, 0, "Odd", 9}, {99003, menu_item_kind::entry, 3, "Deep", 0},
                         {0, menu_item_kind::separator, 7, "", -1}, {99004, menu_item_kind::entry, -2, "Negative", -5},
                         {99005, menu_item_kind::popup, 0, "Empty", 0}}});
  register_toolbar({99100, {0, 0, 99101, 40025}});
  wmenu(99001);
  wmenutoolbar(99100, 0, 2);
  settle();
  for (int id : {99002, 99003, 99004, 99005}) EXPECT_NE(x11_menubar_item(id), nullptr) << id;
  EXPECT_EQ(label_of(x11_toolbar_button(99101)), "99101");
  EXPECT_EQ(x11_toolbar_button(40003), nullptr);
  wmenu(30001);
  wmenutoolbar(30101, 0, 1);
  settle();
  EXPECT_EQ(std::pair(x11_menubar_item(99002) == nullptr, x11_menubar_item(40001) != nullptr), std::pair(true, true));
}

// A part that remains keeps its text, one added anew is empty.
TEST_F(X11Window, StatusBarPartsKeepTheirTexts) {
  using texts = std::vector<std::string>;
  const auto shown = [] { return texts{x11_statusbar_read(1), x11_statusbar_read(2), x11_statusbar_read(3)}; };
  windowoutstatusbar(3, "Date:  5- 3-2007");
  windowoutstatusbar(2, "File: nacl.bin   ");
  settle();
  EXPECT_EQ(shown(), (texts{"", "File: nacl.bin", "Date:  5- 3-2007"}));
  for (const auto& [parts, widths] : {std::pair{2, std::vector{5000, -1}}, {3, std::vector{5000, 3000, -1}}}) {
    windowstatusbarparts(parts, widths);
    settle();
    EXPECT_EQ(shown(), (texts{"", "File: nacl.bin", ""})) << parts;
  }
}

// The window opens at 80% of the monitor. An expose burst gives one message;
// a resize one, with the new size.
TEST_F(X11Window, OpensAtEightyPercentAndExposeAndResizeComeOnceABurst) {
  int monitor_width = 0, monitor_height = 0;
  x11_monitor_size(monitor_width, monitor_height);
  XWindowAttributes a;
  XGetWindowAttributes(x11_display(), XtWindow(x11_root_shell()), &a);
  EXPECT_EQ(std::tuple(a.width, a.height, a.map_state), std::tuple(monitor_width * 4 / 5, monitor_height * 4 / 5, IsViewable));
  for (int i = 0; i < 6; ++i) XClearArea(x11_display(), client_window(), i * 10, 0, 10, 10, True);
  EXPECT_EQ(count_of(drain(), msg_expose), 1);
  const int width = winfowindow(1);
  for (int less : {100, 0}) {
    XResizeWindow(x11_display(), XtWindow(x11_root_shell()), static_cast<unsigned>(a.width - less), static_cast<unsigned>(a.height - less / 2));
    EXPECT_EQ(count_of(drain(), msg_resize), 1);
    EXPECT_EQ(winfowindow(1), width - less);
  }
}

// The client area selects the events of the message types enabled (buttons
// always). A button carries the pixel, and the position in drawing units with
// units 0 to 1 over the whole area: from the centre of the pixel, y upward.
TEST_F(X11Window, MouseButtonsCarryButtonAndPosition) {
  int width = 0, height = 0;
  x11_root_client_size(width, height);
  igrarea(0, 0, 1, 1);
  igrunits(0, 0, 1, 1);
  for (const auto& [type, state] : {std::pair{msg_mouse_up, 1}, {msg_mouse_move, 1}, {msg_expose, 0}, {msg_resize, 0}}) wmessageenable(type, state);
  settle();
  XWindowAttributes a;
  XGetWindowAttributes(x11_display(), client_window(), &a);
  EXPECT_EQ(a.your_event_mask & (KeyPressMask | PointerMotionMask | ButtonPressMask), PointerMotionMask | ButtonPressMask);
  for (const auto& [press, x, y, button] : {std::tuple{true, 0, 0, 3u}, {false, width - 1, height - 1, 1u}}) {
    XEvent event{};
    event.xbutton = {press ? ButtonPress : ButtonRelease, 0, False, x11_display(), client_window(), 0, 0, CurrentTime,
                     x, y, 0, 0, 0, button, True};
    XSendEvent(x11_display(), client_window(), False, press ? ButtonPressMask : ButtonReleaseMask, &event);
    std::int32_t type = 0;
    message_record r;
    wmessage(type, r);
    EXPECT_EQ(std::tuple(type, r.value1, r.x, r.y), std::tuple(press ? msg_mouse_down : msg_mouse_up, button, x, y));
    EXPECT_NEAR(r.gx, (static_cast<float>(x) + 0.5f) / static_cast<float>(width), 1e-5f) << x;
    EXPECT_NEAR(r.gy, 1.0f - (static_cast<float>(y) + 0.5f) / static_cast<float>(height), 1e-5f) << y;
  }
  for (const auto& [type, state] : {std::pair{msg_mouse_up, 0}, {msg_mouse_move, 0}, {msg_key, 1}, {msg_expose, 1}, {msg_resize, 1}}) wmessageenable(type, state);
  settle();
  XGetWindowAttributes(x11_display(), client_window(), &a);
  EXPECT_EQ(a.your_event_mask & (KeyPressMask | PointerMotionMask), KeyPressMask);
  wmessageenable(msg_key, 0);
}

// The first widget on the board of the dialog shown that passes the test.
Widget on_board(int dialog, const std::function<bool(Widget)>& test) {
  wdialogload(dialog);
  wdialogshow(-1, -1, 0, 3);
  settle();
  WidgetList children = nullptr;
  Cardinal n = 0;
  XtVaGetValues(XtNameToWidget(x11_dialog_shell(dialog), "board"), XmNchildren, &children, XmNnumChildren, &n, nullptr);
  const auto found = std::find_if(children, children + n, test);
  return found == children + n ? nullptr : *found;
}

TEST_F(X11Window, EveryDialogComesUpAtItsSize) {
  for (int id : {101, 108, 110, 111, 112, 113, 114, 116, 117, 120, 121, 107}) {
    wdialogload(id);
    if (id == 111) wdialogputinteger(1048, 40);  // the loading bar part way
    wdialogshow(-1, -1, 0, 2);
    settle();
    Widget shell = x11_dialog_shell(id);
    ASSERT_NE(shell, nullptr) << id;
    Dimension w = 0, h = 0;
    XtVaGetValues(shell, XmNwidth, &w, XmNheight, &h, nullptr);
    EXPECT_EQ(std::tuple(XtIsRealized(shell), w, h), std::tuple(True, x11_dialog_x(find_dialog(id)->width), x11_dialog_y(find_dialog(id)->height))) << id;
    wdialogunload();
    EXPECT_EQ(x11_dialog_shell(id), nullptr);
  }
  EXPECT_EQ(winfoerror(1), 0);
}

// The input data dialog: the atoms' grid filled, each page of its tabs shown in turn.
TEST_F(X11Window, TheInputDataDialogShowsEachPage) {
  wdialogload(116);
  wdialogshow(-1, -1, 0, 3);
  wdialogselect(118);
  wgridrows(1007, 3);
  wgridputstring(1007, 1, {"Na1", "Cl1", "O1"}, 3);
  wgridputreal(1007, 2, {0.0f, 0.5f, 0.25f}, 3);
  for (int page : {102, 103, 104, 106, 118, 115, 109, 105}) {
    wdialogselect(116);
    wdialogsettab(1002, page);
    settle();
    EXPECT_TRUE(yydialog_visible(page)) << page;
  }
}

// The combo box of `items` rows below the widget, depth first.
Widget combo_below(Widget w, int items) {
  int count = 0;
  if (XmIsComboBox(w)) XtVaGetValues(w, XmNitemCount, &count, nullptr);
  if (XmIsComboBox(w) && count == items) return w;
  if (!XtIsComposite(w)) return nullptr;
  WidgetList children = nullptr;
  Cardinal n = 0;
  XtVaGetValues(w, XmNchildren, &children, XmNnumChildren, &n, nullptr);
  for (Cardinal i = 0; i < n; ++i)
    if (Widget found = combo_below(children[i], items)) return found;
  return nullptr;
}

// The six kinds of synthesis of the Fourier page: the row the
// program selects is the row shown, and the row a user picks in the list comes
// back as that row, with a message for it and none for the program's own selection.
TEST_F(X11Window, AComboBoxShowsAndReportsTheSameRow) {
  wmessageenable(msg_field_changed, 1);
  wdialogload(116);
  wdialogshow(-1, -1, 0, 3);
  wdialogsettab(1002, 106);
  wdialogselect(106);
  wdialogputoption1(1016, 2);
  settle();
  Widget combo = combo_below(x11_dialog_shell(116), 6);
  ASSERT_NE(combo, nullptr);
  Widget text = nullptr;
  XtVaGetValues(combo, XmNtextField, &text, nullptr);
  char* shown = XmTextFieldGetString(text);
  EXPECT_STREQ(shown, "Fcal Synthesis");
  XtFree(shown);
  EXPECT_FALSE(yymessages_waiting());
  // The Down key of the box: the next row.
  String down[] = {const_cast<char*>("Down")};
  XtCallActionProc(combo, "CBListAction", nullptr, down, 1);
  std::int32_t row = 0;
  wdialoggetmenu1(1016, row);
  EXPECT_EQ(row, 3);
  // The user's pick is reported, and nothing of it is left for a later reader.
  std::int32_t type = 0;
  message_record r;
  while (yymessages_waiting()) wmessage(type, r);
  EXPECT_EQ(std::pair(type, r.value2), std::pair(msg_field_changed, 1016));
  wmessageenable(msg_field_changed, 0);
}

// The first text field of dialog 110 is the X minimum, field 1071, from -10 to 10.
TEST_F(X11Window, TypingInADialogReachesTheToolkitAndARefusedTextGivesWay) {
  wmessageenable(msg_field_changed, 1);
  Widget text = on_board(110, [](Widget w) { return XmIsTextField(w) != 0; });
  ASSERT_NE(text, nullptr);
  float value = 0;
  for (const char* typed : {"0.25", "12"}) {
    XmTextFieldSetString(text, const_cast<char*>(typed));
    XtCallCallbacks(text, XmNactivateCallback, nullptr);
    wdialoggetreal(1071, value);
    EXPECT_EQ(value, 0.25f) << typed;
  }
  char* shown = XmTextFieldGetString(text);
  EXPECT_STREQ(shown, "0.25");
  XtFree(shown);
  std::int32_t type = 0;
  message_record r;
  wmessage(type, r);
  EXPECT_EQ(std::pair(type, r.value2), std::pair(msg_field_changed, 1071));
  wmessageenable(msg_field_changed, 0);
}

// A box is coloured by clearing it with the background colour set to its
// colour; the box of field 1222 sits at 20, 132 in dialog units.
TEST_F(X11Window, ColourBoxesOfADialogShowWhatIsDrawnIntoThem) {
  Widget box = on_board(112, [](Widget w) {
    Position x = 0, y = 0;
    XtVaGetValues(w, XmNx, &x, XmNy, &y, nullptr);
    return XmIsDrawingArea(w) && x == x11_dialog_x(20) && y == x11_dialog_y(132);
  });
  ASSERT_NE(box, nullptr);
  igrselect(igr_field, 1222);
  igrpalette(0, 0x0000ff);  // red
  igrareaclear();
  igrselect(igr_window, 0);
  x11_dialog_flush();
  settle();
  XImage* image = XGetImage(x11_display(), XtWindow(box), 3, 3, 1, 1, AllPlanes, ZPixmap);
  EXPECT_EQ(XGetPixel(image, 0, 0) & 0xffffff, 0xff0000u) << "red in the screen's RGB order";
  XDestroyImage(image);
}

// Drawing on a pixmap of 200 x 100 pixels as window 0.
class X11Drawing : public X11Test {
 protected:
  void SetUp() override {
    X11Test::SetUp();
    if (IsSkipped()) return;  // no display: nothing to draw on
    surface = x11_canvas::pixmap(x11_display(), XtWindow(x11_root_shell()), 200, 100);
    attach_target(igr_window, 0, surface.get());
    igrselect(igr_window, 0);
  }
  void TearDown() override { attach_target(igr_window, 0, nullptr); X11Test::TearDown(); }
  // Whether a pixel is red (24-bit true colour).
  bool red_at(int x, int y) {
    XImage* image = XGetImage(x11_display(), surface->drawable(), x, y, 1, 1, AllPlanes, ZPixmap);
    const bool red = (XGetPixel(image, 0, 0) & 0xffffff) == 0xff0000;
    XDestroyImage(image);
    return red;
  }
  std::unique_ptr<x11_canvas> surface;
};

// A rectangle from 0.1 to 0.4 across and 0.1 to 0.9 up covers pixels 20..80
// and 10..90: solid, or hatched every 4 pixels at density 1, along x for
// style 1, crossed by lines along y for style 2. A line along row 51 from x 0:
// solid, dots 1 on 3 off, dashes 8 on 4 off, dot-dash 8 on, 3 off, 1 on, 3 off.
TEST_F(X11Drawing, FillsAndLinesBecomePixels) {
  enum { fill, line };
  const bool on = true, off = false;
  for (const auto& [what, style, x, y, coloured] :
       {std::tuple{fill, 4, 21, 11, on}, {fill, 4, 79, 89, on}, {fill, 4, 10, 50, off}, {fill, 4, 90, 50, off},
        {fill, -1, 30, 28, on}, {fill, -1, 30, 29, off}, {fill, -1, 29, 30, off}, {fill, -2, 30, 28, on},
        {fill, -2, 28, 31, on}, {fill, -2, 29, 30, off}, {line, 0, 150, 51, on}, {line, 0, 150, 50, off},
        {line, 1, 4, 51, on}, {line, 1, 2, 51, off}, {line, 2, 7, 51, on}, {line, 2, 9, 51, off}, {line, 2, 12, 51, on},
        {line, 3, 9, 51, off}, {line, 3, 11, 51, on}, {line, 3, 13, 51, off}}) {
    igrareaclear();
    igrcolour("Red");
    igrfillpattern(what == fill ? style : 4, 1, 1);
    igrlinetype(what == line ? style : 0);
    what == fill ? igrrectangle(0.1f, 0.1f, 0.4f, 0.9f) : igrjoin(0, 0.49f, 1, 0.49f);
    EXPECT_EQ(red_at(x, y), coloured) << (what == fill ? "fill " : "line ") << style << " at " << x << "," << y;
  }
}

std::vector<unsigned long> pixels_of(const x11_canvas& c) {
  XImage* image = XGetImage(x11_display(), c.drawable(), 0, 0, 200, 100, AllPlanes, ZPixmap);
  std::vector<unsigned long> all;
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 200; ++x) all.push_back(XGetPixel(image, x, y));
  XDestroyImage(image);
  return all;
}

// The quick ways give the pixels of box after box through fill_polygon:
// overlapping boxes of five colours with corners on and off half pixels,
// reversed, reaching out of the pixmap or rounding to nothing (once with a
// hatched box among them), and a filled contour picture whose cells are
// smaller than a pixel, against its recording drawn polygon by polygon (the
// recording keeps the sub-rows of a cell that the screen skips as unseen).
TEST_F(X11Drawing, BoxesInOneBatchAndFilledContoursPaintAsBoxAfterBox) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> corner(-20, 220), size(-30, 60);
  for (const int hatched : {-1, 30}) {
    std::vector<canvas_box> boxes;
    for (int k = 0; k < 400; ++k) {
      const float x = k % 3 ? corner(random) : std::round(corner(random)) + 0.5f, y = x / 2 - 5;
      boxes.push_back({x, y, x + size(random), y + size(random) / 2, {{-1, 0x3f << (k % 5 * 4)}, k == hatched ? 1 : 4}});
    }
    const auto plain = x11_canvas::pixmap(x11_display(), surface->drawable(), 200, 100);
    plain->canvas::fill_boxes(boxes);
    surface->clear(0, 0, 200, 100, {-1, 0});
    surface->fill_boxes(boxes);
    EXPECT_EQ(pixels_of(*surface), pixels_of(*plain)) << "hatched box " << hatched;
  }
  surface->clear(0, 0, 200, 100, {-1, 0});
  recording_canvas recorded{200, 100};
  for (canvas* target : std::initializer_list<canvas*>{surface.get(), &recorded}) {
    attach_target(igr_window, 0, target);
    const int nvals[2] = {257, 257};
    ipgnewplot2(8, 9, nvals, 8);
    ipgconfill2granul(10);  // as the plot window divides its cells
    for (int L = 1; L <= 9; ++L) ipgstyle(L, 4, 3, 3, 196 + L, 196 + L);
    ipgconfill2(peaks_field(257), 257, 257, std::vector<float>{-0.3f, -0.1f, 0.05f, 0.2f, 0.35f, 0.5f, 0.65f, 0.8f});
  }
  const auto plain = x11_canvas::pixmap(x11_display(), surface->drawable(), 200, 100);
  for (const recorded_primitive& p : recorded.primitives()) 
    plain->fill_polygon(std::span<const pixel_point>(p.points.begin(), p.points.end()), p.fill);
  EXPECT_EQ(pixels_of(*surface), pixels_of(*plain)) << "filled contours";
}

// A line's ends in pixels reach X rounded, halves away from 0, and pinned
// to X's 16 bits on the side they lie (NaN on the low side), not wrapped.
TEST_F(X11Drawing, LineEndsRoundAndPinToTheirSide) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const auto& [x1, x2, x, lit] :
       {std::tuple{10.5f, 10.5f, 11, true}, {10.5f, 10.5f, 10, false}, {20.49f, 20.49f, 20, true},
        {100.0f, 40000.0f, 150, true}, {100.0f, 40000.0f, 50, false}, {100.0f, -40000.0f, 50, true},
        {100.0f, -40000.0f, 150, false}, {nan, 100.0f, 50, true}, {nan, 100.0f, 150, false}}) {
    igrareaclear();
    const pixel_point line[] = {{x1, 10}, {x2, 90}}, across[] = {{x1, 50}, {x2, 50}};
    const std::uint32_t end[] = {2};
    surface->polylines(x1 == x2 ? line : across, end, {{-1, 0xff}, 0, 1});
    EXPECT_EQ(red_at(x, 50), lit) << "line from " << x1 << " to " << x2 << " at " << x;
  }
}

// Wires kept and drawn in batches give the pixels of the same wires drawn
// one by one (igrpolygonsimple, igrjoin): overlapping triangles and
// quadrilaterals, some reaching out of the pixmap or smaller than a pixel,
// with lines among them, the colour changing every few and the units half
// way; with a solid pen (drawn as one batch a colour), a dashed and a wide
// one (drawn line by line).
TEST_F(X11Drawing, WiresInBatchesPaintAsPolygonAfterPolygon) {
  std::mt19937 random(11);
  std::uniform_real_distribution<float> place(-0.2f, 1.2f), large(-0.3f, 0.3f), tiny(-0.004f, 0.004f);
  const int pens[][2] = {{0, 1}, {2, 1}, {0, 3}};
  const auto plain = x11_canvas::pixmap(x11_display(), surface->drawable(), 200, 100);
  for (const auto& [type, width] : pens) {
    const auto seed = random();
    for (canvas* target : {surface.get(), plain.get()}) {
      const bool batched = target == surface.get();
      random.seed(seed);
      target->clear(0, 0, 200, 100, {-1, 0});
      attach_target(igr_window, 0, target);
      igrlinetype(type);
      igrlinewidth(width);
      igrfillpattern(0);
      for (int k = 0; k < 600; ++k) {
        if (k % 300 == 0) igrunits(0, 0, 1 + static_cast<float>(k) / 600, 1);
        if (k % 7 == 0) igrcolourn(83 + k % 13);
        const int n = k % 5 == 4 ? 2 : 3 + k % 2;
        const float cx = place(random), cy = place(random);
        float x[4], y[4];
        for (int c = 0; c < n; ++c)
          x[c] = cx + (k % 3 ? large(random) : tiny(random)), y[c] = cy + (k % 3 ? large(random) : tiny(random));
        if (n == 2) batched ? igrjoinqueue(x[0], y[0], x[1], y[1]) : igrjoin(x[0], y[0], x[1], y[1]);
        else batched ? igrpolygonqueue(x, y, n) : igrpolygonsimple(x, y, n);
      }
      igrwiresflush();
    }
    EXPECT_EQ(pixels_of(*surface), pixels_of(*plain)) << "line type " << type << ", width " << width;
  }
  igrlinewidth(1);
}

}  // namespace
