// Operator texts: reading, writing and the tables' own texts.
#include <gtest/gtest.h>

#include <string>

#include "crystal/vant_crystallographic_symmetry.h"
#include "tests/data_files.h"

namespace {

template <typename Matrix>
Matrix matrix_of(const std::string& field) {
  const auto v = numbers(field);
  Matrix m{};
  for (std::size_t k = 0; k < 9 && k < v.size(); ++k) m[k / 3][k % 3] = static_cast<typename Matrix::value_type::value_type>(v[k]);
  return m;
}

vec3f vector_of(const std::string& field) {
  const auto v = numbers(field);
  return {v.at(0), v.at(1), v.at(2)};
}

TEST(OperatorTexts, ReadAndWritten) {
  for (const auto& row : data_table("crystal/operator_texts.txt", 4)) {
    const std::string& way = row[0];
    const vec3f tr = vector_of(row[3]);
    std::string text;
    if (way == "real") get_symsymbr(matrix_of<mat3f>(row[2]), tr, text);
    if (way == "write" || way == "both") get_symsymbi(matrix_of<mat3i>(row[2]), tr, text);
    if (way != "read") {
      EXPECT_EQ(text, row[1]);
    }
    if (way != "read" && way != "both") continue;
    mat3i rot;
    vec3f read_tr;
    read_xsym(row[1], 1, rot, &read_tr);
    EXPECT_FALSE(err_symm) << row[1] << ": " << err_symm_mess;
    EXPECT_EQ(rot, matrix_of<mat3i>(row[2])) << row[1];
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(read_tr[i], tr[i], 1e-6) << row[1];
  }
  mat3i rot;
  read_xsym("gen -x,-y,z", 5, rot);  // read from the given column
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(rot[0][0], -1);
}

TEST(ReadXsym, Failures) {
  for (const auto& row : data_table("crystal/operator_failures.txt", 2)) {
    mat3i rot;
    vec3f tr;
    read_xsym(row[0], 1, rot, &tr);
    EXPECT_TRUE(err_symm) << row[0];
    EXPECT_EQ(err_symm_mess, row[1]) << row[0];
  }
  mat3i rot;
  read_xsym("x,x,z", 1, rot, nullptr, false);  // no determinant check
  EXPECT_FALSE(err_symm);
  EXPECT_EQ(rot[1][0], 1);
  // the rotation read so far is kept
  read_xsym("-y,x,q", 1, rot);
  EXPECT_EQ(rot[0][1], -1);
  EXPECT_EQ(rot[1][0], 1);
}

}  // namespace
