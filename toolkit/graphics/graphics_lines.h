// Lines: type and width, the pen, straight lines and polylines.
#pragma once

#include "toolkit/graphics/canvas.h"

// Line type 0 solid, 1 dots, 2 dashes, 3 dot-dash; others count as solid.
void igrlinetype(int type);
// Line width in pixels, at least 1.
void igrlinewidth(int width);

// Moves the pen without drawing.
void igrmoveto(float x, float y);
// Draws from the pen to the point; the pen follows.
void igrlineto(float x, float y);
// Draws a line between two points; the pen ends at the second.
void igrjoin(float x1, float y1, float x2, float y2);
// Draws one line through n points (n < 2 draws nothing); the pen ends at the last.
void igrpolyline(const float* x, const float* y, int n);

// The pen of the present state.
canvas_pen current_pen();
