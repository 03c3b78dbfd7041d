// Prints what a binary map file holds: title, version bytes, cell, space
// group, atoms, run parameters, grid, density range and statistics, peaks.
// A CCP4/MRC map (known by its content) is read as the program reads it.
// The file is read by the program's own load chain, so the density range is
// the one the program holds after loading (denmin, denmax from the map).
//
//   quelmora-info [--json] file.bin
//   quelmora-info [--json] map.ccp4
//   quelmora-info [--json] --group TEXT
//   quelmora-info [--json] file.bin --isosurface SIGMA [--obj OUT.obj]
//   quelmora-info [--json] --structure FILE [--format vtl|cif|shx|kdc]
//   quelmora-info file.bin --section z5
//
// With --group the space group named by TEXT (a number, a Hermann-Mauguin or
// a Hall symbol) is built by set_spacegroup and its record printed: on a text
// that names no group the library's message goes to stderr, exit status 1.
//
// With --structure a structure file is read by the program's readers (the
// format from the extension when --format is not given: .cif, .ins and .res,
// .pcr and .kdc, anything else VTL) and its cell, group and atoms printed,
// with each atom's multiplicity and occupation; a file the reader refuses
// prints the reader's message and exits 1.
//
// With --isosurface the mesh of the whole cell is built at densigma x SIGMA +
// denave, as the isosurface view builds it, and the level and the number of
// records of each primitive type are printed; --obj writes the mesh as a
// Wavefront OBJ file in Angstrom.
//
// With --section the plane of the map across an axis (z5: the fifth plane
// along z) is printed point by point, as the program holds it.
//
// On a bad file the program's message for the failing block goes to stderr
// and the exit status is 1.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_io_formats.h"
#include "crystal/vant_maps_calculations.h"
#include "crystal/vant_maps_mesh.h"
#include "maps/binary_map.h"
#include "maps/ccp4_map.h"
#include "maps/map_memory.h"
#include "maps/mesh_obj.h"
#include "state/quelmora_parametros.h"
#include "toolkit/messages/backend.h"

namespace qp = quelmora_parametros;

