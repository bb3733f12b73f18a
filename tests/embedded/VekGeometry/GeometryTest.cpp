// Frames, boxes, and the order of welding records.

#include <VekGeometry/CVekBBox.h>
#include <VekGeometry/CVekFrame.h>
#include <VekGeometry/CVekGeomTools.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

sglMat4<float> matrixOf(const sglVec3<float>& x, const sglVec3<float>& y, const sglVec3<float>& z) {
  sglMat4<float> matrix;
  for (unsigned i = 0; i < 3; ++i) {
    matrix(0, i) = x[i];
    matrix(1, i) = y[i];
    matrix(2, i) = z[i];
  }
  matrix[12] = 7;
  return matrix;
}

TEST(Frame, AxesAreMadeOrthonormalAlongZ) {
  struct Row {
    const char* name;
    sglVec3<float> x, y, z;
    sglVec3<float> newX, newY, newZ;
  };
  const Row rows[] = {
      {"scaled", {2, 0, 0}, {0, 3, 0}, {0, 0, 4}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
      {"mirrored along x", {-1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
      {"mirrored along y", {1, 0, 0}, {0, -1, 0}, {0, 0, 1}, {-1, 0, 0}, {0, -1, 0}, {0, 0, 1}},
      {"y leaning towards z", {1, 0, 0}, {0, 1, 1}, {0, 0, 1}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
      {"z leaning towards x", {1, 0, 0}, {0, 1, 0}, {3, 0, 4}, {0.8F, 0, -0.6F}, {0, 1, 0}, {0.6F, 0, 0.8F}},
      {"zero z", {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}},
      {"zero y", {1, 0, 0}, {0, 0, 0}, {0, 0, 2}, {0, 0, 0}, {0, 0, 0}, {0, 0, 1}},
      {"huge", {1e38F, 0, 0}, {0, 1e38F, 0}, {0, 0, 1e38F}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
  };
  for (const Row& row : rows) {
    CVekFrame frame;
    frame.SetMatLocalToGlobal(matrixOf(row.x, row.y, row.z));
    frame.NormalizeOrthoAlongZ();
    for (unsigned i = 0; i < 3; ++i) {
      EXPECT_NEAR(frame.GetVx()[i], row.newX[i], 1e-7F) << row.name;
      EXPECT_NEAR(frame.GetVy()[i], row.newY[i], 1e-7F) << row.name;
      EXPECT_NEAR(frame.GetVz()[i], row.newZ[i], 1e-7F) << row.name;
    }
    EXPECT_EQ(frame.GetOrigin(), (sglVec3<float>{7, 0, 0})) << row.name;
  }
}

TEST(Frame, PointsAreRowVectors) {
  sglMat4<float> matrix;
  matrix[0] = 2;
  matrix[1] = 1;
  matrix[12] = 10;
  EXPECT_EQ(CVekFrame::TransformPoint(matrix, {1, 1, 0}), (sglVec3<float>{12, 2, 0}));
}

TEST(Box, GrowsByPointsAndIgnoresWhatIsNoNumber) {
  CVekBBox box;
  EXPECT_TRUE(box.isEmpty());
  EXPECT_EQ(box.GetDiagonal(), 0.0F);
  box.expandToInclude({1, 2, 3});
  EXPECT_FALSE(box.isEmpty());
  EXPECT_EQ(box.GetDiagonal(), 0.0F);
  box.expandToInclude({4, 6, 3});
  EXPECT_EQ(box.GetDiagonal(), 5.0F);
  box.expandToInclude({std::nanf(""), 0, 3});
  EXPECT_EQ(box.getMin(), (sglVec3<float>{1, 0, 3}));
  box.makeEmpty();
  EXPECT_TRUE(box.isEmpty());
}

TEST(GeomTools, WeldRecordsAreOrderedByDistanceThenByNumber) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  CVekGeomTools::WeldRecord records[] = {
      {0, 0, 0, 4, kNan}, {0, 0, 0, 3, 1.0}, {0, 0, 0, 2, 0.5}, {0, 0, 0, 1, 1.0}, {0, 0, 0, 0, kNan}};
  std::qsort(records, std::size(records), sizeof records[0], CVekGeomTools::compare);
  std::string order;
  for (const auto& record : records) order += std::to_string(record.index);
  EXPECT_EQ(order, "21304");
}

}  // namespace
