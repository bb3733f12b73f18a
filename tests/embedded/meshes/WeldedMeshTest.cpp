// Geo-sets as one vertex for each index.

#include "embedded/meshes/WeldedMesh.h"

#include <gtest/gtest.h>

#include <cmath>
#include <glm/gtc/matrix_transform.hpp>

#include "tests/embedded/meshes/MeshFixtures.h"

namespace {

using embedded::WeldedMesh;
using embedded::weldedMesh;
using embedded::WeldOptions;
using Floats = std::vector<float>;
using Indices = std::vector<std::uint32_t>;

TEST(WeldedMesh, CornersOfEqualValuesAreOneVertex) {
  const WeldedMesh mesh = weldedMesh(*fixtures::square({}), {});
  EXPECT_EQ(mesh.positions, (Floats{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}));
  EXPECT_EQ(mesh.texCoords, (Floats{0, 0, 1, 0, 1, 1, 0, 1}));
  EXPECT_EQ(mesh.indices, (Indices{0, 1, 2, 0, 2, 3}));
  EXPECT_TRUE(mesh.normals.empty());
  EXPECT_TRUE(mesh.colors.empty());
}

TEST(WeldedMesh, EqualPointsUnderDifferentNumbersAreOneVertexToo) {
  const auto set = fixtures::square({});
  set->setState(0, {});
  set->setCoordList(new sglDataPtr(Floats{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 0}));
  set->setCoordIndexList(new sglDataPtr(Indices{0, 1, 2, 3, 4, 5}));
  const WeldedMesh mesh = weldedMesh(*set, {});
  EXPECT_EQ(mesh.positions.size(), 12U);
  EXPECT_EQ(mesh.indices, (Indices{0, 1, 2, 0, 2, 3}));
}

TEST(WeldedMesh, APointWithTwoNormalsIsTwoVertices) {
  const auto set = fixtures::square({});
  set->setNormalList(new sglDataPtr(Floats{0, 0, 2, 0, 1, 0}), sglGeoSet::BIND_PER_PRIM);
  const WeldedMesh mesh = weldedMesh(*set, {});
  EXPECT_EQ(mesh.positions.size(), 18U);
  EXPECT_EQ(mesh.normals, (Floats{0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 1, 0, 0, 1, 0, 0, 1, 0})) << "of unit length";
}

TEST(WeldedMesh, NormalsThatAreNoneAreThoseOfTheTriangle) {
  const auto set = fixtures::triangle();
  set->setNormalList(new sglDataPtr(Floats{0, 0, 0, NAN, 0, 0, INFINITY, 0, 0}), sglGeoSet::BIND_PER_VERTEX);
  EXPECT_EQ(weldedMesh(*set, {}).normals, (Floats{0, 0, 1, 0, 0, 1, 0, 0, 1}));
  set->setCoordList(new sglDataPtr(Floats(9, 1.0F)));
  EXPECT_EQ(weldedMesh(*set, {}).normals, (Floats{0, 0, 1})) << "a triangle without area has some unit normal";
}

TEST(WeldedMesh, WantedNormalsAreMade) {
  WeldOptions options;
  options.wantsNormals = true;
  EXPECT_EQ(weldedMesh(*fixtures::square({}), options).normals, (Floats{0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1}));
}

TEST(WeldedMesh, ColoursAreBrought0To1AndThoseOfTheWholeAreNone) {
  const auto set = fixtures::triangle();
  set->setColorList(new sglDataPtr(Floats{2, -1, NAN, 0.5F}), sglGeoSet::BIND_PER_PRIM);
  EXPECT_EQ(weldedMesh(*set, {}).colors, (Floats{1, 0, 0, 0.5F, 1, 0, 0, 0.5F, 1, 0, 0, 0.5F}));
  set->setColorList(set->getColorList(), sglGeoSet::BIND_OVERALL);
  EXPECT_TRUE(weldedMesh(*set, {}).colors.empty());
}

TEST(WeldedMesh, TrianglesWithoutFinitePositionsAreLeftOut) {
  const auto set = fixtures::square({});
  set->setCoordList(new sglDataPtr(Floats{0, 0, 0, 1, NAN, 0, 1, 1, 0, 0, 1, 0}));
  const WeldedMesh mesh = weldedMesh(*set, {});
  EXPECT_EQ(mesh.endlessCount, 1U);
  EXPECT_EQ(mesh.indices, (Indices{0, 1, 2}));
}

TEST(WeldedMesh, APlacementTakesNormalsAlong) {
  WeldOptions options;
  options.placement = glm::scale(glm::translate(glm::dmat4(1.0), glm::dvec3(5, 0, 0)), glm::dvec3(1, 4, 1));
  const auto set = fixtures::triangle();
  set->setNormalList(new sglDataPtr(Floats{0, 4, 3}), sglGeoSet::BIND_OVERALL);
  const WeldedMesh mesh = weldedMesh(*set, options);
  EXPECT_EQ(mesh.positions, (Floats{5, 0, 0, 6, 0, 0, 5, 4, 0}));
  EXPECT_NEAR(mesh.normals[1], std::sqrt(0.1), 1e-6);  // (0, 1, 3) / sqrt(10)
  EXPECT_NEAR(mesh.normals[2], 3 * std::sqrt(0.1), 1e-6);
}

TEST(WeldedMesh, MirroringAndClockwiseFacesEachTurnTrianglesRound) {
  const Indices kRound{0, 1, 2};
  const Floats kUp{0, 0, 1};
  for (const bool isClockwise : {false, true}) {
    for (const bool isMirrored : {false, true}) {
      WeldOptions options;
      options.isClockwise = isClockwise;
      if (isMirrored) options.placement = glm::scale(options.placement, glm::dvec3(-1, 1, 1));
      const auto set = fixtures::triangle();
      set->setNormalList(new sglDataPtr(Floats{0, 0, 1}), sglGeoSet::BIND_OVERALL);
      const WeldedMesh mesh = weldedMesh(*set, options);
      EXPECT_EQ(mesh.indices, kRound);
      EXPECT_EQ(Floats(mesh.normals.begin(), mesh.normals.begin() + 3), kUp);
      const bool isRound = mesh.positions[3] == 0.0F;  // the second corner is the one on y
      EXPECT_EQ(isRound, isClockwise != isMirrored) << isClockwise << isMirrored;
    }
  }
}

TEST(WeldedMesh, TheTextureMatrixIsWorkedIn) {
  WeldOptions options;
  options.textureMatrix = fixtures::translation(0.5F, 0.25F, 0);
  EXPECT_EQ(weldedMesh(*fixtures::square({}), options).texCoords,
            (Floats{0.5F, 0.25F, 1.5F, 0.25F, 1.5F, 1.25F, 0.5F, 1.25F}));
}

}  // namespace
