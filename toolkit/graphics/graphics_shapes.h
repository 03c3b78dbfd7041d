// Filled shapes: the fill pattern, circles, triangles, rectangles, polygons
// and markers. A shape in fill style 0 is drawn as its outline; any other
// style fills it, with an outline in the same colour when the border flag is on.
#pragma once

#include <optional>

// Style -2..4 sets the style to its absolute value, a negative one without
// border; any other style becomes 0 with border. Density outside 1..5 (or
// missing) becomes 2, angle outside 1..4 (or missing) becomes 3.
void igrfillpattern(int style, std::optional<int> density = std::nullopt,
                    std::optional<int> angle = std::nullopt);

// A circle of radius r, measured in x units.
void igrcircle(float x, float y, float r);
void igrtriangle(float x1, float y1, float x2, float y2, float x3, float y3);
void igrrectangle(float x1, float y1, float x2, float y2);
// igrrectangle deferred: the rectangle is kept, with the fill of the moment,
// and drawn with those kept before it by igrrectangleflush, in the same order
// and to the same pixels, but in one call to the canvas. A rectangle that
// would be outlined is drawn at once, after those kept.
void igrrectanglequeue(float x1, float y1, float x2, float y2);
void igrrectangleflush();
// True when igrrectangle would change nothing on the current canvas (one of
// pixels, say, where the rectangle rounds to no whole pixel).
bool igrrectangleunseen(float x1, float y1, float x2, float y2);
// A polygon of n points (fewer than 3 draw nothing).
void igrpolygonsimple(const float* x, const float* y, int n);
// A polygon that may cross itself; its inside is found by the even-odd rule.
void igrpolygoncomplex(const float* x, const float* y, int n);
// A filled polygon whose colour runs between the colour numbers of its corners.
void igrpolygonshaded(const float* x, const float* y, const int* colours, int n);

// Marker `number` centred at a point: 1 dot, 2 plus, 3 asterisk, 4 circle,
// 5 cross, 6 square, 7 triangle, 8 diamond, 9 to 12 the last four filled.
// `size` is its width as a fraction of the area, by default the character width.
// Other numbers are error 1015.
void igrmarker(float x, float y, int number, std::optional<float> size = std::nullopt);