namespace {

// The face of this tool: a message box becomes a line on stderr.
class stderr_face final : public toolkit_backend {
 public:
  int message_box(int, int, int default_button, const std::string& text, const std::string&) override {
    std::fprintf(stderr, "%s\n", text.c_str());
    told = true;
    return default_button;
  }
  bool told = false;  // a message reached stderr
};

stderr_face face;

struct map_summary {
  atom_list_type atoms;
  atom_list_type peaks;
};

// The load chain of the shell for a .bin; false after a failure (already
// reported).
bool load(const std::string& name, map_summary& m) {
  if (is_ccp4_map(name)) {
    read_ccp4_map(name);
    return !qp::kerror;
  }
  if (!open_filebin(name)) {
    std::fprintf(stderr, "Error opening the binary file\n");
    return false;
  }
  read_filebin_head();
  if (!qp::kerror) {
    m.atoms = qp::atomos;
    memory_maps();
  }
  if (!qp::kerror) read_filebin_rho();
  if (!qp::kerror) read_filebin_atm_pks();
  if (!qp::kerror && qp::npeaks > 0) m.peaks = qp::atomos;
  close_filebin();
  // The program stops silently on a file cut inside the density summary; a
  // user of this tool is told where the file ends.
  if (qp::kerror && !face.told) std::fprintf(stderr, "The binary file ends inside the density summary\n");
  return !qp::kerror;
}

std::size_t entries(const atom_list_type& list) {
  return list.natoms > 0 ? std::min(static_cast<std::size_t>(list.natoms), list.atom.size()) : 0;
}

// ---- text ----

void print_atoms(const char* heading, const atom_list_type& list) {
  std::printf("%s: %d\n", heading, list.natoms);
  if (entries(list) == 0) return;
  std::printf("  %-20s %-4s %10s %10s %10s %8s %8s\n", "label", "symb", "x", "y", "z", "occ", "biso");
  for (std::size_t i = 0; i < entries(list); ++i) {
    const atom_type& a = list.atom[i];
    std::printf("  %-20s %-4s %10.5f %10.5f %10.5f %8.4f %8.4f\n", a.lab.c_str(), a.chem_symb.c_str(), a.x[0],
                a.x[1], a.x[2], a.occ, a.biso);
  }
}

void print_text(const map_summary& m) {
  const cell_metrics_type& c = qp::celda;
  const space_group_type& g = qp::grp_espacial;
  std::printf("Title:        %s\n", qp::titulo.c_str());
  std::printf("Version:      %s\n", filebin_version().c_str());
  std::printf("Cell:         %.4f %.4f %.4f  %.3f %.3f %.3f\n", c.cell[0], c.cell[1], c.cell[2], c.ang[0], c.ang[1],
              c.ang[2]);
  std::printf("Volume:       %.4f\n", c.cell_vol);
  std::printf("Reciprocal:   %.6f %.6f %.6f  %.3f %.3f %.3f\n", c.rcell[0], c.rcell[1], c.rcell[2], c.rang[0],
              c.rang[1], c.rang[2]);
  std::printf("Space group:  %d  %s  (Hall %s)\n", g.numspg, g.spg_symb.c_str(), g.hall.c_str());
  std::printf("Lattice:      %s %s\n", g.spg_lat.c_str(), g.spg_latsy.c_str());
  std::printf("Operators:    %d (reduced %d)\n", g.multip, g.num_ops);
  std::printf("Wyckoff:      %d positions\n", g.wyckoff.count);
  print_atoms("Atoms", m.atoms);
  std::printf("Run:          filinp %s\n", qp::filinp.c_str());
  std::printf("              filbin %s\n", qp::filbin.c_str());
  std::printf("              filfou %s\n", qp::filfou.c_str());
  std::printf("              filatm %s\n", qp::filatm.c_str());
  std::printf("              ntype %d  f000 %g  f000s %g\n", qp::ntype, qp::f000, qp::f000s);
  std::printf("              smin %g  smax %g  sigm %g  npeaks %d\n", qp::smin, qp::smax, qp::sigm, qp::npeaks);
  std::printf("Grid:         %d %d %d\n", qp::ngrid[0], qp::ngrid[1], qp::ngrid[2]);
  std::printf("Limits:       x %g %g  y %g %g  z %g %g\n", qp::xlim[0], qp::xlim[1], qp::ylim[0], qp::ylim[1],
              qp::zlim[0], qp::zlim[1]);
  std::printf("Increments:   %g %g %g\n", qp::xinc, qp::yinc, qp::zinc);
  std::printf("Density:      denmin %g  denmax %g  denave %g  densigma %g\n", qp::denmin, qp::denmax, qp::denave,
              qp::densigma);
  print_atoms("Peaks", m.peaks);
}

// ---- JSON ----

std::string quoted(const std::string& s) {
  std::string out = "\"";
  for (const char ch : s) {
    const auto u = static_cast<unsigned char>(ch);
    if (ch == '"' || ch == '\\') {
      out += '\\';
      out += ch;
    } else if (u < 0x20 || u >= 0x7f) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", u);
      out += buf;
    } else {
      out += ch;
    }
  }
  return out + "\"";
}

std::string number(double v) {
  if (!std::isfinite(v)) return "null";
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.9g", v);
  return buf;
}

template <typename Array>
std::string numbers(const Array& values) {
  std::string out = "[";
  for (std::size_t i = 0; i < values.size(); ++i) out += (i ? ", " : "") + number(values[i]);
  return out + "]";
}

