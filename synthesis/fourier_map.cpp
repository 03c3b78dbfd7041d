#include "synthesis/fourier_map.h"

#include <fftw3.h>

#include <algorithm>
#include <complex>
#include <memory>
#include <new>
#include <string>

#include "synthesis/reflections.h"

namespace {

struct plan_deleter {
  void operator()(fftwf_plan p) const { fftwf_destroy_plan(p); }
};

std::int32_t fold(std::int32_t h, std::int32_t n) {
  const std::int32_t f = h % n;
  return f < 0 ? f + n : f;
}

}  // namespace

std::int64_t fourier_map(const coefficient_list& unique, const expansion_type& e, double f000_term,
                         double scale, double volume, const std::array<std::int32_t, 3>& n, farray3<float>& rho) {
  const auto [nx, ny, nz] = n;
  // FFTW counts in row-major order, so the map (x fastest) is nz x ny x nx
  // to it, and the complex half keeps x from 0 to nx/2.
  const std::size_t half = static_cast<std::size_t>(nx / 2 + 1);
  const std::size_t points = static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny) * static_cast<std::size_t>(nz);
  const std::size_t bins = half * static_cast<std::size_t>(ny) * static_cast<std::size_t>(nz);
  // The transform writes straight into the map: one grid of memory less.
  // The coefficients start at 0; FFTW's complex is laid out as std::complex.
  std::vector<std::complex<float>, map_allocator<std::complex<float>>> spectrum;
  std::unique_ptr<fftwf_plan_s, plan_deleter> plan;
  try {
    rho.allocate(nx, ny, nz);
    spectrum.resize(bins);
    plan.reset(fftwf_plan_dft_c2r_3d(nz, ny, nx, reinterpret_cast<fftwf_complex*>(spectrum.data()), rho.data(),
                                     FFTW_ESTIMATE));
  } catch (const std::bad_alloc&) {
    plan.reset();
  }
  if (!plan) {
    err_synthesis = true;
    err_synthesis_mess = "Not enough memory for a grid of " + std::to_string(points) + " points";
    return -1;
  }

  // FFTW sums with exp(+2 pi i h.x): each coefficient goes in conjugated.
  // Of a Friedel pair only the member in the stored half is placed; the
  // transform takes the other as its conjugate.
  std::int64_t summed = 0;
  std::vector<coefficient_type> orbit;
  for (const coefficient_type& c : unique) {
    equivalents(c, e, orbit);
    summed += static_cast<std::int64_t>(orbit.size());
    for (const coefficient_type& o : orbit) {
      const std::int32_t h = fold(o.hkl[0], nx);
      if (h > nx / 2) continue;
      const std::size_t at =
          (static_cast<std::size_t>(fold(o.hkl[2], nz)) * static_cast<std::size_t>(ny) +
           static_cast<std::size_t>(fold(o.hkl[1], ny))) * half + static_cast<std::size_t>(h);
      spectrum[at] += std::conj(std::complex<float>(scale * o.value));
    }
  }
  spectrum[0] += static_cast<float>(f000_term);
  fftwf_execute(plan.get());

  const auto per_volume = static_cast<float>(1.0 / volume);
  std::for_each(rho.data(), rho.data() + points, [&](float& v) { v *= per_volume; });
  return summed;
}
