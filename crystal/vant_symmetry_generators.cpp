// Groups from user-given operators: generators multiplied out ("GEN"), a
// full list ("FIX"), the lattice of a set of centring vectors, and the check
// of a generator's text.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "crystal/fixed_text.h"
#include "crystal/vant_crystallographic_symmetry.h"
#include "crystal/vant_math_3d.h"
#include "crystal/vant_string_utilities_fraction.h"
#include "crystal/vant_symmetry_element_table.h"
#include "crystal/vant_symmetry_tables.h"

namespace {

const mat3i identity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
const mat3i inversion = {{{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}};
const std::string lattice_letters = "PABCIRFZ";

float magnitude_sum(const vec3f& v) { return std::fabs(v[0]) + std::fabs(v[1]) + std::fabs(v[2]); }

vec3f minus(const vec3f& a, const vec3f& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

bool same_vector(const vec3f& a, const vec3f& b) { return magnitude_sum(minus(a, b)) < 0.0006f; }

bool in_set(const std::vector<vec3f>& set, const vec3f& v) {
  return std::any_of(set.begin(), set.end(), [&v](const vec3f& s) { return same_vector(s, v); });
}

// True when the vectors of `set` (null vector left out) are those of a
// reference lattice, in any order.
template <std::size_t N>
bool matches(const std::vector<vec3f>& set, const std::array<vec3f, N>& reference) {
  if (set.size() != N - 1) return false;
  for (std::size_t k = 1; k < N; ++k) {
    if (!in_set(set, reference[k])) return false;
  }
  return true;
}

// The centring vectors among operators: identity rotation and a translation
// that isn't null in twelfths.
std::vector<vec3f> centring_among(const std::vector<mat3i>& ss, const std::vector<vec3f>& ts, std::size_t count) {
  std::vector<vec3f> vectors;
  for (std::size_t k = 0; k < count; ++k) {
    if (ss[k] == identity && to_twelfths(ts[k]) != vec3i{0, 0, 0}) vectors.push_back(ts[k]);
  }
  return vectors;
}

// The inversion among operators: centring code 2 at the origin, 0 with the
// centre at half its translation; 1 when there is none.
void inversion_among(const std::vector<mat3i>& ss, const std::vector<vec3f>& ts, std::size_t count,
                     symmetry_build_type& out) {
  for (std::size_t k = 0; k < count; ++k) {
    if (ss[k] != inversion) continue;
    if (to_twelfths(ts[k]) == vec3i{0, 0, 0}) {
      out.centring_code = 2;
    } else {
      out.centring_code = 0;
      out.co = {0.5f * ts[k][0], 0.5f * ts[k][1], 0.5f * ts[k][2]};
    }
    return;
  }
}

}  // namespace

void get_centring_vectors(std::int32_t& numl, std::vector<vec3f>& latc, std::string& lat) {
  lat = "P";
  std::vector<vec3f> set;
  const std::size_t given = std::min(static_cast<std::size_t>(std::max(numl, 0)), latc.size());
  for (std::size_t k = 0; k < given; ++k) {
    const vec3f v = modulo_lat(latc[k]);
    if (latc[k][0] + latc[k][1] + latc[k][2] < 0.0006f && magnitude_sum(latc[k]) < 0.0006f) continue;
    if (!in_set(set, v)) set.push_back(v);
  }
  // Close the set under sums until a pass adds nothing.
  for (bool grown = true; grown && set.size() < 191;) {
    grown = false;
    for (std::size_t i = 0; i < set.size() && set.size() < 191; ++i) {
      for (std::size_t j = 0; j <= i && set.size() < 191; ++j) {
        const vec3f s = modulo_lat({set[i][0] + set[j][0], set[i][1] + set[j][1], set[i][2] + set[j][2]});
        const bool null_or_whole = magnitude_sum(s) < 0.0006f || std::max({s[0], s[1], s[2]}) > 0.9994f;
        if (!null_or_whole && !in_set(set, s)) {
          set.push_back(s);
          grown = true;
        }
      }
    }
  }
  latc = set;
  numl = static_cast<std::int32_t>(set.size());
  if (set.empty()) return;
  if (matches(set, ltr_i)) {
    lat = "I";
  } else if (matches(set, ltr_a)) {
    lat = "A";
  } else if (matches(set, ltr_b)) {
    lat = "B";
  } else if (matches(set, ltr_c)) {
    lat = "C";
  } else if (matches(set, ltr_r)) {
    lat = "R";
  } else if (matches(set, ltr_f)) {
    lat = "F";
  } else {
    lat = "Z";
  }
}

void get_so_from_gener(const std::vector<mat3i>& ss, const std::vector<vec3f>& ts, std::int32_t ngen,
                       const std::string& spg_lat, symmetry_build_type& out) {
  init_err_symm();
  out = symmetry_build_type{};
  const std::size_t count = std::min({static_cast<std::size_t>(std::max(ngen, 0)), ss.size(), ts.size()});
  std::vector<vec3f> vectors = centring_among(ss, ts, count);
  std::int32_t numl = static_cast<std::int32_t>(vectors.size());
  std::string lat;
  get_centring_vectors(numl, vectors, lat);
  latsym(fixed_text::is_blank(spg_lat) ? lat : spg_lat, numl, &vectors);
  if (err_symm) return;
  out.lattice_code = inlat;

  // Improper operators join the closure too: a full list holds them, and an
  // inversion may be the product of two of them ("x,y,-z" and "-x,-y,z").
  // The centre is then split off as the centring code; an inversion given
  // among the generators is known before, should the closure fail.
  inversion_among(ss, ts, count, out);
  std::vector<element12_type> table = {{identity, {0, 0, 0}}};
  for (std::size_t k = 0; k < count; ++k) {
    if (ss[k] == identity) continue;
    if (ss[k] != inversion) ++out.count;
    if (!add_element(table, {ss[k], to_twelfths(ts[k])}, out.lattice_code)) return;
  }
  if (!close_element_table(table, out.lattice_code) || !split_off_centre(table, out)) return;
  expand_element_table(table, out);
}

void get_so_from_fix(const std::vector<mat3i>& ss, const std::vector<vec3f>& ts, std::int32_t count,
                     const std::string& lat, symmetry_build_type& out) {
  init_err_symm();
  out = symmetry_build_type{};
  const std::size_t used = std::min({static_cast<std::size_t>(std::max(count, 0)), ss.size(), ts.size()});
  std::vector<vec3f> vectors = centring_among(ss, ts, used);
  std::string letter(fixed_text::trimmed(lat));
  if (letter.empty()) {
    // The reference vectors in twelfths: A, B, C, I and the two of R.
    static const vec3i reference[6] = {{0, 6, 6}, {6, 0, 6}, {6, 6, 0}, {6, 6, 6}, {8, 4, 4}, {4, 8, 8}};
    bool hit[6] = {};
    bool unknown = false;
    for (const auto& v : vectors) {
      vec3i t = to_twelfths(v);
      for (auto& c : t) c = ((c % 12) + 12) % 12;
      const auto k = std::find(std::begin(reference), std::end(reference), t) - std::begin(reference);
      if (k < 6) {
        hit[k] = true;
      } else {
        unknown = true;
      }
    }
    const int abc = hit[0] + hit[1] + hit[2];
    if (unknown) {
      letter = "Z";
    } else if (abc >= 2) {
      letter = "F";
    } else if (hit[4] || hit[5]) {
      letter = "R";
    } else if (hit[3]) {
      letter = "I";
    } else {
      letter = abc == 0 ? "P" : hit[0] ? "A" : hit[1] ? "B" : "C";
    }
  }
  latsym(letter, static_cast<std::int32_t>(vectors.size()), &vectors);
  if (err_symm) {
    set_err_symm(" Lattice Type couldn't be determined");
    return;
  }
  out.lattice_code = inlat;
  inversion_among(ss, ts, used, out);
  out.ss.clear();
  out.ts.clear();
  for (std::size_t k = 0; k < used; ++k) {
    const bool translation = ss[k] == identity && to_twelfths(ts[k]) != vec3i{0, 0, 0};
    if (translation || ss[k] == inversion) continue;
    out.ss.push_back(ss[k]);
    out.ts.push_back(ts[k]);
  }
  out.num_ops = static_cast<std::int32_t>(out.ss.size());
  std::string system_letter;
  get_crystal_system_r_op(out.ss, out.num_ops, out.crystal_code, system_letter);
  if (err_symm) return;
  out.latsy = system_letter + lattice_letters.substr(static_cast<std::size_t>(inlat - 1), 1);
}

// ------------------------------------------------------------ the check

namespace {

// The coefficients of x, y and z in one field of a generator, "2x-y", after
// its constant has been cut off. A coefficient is a signed number, a fraction
// or nothing (1) in front of the letter.
constexpr float largest_coefficient = 6.0f;

vec3f field_coefficients(const std::string& field) {
  vec3f row{};
  std::string number;
  float sign = 1.0f;
  for (char c : field) {
    if (c == '+' || c == '-') {
      sign = c == '-' ? -1.0f : 1.0f;
      number.clear();
    } else if (c == 'x' || c == 'y' || c == 'z') {
      float value = 1.0f;
      if (!number.empty()) {
        const auto slash = number.find('/');
        value = std::strtof(number.c_str(), nullptr);
        if (slash != std::string::npos) {
          const float den = std::strtof(number.c_str() + slash + 1, nullptr);
          value = den != 0.0f ? value / den : 0.0f;
        }
      }
      row[c - 'x'] += sign * value;
      sign = 1.0f;
      number.clear();
    } else {
      number += c;
    }
  }
  return row;
}

}  // namespace

void check_generator(const std::string& gen, bool& ok, std::string* symbol) {
  const auto first = gen.find(',');
  const auto last = gen.rfind(',');
  std::string fields[3] = {gen, "", ""};
  if (first != std::string::npos) {
    fields[0] = gen.substr(0, first);
    fields[1] = last > first ? gen.substr(first + 1, last - first - 1) : "";
    fields[2] = gen.substr(last + 1);
  }
  mat3f mat{};
  mat3i imat{};
  for (int i = 0; i < 3; ++i) {
    std::string f = pack_string(fields[i]);
    for (char& c : f) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const auto sign = f.find_last_of("+-");
    if (sign != std::string::npos && sign + 1 < f.size() && !std::isalpha(static_cast<unsigned char>(f[sign + 1])) &&
        f.find_first_of("xyz", sign) == std::string::npos) {
      f.erase(sign);
    }
    const vec3f row = field_coefficients(f);
    for (int j = 0; j < 3; ++j) {
      // Operators in a lattice basis have small coefficients; larger ones
      // are typing errors whose products would overflow as the group grows.
      if (!(std::fabs(row[j]) <= largest_coefficient)) {
        ok = false;
        set_err_symm("The matrix corresponding to a generator has coefficients too large for a symmetry operator");
        return;
      }
      mat[i][j] = row[j];
      imat[i][j] = static_cast<std::int32_t>(std::lround(row[j]));
    }
  }
  ok = true;
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) ok = ok && mat[i][j] == static_cast<float>(imat[i][j]);
  if (!ok) {
    set_err_symm("The matrix corresponding to a generator has non-integer values!");
    return;
  }
  const std::int32_t d = determ_a(imat);
  if (d != 1 && d != -1) {
    ok = false;
    set_err_symm("The matrix corresponding to a generator has a determinant with absolute value different of 1.0");
    return;
  }
  if (symbol) {
    const std::int32_t t = imat[0][0] + imat[1][1] + imat[2][2];
    struct kind {
      std::int32_t t, d;
      const char* name;
    };
    static const kind kinds[] = {{3, 1, "1"},        {2, 1, "6 or 61,62,..."}, {1, 1, "4 or 41,42..."},
                                 {1, -1, "m or g"},  {0, 1, "3 or 31/32"},     {0, -1, "-3"},
                                 {-1, 1, "2 or 21"}, {-1, -1, "-4"},           {-2, -1, "-6"},
                                 {-3, -1, "-1"}};
    symbol->clear();
    for (const auto& k : kinds) {
      if (k.t == t && k.d == d) *symbol = std::string(k.name) + "  [undet. loc.]";
    }
  }
}
