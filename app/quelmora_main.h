// The program: start-up, the main message loop with its menu table, and the
// closing sequence. main() picks the face of the toolkit and calls
// quelmora_main; tests call it with the headless face.
#pragma once

#include <cstdint>
#include <string>

int quelmora_main(int argc, const char* const* argv);

// The loop of the shell; returns on a close request of the root window, on
// File Exit and on Quit.
void main_loop();

// Asks to save the control data and the settings when they changed, writes
// the directory file and closes the window. Nothing can stop it.
void closing_sequence();
