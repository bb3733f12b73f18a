// What an index list loses, row by row.

#include "tools/wrl/FaceAudit.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace wrl {
namespace {

struct Row {
  const char* name;
  std::vector<std::int32_t> coordIndex;
  std::int64_t pointCount;
  FaceLosses expected;
};

const std::vector<Row> kRows = {
    {"no index at all", {}, 4, {0, 0, 0, 0}},
    {"closed faces lose nothing", {0, 1, 2, -1, 0, 2, 3, 1, -1}, 4, {0, 0, 0, 0}},
    {"a face that is not closed", {0, 1, 2}, 3, {0, 0, 0, 3}},
    {"a face behind the last end", {0, 1, 2, -1, 1, 2}, 3, {0, 0, 0, 2}},
    {"empty faces", {-1, -1}, 3, {0, 2, 0, 0}},
    {"a face of two corners", {0, 1, -1, 0, 1, 2, -1}, 3, {0, 1, 0, 0}},
    {"an index past the points", {0, 1, 3, -1}, 3, {1, 0, 0, 0}},
    {"an index below -1", {0, 1, -2, -1}, 3, {1, 0, 0, 0}},
    {"no points", {0, 1, 2, -1}, 0, {1, 0, 0, 0}},
    {"out of range goes before degenerate", {7, -1}, 3, {1, 0, 0, 0}},
    {"a triangle with a repeated corner", {0, 1, 1, -1}, 2, {0, 0, 1, 0}},
    {"a quadrilateral whose second and fourth corners meet loses both", {0, 1, 2, 1, -1}, 3, {0, 0, 2, 0}},
    {"a quadrilateral whose first and third corners meet loses one of each cut", {0, 1, 0, 2, -1}, 3, {0, 0, 0, 0}},
    {"a pentagon whose third and fourth corners meet loses one", {0, 1, 2, 2, 3, -1}, 4, {0, 0, 1, 0}},
    {"an open face is not looked into", {9, 9}, 3, {0, 0, 0, 2}},
};

TEST(FaceAudit, counts_what_an_import_drops) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const FaceLosses losses = findFaceLosses(row.coordIndex, row.pointCount);
    EXPECT_EQ(losses.facesOutOfRange, row.expected.facesOutOfRange);
    EXPECT_EQ(losses.degenerateFaces, row.expected.degenerateFaces);
    EXPECT_EQ(losses.degenerateTriangles, row.expected.degenerateTriangles);
    EXPECT_EQ(losses.openCorners, row.expected.openCorners);
  }
}

TEST(FaceAudit, cuts_one_huge_polygon_in_linear_time) {
  std::vector<std::int32_t> polygon(3'000'000);
  std::iota(polygon.begin(), polygon.end(), 0);
  polygon.back() = -1;
  EXPECT_EQ(findFaceLosses(polygon, 3'000'000).degenerateTriangles, 0);
}

}  // namespace
}  // namespace wrl