// The atoms as JSON; with_mult adds each site's multiplicity.
std::string atoms_json(const atom_list_type& list, bool with_mult = false) {
  std::string out = "[";
  for (std::size_t i = 0; i < entries(list); ++i) {
    const atom_type& a = list.atom[i];
    out += std::string(i ? ", " : "") + "{\"label\": " + quoted(a.lab) + ", \"symbol\": " + quoted(a.chem_symb) +
           ", \"x\": " + number(a.x[0]) + ", \"y\": " + number(a.x[1]) + ", \"z\": " + number(a.x[2]) +
           ", \"occ\": " + number(a.occ) + ", \"biso\": " + number(a.biso) +
           (with_mult ? ", \"mult\": " + std::to_string(a.mult) : std::string{}) + "}";
  }
  return out + "]";
}

void print_json(const map_summary& m) {
  const cell_metrics_type& c = qp::celda;
  const space_group_type& g = qp::grp_espacial;
  std::string ops = "[";
  for (std::size_t i = 0; i < g.sym_op_symb.size(); ++i) ops += (i ? ", " : "") + quoted(g.sym_op_symb[i]);
  ops += "]";
  const std::vector<float> cell{c.cell[0], c.cell[1], c.cell[2], c.ang[0], c.ang[1], c.ang[2]};
  std::printf("{\n");
  std::printf("  \"title\": %s,\n", quoted(qp::titulo).c_str());
  std::printf("  \"version\": %s,\n", quoted(filebin_version()).c_str());
  std::printf("  \"cell\": %s,\n", numbers(cell).c_str());
  std::printf("  \"volume\": %s,\n", number(c.cell_vol).c_str());
  const std::vector<float> reciprocal{c.rcell[0], c.rcell[1], c.rcell[2], c.rang[0], c.rang[1], c.rang[2]};
  std::printf("  \"reciprocal\": %s,\n", numbers(reciprocal).c_str());
  std::printf("  \"spacegroup\": {\"number\": %d, \"symbol\": %s, \"hall\": %s, \"lattice\": %s, "
              "\"wyckoff\": %d, \"operators\": %s},\n",
              g.numspg, quoted(g.spg_symb).c_str(), quoted(g.hall).c_str(), quoted(g.spg_lat).c_str(),
              g.wyckoff.count, ops.c_str());
  std::printf("  \"atoms\": %s,\n", atoms_json(m.atoms).c_str());
  std::printf("  \"run\": {\"filinp\": %s, \"filbin\": %s, \"filfou\": %s, \"filatm\": %s, \"ntype\": %d, "
              "\"f000\": %s, \"f000s\": %s, \"smin\": %s, \"smax\": %s, \"sigm\": %s, \"npeaks\": %d},\n",
              quoted(qp::filinp).c_str(), quoted(qp::filbin).c_str(), quoted(qp::filfou).c_str(),
              quoted(qp::filatm).c_str(), qp::ntype, number(qp::f000).c_str(), number(qp::f000s).c_str(),
              number(qp::smin).c_str(), number(qp::smax).c_str(), number(qp::sigm).c_str(), qp::npeaks);
  std::printf("  \"ngrid\": %s,\n", numbers(qp::ngrid).c_str());
  const std::vector<float> limits{qp::xlim[0], qp::xlim[1], qp::ylim[0], qp::ylim[1], qp::zlim[0], qp::zlim[1]};
  const std::vector<float> increments{qp::xinc, qp::yinc, qp::zinc};
  std::printf("  \"limits\": %s,\n", numbers(limits).c_str());
  std::printf("  \"increments\": %s,\n", numbers(increments).c_str());
  std::printf("  \"denmin\": %s,\n", number(qp::denmin).c_str());
  std::printf("  \"denmax\": %s,\n", number(qp::denmax).c_str());
  std::printf("  \"denave\": %s,\n", number(qp::denave).c_str());
  std::printf("  \"densigma\": %s,\n", number(qp::densigma).c_str());
  std::printf("  \"peaks\": %s\n", atoms_json(m.peaks).c_str());
  std::printf("}\n");
}

