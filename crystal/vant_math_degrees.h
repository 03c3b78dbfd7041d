// Trigonometry in degrees, single precision in and out.
#pragma once

// cos and sin of an angle in degrees, evaluated in double and rounded.
float cosd_sp(float x);
float sind_sp(float x);
// The angle in degrees whose cosine is x; 0 above 1 and 180 below -1, so that
// a cosine pushed just outside its range by rounding still gives an angle.
float acosd_sp(float x);
