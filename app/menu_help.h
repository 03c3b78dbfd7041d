// The Help menu's about box (unit menu_help).
#pragma once

// Dialog 113 with the program's version and the version of its data, shown
// at the default place until the user presses OK.
void menu_h_about();
