#include "crystal/vant_crystal_metrics.h"

#include <cmath>

#include "crystal/fixed_text.h"
#include "crystal/vant_math_3d_inverse.h"
#include "crystal/vant_math_degrees.h"

namespace {

struct trig_type {
  float ca, cb, cg, sa, sb, sg;
};

trig_type trig_of(const vec3f& ang) {
  return {cosd_sp(ang[0]), cosd_sp(ang[1]), cosd_sp(ang[2]),
          sind_sp(ang[0]), sind_sp(ang[1]), sind_sp(ang[2])};
}

mat3f transpose(const mat3f& m) {
  mat3f t{};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) t[i][j] = m[j][i];
  return t;
}

// The convention code as used for the matrix: blank gives "CA"; otherwise
// left-adjusted, upper-cased, cut to two characters; a single letter names
// the direct axis and is completed; an unknown pair is an error.
std::string normalised_cartype(std::string_view cartype) {
  const auto first = cartype.find_first_not_of(' ');
  if (first == std::string_view::npos) return "CA";
  std::string code(fixed_text::trimmed(cartype.substr(first, 2)));
  for (char& c : code)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  if (code.size() == 1) {
    if (code == "A") return "AC";
    if (code == "B") return "BC";
    return "CA";
  }
  if (code == "CA" || code == "CB" || code == "AC" || code == "BC" || code == "BA") return code;
  err_crys = true;
  err_crys_mess = "Invalid CarType in call to Get_Cryst_Orthog_Matrix. Reset to default";
  return "CA";
}

// Rows of the Busing-Levy B matrix of any convention but "CA".
mat3f busing_levy(const cell_metrics_type& c, const vec3f& angl) {
  return {{{c.rcell[0], c.rcell[1] * cosd_sp(c.rang[2]), c.rcell[2] * cosd_sp(c.rang[1])},
           {0.0f, c.rcell[1] * sind_sp(c.rang[2]), -c.rcell[2] * sind_sp(c.rang[1]) * cosd_sp(angl[0])},
           {0.0f, 0.0f, 1.0f / c.cell[2]}}};
}

constexpr char bad_cell[] = " Bad cell parameters ";

std::array<float, 6> betas_from(const std::array<float, 6>& v, float f, const cell_metrics_type& c) {
  return {v[0] * f * c.gr[0][0],
          v[1] * f * c.gr[1][1],
          v[2] * f * c.gr[2][2],
          v[3] * f * c.rcell[0] * c.rcell[1],
          v[4] * f * c.rcell[0] * c.rcell[2],
          v[5] * f * c.rcell[1] * c.rcell[2]};
}

}  // namespace

void recip(const vec3f& cell, const vec3f& ang, vec3f& rcell, vec3f& rang, float& vol, float& rvol) {
  const trig_type t = trig_of(ang);
  // The absolute value keeps a degenerate set of angles from a root of a
  // negative number; such a cell comes out with a volume near 0.
  const float s = std::sqrt(std::fabs(2.0f * t.ca * t.cb * t.cg + 1.0f - (t.cg * t.cg + t.cb * t.cb + t.ca * t.ca)));
  vol = cell[0] * cell[1] * cell[2] * s;
  rvol = 1.0f / vol;
  rcell = {t.sa * cell[1] * cell[2] * rvol, t.sb * cell[0] * cell[2] * rvol, t.sg * cell[0] * cell[1] * rvol};
  rang = {acosd_sp((t.cb * t.cg - t.ca) / (t.sb * t.sg)), acosd_sp((t.ca * t.cg - t.cb) / (t.sa * t.sg)),
          acosd_sp((t.cb * t.ca - t.cg) / (t.sb * t.sa))};
}

void metrics(const vec3f& cell, const vec3f& ang, mat3f& g) {
  const trig_type t = trig_of(ang);
  g[0][0] = cell[0] * cell[0];
  g[1][1] = cell[1] * cell[1];
  g[2][2] = cell[2] * cell[2];
  g[0][1] = g[1][0] = cell[0] * cell[1] * t.cg;
  g[0][2] = g[2][0] = cell[0] * cell[2] * t.cb;
  g[1][2] = g[2][1] = cell[1] * cell[2] * t.ca;
}

void get_cryst_orthog_matrix(const vec3f& cellv, const vec3f& ang, mat3f& m, std::string_view cartype) {
  const std::string code = normalised_cartype(cartype);
  const float a = cellv[0], b = cellv[1], c = cellv[2];
  const trig_type t = trig_of(ang);
  auto root = [](float v) { return std::sqrt(1.0f - v * v); };
  if (code == "CA" || code == "CB") {
    const float C = (t.ca * t.cb - t.cg) / (t.sa * t.sb);
    if (code == "CA")
      m = {{{a * t.sb * root(C), 0.0f, 0.0f}, {-a * t.sb * C, b * t.sa, 0.0f}, {a * t.cb, b * t.ca, c}}};
    else
      m = {{{a * t.sb, -b * t.sa * C, 0.0f}, {0.0f, b * t.sa * root(C), 0.0f}, {a * t.cb, b * t.ca, c}}};
  } else if (code == "AC") {
    const float A = (t.cg * t.cb - t.ca) / (t.sg * t.sb);
    m = {{{a, b * t.cg, c * t.cb}, {0.0f, b * t.sg, -c * t.sb * A}, {0.0f, 0.0f, c * t.sb * root(A)}}};
  } else {
    const float B = (t.ca * t.cg - t.cb) / (t.sa * t.sg);
    if (code == "BC")
      m = {{{a * t.sg, 0.0f, -c * t.sa * B}, {a * t.cg, b, c * t.ca}, {0.0f, 0.0f, c * t.sa * root(B)}}};
    else
      m = {{{a * t.sg * root(B), 0.0f, 0.0f}, {a * t.cg, b, c * t.ca}, {-a * t.sg * B, 0.0f, c * t.sa}}};
  }
}

