#include "vrml/fields/SFMatrix.h"

#include <gtest/gtest.h>

namespace vrml {
namespace {

using Rows = SFMatrix::Rows;

constexpr Rows kIdentity = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
constexpr Rows kAny = {{{1, 2, 3, 4}, {5, 6, 7, 8}, {2, 6, 4, 8}, {3, 1, 1, 2}}};

TEST(SFMatrix, is_the_identity_by_default_and_copies_its_rows) {
  SFMatrix matrix;
  EXPECT_EQ(matrix.getValue(), kIdentity);
  float rows[4][4];
  SFMatrix(kAny).getValue(rows);
  EXPECT_EQ(rows[1][2], 7);
  matrix.setValue(rows);
  EXPECT_EQ(matrix.getValue(), kAny);
  const SFMatrix copy(matrix), fromRows(rows);
  EXPECT_EQ(copy.getValue(), kAny);
  EXPECT_EQ(fromRows.getValue(), kAny);
  matrix.setIdentity();
  EXPECT_EQ(matrix.getValue(), kIdentity);
}

TEST(SFMatrix, scale_and_translation_start_from_the_identity) {
  SFMatrix matrix(kAny);
  matrix.setScale(2, 3, 4);
  EXPECT_EQ(matrix.getValue(), (Rows{{{2, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 4, 0}, {0, 0, 0, 1}}}));
  matrix.setTranslation(SFVec3f(5, 6, 7));
  EXPECT_EQ(matrix.getValue(), (Rows{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {5, 6, 7, 1}}}));
}

TEST(SFMatrix, multiplies_on_the_right) {
  SFMatrix scale, translation;
  scale.setScale(2, 2, 2);
  translation.setTranslation(1, 2, 3);
  SFMatrix scaleFirst(scale);
  scaleFirst.multiply(translation);
  SFVec3f point(1, 1, 1);
  scaleFirst.transform(point);
  EXPECT_TRUE(point.equals(3, 4, 5));
  SFMatrix translationFirst(translation);
  translationFirst.multiply(scale);
  float other[3] = {1, 1, 1};
  translationFirst.transform(other);
  EXPECT_EQ(other[0], 4);
  EXPECT_EQ(other[1], 6);
  EXPECT_EQ(other[2], 8);
  SFMatrix square(kAny);
  square.multiply(square);
  EXPECT_EQ(square.getValue(), (Rows{{{29, 36, 33, 52}, {73, 96, 93, 140}, {64, 72, 72, 104}, {16, 20, 22, 32}}}));
}

TEST(SFMatrix, has_a_determinant) {
  EXPECT_EQ(SFMatrix().determinant(), 1);
  EXPECT_EQ(SFMatrix(kAny).determinant(), 72);
  SFMatrix scale;
  scale.setScale(2, 3, -4);
  EXPECT_EQ(scale.determinant(), -24);
  EXPECT_EQ(SFMatrix(Rows{}).determinant(), 0);
}

TEST(SFMatrix, has_no_text) {
  SFMatrix matrix;
  matrix.setValue("2 2 2");
  char buffer[4] = "x";
  EXPECT_STREQ(matrix.getValue(buffer), "");
  EXPECT_EQ(matrix.getValue(), kIdentity);
}

}  // namespace
}  // namespace vrml
