// The record that wmessage fills: sixteen 32-bit words, overwritten by each call.
#pragma once

#include <cstdint>

struct message_record {
  std::int32_t win = 0;     // word 0: window handle, 0 the root, above 0 a child
  std::int32_t value1 = 0;  // word 1: by message type (menu id, button id, field left...)
  std::int32_t value2 = 0;  // word 2: by message type (field entered...)
  std::int32_t value3 = 0;  // word 3: source of a mouse message: 0 or 2 a window, 1 a dialog
  std::int32_t value4 = 0;  // word 4: identifier of the source dialog or field
  std::int32_t x = 0;       // word 5: pointer position in pixels
  std::int32_t y = 0;       // word 6
  std::int32_t reserved7 = 0;
  std::int32_t reserved8 = 0;
  float gx = 0.0f;          // word 9: pointer position in drawing units
  float gy = 0.0f;          // word 10
  std::int32_t reserved11 = 0;
  std::int32_t raw_x = 0;   // word 12: raw pixel position as delivered
  std::int32_t raw_y = 0;   // word 13
  std::int32_t reserved14 = 0;
  std::int32_t reserved15 = 0;
};

static_assert(sizeof(message_record) == 64, "a message record is 16 words");

// Message types.
constexpr std::int32_t msg_key = 1;
constexpr std::int32_t msg_menu_select = 2;
constexpr std::int32_t msg_push_button = 3;
constexpr std::int32_t msg_mouse_down = 4;
constexpr std::int32_t msg_mouse_up = 5;
constexpr std::int32_t msg_mouse_move = 6;
constexpr std::int32_t msg_expose = 7;
constexpr std::int32_t msg_resize = 8;
constexpr std::int32_t msg_close_request = 9;
constexpr std::int32_t msg_field_changed = 10;