// ---- --group ----

std::string vector_text(const vec3f& v) {
  char buf[96];
  std::snprintf(buf, sizeof buf, "(%g, %g, %g)", v[0], v[1], v[2]);
  return buf;
}

void print_group_text(const space_group_type& g) {
  std::printf("Space group:  %d  %s  Hall %s\n", g.numspg, g.spg_symb.c_str(), g.hall.c_str());
  std::printf("System:       %s  Laue class %s  point group %s\n", g.crystalsys.c_str(), g.laue.c_str(),
              g.pg.c_str());
  std::printf("Lattice:      %s (%s) %s\n", g.spg_lat.c_str(), g.spg_latsy.c_str(), g.bravais.c_str());
  for (const auto& v : g.latt_trans) std::printf("              %s\n", vector_text(v).c_str());
  std::printf("Centre:       %s  at %s\n", g.centre.c_str(), vector_text(g.centre_coord).c_str());
  std::printf("Multiplicity: %d (%d reduced operators)\n", g.multip, g.num_ops);
  for (std::size_t i = 0; i < g.sym_op_symb.size(); ++i) std::printf("  %3zu  %s\n", i + 1, g.sym_op_symb[i].c_str());
  std::printf("Wyckoff positions: %d\n", g.wyckoff.count);
  for (int i = 0; i < g.wyckoff.count; ++i) {
    const wyck_pos_type& p = g.wyckoff.pos[static_cast<std::size_t>(i)];
    std::printf("  %3d  %s\n", p.multiplicity, p.origin.c_str());
  }
}

std::string group_json(const space_group_type& g) {
  std::string ops = "[";
  for (std::size_t i = 0; i < g.sym_op_symb.size(); ++i) ops += (i ? ", " : "") + quoted(g.sym_op_symb[i]);
  std::string centring = "[";
  for (std::size_t i = 0; i < g.latt_trans.size(); ++i) centring += (i ? ", " : "") + numbers(g.latt_trans[i]);
  std::string wyckoff = "[";
  for (int i = 0; i < g.wyckoff.count; ++i) {
    const wyck_pos_type& p = g.wyckoff.pos[static_cast<std::size_t>(i)];
    wyckoff += std::string(i ? ", " : "") + "{\"multiplicity\": " + std::to_string(p.multiplicity) +
               ", \"origin\": " + quoted(p.origin) + "}";
  }
  char head[1024];
  std::snprintf(head, sizeof head,
              "{\"number\": %d, \"symbol\": %s, \"hall\": %s, \"crystal_system\": %s, \"laue\": %s, "
              "\"point_group\": %s, \"lattice\": %s, \"centring\": %s], \"centre\": %s, \"centre_coord\": %s, "
              "\"multiplicity\": %d, \"operators\": ",
              g.numspg, quoted(g.spg_symb).c_str(), quoted(g.hall).c_str(), quoted(g.crystalsys).c_str(),
              quoted(g.laue).c_str(), quoted(g.pg).c_str(), quoted(g.spg_latsy).c_str(), centring.c_str(),
              quoted(g.centre).c_str(), numbers(g.centre_coord).c_str(), g.multip);
  return head + ops + "], \"wyckoff\": " + wyckoff + "]}";
}

// Builds the group named by text and prints its record; 1 when it fails.
int print_group(const std::string& text, bool json) {
  space_group_type g;
  set_spacegroup(text, g);
  if (err_symm) {
    std::fprintf(stderr, "%s\n", err_symm_mess.c_str());
    return 1;
  }
  if (json) std::printf("%s\n", group_json(g).c_str());
  else print_group_text(g);
  return 0;
}

// ---- --structure ----

// The reader's mode from the extension of a structure file.
std::string format_of(const std::string& name) {
  const auto dot = name.rfind('.');
  std::string ext = dot == std::string::npos ? std::string{} : name.substr(dot + 1);
  for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (ext == "cif") return "cif";
  if (ext == "ins" || ext == "res") return "shx";
  if (ext == "pcr" || ext == "kdc") return "kdc";
  return "vtl";
}

