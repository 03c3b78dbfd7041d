#include "crystal/vant_crystallographic_symmetry.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <span>

#include "crystal/fixed_text.h"
#include "crystal/vant_math_3d.h"
#include "crystal/vant_math_general.h"
#include "crystal/vant_string_utilities_fraction.h"
#include "crystal/vant_symmetry_tables.h"

bool err_symm = false;
std::string err_symm_mess;
std::int32_t nlat = 1;
std::array<vec3f, 192> ltr{};
std::string lat_ch;
std::int32_t inlat = 1;
bool hexa = false;
std::string spaceg;

namespace {

// Translations whose magnitude is at most this are not written.
constexpr float translation_threshold = 0.0002f;

// Index 0, 1, 2 of a coordinate letter in either case, -1 for any other character.
int coordinate_index(char c) {
  switch (std::tolower(static_cast<unsigned char>(c))) {
    case 'x':
      return 0;
    case 'y':
      return 1;
    case 'z':
      return 2;
    default:
      return -1;
  }
}

}  // namespace

void init_err_symm() {
  err_symm = false;
  err_symm_mess.clear();
}

void set_err_symm(const std::string& message) {
  err_symm = true;
  err_symm_mess = fixed_text::assigned(message, 150);
}

namespace {

// The floating remainder of x by 1, as fmod gives it (sign of x, and exact:
// the fraction of a float needs no more bits than the float), without
// fmod's general division loop.
float remainder_by_one(float x) { return std::copysign(x - std::trunc(x), x); }

}  // namespace

vec3f modulo_lat(const vec3f& v) {
  return {remainder_by_one(v[0] + 10.0f), remainder_by_one(v[1] + 10.0f), remainder_by_one(v[2] + 10.0f)};
}

// ------------------------------------------------------------------ reading

namespace {

// The scan of one field of an operator text: the characters from `pos` up
// to a "," or "*" or the end. Returns false, with the error pair set, on a
// character that has no meaning in an operator.
bool read_xsym_field(const std::string& text, std::size_t& pos, std::array<std::int32_t, 3>& row,
                     float& translation, bool& empty) {
  std::int32_t multiplier = 1;
  std::int32_t sign = 1;
  std::int32_t translation_sign = 1;
  float value = 0.0f;
  int decimals = 0;
  bool fraction = false;
  bool decimal = false;
  empty = true;
  while (pos < text.size()) {
    const char c = text[pos++];
    if (c == ' ') continue;
    if (c == ',' || c == '*') break;
    empty = false;
    const int letter = coordinate_index(c);
    if (letter >= 0) {
      row[letter] = multiplier * sign;
      sign = 1;
      multiplier = 1;
    } else if (c == '+' || c == '-') {
      sign = c == '+' ? 1 : -1;
    } else if (c == '/') {
      fraction = true;
    } else if (c == '.') {
      decimal = true;
    } else if (std::isdigit(static_cast<unsigned char>(c))) {
      const int digit = c - '0';
      translation_sign = sign;
      if (pos < text.size() && coordinate_index(text[pos]) >= 0) {
        multiplier = digit;  // only a single digit multiplies a letter
      } else if (fraction) {
        if (digit == 0) {
          set_err_symm(" Division by zero in operator string");
          return false;
        }
        value /= static_cast<float>(digit);  // "1/12" is read as 1/1/2
      } else if (decimal) {
        ++decimals;
        value += static_cast<float>(digit) / std::pow(10.0f, static_cast<float>(decimals));
      } else {
        value = value * 10.0f + static_cast<float>(digit);
      }
    } else {
      set_err_symm(std::string(" Invalid character... ") + c + " in operator string");
      return false;
    }
  }
  translation = value * static_cast<float>(translation_sign);
  return true;
}

}  // namespace

void read_xsym(const std::string& text, std::int32_t istart, mat3i& rot, vec3f* tr, bool det_check) {
  init_err_symm();
  rot = mat3i{};
  if (tr) *tr = vec3f{};
  const std::string line(fixed_text::trimmed(text));
  std::size_t pos = istart > 0 ? static_cast<std::size_t>(istart - 1) : 0;
  for (int i = 0; i < 3; ++i) {
    float translation = 0.0f;
    bool empty = true;
    if (!read_xsym_field(line, pos, rot[i], translation, empty)) return;
    if (tr) (*tr)[i] = translation;
    if (empty) {
      set_err_symm(" Blank operator field");
      return;
    }
  }
  if (det_check && determ_a(rot) == 0) set_err_symm(" The above operator is wrong: " + line);
}