// The steps run in a fixed order on the arguments as given: a zero angle is
// stored as 90 but the derived values are those of the zero.
void set_crystal_cell(const vec3f& cellv, const vec3f& angl, cell_metrics_type& cell,
                      const std::optional<std::string>& cartype, const std::optional<vec3f>& scell,
                      const std::optional<vec3f>& sangl) {
  err_crys = false;
  err_crys_mess.clear();
  if (scell && sangl) {
    cell.cell_sigma = *scell;
    cell.ang_sigma = *sangl;
  } else {
    cell.cell_sigma = {};
    cell.ang_sigma = {};
    cell.reserved = {};
  }

  cell.cell = cellv;
  cell.ang = angl;
  for (float& v : cell.ang)
    if (v < 1.0e-5f) v = 90.0f;

  recip(cellv, angl, cell.rcell, cell.rang, cell.cell_vol, cell.rcell_vol);

  get_cryst_orthog_matrix(cellv, angl, cell.cr_orth, cartype ? std::string_view(*cartype) : std::string_view{});
  cell.cart_type = cartype ? fixed_text::assigned(*cartype, 2) : "CA";

  std::int32_t ifail = 0;
  matrix_inverse(cell.cr_orth, cell.orth_cr, ifail);
  if (ifail != 0) {
    err_crys = true;
    err_crys_mess = bad_cell;
    return;
  }

  cell.cell_vol_sigma = cell_volume_sigma(cell);
  metrics(cellv, angl, cell.gd);
  metrics(cell.rcell, cell.rang, cell.gr);

  if (cell.cart_type == "CA") {
    cell.bl_m = transpose(cell.orth_cr);
    cell.bl_minv = transpose(cell.cr_orth);
    return;
  }
  cell.bl_m = busing_levy(cell, angl);
  matrix_inverse(cell.bl_m, cell.bl_minv, ifail);
  if (ifail != 0) {
    err_crys = true;
    err_crys_mess = bad_cell;
  }
}

float cell_volume_sigma(const cell_metrics_type& cell) {
  float s1 = 0.0f, s2 = 0.0f;
  for (int i = 0; i < 3; ++i) {
    s1 += std::fabs(cell.cell_sigma[i]);
    s2 += std::fabs(cell.ang_sigma[i]);
  }
  if (s1 < 1.0e-5f && s2 < 1.0e-5f) return 0.0f;
  float p = 0.0f;
  for (int i = 0; i < 3; ++i) {
    const float r = cell.cell_sigma[i] / cell.cell[i];
    p += r * r;
  }
  if (s2 > 1.0e-5f) {
    const trig_type t = trig_of(cell.ang);
    // D enters once here, not squared.
    const float d = 1.0f / (2.0f * t.cg * t.cb * t.ca + 1.0f - (t.cg * t.cg + t.cb * t.cb + t.ca * t.ca));
    vec3f w{};
    for (int i = 0; i < 3; ++i) {
      const float s = cell.ang_sigma[i] * 0.017453292519943295f;
      w[i] = s * s * d;
    }
    const float ta = (t.ca - t.cg * t.cb) * t.sa, tb = (t.cb - t.cg * t.ca) * t.sb, tg = (t.cg - t.cb * t.ca) * t.sg;
    p += ta * ta * w[0] + tb * tb * w[1] + tg * tg * w[2];
  }
  return std::sqrt(p) * cell.cell_vol;
}

float u_equiv(const cell_metrics_type& cell, const std::array<float, 6>& u) {
  const trig_type t = trig_of(cell.ang);
  const float p = cell.cell[0] * cell.rcell[0];
  const float q = cell.cell[1] * cell.rcell[1];
  const float r = cell.cell[2] * cell.rcell[2];
  const float c = cell.cell[2], cs = cell.rcell[2];
  return 0.33333334f * (p * p * u[0] + q * q * u[1] + r * r * u[2] +
                        2.0f * (t.cg * q * p * u[3] + (t.cb * c * p * u[4] + t.ca * c * q * u[5]) * cs));
}

std::array<float, 6> convert_b_betas(const std::array<float, 6>& b, const cell_metrics_type& cell) {
  return betas_from(b, 0.25f, cell);
}

std::array<float, 6> convert_u_betas(const std::array<float, 6>& u, const cell_metrics_type& cell) {
  return betas_from(u, 19.739208f, cell);
}
