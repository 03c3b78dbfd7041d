#include "synthesis/sintrel_run.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "control/control_data.h"
#include "control/control_file.h"
#include "crystal/fixed_text.h"
#include "synthesis/listing.h"
#include "synthesis/map_file.h"
#include "synthesis/mtz_reflections.h"
#include "toolkit/core/whole_file.h"

namespace qp = quelmora_parametros;
namespace fs = std::filesystem;

namespace {

// Everything before the last "." of the name; the whole name without one.
std::string stem_of(const std::string& name) {
  const auto dot = name.rfind('.');
  const auto slash = name.rfind('/');
  return dot == std::string::npos || (slash != std::string::npos && dot < slash) ? name : name.substr(0, dot);
}

// A file named in the control file, which the reader lower-cased: relative
// names are taken from the control file's folder, and when the name is not
// there as written, a file whose name differs only in case is.
std::string side_file(const std::string& control_file, const std::string& name) {
  fs::path path(name);
  if (path.is_relative()) path = fs::path(control_file).parent_path() / path;
  std::error_code error;
  if (fs::exists(path, error)) return path.string();
  const fs::path folder = path.parent_path().empty() ? fs::path(".") : path.parent_path();
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    std::string candidate = entry.path().filename().string();
    for (char& c : candidate) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (candidate == path.filename().string()) return entry.path().string();
  }
  return path.string();
}

struct run_type {
  std::string control_file, stem;
  std::string columns;  // the MTZ file's amplitude and phase columns, "F,PHI", or empty
  std::ostringstream listing;
  cell_metrics_type cell;
  space_group_type group;
  reflection_set_type reflections;
  synthesis_request_type request;
  synthesis_result_type result;
  std::vector<peak_type> peaks;
  atom_list_type cell_atoms;
};

bool fail(run_type& run, const std::string& message) {
  run.listing << "\n ***** Error: " << message << '\n';
  std::cerr << "sintrel: " << message << '\n';
  return false;
}

bool read_control(run_type& run) {
  std::ifstream in(run.control_file, std::ios::binary);
  std::error_code error;
  if (!in || !fs::is_regular_file(run.control_file, error))
    return fail(run, "Cannot open the control file " + run.control_file);
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  list_echo(run.listing, text);
  std::istringstream lines(text);
  read_control_file(lines);
  if (err_control != control_failure::none) return fail(run, err_control_mess);
  if (qp::ntype < 1 || qp::ntype > 7)
    return fail(run, "The Fourier directive names no kind of synthesis sintrel makes");
  return true;
}

bool set_crystal(run_type& run) {
  const auto& c = qp::celda;
  bool usable = qp::jcell != 0;
  for (std::size_t i = 0; i < 3; ++i) usable = usable && c.cell[i] > 0.0f && c.ang[i] > 0.0f && c.ang[i] < 180.0f;
  if (usable) set_crystal_cell(c.cell, c.ang, run.cell);
  if (!usable || err_crys || !(run.cell.cell_vol > 0.0f))
    return fail(run, "The control file gives no usable cell (Cell a b c alpha beta gamma)");
  if (fixed_text::is_blank(qp::spgr)) return fail(run, "The control file names no space group (Spgr)");
  set_spacegroup(qp::spgr, run.group);
  if (err_symm) return fail(run, "Space group " + qp::spgr + ":" + err_symm_mess);
  list_crystal(run.listing, run.cell, run.group);
  return true;
}

// Map coefficients of an MTZ file, whose crystal must be the control file's.
bool read_mtz(run_type& run, const std::string& path) {
  mtz_crystal_type crystal;
  read_mtz_reflections(path, run.columns, qp::ntype, run.reflections, crystal);
  if (err_synthesis) return fail(run, err_synthesis_mess);
  const std::string mismatch = mtz_crystal_mismatch(path, crystal, run.cell, run.group);
  return mismatch.empty() || fail(run, mismatch);
}