// ------------------------------------------------------------------ writing

void get_symsymbi(const mat3i& rot, const vec3f& tr, std::string& text) {
  static const char letters[] = "xyz";
  text.clear();
  std::string row;  // the work text of a row: its parts hold no blanks
  for (int i = 0; i < 3; ++i) {
    row.clear();
    for (int j = 0; j < 3; ++j) {
      const std::int32_t c = rot[i][j];
      if (c == 0) continue;
      if (c == 1 || c == -1) {
        row += c > 0 ? '+' : '-';
      } else {
        if (c > 0) row += '+';
        row += std::to_string(c);
      }
      row += letters[j];
    }
    if (std::fabs(tr[i]) > translation_threshold) row += get_fraction_2dig(tr[i]);
    if (row.size() > 30) row.resize(30);
    if (i > 0) text += ',';
    text.append(row, !row.empty() && row[0] == '+' ? 1 : 0);
  }
}

namespace {

// One term of a position row: the coefficient c of `letter`, written as the
// first term of its row or behind another.
std::string position_term(float c, char letter, bool first) {
  std::string s = get_fraction_2dig(c);
  const bool unit = std::fabs(std::fabs(c) - 1.0f) <= translation_threshold;
  if (unit) {
    s = c < 0.0f ? "-" : (first ? "" : "+");
  } else if (first && !s.empty() && s[0] == '+') {
    s.erase(0, 1);
  }
  const auto slash = s.find('/');
  if (slash == std::string::npos) {
    s += letter;
  } else if (slash > 0 && s[slash - 1] == '1') {
    s[slash - 1] = letter;  // "+1/2" gives "+x/2"
  } else {
    s.insert(slash, 1, letter);  // "+3/2" gives "+3x/2"
  }
  return s;
}

}  // namespace

void get_symsymbr(const mat3f& rot, const vec3f& tr, std::string& text) {
  static const char letters[] = "xyz";
  std::string all;
  for (int i = 0; i < 3; ++i) {
    std::string row;
    for (int j = 0; j < 3; ++j) {
      if (rot[i][j] != 0.0f) row += position_term(rot[i][j], letters[j], row.empty());
    }
    if (std::fabs(tr[i]) > translation_threshold || row.empty()) {
      std::string constant = get_fraction_2dig(tr[i]);
      const float weight = std::fabs(rot[i][0]) + std::fabs(rot[i][1]) + std::fabs(rot[i][2]);
      if (weight <= 0.0006f && !constant.empty() && constant[0] == '+') constant.erase(0, 1);
      row += constant;
    }
    all += (i > 0 ? ", " : "") + row;
  }
  text = pack_string(all);
}

// ------------------------------------------------------------- operations

vec3f applyso(const sym_oper_type& op, const vec3f& v) {
  vec3f out;
  for (int i = 0; i < 3; ++i) {
    out[i] = static_cast<float>(op.rot[i][0]) * v[0] + static_cast<float>(op.rot[i][1]) * v[1] +
             static_cast<float>(op.rot[i][2]) * v[2] + op.tr[i];
  }
  return out;
}

std::int32_t axes_rotation(const mat3i& rot) {
  // By trace -3 .. 3, for determinant +1 and -1.
  static const std::int32_t proper[7] = {0, 0, 2, 3, 4, 6, 1};
  static const std::int32_t improper[7] = {-1, -6, -4, -3, -2, 0, 0};
  const std::int32_t t = rot[0][0] + rot[1][1] + rot[2][2];
  const std::int32_t d = determ_a(rot);
  if (t < -3 || t > 3) return 0;
  if (d == 1) return proper[t + 3];
  if (d == -1) return improper[t + 3];
  return 0;
}

void searchop(const mat3i& rot, std::int32_t i1, std::int32_t i2, std::int32_t& found) {
  init_err_symm();
  if (i2 >= i1) {
    found = 0;
    const std::int32_t first = std::max(i1, 1);
    const std::int32_t last = std::min(i2, static_cast<std::int32_t>(mod6.size()));
    mat3i negative;
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) negative[i][j] = -rot[i][j];
    for (std::int32_t k = first; k <= last && found == 0; ++k) {
      if (mod6[k - 1] == rot) found = k;
    }
    for (std::int32_t k = first; k <= last && found == 0; ++k) {
      if (mod6[k - 1] == negative) found = -k;
    }
  }
  if (found != 0) return;
  std::string message = " Try to re-write your S.O. using a rotational part";
  if (i1 == 1 && i2 == 24) {
    message += " identical to a S.O. of the space group P m -3 m";
  } else if (i1 == 25 && i2 == 36) {
    message += " identical to a S.O. of the space group P 6/m m m";
  } else {
    message += " identical to a S.O. of the space group P m -3 m or P 6/m m m";
  }
  set_err_symm(message);
}

