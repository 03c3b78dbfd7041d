// Tolerances of the crystallographic routines: the global epsilon `epss` and
// the tests built on it.
#pragma once

#include "crystal/vector_types.h"

// Current tolerance of real comparisons (initially 1.0e-5).
float epss_val();
// Changes the tolerance; the multiplicity routine sets it for a while and
// gives the caller's value back afterwards.
void set_epsg(float eps);

// |x| <= epss.
bool negligibler(float x);
// Every component of a and b differs by at most epss.
bool equal_vector_r(const vec3f& a, const vec3f& b);
// x is an integer within epss: |round(x) - x| <= epss.
bool zbelongn(float x);
// zbelongn for every component.
bool zbelongv(const vec3f& v);
