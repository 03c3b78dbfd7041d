// The plot mode: the loop that has the root window while a map is shown, and
// the commands it serves itself (viewing direction, section stepping, plot
// kind, probing on or off, reset).
#pragma once

// Takes over the root window (plot toolbars, caption, colours), draws the
// first picture and serves the user until command 40033 or a close request
// of the root window; then gives the window back with the main menu.
void menu_plotting();

// The enabled states of Edit, Plot, Save, Print File and Sintrel Program,
// kept in iedit, iplot, isave, iprintfile, ifourier while the plot has the
// window, and put back when it leaves.
void save_menu_options();
void load_menu_options();

// Next viewing direction (1, 2, 3, 1): ends a layer sum and an oriented
// section, then redraws.
void proc_vxyz();
// Next and previous section along the present direction (or the oriented
// section's height by 0.1), kept within 1 and ngrid + 1; ends a layer sum.
void proc_mas();
void proc_menos();
// Mouse probing on or off: command checks, mouse messages and cursor.
void proc_show();
// Back to the first section, the whole cell and the start state of the
// commands, and redraws.
void proc_clear();
// Plot kinds: contour lines, filled contours, surface. Nothing happens when
// the kind is already on.
void proc_2d();
void proc_2df();
void proc_3d();
// The window's background and foreground colours through the colour
// selector; on OK the palette takes the colour and the setting is marked
// changed. The picture is redrawn whenever a setting has changed.
void proc_gback();
void proc_gfor();
// After an expose or a resize: a new off-screen bitmap of the window's size
// and the picture of the present kind drawn into it.
void proc_reexp();
// Draws the picture of the present kind: the isosurface for kind 4, the
// section (contours, filled, surface) otherwise.
void redraw_plot();