void mod_trans(std::int32_t n, std::vector<vec3f>& t, std::int32_t in, std::int32_t* out) {
  const std::size_t count = std::min(static_cast<std::size_t>(std::max(n, 0)), t.size());
  for (std::size_t k = 0; k < count; ++k) t[k] = modulo_lat(t[k]);
  if (out) *out = 2 - in;
}

// ------------------------------------------------------------------ lattices

namespace {

// The centring vectors of a conventional lattice letter (upper case), the
// null vector first; empty for any other letter.
std::span<const vec3f> reference_vectors(char letter) {
  switch (letter) {
    case 'A':
      return ltr_a;
    case 'B':
      return ltr_b;
    case 'C':
      return ltr_c;
    case 'I':
      return ltr_i;
    case 'R':
      return ltr_r;
    case 'F':
      return ltr_f;
    default:
      return {};
  }
}

char upper_letter(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

}  // namespace

void latsym(const std::string& symb, std::int32_t numl, const std::vector<vec3f>* latc) {
  static const std::string codes = "PABCIRFZ";
  init_err_symm();
  const auto at = symb.find_first_not_of(" -");
  const char letter = at == std::string::npos ? ' ' : upper_letter(symb[at]);
  nlat = 1;
  ltr[0] = vec3f{};
  inlat = 1;
  lat_ch = std::string(1, letter);
  if (letter == 'Z' || letter == 'X') {
    if (latc == nullptr || numl < 1) {
      set_err_symm("Unconventional Lattice Symbol Z needs centring vectors");
      return;
    }
    lat_ch = "Z";
    inlat = 8;
    nlat = 1 + std::min({numl, static_cast<std::int32_t>(latc->size()), static_cast<std::int32_t>(ltr.size() - 1)});
    for (std::int32_t k = 1; k < nlat; ++k) ltr[k] = (*latc)[k - 1];
    return;
  }
  const auto code = codes.find(letter);
  if (letter == ' ' || code == std::string::npos) {
    set_err_symm(std::string("Wrong Lattice Symbol ") + letter);  // the lattice stays P
    return;
  }
  const auto vectors = reference_vectors(letter);
  for (std::size_t k = 1; k < vectors.size(); ++k) ltr[k] = vectors[k];
  nlat = std::max(static_cast<std::int32_t>(vectors.size()), 1);
  inlat = static_cast<std::int32_t>(code) + 1;
}

bool lattice_trans(const vec3f& v, const std::string& lat) {
  if (zbelongv(v)) return true;
  const char letter = lat.empty() ? ' ' : upper_letter(lat[0]);
  const std::span<const vec3f> vectors =
      letter == 'Z' ? std::span<const vec3f>(ltr.data(), static_cast<std::size_t>(std::clamp(nlat, 0, 192)))
                    : reference_vectors(letter);
  for (std::size_t k = 1; k < vectors.size(); ++k) {
    const vec3f& c = vectors[k];
    if (zbelongv({c[0] - v[0], c[1] - v[1], c[2] - v[2]})) return true;
  }
  return false;
}

// ------------------------------------------------------------- positions

namespace {

// The operators of a record that are really there: at most multip of them.
std::size_t operator_count(const space_group_type& spg) {
  return std::min(static_cast<std::size_t>(std::max(spg.multip, 0)), spg.sym_op.size());
}

vec3f difference(const vec3f& a, const vec3f& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

}  // namespace

std::int32_t get_multip_pos_crys(const vec3f& x, const space_group_type& spg) {
  const float caller_eps = epss_val();
  set_epsg(0.001f);
  std::vector<vec3f> points;
  const std::size_t count = operator_count(spg);
  points.reserve(std::max<std::size_t>(count, 1));
  points.push_back(x);
  for (std::size_t k = 1; k < count; ++k) {
    const vec3f image = modulo_lat(applyso(spg.sym_op[k], x));
    bool known = false;
    for (const auto& p : points) {
      if (lattice_trans(difference(p, image), spg.spg_lat)) {
        known = true;
        break;
      }
    }
    if (!known) points.push_back(image);
  }
  set_epsg(caller_eps);
  return static_cast<std::int32_t>(points.size()) * spg.num_lat;
}

void wyckoff_orbit(const space_group_type& spg, const std::string& origin, std::int32_t& orbit_count,
                   std::array<std::string, 48>& orbit) {
  for (auto& s : orbit) s.clear();
  orbit_count = 0;
  const auto start = origin.find_first_not_of(' ');
  if (start == std::string::npos) return;
  orbit[0] = std::string(fixed_text::trimmed(origin.substr(start)));
  orbit_count = 1;

  // The rotation part of a site's text and of its images is integer: it
  // is worked out in integers and made real only for the text.
  mat3i w;
  vec3f t;
  read_xsym(origin, 1, w, &t, false);
  init_err_symm();  // a site's text may have a zero determinant

  const std::int32_t num_lat = std::max(spg.num_lat, 1);
  const std::size_t reduced = std::min(static_cast<std::size_t>(std::max(spg.multip, 0) / num_lat), spg.sym_op.size());
  const std::size_t vectors = std::min(static_cast<std::size_t>(num_lat), spg.latt_trans.size());
  // The points so far as numbers: two positions have the same text when
  // their rotation parts are equal and their constants differ by less than
  // the text shows (0.0002), so only the points kept are written. A point is
  // there already when one with its rotation part has its constants, or
  // their image by a centring vector (worked out only for such a point).
  std::vector<std::pair<mat3i, vec3f>> points = {{w, t}};
  const auto close = [](const vec3f& a, const vec3f& b) {
    return std::fabs(a[0] - b[0]) <= 0.0002f && std::fabs(a[1] - b[1]) <= 0.0002f && std::fabs(a[2] - b[2]) <= 0.0002f;
  };
  const auto known = [&](const mat3i& w1, const vec3f& t1) {
    for (const auto& [w0, t0] : points) {
      if (w0 != w1) continue;
      if (close(t0, t1)) return true;
      for (std::size_t l = 1; l < vectors; ++l) {
        const vec3f& c = spg.latt_trans[l];
        if (close(t0, modulo_lat({t1[0] + c[0], t1[1] + c[1], t1[2] + c[2]}))) return true;
      }
    }
    return false;
  };
  for (std::size_t k = 1; k < reduced && orbit_count < 48; ++k) {
    const sym_oper_type& op = spg.sym_op[k];
    mat3i w1{};
    vec3f t1{};
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        for (int m = 0; m < 3; ++m) w1[i][j] += op.rot[i][m] * w[m][j];
        t1[i] += static_cast<float>(op.rot[i][j]) * t[j];
      }
      t1[i] += op.tr[i];
    }
    t1 = modulo_lat(t1);
    if (known(w1, t1)) continue;
    mat3f real_w1;
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) real_w1[i][j] = static_cast<float>(w1[i][j]);
    std::string text;
    get_symsymbr(real_w1, t1, text);
    orbit[orbit_count++] = fixed_text::assigned(text, 40);
    points.push_back({w1, t1});
  }
}

