#include "toolkit/dialogs/message_box.h"

#include "toolkit/core/trim.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/messages/backend.h"

namespace {

constexpr std::int32_t buttons_ok = 0;
constexpr std::int32_t buttons_yes_no = 3;
constexpr std::int32_t icon_stop = 1;
constexpr std::int32_t icon_question = 2;
constexpr std::int32_t icon_exclamation = 3;
constexpr std::int32_t icon_information = 4;
constexpr std::size_t title_length = 80;

std::string caller_title(const std::string& title) { return yytrim(title.substr(0, std::min(title.size(), title_length))); }

}  // namespace

void wmessagebox(std::int32_t buttons, std::int32_t icon, std::int32_t default_button,
                 const std::string& text, const std::string& title) {
  const int pressed = current_backend().message_box(buttons, icon, default_button, yytrim(text), yytrim(title));
  yyset_exit_button(pressed == 2 ? 2 : 1);
}

void error_message(const std::string& text) { wmessagebox(buttons_ok, icon_exclamation, 1, text, "Error Message"); }

void warning_message(const std::string& text) {
  wmessagebox(buttons_ok, icon_exclamation, 1, text, "Warning Message");
}

void info_message(const std::string& text) {
  wmessagebox(buttons_ok, icon_information, 1, text, "Information Message");
}

void question_message(const std::string& text, const std::string& title) {
  wmessagebox(buttons_yes_no, icon_question, 1, text, caller_title(title));
}

void stop_message(const std::string& text, const std::string& title) {
  wmessagebox(buttons_yes_no, icon_stop, 1, text, caller_title(title));
}
