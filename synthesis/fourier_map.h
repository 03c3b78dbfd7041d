// The density on the grid by a fast Fourier transform (FFTW, single
// precision). Single precision is enough: its rounding, about 1e-6 of the
// map's largest value, lies far below what a map of 32-bit floats keeps
// anyway and below any error of the data, and it halves time and memory.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "crystal/farray.h"
#include "synthesis/symmetry_expansion.h"

// rho(x) = (1/V) [f000_term + scale * sum C(h) exp(-2 pi i h.x)], the sum
// over the orbits of the unique coefficients, on the grid n (x fastest).
// Indices beyond the grid fold onto it: the values at the grid points stay
// exact. Returns the number of coefficients summed, or -1 (with the error
// pair of the synthesis set) when the memory is not there.
std::int64_t fourier_map(const coefficient_list& unique, const expansion_type& e, double f000_term,
                         double scale, double volume, const std::array<std::int32_t, 3>& n, farray3<float>& rho);
