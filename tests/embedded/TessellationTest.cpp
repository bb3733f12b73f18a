// Primitives as triangles: where they lie, how they face, and what they cost.

#include "embedded/Tessellation.h"

#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglSphere.h>
#include <gtest/gtest.h>

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>
#include <limits>
#include <numbers>

#include "embedded/SceneMeasure.h"
#include "tests/embedded/SceneFixtures.h"

namespace {

constexpr double kPi = std::numbers::pi;

glm::dvec3 vectorAt(const sglDataPtr& list, std::uint32_t index) {
  const float* data = list.getFloats() + std::size_t{index} * 3;
  return {data[0], data[1], data[2]};
}

// The volume that a closed surface of outward faces encloses.
double volumeOf(const embedded::PrimitiveMesh& mesh) {
  double volume = 0.0;
  const std::uint32_t* indices = mesh.indices->getUnsigneds();
  for (std::size_t i = 0; i < mesh.indices->getCount(); i += 3) {
    const glm::dvec3 a = vectorAt(*mesh.coords, indices[i]);
    const glm::dvec3 b = vectorAt(*mesh.coords, indices[i + 1]);
    const glm::dvec3 c = vectorAt(*mesh.coords, indices[i + 2]);
    volume += glm::dot(a, glm::cross(b, c)) / 6.0;
  }
  return volume;
}

struct Row {
  const char* name;
  std::unique_ptr<sglPrimitive> primitive;
  unsigned triangles;
  double volume;     // of the ideal body
  double tolerance;  // relative
  sglVec3<float> min;
  sglVec3<float> max;
};

std::vector<Row> rows() {
  std::vector<Row> table;
  const auto add = [&table](auto... values) { table.push_back(Row{std::move(values)...}); };
  add("cube", std::make_unique<sglCube>(1.0F, 2.0F, 3.0F), 12U, 6.0, 1e-6, sglVec3<float>{0, 0, 0},
      sglVec3<float>{1, 2, 3});
  add("cone", std::make_unique<sglCone>(60U, 4.0F, 1.0F), 120U, kPi * 4 / 3, 0.01, sglVec3<float>{-1, -1, 0},
      sglVec3<float>{1, 1, 4});
  add("cylinder", std::make_unique<sglCylinder>(80U, 10U, 2.0F, 1.0F, 1.0F, true), 1760U, kPi * 2, 0.01,
      sglVec3<float>{-1, -1, 0}, sglVec3<float>{1, 1, 2});
  add("stump", std::make_unique<sglCylinder>(80U, 10U, 3.0F, 2.0F, 1.0F, true), 1760U, kPi * 7, 0.01,
      sglVec3<float>{-2, -2, 0}, sglVec3<float>{2, 2, 3});
  add("sphere", std::make_unique<sglSphere>(100U, 30U, 2.0F), 5800U, kPi * 32 / 3, 0.01, sglVec3<float>{-1, -1, -1},
      sglVec3<float>{3, 3, 3});
  return table;
}

TEST(Tessellation, BodiesEncloseTheirVolumeAndLieWhereTheyShould) {
  for (Row& row : rows()) {
    embedded::Tessellator tessellator;
    const embedded::PrimitiveMesh& mesh = tessellator.meshOf(*row.primitive);
    EXPECT_NEAR(volumeOf(mesh) / row.volume, 1.0, row.tolerance) << row.name;
    EXPECT_EQ(mesh.indices->getCount(), row.triangles * 3) << row.name;
    EXPECT_EQ(embedded::countTriangles(*row.primitive), row.triangles) << row.name;
    const auto geode = fixtures::geodeOf(std::move(row.primitive));
    const CVekBBox box = embedded::sceneBounds(geode.get(), embedded::SceneChoice::Shown);
    for (unsigned axis = 0; axis < 3; ++axis) {
      EXPECT_NEAR(box.getMin()[axis], row.min[axis], 1e-5F) << row.name << axis;
      EXPECT_NEAR(box.getMax()[axis], row.max[axis], 1e-5F) << row.name << axis;
    }
    EXPECT_EQ(embedded::sceneTriangleCount(geode.get(), embedded::SceneChoice::Shown), row.triangles) << row.name;
  }
}

TEST(Tessellation, NormalsAreUnitVectorsOnTheSideOfTheirFaces) {
  for (const Row& row : rows()) {
    embedded::Tessellator tessellator;
    const embedded::PrimitiveMesh& mesh = tessellator.meshOf(*row.primitive);
    ASSERT_EQ(mesh.normals->getCount(), mesh.coords->getCount()) << row.name;
    const std::uint32_t* indices = mesh.indices->getUnsigneds();
    for (std::size_t i = 0; i < mesh.indices->getCount(); i += 3) {
      const glm::dvec3 a = vectorAt(*mesh.coords, indices[i]);
      const glm::dvec3 face = glm::normalize(
          glm::cross(vectorAt(*mesh.coords, indices[i + 1]) - a, vectorAt(*mesh.coords, indices[i + 2]) - a));
      for (std::size_t k = 0; k < 3; ++k) {
        const glm::dvec3 normal = vectorAt(*mesh.normals, indices[i + k]);
        ASSERT_NEAR(glm::length(normal), 1.0, 1e-6) << row.name << i;
        ASSERT_GT(glm::dot(normal, face), 0.9) << row.name << i;
      }
    }
  }
}

TEST(Tessellation, EqualMeasuresShareTheirLists) {
  embedded::Tessellator tessellator;
  const sglSphere first(10, 6, 1.0F);
  const sglSphere second(10, 6, 1.0F);
  const sglSphere third(10, 6, 1.5F);
  const sglRef<sglDataPtr> coords = tessellator.meshOf(first).coords;
  EXPECT_EQ(tessellator.meshOf(second).coords.get(), coords.get());
  EXPECT_NE(tessellator.meshOf(third).coords.get(), coords.get());
}

TEST(Tessellation, NumbersOfPiecesStayWithinBounds) {
  struct Pieces {
    unsigned around;
    unsigned along;
    std::uint64_t triangles;
  };
  for (const Pieces& row : {Pieces{0, 0, 6}, Pieces{1, 1, 6}, Pieces{4'000'000'000U, 1, 2048}}) {
    const sglCylinder cylinder(row.around, row.along, 1.0F, 1.0F, 1.0F, false);
    EXPECT_EQ(embedded::countTriangles(cylinder), row.triangles);
    EXPECT_EQ(embedded::Tessellator().meshOf(cylinder).indices->getCount(), row.triangles * 3);
  }
  EXPECT_EQ(embedded::countTriangles(sglSphere(0, 0, 1.0F)), 6U);
  EXPECT_EQ(embedded::countTriangles(sglCone(0, 1.0F, 1.0F)), 6U);
}

TEST(Tessellation, MeasuresThatAreNoNumbersAreNoTrouble) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  auto geode = fixtures::geodeOf(std::make_unique<sglSphere>(10U, 6U, kNan));
  EXPECT_TRUE(embedded::sceneBounds(geode.get(), embedded::SceneChoice::Shown).isEmpty());
  EXPECT_TRUE(embedded::sceneBounds(nullptr, embedded::SceneChoice::Shown).isEmpty());
}

// The texture coordinate of the vertex at a position that faces along a normal; far off without one.
glm::dvec2 texCoordAt(const embedded::PrimitiveMesh& mesh, const glm::dvec3& position, const glm::dvec3& normal) {
  for (std::uint32_t i = 0; i < mesh.coords->getCount() / 3; ++i) {
    const bool isThere = glm::distance(vectorAt(*mesh.coords, i), position) < 1e-5;
    if (!isThere || glm::distance(vectorAt(*mesh.normals, i), glm::normalize(normal)) > 1e-5) continue;
    return {mesh.texCoords->getFloats()[std::size_t{i} * 2], mesh.texCoords->getFloats()[std::size_t{i} * 2 + 1]};
  }
  return {1e9, 1e9};
}

TEST(Tessellation, ImagesLieUprightOnWhatAnImportPlaces) {
  const sglCube cube(1.0F, 2.0F, 3.0F);
  const sglCone cone(60U, 4.0F, 1.0F);
  const sglCylinder cylinder(80U, 10U, 2.0F, 1.0F, 1.0F, true);
  const sglSphere sphere(100U, 30U, 2.0F);
  const struct {
    const char* name;
    const sglPrimitive& primitive;
    glm::dvec3 position;
    glm::dvec3 normal;
    glm::dvec2 texCoord;
  } kRows[] = {
      {"cube front, lower left", cube, {0, 0, 3}, {0, 0, 1}, {0, 0}},
      {"cube front, upper right", cube, {1, 2, 3}, {0, 0, 1}, {1, 1}},
      {"cube back, upper right", cube, {0, 2, 0}, {0, 0, -1}, {1, 1}},
      {"cube right, lower left", cube, {1, 0, 3}, {1, 0, 0}, {0, 0}},
      {"cube left, lower left", cube, {0, 0, 0}, {-1, 0, 0}, {0, 0}},
      {"cube top, lower left", cube, {0, 2, 3}, {0, 1, 0}, {0, 0}},
      {"cube bottom, lower left", cube, {0, 0, 0}, {0, -1, 0}, {0, 0}},
      {"cylinder front, upper edge", cylinder, {0, 1, 0}, {0, 1, 0}, {0.5, 1}},
      {"cylinder left, lower edge", cylinder, {-1, 0, 2}, {-1, 0, 0}, {0.25, 0}},
      {"cylinder top, middle", cylinder, {0, 0, 0}, {0, 0, -1}, {0.5, 0.5}},
      {"cylinder top, front", cylinder, {0, 1, 0}, {0, 0, -1}, {0.5, 0}},
      {"cylinder bottom, front", cylinder, {0, 1, 2}, {0, 0, 1}, {0.5, 1}},
      {"cone front, lower edge", cone, {0, -1, 0}, {0, -4, 1}, {0.5, 0}},
      {"cone left, lower edge", cone, {-1, 0, 0}, {-4, 0, 1}, {0.25, 0}},
      {"cone bottom, front", cone, {0, -1, 0}, {0, 0, -1}, {0.5, 1}},
      {"sphere front", sphere, {1, 3, 1}, {0, 1, 0}, {0.5, 0.5}},
      {"sphere left", sphere, {-1, 1, 1}, {-1, 0, 0}, {0.25, 0.5}},
      {"sphere bottom", sphere, {1, 1, 3}, {0, 0, 1}, {0.75, 0}},
  };
  embedded::Tessellator tessellator;
  for (const auto& row : kRows) {
    const embedded::PrimitiveMesh& mesh = tessellator.meshOf(row.primitive);
    ASSERT_EQ(mesh.texCoords->getCount() / 2, mesh.coords->getCount() / 3);
    const glm::dvec2 texCoord = texCoordAt(mesh, row.position, row.normal);
    EXPECT_NEAR(texCoord.x, row.texCoord.x, 1e-5) << row.name;
    EXPECT_NEAR(texCoord.y, row.texCoord.y, 1e-5) << row.name;
  }
}

}  // namespace
