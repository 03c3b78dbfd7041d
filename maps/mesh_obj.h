// The isosurface mesh as a Wavefront OBJ file, for programs such as Blender
// and MeshLab: one vertex per record, turned from fractional coordinates to
// Angstrom by the cell, and the primitives as faces. The lines of types 5 and
// 6 (the sides a wire picture draws from a polygon's first point) become OBJ
// lines.
#pragma once

#include <cstdint>
#include <string>

#include "crystal/farray.h"

// Writes the first npoints records of xyz to path, whole or not at all;
// false with the reason in why when the file cannot be written.
bool write_mesh_obj(const std::string& path, const farray2<float>& xyz, std::int32_t npoints, std::string& why);
