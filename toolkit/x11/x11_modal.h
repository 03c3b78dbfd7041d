// Runs the X event loop until a modal box or selector has its answer. Events
// for the client areas that arrive meanwhile stay queued as messages.
#pragma once

// Dispatches events until `*answered` becomes non-zero.
void x11_wait_for_answer(const int* answered);
