#include "synthesis/listing.h"

#include <cstdio>
#include <ostream>
#include <sstream>

namespace {

constexpr std::size_t line_length = 120;
constexpr std::size_t echo_lines = 2000;

template <typename... T>
void put(std::ostream& out, const char* format, T... values) {
  char text[512];
  std::snprintf(text, sizeof text, format, values...);
  out << text;
}

void heading(std::ostream& out, const char* title) { out << "\n ==== " << title << " ====\n\n"; }

const char* synthesis_name(std::int32_t ntype) {
  static const char* const names[] = {"Fo exp(i phi)", "Fc exp(i phi)", "(Fo - Fc) exp(i phi)",
                                      "Patterson Fo^2", "Patterson Fc^2", "A + iB", "A + iB"};
  return ntype >= 1 && ntype <= 7 ? names[ntype - 1] : "unknown";
}

double d_of(double s) { return s > 0.0 ? 0.5 / s : 0.0; }

}  // namespace

void list_echo(std::ostream& out, const std::string& text) {
  heading(out, "Control file");
  std::istringstream in(text);
  std::size_t count = 0;
  for (std::string line; std::getline(in, line); ++count)
    if (count < echo_lines) out << "   " << line.substr(0, line_length) << '\n';
  if (count > echo_lines) put(out, "   ... %zu more lines\n", count - echo_lines);
}

void list_crystal(std::ostream& out, const cell_metrics_type& cell, const space_group_type& group) {
  heading(out, "Crystal");
  put(out, "   Cell: %9.4f %9.4f %9.4f %8.3f %8.3f %8.3f   volume %.3f A^3\n", double{cell.cell[0]},
      double{cell.cell[1]}, double{cell.cell[2]}, double{cell.ang[0]}, double{cell.ang[1]}, double{cell.ang[2]},
      double{cell.cell_vol});
  put(out, "   Space group: %s (Hall %s), %d operators, %d centring vectors\n", group.spg_symb.c_str(),
      group.hall.c_str(), group.multip, group.num_lat);
}

void list_reflections(std::ostream& out, const std::string& file, const reflection_set_type& set,
                      const synthesis_request_type& request, const reflection_counts_type& counts) {
  heading(out, "Reflections");
  put(out, "   Synthesis: %s (Fourier kind %d), F000 %.4f, scale %.4f\n", synthesis_name(request.ntype),
      request.ntype, request.f000, request.scale);
  put(out, "   File: %s, %s\n", file.c_str(), set.layout.c_str());
  if (request.smax > 0.0)
    put(out, "   Limits: sin(theta)/lambda from %.4f to %.4f\n", request.smin, request.smax);
  else
    put(out, "   Limits: sin(theta)/lambda from %.4f, no upper limit\n", request.smin);
  if (request.sigm > 0.0)
    put(out, "   Sigma cut: %s\n",
        set.has_sigma ? "Fo below sigm x sigma is left out" : "asked for, but the file has no sigma");
  const struct {
    const char* what;
    std::int64_t count;
  } rows[] = {
      {"read", counts.read},
      {"left out: 0 0 0 (F000 comes from the control file)", counts.origin},
      {"left out: sin(theta)/lambda outside the limits", counts.outside_range},
      {"left out: Fo below sigm x sigma", counts.below_sigma},
      {"left out: systematically absent in the group", counts.absent},
      {"merged with an equivalent read before", counts.merged},
      {"used, one per set of equivalents", counts.unique},
      {"coefficients summed (equivalents and Friedel mates)", counts.in_cell},
  };
  for (const auto& r : rows) put(out, "   %-55s %10lld\n", r.what, static_cast<long long>(r.count));
  put(out, "   Resolution: sin(theta)/lambda up to %.4f, d min %.4f A\n", counts.s_max, d_of(counts.s_max));
}

void list_map(std::ostream& out, const synthesis_result_type& result, const cell_metrics_type& cell) {
  heading(out, "Map");
  const auto& n = result.grid;
  put(out, "   Grid: %d x %d x %d (%s), steps %.4f %.4f %.4f A\n", n[0], n[1], n[2],
      result.automatic_grid ? "chosen from the data" : "from the control file", double{cell.cell[0]} / n[0],
      double{cell.cell[1]} / n[1], double{cell.cell[2]} / n[2]);
  put(out, "   Density (e/A^3): min %.5f  max %.5f  mean %.5f  sigma %.5f\n", double{result.denmin},
      double{result.denmax}, double{result.denave}, double{result.densigma});
  put(out, "   Processor time of the synthesis: %.1f ms\n", result.processor_ms);
}

void list_atoms(std::ostream& out, const atom_list_type& atoms, const cell_metrics_type& cell) {
  heading(out, "Atoms");
  out << "   Label    Symbol       x        y        z        occ       X(A)     Y(A)     Z(A)\n";
  for (std::int32_t i = 0; i < atoms.natoms; ++i) {
    const atom_type& a = atoms.atom[static_cast<std::size_t>(i)];
    double o[3] = {};
    for (std::size_t r = 0; r < 3; ++r)
      for (std::size_t c = 0; c < 3; ++c) o[r] += double{cell.cr_orth[r][c]} * a.x[c];
    put(out, "   %-8s %-6s %8.4f %8.4f %8.4f %8.3f  %8.3f %8.3f %8.3f\n", a.lab.c_str(), a.chem_symb.c_str(),
        double{a.x[0]}, double{a.x[1]}, double{a.x[2]}, double{a.occ}, o[0], o[1], o[2]);
  }
}

void list_distances(std::ostream& out, const atom_list_type& atoms, const atom_list_type& cell_atoms,
                    const cell_metrics_type& cell, double d1, double d2) {
  heading(out, "Distances");
  put(out, "   From each atom to the atoms of the cell, %.3f to %.3f A\n", d1, d2);
  for (std::int32_t i = 0; i < atoms.natoms; ++i) {
    const atom_type& a = atoms.atom[static_cast<std::size_t>(i)];
    for (std::int32_t j = 0; j < cell_atoms.natoms; ++j) {
      const atom_type& b = cell_atoms.atom[static_cast<std::size_t>(j)];
      const double d = crystal_distance(cell, a.x, b.x);
      if (d >= d1 && d <= d2 && d > 1e-3)
        put(out, "   %-8s - %-12s %8.4f   (%.4f %.4f %.4f)\n", a.lab.c_str(), b.lab.c_str(), d, double{b.x[0]},
            double{b.x[1]}, double{b.x[2]});
    }
  }
}

void list_peaks(std::ostream& out, const std::vector<peak_type>& peaks, std::int32_t asked,
                const atom_list_type& cell_atoms, const cell_metrics_type& cell) {
  heading(out, "Peaks");
  put(out, "   %zu of the %d highest peaks asked for, one of each set related by symmetry\n", peaks.size(), asked);
  out << "   Peak         x        y        z     height   mult   nearest atom   distance(A)\n";
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    const peak_type& p = peaks[i];
    std::string nearest = "-";
    double shortest = 0.0;
    for (std::int32_t j = 0; j < cell_atoms.natoms; ++j) {
      const atom_type& b = cell_atoms.atom[static_cast<std::size_t>(j)];
      const double d = crystal_distance(cell, p.x, b.x);
      if (nearest == "-" || d < shortest) {
        nearest = b.lab;
        shortest = d;
      }
    }
    put(out, "   PK%-6zu %8.4f %8.4f %8.4f %10.4f %5d   %-12s %8.4f\n", i + 1, double{p.x[0]}, double{p.x[1]},
        double{p.x[2]}, double{p.height}, p.mult, nearest.c_str(), shortest);
  }
}
