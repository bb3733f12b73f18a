// Equal vertices are stored once.

#include "embedded/meshes/VertexWelder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using embedded::VertexWelder;

std::uint32_t add(VertexWelder& welder, std::vector<float> vertex) { return welder.add(vertex); }

TEST(VertexWelder, EqualVerticesAreOne) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  VertexWelder welder(2);
  EXPECT_EQ(add(welder, {1, 2}), 0U);
  EXPECT_EQ(add(welder, {1, 3}), 1U);
  EXPECT_EQ(add(welder, {1, 2}), 0U);
  EXPECT_EQ(add(welder, {0, 0}), 2U);
  EXPECT_EQ(add(welder, {-0.0F, 0}), 2U);
  EXPECT_EQ(add(welder, {kNan, 0}), 3U);
  EXPECT_EQ(add(welder, {kNan, 0}), 3U);
  EXPECT_EQ(welder.count(), 4U);
}

TEST(VertexWelder, TheSmallestDifferenceKeepsVerticesApart) {
  VertexWelder welder(1);
  EXPECT_EQ(add(welder, {1e-30F}), 0U);
  EXPECT_EQ(add(welder, {std::nextafter(1e-30F, 1.0F)}), 1U);
}

TEST(VertexWelder, NumbersStayWhenTheTableGrows) {
  VertexWelder welder(3);
  for (unsigned i = 0; i < 5000; ++i) EXPECT_EQ(add(welder, {static_cast<float>(i), 1, 2}), i);
  for (unsigned i = 0; i < 5000; ++i) EXPECT_EQ(add(welder, {static_cast<float>(i), 1, 2}), i);
  const std::vector<float> floats = welder.takeFloats();
  ASSERT_EQ(floats.size(), 15000U);
  EXPECT_EQ(floats[3 * 4999], 4999.0F);
  EXPECT_EQ(welder.count(), 0U);
  EXPECT_EQ(add(welder, {7, 7, 7}), 0U);
}

}  // namespace