// Reads a structure file and prints cell, group and atoms; 1 when the reader
// or the group builder refuses it.
int print_structure(const std::string& name, std::string format, bool json) {
  if (format.empty()) format = format_of(name);
  cell_metrics_type cell;
  space_group_type g;
  atom_list_type atoms;
  readn_set_xtal_structure_split(name, cell, g, atoms, format);
  const bool failed = err_form || err_symm;
  if (failed) std::fprintf(stderr, "%s\n", err_form ? err_form_mess.c_str() : err_symm_mess.c_str());
  if (failed) return 1;
  const std::vector<float> c{cell.cell[0], cell.cell[1], cell.cell[2], cell.ang[0], cell.ang[1], cell.ang[2]};
  if (json) {
    std::printf("{\"cell\": %s, \"spacegroup\": %s, \"atoms\": %s}\n", numbers(c).c_str(), group_json(g).c_str(),
                atoms_json(atoms, true).c_str());
    return 0;
  }
  std::printf("Cell:         %g %g %g  %g %g %g\n", c[0], c[1], c[2], c[3], c[4], c[5]);
  print_group_text(g);
  std::printf("Atoms:        %zu\n", entries(atoms));
  for (std::size_t i = 0; i < entries(atoms); ++i) {
    const atom_type& a = atoms.atom[i];
    std::printf("  %-8s %-2s %9.5f %9.5f %9.5f  occ %.5f  biso %.4f  mult %d\n", a.lab.c_str(), a.chem_symb.c_str(),
                a.x[0], a.x[1], a.x[2], a.occ, a.biso, a.mult);
  }
  return 0;
}

// ---- --isosurface ----

// A number written whole, such as 1.5 or -2e-1; false on anything else.
bool parse_number(const char* text, float& value) {
  char* end = nullptr;
  value = std::strtof(text, &end);
  return end != text && *end == '\0' && std::isfinite(value);
}

// Builds the mesh at sigma, prints its summary and writes the OBJ file when
// obj is named; 1 when the file cannot be written.
int print_isosurface(float sigma, bool json, const std::string& obj) {
  const float level = qp::densigma * sigma + qp::denave;
  std::int32_t npoints = 0;
  calculate_mesh(qp::rho, qp::ngrid, std::span(&level, 1), "TT", std::span(&npoints, 1), qp::xyz);
  std::array<std::int32_t, 7> by_type{};
  for (std::int32_t p = 1; p <= npoints; ++p) {
    const long t = std::lround(qp::xyz(4, p));
    if (t >= 1 && t <= 6) ++by_type[static_cast<std::size_t>(t)];
  }
  if (json) {
    std::printf("{\"level\": %s, \"records\": %d, \"by_type\": {", number(level).c_str(), npoints);
    for (std::size_t t = 1; t <= 6; ++t) std::printf("%s\"%zu\": %d", t > 1 ? ", " : "", t, by_type[t]);
    std::printf("}}\n");
  } else {
    std::printf("Level:        %g (%g sigma)\n", level, sigma);
    std::printf("Records:      %d\n", npoints);
    for (std::size_t t = 1; t <= 6; ++t) std::printf("  type %zu:     %d\n", t, by_type[t]);
  }
  // The view lets a full mesh stop growing silently; here the user is told.
  if (err_maps) std::fprintf(stderr, "The mesh is cut short: %s\n", err_maps_mess.c_str());
  std::string why;
  if (!obj.empty() && !write_mesh_obj(obj, qp::xyz, npoints, why)) {
    std::fprintf(stderr, "Cannot write the OBJ file: %s\n", why.c_str());
    return 1;
  }
  return 0;
}

// ---- --section ----

