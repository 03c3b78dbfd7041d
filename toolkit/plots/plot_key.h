// The key of a grid plot: one row per data set, a sample of its style and its text.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

// Draws the key in the key area (ipgkeyarea) of a graph type 8 plot: rows
// from the top in set order, or with "R" from the bottom. The character size
// is fitted so that the widest text and its sample fill the area's width and
// the rows its height. A heading, when given, stands above the rows.
// Nothing is drawn without a key area.
void ipgkeyall(std::span<const std::string> texts, std::string_view options = "",
               std::optional<std::string_view> heading = std::nullopt);

// One row: the sample of set `iset` at the left end of the row centred at
// height y (graphics units), its text half a character after it.
void ipgkeysingle(int iset, float y, std::string_view text);
