// The headless face: a scripted user. A test (or a run without a display)
// queues what the user does and answers in advance, runs the program, and
// reads back what the program showed. Caption, status texts and menu states
// are read from the toolkit itself (toolkit/messages/window.h, wmenu.h);
// this face keeps what only it sees: the boxes shown, the selectors run and
// the drawing of the root window.
//
//   headless::install();
//   headless::queue_menu(40026);              // File, Open
//   headless::answer_file("maps/nacl.bin");   // the selector's answer
//   headless::answer_box(2);                  // No to the next question
//   run the program: when the script runs out, the user closes the window.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "toolkit/graphics/recording_canvas.h"
#include "toolkit/messages/message_record.h"

namespace headless {

// Makes this face the toolkit's backend, with an empty script and log.
void install();

// Events, delivered in order. When none is left the user asks to close the
// root window, so that every loop of the program ends.
void queue_event(std::int32_t type, const message_record& record);
// A look at what the program shows at this point of the script: the
// function runs when the program asks for the next event, before it gets it.
void queue_look(std::function<void()> look);
void queue_menu(std::int32_t item);
void queue_push_button(std::int32_t button);
void queue_expose();
void queue_resize();
void queue_close(std::int32_t window = 0);
// A mouse message at a position in drawing units.
void queue_mouse(std::int32_t type, std::int32_t button, float gx, float gy);

// The user's actions in a dialog on the screen, in order with the events
// above (see toolkit/dialogs/dialog_user.h): they change the field and queue
// the messages the program reads. An action the dialog refuses (hidden
// dialog, disabled field, number out of range) is noted in refused().
// The focus moves to the field, as the Tab key or a click does.
void move_focus(int dialog, int field);
void type_text(int dialog, int field, const std::string& text);
void set_check(int dialog, int field, int checked);
void choose_radio(int dialog, int field);
void choose_option(int dialog, int field, int selection);
void choose_tab(int dialog, int field, int page);
void type_cell(int dialog, int field, int column, int row, const std::string& text);
void press(int dialog, int button);
void click_field(int dialog, int field);
// What was drawn into a colour box (picture field) of a dialog on the screen,
// a drawing target while its dialog is shown: null when there is none.
recording_canvas* field_canvas(int field);

// Actions refused, as "dialog field", oldest first.
const std::vector<std::string>& refused();

// The dialogs' comings and goings, in order: "show D" when dialog D came on
// the screen, "D F V" when its progress bar F was set to V, "hide D" and
// "unload D" when it left.
const std::vector<std::string>& dialog_trace();

// Answers of the next directory and colour selectors and print-options
// dialogs; without one queued they are cancelled.
void answer_directory(const std::string& name);
void answer_colour(std::int32_t rgb);
void answer_print_options(bool ok);

// Files shown by weditfile: the child window and the text.
struct shown_file {
  std::int32_t window = 0;
  std::string path;
  std::string text;
};
const std::vector<shown_file>& files_shown();

// Answers of the next selectors: a file name, or a cancel. A selector with
// no answer queued is cancelled.
void answer_file(const std::string& name);
void answer_file_cancel();

// The button pressed in the next message box (1 OK or Yes, 2 No). A box with
// no answer queued gets its default button.
void answer_box(int button);

struct shown_box {
  int buttons = 0;
  int icon = 0;
  int default_button = 0;
  std::string text;
  std::string title;
  int pressed = 0;
};
struct selector_run {
  std::string filter;
  int flags = 0;
  std::string start_name;
  std::string title;
};

const std::vector<shown_box>& boxes();
const std::vector<selector_run>& selectors();
// Texts of the boxes in order, for quick comparisons.
std::vector<std::string> box_texts();
// Events still unread by the program.
std::size_t events_left();

// What the root window shows: every primitive drawn into it while it was
// open (an 800 x 600 pixel client area).
recording_canvas& root_canvas();

}  // namespace headless
