#include "maps/map_memory.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

#include "state/quelmora_parametros.h"

namespace qp = quelmora_parametros;

namespace {

using extents3 = std::array<std::int64_t, 3>;

bool has_extents(const farray3<float>& a, const extents3& n) {
  return a.allocated() && a.extent(1) == n[0] && a.extent(2) == n[1] && a.extent(3) == n[2];
}

// Allocates the array with the given extents. The extents come from a file,
// so they are checked first: each must fit the array's index type and the
// byte count must not overflow. A refused or failed allocation leaves the
// array released and returns false. The elements are not cleared: the read
// fills rho and proc_carga fills rhonew.
bool allocate_grid(farray3<float>& a, const extents3& n) {
  std::uint64_t bytes = sizeof(float);
  for (std::int64_t e : n) {
    if (e > std::numeric_limits<std::int32_t>::max() ||
        __builtin_mul_overflow(bytes, static_cast<std::uint64_t>(e), &bytes))
      return false;
  }
  try {
    a.allocate_unset(static_cast<std::int32_t>(n[0]), static_cast<std::int32_t>(n[1]),
               static_cast<std::int32_t>(n[2]));
  } catch (const std::bad_alloc&) {
    a.release();
    return false;
  } catch (const std::length_error&) {
    a.release();
    return false;
  }
  return true;
}

}  // namespace

void memory_maps() {
  extents3 n_rho{}, n_rhonew{};
  for (std::size_t i = 0; i < 3; ++i) {
    n_rho[i] = std::max<std::int64_t>(qp::ngrid[i], 0);
    n_rhonew[i] = std::max<std::int64_t>(qp::ngrid[i], -1) + 1;
  }

  if (!has_extents(qp::rho, n_rho)) {
    qp::rho.release();
    if (!allocate_grid(qp::rho, n_rho)) {
      qp::kerror = true;
      return;
    }
  }

  if (qp::rhonew.allocated() && !has_extents(qp::rhonew, n_rhonew)) qp::rhonew.release();
  if (!qp::rhonew.allocated() && !allocate_grid(qp::rhonew, n_rhonew)) qp::kerror = true;
}
