// MTZ map coefficients through cmtzlib. The library trusts the place of the
// header and its counts: a truncated file sends it reading without end, so
// both are checked against the file's size here first. The library is kept
// silent (it would print its own errors) and its results checked.
#include "synthesis/mtz_reflections.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>
#include <string_view>

#include <sys/wait.h>
#include <unistd.h>

#include <ccp4_errno.h>
#include <cmtzlib.h>

namespace {

constexpr std::size_t record_length = 80;  // the header's records
constexpr std::uint64_t data_start = 80;   // the reflections begin at word 21

using mtz_ptr = std::unique_ptr<CMtz::MTZ, decltype(&CMtz::MtzFree)>;

void fail(const std::string& path, const std::string& what) {
  err_synthesis = true;
  err_synthesis_mess = "MTZ file " + path + ": " + what;
}

// Word 2, the header's place in 4-byte words from 1, in the byte order of the
// machine stamp (0x11 in byte 9 is big endian).
std::uint64_t header_offset(const unsigned char* head) {
  const bool big = head[8] == 0x11;
  std::uint32_t word = 0;
  for (std::size_t i = 0; i < 4; ++i) word |= std::uint32_t{head[4 + (big ? 3 - i : i)]} << (8 * i);
  return word < 21 ? 0 : (std::uint64_t{word} - 1) * 4;
}

// The header lies inside the file, holds its END record and a NCOL record
// whose reflections fit before it; otherwise the reason.
std::string layout_problem(const std::string& path) {
  std::error_code error;
  const std::uint64_t size = std::filesystem::file_size(path, error);
  std::ifstream in(path, std::ios::binary);
  unsigned char head[12];
  if (error || size < data_start || !in.read(reinterpret_cast<char*>(head), sizeof head))
    return "shorter than the first record of an MTZ file";
  const std::uint64_t at = header_offset(head);
  if (at < data_start || at >= size)
    return "truncated: its header should begin at byte " + std::to_string(at) + ", the file has " +
           std::to_string(size) + " bytes";
  std::string header(size - at, '\0');
  if (!in.seekg(static_cast<std::streamoff>(at)) || !in.read(header.data(), static_cast<std::streamsize>(header.size())))
    return "its header cannot be read";
  long long columns = -1, reflections = -1;
  bool end = false;
  for (std::size_t r = 0; r < header.size(); r += record_length) {
    const std::string line = header.substr(r, record_length);
    if (line.starts_with("NCOL")) std::sscanf(line.c_str() + 4, "%lld %lld", &columns, &reflections);
    end = end || line.substr(0, line.find(' ')) == "END";
  }
  if (!end || columns < 3 || reflections < 0) return "a damaged header (no END record, or no NCOL record)";
  if (static_cast<unsigned long long>(columns) * static_cast<unsigned long long>(reflections) > (at - data_start) / 4)
    return "truncated: " + std::to_string(reflections) + " reflections of " + std::to_string(columns) +
           " columns do not fit before its header";
  return {};
}

// The amplitude and phase columns: the pair named, or the first usual one.
bool find_pair(const std::string& path, CMtz::MTZ* mtz, const std::string& columns, CMtz::MTZCOL*& f,
               CMtz::MTZCOL*& phi) {
  static const char* const usual[][2] = {{"FWT", "PHWT"}, {"2FOFCWT", "PH2FOFCWT"}, {"FC", "PHIC"}, {"F", "PHI"}};
  if (columns.empty()) {
    for (const auto& pair : usual) {
      f = CMtz::MtzColLookup(mtz, pair[0]);
      phi = CMtz::MtzColLookup(mtz, pair[1]);
      if (f && phi) return true;
    }
    fail(path, "none of the column pairs FWT/PHWT, 2FOFCWT/PH2FOFCWT, FC/PHIC, F/PHI (name one with --columns F,PHI)");
    return false;
  }
  const auto comma = columns.find(',');
  const std::string labels[2] = {columns.substr(0, comma), comma == std::string::npos ? "" : columns.substr(comma + 1)};
  if (labels[0].empty() || labels[1].empty()) {
    fail(path, "--columns wants an amplitude and a phase column, as F,PHI, not '" + columns + "'");
    return false;
  }
  f = CMtz::MtzColLookup(mtz, labels[0].c_str());
  phi = CMtz::MtzColLookup(mtz, labels[1].c_str());
  if (!f || !phi) fail(path, "no column named " + labels[f ? 1 : 0]);
  return f && phi;
}

mtz_crystal_type crystal_of(CMtz::MTZ* mtz, CMtz::MTZCOL* f) {
  mtz_crystal_type c;
  const CMtz::MTZXTAL* xtal = CMtz::MtzSetXtal(mtz, CMtz::MtzColSet(mtz, f));
  if (xtal) std::memcpy(c.cell.data(), xtal->cell, sizeof xtal->cell);
  c.group_number = CMtz::MtzSpacegroupNumber(mtz);
  for (int s = 0; s < mtz->mtzsymm.nsym && s < 192; ++s) {
    sym_oper_type op;
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) op.rot[i][j] = static_cast<std::int32_t>(std::lround(mtz->mtzsymm.sym[s][i][j]));
      op.tr[i] = mtz->mtzsymm.sym[s][i][3];
    }
    c.operators.push_back(op);
  }
  return c;
}

