// The message queue: the program pulls one message at a time with wmessage,
// in loops of its own making.
#pragma once

#include <cstdint>

#include "toolkit/messages/message_record.h"

// Blocks until a message is available and fills type and record. A pushed
// message comes first; then messages the toolkit queued itself; then the
// backend's events. Types 1 to 19 that are disabled are dropped.
void wmessage(std::int32_t& type, message_record& record);

// Keeps one message (a second push replaces the first); the next wmessage
// returns it whole, without looking at the queue or the enable table.
void wmessagepush(std::int32_t type, const message_record& record);

// Turns a message type on (state 1) or off (state 0). Types outside 1 to 19
// are not in the table and always pass.
void wmessageenable(std::int32_t type, std::int32_t state);

// The state of the enable table for a type (true outside 1 to 19).
bool message_enabled(std::int32_t type);

// A message the toolkit itself produces (a dialog button, a field change, a
// menu choice); delivered in order before the backend is asked again.
void yyqueue_message(std::int32_t type, const message_record& record);

// Whether the toolkit holds messages of its own not yet delivered; a face
// whose next_event waits on the screen returns type 0 when this becomes true.
bool yymessages_waiting();

// Back to the state at start: the enable table as at start, no pushed or queued
// message. Called by winitialise.
void yyreset_messages();
