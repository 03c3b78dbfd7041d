// Dialogs of the catalogue on the screen: a transient shell per dialog with
// its fields placed in pixels from dialog units; the pages of a tab holder
// live inside their holder. Widgets show the toolkit's dialog state
// (toolkit/dialogs/dialog_model.h) and report the user's actions through
// toolkit/dialogs/dialog_user.h.
#pragma once

#include <Xm/Xm.h>

// The dialog came on the screen or left it.
void x11_dialog_show(int dialog, bool shown);
// The program changed a field: the widget takes the state again.
void x11_dialog_field(int dialog, int field);
// The dialog is gone: its widgets are destroyed.
void x11_dialog_unload(int dialog);

// Shows what was drawn into the colour boxes; called before waiting for the user.
void x11_dialog_flush();

// The shell of a dialog on the screen, or nullptr (tests look at its size).
Widget x11_dialog_shell(int dialog);
