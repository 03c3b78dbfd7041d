// Toolbar icons of the catalogue as X pixmaps.
#pragma once

#include <X11/Xlib.h>

#include "toolkit/core/resources.h"

// A pixmap of the icon, as wide as its longest row (at most 64) and as high as
// its rows (at most 64); transparent cells painted in `background`. Short
// rows and unknown colour keys paint background too, so a damaged table
// cannot read outside its rows.
Pixmap x11_icon_pixmap(Display* display, Drawable where, const icon_type& icon,
                       unsigned long background);

// The same icon greyed out, for a disabled button: every painted cell becomes
// a grey of its own brightness, lightened towards the background.
Pixmap x11_icon_pixmap_greyed(Display* display, Drawable where, const icon_type& icon,
                              unsigned long background);
