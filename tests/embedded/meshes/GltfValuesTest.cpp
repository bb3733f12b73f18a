// Looks of the host and of glTF.

#include "embedded/meshes/GltfValues.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace embedded;

TEST(GltfValues, ColoursGoFromDisplayToLightAndBack) {
  const struct {
    float displayed;
    float linear;
  } kRows[] = {{0.0F, 0.0F}, {0.02F, 0.00154799F}, {0.5F, 0.21404114F}, {0.8F, 0.60382734F}, {1.0F, 1.0F}};
  for (const auto& row : kRows) {
    EXPECT_NEAR(linearOf(row.displayed), row.linear, 1e-7) << row.displayed;
    EXPECT_NEAR(displayedOf(row.linear), row.displayed, 1e-6) << row.displayed;
  }
  for (const float outside : {-1.0F, 2.0F, INFINITY, -INFINITY}) {
    EXPECT_EQ(linearOf(outside), outside > 0.0F ? 1.0F : 0.0F);
    EXPECT_EQ(displayedOf(outside), outside > 0.0F ? 1.0F : 0.0F);
  }
  EXPECT_EQ(linearOf(NAN), 0.0F);
}

TEST(GltfValues, ShininessBecomesRoughnessAndBack) {
  EXPECT_EQ(roughnessOf(0.0F), 1.0F);
  EXPECT_NEAR(roughnessOf(64.0F), 0.41722, 1e-5);
  EXPECT_EQ(roughnessOf(1e9F), roughnessOf(128.0F));
  for (const float shininess : {0.0F, 1.0F, 20.0F, 64.0F, 128.0F}) {
    EXPECT_NEAR(shininessOf(roughnessOf(shininess)), shininess, 1e-3);
  }
  EXPECT_EQ(shininessOf(0.0F), 128.0F);
  EXPECT_EQ(shininessOf(7.0F), 0.0F);
}

}  // namespace
