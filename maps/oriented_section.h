// Sections by any plane: the turns between the crystal's orthogonal frame
// and the frame of the plane (whose third axis is the plane's normal, at
// polar angle theta and azimuth phi), the elementary turns of the 3-D view,
// and the map sampled on a 50 x 50 square of the plane.
#pragma once

#include "crystal/vector_types.h"

// From the plane's frame to the crystal frame: Rz(phi) Ry(theta) in.
void rotai(vec3f& out, const vec3f& in);
// From the crystal frame to the plane's frame: Ry(-theta) Rz(-phi) in.
void rotad(vec3f& out, const vec3f& in);

// Turns about x, y and z by minus ang degrees (right-handed sense).
void rota_ox(vec3f& out, const vec3f& in, float ang);
void rota_oy(vec3f& out, const vec3f& in, float ang);
void rota_oz(vec3f& out, const vec3f& in, float ang);

// Turns the isosurface mesh (the first npoints records of xyz) and, with
// kbonds, the molecule's points at_bonds_o in place by the view whose rows
// are xorient, yorient, zorient: each point p becomes
// p(1) xorient + p(2) yorient + p(3) zorient. A record's type stays.
void oriented_view();

// Adds the map on the square xl1..xl2 by yl1..yl2 of the plane at height zt
// into the 50 x 50 dmap: one layer, or with boton_add up to 11 layers from
// zt - |view_layers(1)| to zt + |view_layers(2)|, summed.
void oriented_section();