// Plane k across an axis (x, y or z) of the map as the program holds it
// (rhonew: the cell closed, or resampled on the file's box), one point a
// line: its fractional x, y, z and the value. 2 for a plane the map lacks.
int print_section(const std::string& plane) {
  char axis = 0;
  int k = 0;
  const auto a = static_cast<std::size_t>(std::sscanf(plane.c_str(), "%c%d", &axis, &k) == 2 ? axis - 'x' : 3);
  if (a > 2 || k < 1 || k > qp::rhonew.extent(static_cast<int>(a) + 1)) {
    std::fprintf(stderr, "--section wants an axis and a plane of the map, as z5, not \"%s\"\n", plane.c_str());
    return 2;
  }
  const std::array<float, 3> first{qp::xlim[0], qp::ylim[0], qp::zlim[0]}, step{qp::xinc, qp::yinc, qp::zinc};
  const std::size_t u = (a + 1) % 3, v = (a + 2) % 3;
  std::array<int, 3> at{};
  at[a] = k;
  for (at[v] = 1; at[v] <= qp::rhonew.extent(static_cast<int>(v) + 1); ++at[v])
    for (at[u] = 1; at[u] <= qp::rhonew.extent(static_cast<int>(u) + 1); ++at[u]) {
      std::array<float, 3> x{};
      for (std::size_t i = 0; i < 3; ++i) x[i] = first[i] + static_cast<float>(at[i] - 1) * step[i];
      std::printf("%.6f %.6f %.6f %.7g\n", double{x[0]}, double{x[1]}, double{x[2]},
                  double{qp::rhonew(at[0], at[1], at[2])});
    }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  bool json = false, usage = false;
  std::string name, obj;
  const char* group = nullptr;
  const char* isosurface = nullptr;
  const char* structure = nullptr;
  std::string format;
  const char* section = nullptr;
  for (int i = 1; i < argc; ++i) {
    const bool has_value = i + 1 < argc;
    if (std::strcmp(argv[i], "--json") == 0) json = true;
    else if (std::strcmp(argv[i], "--group") == 0 && has_value) group = argv[++i];
    else if (std::strcmp(argv[i], "--isosurface") == 0 && has_value) isosurface = argv[++i];
    else if (std::strcmp(argv[i], "--obj") == 0 && has_value) obj = argv[++i];
    else if (std::strcmp(argv[i], "--structure") == 0 && has_value) structure = argv[++i];
    else if (std::strcmp(argv[i], "--format") == 0 && has_value) format = argv[++i];
    else if (std::strcmp(argv[i], "--section") == 0 && has_value) section = argv[++i];
    else if (argv[i][0] == '-') usage = true;
    else name = argv[i];
  }
  if (group && !usage) return print_group(group, json);
  if (!format.empty() && format != "vtl" && format != "cif" && format != "shx" && format != "kdc") usage = true;
  if (structure && !usage) return print_structure(structure, format, json);
  float sigma = 0.0f;
  if (isosurface && !parse_number(isosurface, sigma)) {
    std::fprintf(stderr, "--isosurface wants a number of sigmas, not \"%s\"\n", isosurface);
    return 2;
  }
  if (name.empty() || usage || (!obj.empty() && !isosurface)) {
    std::fprintf(stderr, "usage: quelmora-info [--json] file.bin | [--json] --group TEXT\n"
                         "       quelmora-info [--json] file.bin --isosurface SIGMA [--obj OUT.obj]\n"
                         "       quelmora-info [--json] --structure FILE [--format vtl|cif|shx|kdc]\n"
                         "       quelmora-info file.bin --section AXIS_PLANE (x1, y3, z12, ...)\n");
    return 2;
  }
  set_toolkit_backend(&face);
  map_summary m;
  if (!load(name, m)) return 1;
  if (isosurface) return print_isosurface(sigma, json, obj);
  if (section) return print_section(section);
  if (json) print_json(m);
  else print_text(m);
  return 0;
}
