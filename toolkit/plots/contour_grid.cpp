#include "toolkit/plots/contour_grid.h"

#include <cstdint>

#include "toolkit/core/werror.h"
#include "toolkit/plots/plot_state.h"

bool contour_grid::present(int i, int j) const {
  return !(ipgstate.bmissing[2] && at(i, j) == ipgstate.rmissing);
}

bool contour_grid_fits(const contour_grid& grid, int ny, std::string_view routine) {
  const auto& s = ipgstate;
  const std::int64_t needed = static_cast<std::int64_t>(s.npval2 - 1) * grid.nx + s.npval1;
  if (grid.nx < s.npval1 || ny < s.npval2 || static_cast<std::int64_t>(grid.z.size()) < needed) {
    yyerror(1143, routine);
    return false;
  }
  return true;
}

bool contour_levels(std::span<const float> given, int count, std::string_view routine,
                    std::vector<float>& levels) {
  const auto& s = ipgstate;
  levels.assign(static_cast<std::size_t>(count), 0.0f);
  if (given.empty()) {
    for (int L = 1; L <= count; ++L)
      levels[L - 1] = static_cast<float>(L) * s.zplen / static_cast<float>(s.npset) + s.zpmin;
    return true;
  }
  if (static_cast<int>(given.size()) < count) {
    yyerror(1015, routine);
    return false;
  }
  for (int L = 1; L <= count; ++L) {
    levels[L - 1] = given[L - 1];
    if (L > 1 && levels[L - 1] <= levels[L - 2]) {
      yyerror(43, routine);
      return false;
    }
  }
  return true;
}
