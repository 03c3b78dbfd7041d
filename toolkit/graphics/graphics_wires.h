// Wires: outlined polygons and lines kept and drawn together. A wire picture
// (a mesh of thousands of polygons) reaches the canvas as a few batches, one
// for each run of polygons and lines drawn with the same pen on the same
// canvas, in the order they were given and to the same pixels as one by one.
#pragma once

// igrpolygonsimple deferred. A polygon that would be filled is drawn at once,
// after the wires kept before it.
void igrpolygonqueue(const float* x, const float* y, int n);
// igrjoin deferred; the pen ends at the second point at once.
void igrjoinqueue(float x1, float y1, float x2, float y2);
// Draws the wires kept. Call it before anything else is drawn, and before
// the pen or the fill change in a way the queue cannot see. A change of
// units, area or target calls it itself.
void igrwiresflush();
