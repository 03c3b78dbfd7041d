// The box of the isosurface view: a point and an edge radius chosen by the
// user, within which the mesh is built while klimits is on.
#pragma once

#include <array>
#include <optional>

// The box dialog: the point (fractional) and the radius R in Angstrom give
// the box point -/+ R / cell edge along each axis, widened to hold the
// molecule when one is shown. Sets klimits, builds the mesh within the box,
// finds the window and draws. Cancel changes nothing.
void isosurface_box();

// The fractional box (low and high x, then y, then z) while klimits is on.
std::optional<std::array<float, 6>> isosurface_box_limits();

// Centres the scene on the box's point: the molecule's points are moved from
// their own centre to it, and baric becomes the point in Angstrom.
void centre_on_box_point();