bool read_data(run_type& run) {
  const std::string name = fixed_text::is_blank(qp::filfou) ? fs::path(run.stem + ".fou").filename().string()
                                                            : std::string(fixed_text::trimmed(qp::filfou));
  const std::string path = side_file(run.control_file, name);
  if (is_mtz(path)) {
    if (!read_mtz(run, path)) return false;
  } else {
    read_reflections(path, qp::lugar, qp::ntype, run.reflections);
    if (err_synthesis) return fail(run, err_synthesis_mess);
  }
  if (run.reflections.list.empty()) return fail(run, "The reflection file " + path + " holds no reflection");
  qp::filfou = name;
  run.request = {qp::ntype, qp::f000, qp::f000s, qp::smin, qp::smax, qp::sigm, qp::ngrid};
  compute_synthesis(run.reflections, run.request, run.cell, run.group, run.result);
  list_reflections(run.listing, path, run.reflections, run.request, run.result.counts);
  if (err_synthesis) return fail(run, err_synthesis_mess);
  list_map(run.listing, run.result, run.cell);
  return true;
}

// The atoms and distances the control file asks to list, and the peaks.
void list_structure(run_type& run) {
  if (!fixed_text::is_blank(qp::filatm))
    run.listing << "\n   The atoms file " << qp::filatm
                << " is not read by this sintrel: the atoms of the control file are used.\n";
  atlist1_extencell_atlist2(run.group, qp::atomos, run.cell_atoms, true);
  if (qp::jlist == 1 || qp::jlist == 3) list_atoms(run.listing, qp::atomos, run.cell);
  if (qp::jlist == 2 || qp::jlist == 3) {
    const double top = qp::dist2 > 0.0f ? qp::dist2 : 3.0;
    list_distances(run.listing, qp::atomos, run.cell_atoms, run.cell, qp::dist1, top);
  }
  if (qp::npeaks > 0) {
    run.peaks = find_peaks(run.result.rho, run.group, qp::npeaks);
    list_peaks(run.listing, run.peaks, qp::npeaks, run.cell_atoms, run.cell);
  }
}

bool written(run_type& run, const std::string& path, bool done, const std::string& why) {
  if (!done) return fail(run, "Cannot write " + why);
  run.listing << "   Written: " << path << '\n';
  return true;
}

bool write_whole(run_type& run, const std::string& path, const std::string& bytes) {
  std::string why;
  const bool done = write_whole_file(path, bytes, why);
  return written(run, path, done, why);
}

bool write_map(run_type& run) {
  whole_file file;
  std::string why;
  if (!whole_file_open(file, qp::filbin, why)) return written(run, qp::filbin, false, why);
  write_map_file(file, run.cell, run.group, run.result, peak_atoms(run.peaks));
  const bool done = whole_file_commit(file, why);
  return written(run, qp::filbin, done, why);
}

// The peaks file, when peaks were found.
bool write_peaks(run_type& run) {
  if (run.peaks.empty()) return true;
  std::ostringstream pks;
  pks << "! Peaks of " << run.control_file << ": label, x, y, z (fractional), height (e/A^3)\n";
  char line[96];
  for (std::size_t i = 0; i < run.peaks.size(); ++i) {
    const peak_type& p = run.peaks[i];
    std::snprintf(line, sizeof line, "PK%-5zu %9.5f %9.5f %9.5f %11.5f\n", i + 1, double{p.x[0]}, double{p.x[1]},
                  double{p.x[2]}, double{p.height});
    pks << line;
  }
  return write_whole(run, run.stem + ".pks", pks.str());
}

// The map last, so that a run that fails on the way leaves none.
bool write_results(run_type& run) {
  run.listing << '\n';
  qp::filinp = run.control_file;
  qp::filbin = run.stem + ".bin";
  qp::npeaks = static_cast<std::int32_t>(run.peaks.size());
  return write_peaks(run) && write_map(run);
}

}  // namespace

int run_sintrel(const std::string& control_file, const std::string& columns) {
  run_type run;
  run.control_file = control_file;
  run.columns = columns;
  run.stem = stem_of(control_file);
  run.listing << " sintrel: Fourier synthesis of " << control_file << '\n';
  bool done = read_control(run) && set_crystal(run) && read_data(run);
  if (done) {
    list_structure(run);
    done = write_results(run);
  }
  run.listing << (done ? "\n Done.\n" : "\n The run failed: no map was written.\n");
  std::string why;
  if (!write_whole_file(run.stem + ".out", run.listing.str(), why)) {
    std::cerr << "sintrel: cannot write the listing " << why << '\n';
    return 1;
  }
  return done ? 0 : 1;
}