bool same_operator(const sym_oper_type& a, const sym_oper_type& b) {
  for (std::size_t i = 0; i < 3; ++i)
    if (a.rot[i] != b.rot[i] || std::fabs(std::remainder(a.tr[i] - b.tr[i], 1.0f)) > 1e-3f) return false;
  return true;
}

std::string cell_text(const float* lengths, const float* angles) {
  char text[96];
  std::snprintf(text, sizeof text, "%.4g %.4g %.4g %.4g %.4g %.4g", double{lengths[0]}, double{lengths[1]},
                double{lengths[2]}, double{angles[0]}, double{angles[1]}, double{angles[2]});
  return text;
}

void read_with_library(const std::string& path, const std::string& columns, std::int32_t ntype,
                       reflection_set_type& set, mtz_crystal_type& crystal) {
  CCP4::ccp4_liberr_verbosity(0);
  const mtz_ptr mtz(CMtz::MtzGet(path.c_str(), 1), &CMtz::MtzFree);
  if (!mtz) return fail(path, "libccp4 cannot read it");
  CMtz::MTZCOL *f = nullptr, *phi = nullptr;
  if (!find_pair(path, mtz.get(), columns, f, phi)) return;
  CMtz::MTZCOL* index[3] = {CMtz::MtzColLookup(mtz.get(), "H"), CMtz::MtzColLookup(mtz.get(), "K"),
                            CMtz::MtzColLookup(mtz.get(), "L")};
  if (!index[0] || !index[1] || !index[2]) return fail(path, "no index columns H, K, L");
  crystal = crystal_of(mtz.get(), f);
  std::size_t missing = 0;
  for (int n = 0; n < CMtz::MtzNref(mtz.get()); ++n) {
    reflection_type r;
    for (std::size_t i = 0; i < 3; ++i) {
      const float h = index[i]->ref[n];
      if (h != std::round(h) || std::fabs(h) > max_reflection_index)
        return fail(path, "reflection " + std::to_string(n + 1) + " has an index that is no whole number up to 4096");
      r.hkl[i] = static_cast<std::int32_t>(h);
    }
    const float amplitude = f->ref[n], phase = phi->ref[n];
    if (CMtz::ccp4_ismnf(mtz.get(), amplitude) || CMtz::ccp4_ismnf(mtz.get(), phase) || !std::isfinite(amplitude) ||
        !std::isfinite(phase)) {
      ++missing;
      continue;
    }
    const double radians = phase * std::numbers::pi / 180.0;
    r.value[col_fo] = amplitude;
    r.value[col_fc] = ntype == 3 ? 0.0 : amplitude;
    r.value[col_ph] = phase;
    r.value[col_a] = amplitude * std::cos(radians);
    r.value[col_b] = amplitude * std::sin(radians);
    set.list.push_back(r);
  }
  set.layout = std::string("MTZ columns ") + f->label + ", " + phi->label + "; " + std::to_string(missing) +
               " reflections with a missing value left out";
}

// The results of a reading as bytes, to cross the pipe from the child: each
// list as its count and its elements, which are plain numbers.
struct byte_pipe {
  std::string bytes;
  std::size_t at = 0;
  bool ok = true;

