// Message boxes: wmessagebox and the family the program calls.
#pragma once

#include <cstdint>
#include <string>

// Buttons 0 is OK alone, 3 Yes and No. Icons: 1 stop, 2 question,
// 3 exclamation, 4 information. The button pressed is kept for
// winfodialog(4): 1 OK or Yes, 2 No.
void wmessagebox(std::int32_t buttons, std::int32_t icon, std::int32_t default_button,
                 const std::string& text, const std::string& title);

// Title "Error Message", OK, icon 3.
void error_message(const std::string& text);
// Title "Warning Message", OK, icon 3.
void warning_message(const std::string& text);
// Title "Information Message", OK, icon 4.
void info_message(const std::string& text);
// The caller's title (80 characters, usually blank), Yes and No, icon 2.
void question_message(const std::string& text, const std::string& title = "");
// The caller's title (80 characters), Yes and No, icon 1.
void stop_message(const std::string& text, const std::string& title);