void get_crystal_system_r_op(const std::vector<mat3i>& ops, std::int32_t count, std::int32_t& system_code,
                             std::string& system_letter) {
  init_err_symm();
  system_code = 0;
  system_letter.clear();
  std::int32_t n2 = 0, n3 = 0, n4 = 0, n6 = 0;
  const std::size_t used = std::min(static_cast<std::size_t>(std::max(count, 0)), ops.size());
  for (std::size_t k = 0; k < used; ++k) {
    switch (axes_rotation(ops[k])) {
      case 0:
        set_err_symm(" Axes rotation wrong");
        return;
      case 2:
      case -2:
        ++n2;
        break;
      case 3:
      case -3:
        ++n3;
        break;
      case 4:
      case -4:
        ++n4;
        break;
      case 6:
      case -6:
        ++n6;
        break;
      default:
        break;
    }
  }
  // The six-fold test comes before the three-fold one, so that a hexagonal
  // group is not taken for a trigonal one.
  if (n3 == 8) {
    system_code = 7, system_letter = "c";
  } else if (n6 == 2) {
    system_code = 6, system_letter = "h";
  } else if (n3 == 2) {
    system_code = 5, system_letter = "h";
  } else if (n4 == 2) {
    system_code = 4, system_letter = "t";
  } else if (n2 == 1) {
    system_code = 2, system_letter = "m";
  } else if (n2 == 3) {
    system_code = 3, system_letter = "o";
  } else {
    system_code = 1, system_letter = "a";
  }
}