  template <typename List>
  void put(const List& v) {
    const std::uint64_t n = v.size();
    bytes.append(reinterpret_cast<const char*>(&n), sizeof n);
    if (n > 0) bytes.append(reinterpret_cast<const char*>(v.data()), n * sizeof(typename List::value_type));
  }
  template <typename List>
  void take(List& v) {
    std::uint64_t n = 0;
    ok = ok && at + sizeof n <= bytes.size();
    if (ok) std::memcpy(&n, bytes.data() + at, sizeof n), at += sizeof n;
    ok = ok && n <= (bytes.size() - at) / sizeof(typename List::value_type);
    if (!ok) return;
    v.resize(n);
    if (n > 0) std::memcpy(v.data(), bytes.data() + at, n * sizeof(typename List::value_type));
    at += n * sizeof(typename List::value_type);
  }
  template <typename Pipe>
  static void each(Pipe& pipe, reflection_set_type& set, mtz_crystal_type& crystal, std::string& error) {
    std::vector<float> cell(crystal.cell.begin(), crystal.cell.end());
    std::vector<std::int32_t> number{crystal.group_number};
    pipe(cell), pipe(number), pipe(crystal.operators), pipe(set.list), pipe(set.layout), pipe(error);
    if (cell.size() == crystal.cell.size()) std::copy(cell.begin(), cell.end(), crystal.cell.begin());
    crystal.group_number = number.empty() ? 0 : number[0];
  }
};

// The child's side: the reading, sent whole, and the end of the child. A
// damaged header can also send the library round without end: the child is
// given ten seconds and one more for each 16 MB of the file.
[[noreturn]] void read_in_child(int fd, const std::string& path, const std::string& columns, std::int32_t ntype) {
  std::error_code error;
  alarm(10 + static_cast<unsigned>(std::filesystem::file_size(path, error) >> 24));
  reflection_set_type set;
  mtz_crystal_type crystal;
  read_with_library(path, columns, ntype, set, crystal);
  byte_pipe out;
  auto put = [&](auto& list) { out.put(list); };
  byte_pipe::each(put, set, crystal, err_synthesis_mess);
  for (std::size_t at = 0; at < out.bytes.size();) {
    const ssize_t n = write(fd, out.bytes.data() + at, out.bytes.size() - at);
    if (n <= 0) _exit(1);
    at += static_cast<std::size_t>(n);
  }
  _exit(0);
}

}  // namespace

bool is_mtz(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  char magic[4];
  return in.read(magic, 4) && std::memcmp(magic, "MTZ ", 4) == 0;
}

// libccp4's header parser trusts what it reads, and a damaged header can end
// the process that runs it; so it runs in a child process, whose results
// come back through a pipe and whose failure becomes a message.
void read_mtz_reflections(const std::string& path, const std::string& columns, std::int32_t ntype,
                          reflection_set_type& set, mtz_crystal_type& crystal) {
  err_synthesis = false;
  err_synthesis_mess.clear();
  set = {};
  crystal = {};
  if (const std::string why = layout_problem(path); !why.empty()) return fail(path, why);
  int ends[2];
  if (pipe(ends) != 0) return fail(path, "no pipe to read it through");
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) close(ends[0]), read_in_child(ends[1], path, columns, ntype);
  close(ends[1]);
  byte_pipe in;
  char buffer[65536];
  for (ssize_t n; child > 0 && (n = read(ends[0], buffer, sizeof buffer)) > 0;)
    in.bytes.append(buffer, static_cast<std::size_t>(n));
  close(ends[0]);
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return fail(path, "libccp4 could not read it: the file is damaged");
  auto take = [&](auto& list) { in.take(list); };
  byte_pipe::each(take, set, crystal, err_synthesis_mess);
  if (!in.ok) return fail(path, "the reading came back incomplete");
  err_synthesis = !err_synthesis_mess.empty();
}

std::string mtz_crystal_mismatch(const std::string& path, const mtz_crystal_type& crystal,
                                 const cell_metrics_type& cell, const space_group_type& group) {
  for (std::size_t i = 0; i < 3; ++i)
    if (std::fabs(crystal.cell[i] - cell.cell[i]) > 0.002f * cell.cell[i] ||
        std::fabs(crystal.cell[i + 3] - cell.ang[i]) > 0.05f)
      return "The cell of the MTZ file " + path + ", " + cell_text(&crystal.cell[0], &crystal.cell[3]) +
             ", is not the control file's, " + cell_text(cell.cell.data(), cell.ang.data());
  bool same = crystal.operators.size() == group.sym_op.size();
  for (const sym_oper_type& op : crystal.operators)
    same = same && std::any_of(group.sym_op.begin(), group.sym_op.end(),
                               [&](const sym_oper_type& g) { return same_operator(op, g); });
  if (!same)
    return "The space group of the MTZ file " + path + " (number " + std::to_string(crystal.group_number) + ", " +
           std::to_string(crystal.operators.size()) + " operators) is not the control file's (" + group.spg_symb +
           ", number " + std::to_string(group.numspg) + ")";
  return {};
}
