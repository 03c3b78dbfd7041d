// The view of a three-dimensional layout: elevation and rotation, and the
// parallel projection of grid nodes and plot coordinates onto the plot area.
#pragma once

// Elevation in degrees, kept within 0..45 and stored as a fraction of 45.
void ipgelevation(float angle);
// Rotation in degrees: |angle| >= 360 becomes 0, a negative angle gets 360 added.
void ipgrotation(float angle);

// The linear projection of the present state: a grid step along i moves by
// (ax, ay), a step along j by (bx, -by), a unit of z by zs, all in plot
// units; (x0, y0) is where node (1, 1) at zpmin lands.
struct surface_projection {
  float ax = 0, bx = 0, ay = 0, by = 0, zs = 0, x0 = 0, y0 = 0;
};
surface_projection yypg3dxy();

// Node position t = i - 1, u = j - 1 (fractional allowed) at height z,
// clipped to zpmin..zpmax, in graphics units.
void yypg3dnode(const surface_projection& p, float t, float u, float z, float& gx, float& gy);

// Plot coordinates (x, y) at height z to graphics units.
void ipgunitstogrunits3(float x, float y, float z, float& gx, float& gy);
