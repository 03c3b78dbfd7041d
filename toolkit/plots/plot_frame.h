// The frame of a flat plot: border, axes, axis labels and title.
#pragma once

#include <optional>
#include <string_view>

// The plot rectangle as one closed line of five points.
void ipgborder();
// The axes through the crossing point (plot units), or through the lower
// left corner when the crossing lies outside the plot, to the far edges. In
// a three-dimensional layout: the box around the base.
void ipgaxes(std::optional<float> xcross = std::nullopt, std::optional<float> ycross = std::nullopt);

// Axis labels. x: centred under the plot, "L" or "R" at its left or right
// end. y: "9" turns it by 90 degrees along the left edge, "T" or "B" puts it
// at the top or bottom end. A label wider than the plot is drawn smaller.
// Blank texts draw nothing; the text state is kept. In a three-dimensional
// layout the labels run along the box edges nearest the viewer.
void ipgxlabel(std::string_view text, std::string_view options = "");
void ipgylabelleft(std::string_view text, std::string_view options = "");
// The z label of a three-dimensional layout, up the box's left corner.
void ipgzlabelleft(std::string_view text, std::string_view options = "");
// The title above the plot: centred, or "L"/"R" at the left or right end.
void ipgtitle(std::string_view text, std::string_view options = "");

// A text anchored at a point of the graphics area, moved the least needed to
// lie inside the plot area: the label of a point on the frame then stays clear
// of the scale numbers beyond it.
void ipgtextinside(float gx, float gy, std::string_view text);
