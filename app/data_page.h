// What the eight pages of the input data dialog share: the word that tells a
// page what to do, switching fields on and off, and the end of a page read.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

// What a page does for each word; a page without a routine for a word does
// nothing for it.
struct page_routines {
  void (*init)();
  void (*write)();
  void (*read)();
  void (*modify)();
  void (*button)();
};

// Makes the page current, then runs the routine the word names by its first
// letter, case-insensitive: init, write, read, modify or button.
void run_page(std::int32_t dialog, const std::string& word, const page_routines& routines);

// Every field of the list enabled (on) or disabled.
void fields_on(std::initializer_list<std::int32_t> fields, bool on);

// Whether the message being handled is a change of the field's value (a
// choice in a radio button, check box or option menu, or a new text): a field
// change with the field twice. A move of the focus from one field to another
// is not.
bool chosen(std::int32_t field);

// Call before a page reads its fields: clears the toolkit's error, so that an
// empty number field read afterwards shows up in it.
void begin_page_read();
// Call after: a toolkit error or a fault the page found itself shows the
// page's message and sets kerror.
void end_page_read(bool fault, const std::string& message);

// The file selector of a Browse button, starting in the work directory; on
// OK the chosen name goes into the field.
void browse_into(std::int32_t field, const std::string& filter, const std::string& title);
