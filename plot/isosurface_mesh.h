// The mesh of the isosurface view at the present isolevel.
#pragma once

#include <array>
#include <optional>

// The density of the isolevel: densigma x isolev + denave.
float isosurface_density();

// Rebuilds xyz and npoints from rho with the polygon half of the cube table,
// over the whole cell or within the fractional box (low and high x, then y,
// then z).
void isosurface_mesh(const std::optional<std::array<float, 6>>& box = std::nullopt);
