// The drawing layer in one include: state, targets, area and units, colours,
// lines, shapes, wires and text.
#pragma once

#include "toolkit/graphics/canvas.h"
#include "toolkit/graphics/graphics_area.h"
#include "toolkit/graphics/graphics_colour.h"
#include "toolkit/graphics/graphics_lines.h"
#include "toolkit/graphics/graphics_shapes.h"
#include "toolkit/graphics/graphics_state.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/graphics/graphics_text.h"
#include "toolkit/graphics/graphics_wires.h"
