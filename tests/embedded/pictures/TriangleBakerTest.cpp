#include "embedded/pictures/TriangleBaker.h"

#include <VekSG/sglFrontFace.h>
#include <VekSG/sglMaterial.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/embedded/SceneFixtures.h"

namespace embedded {
namespace {

// A triangle under a placement, baked without scaling.
std::vector<PictureTriangle> baked(std::unique_ptr<sglGeoSet> set, const sglMat4<float>& matrix,
                                   const PictureSpace& space = {}) {
  const auto scene = fixtures::placed(matrix, fixtures::geodeOf(std::move(set)));
  DrawList list(Onlooker(), false);
  list.addScene(scene.get());
  NormalCache cache;
  std::vector<PictureTriangle> triangles;
  for (const DrawItem& item : list.items()) {
    TriangleBaker baker(list, item, space, cache);
    for (PictureTriangle triangle; baker.next(triangle);) triangles.push_back(triangle);
  }
  return triangles;
}

std::unique_ptr<sglIndexedTriangleSet> withoutNormals() {
  auto set = fixtures::triangle();
  set->setNormalList(nullptr, sglGeoSet::BIND_OFF);
  return set;
}

using Floats = std::array<float, 3>;
using Bytes = std::array<std::uint8_t, 4>;

TEST(TriangleBaker, places_and_scales_into_the_space_of_the_picture) {
  const auto triangles = baked(fixtures::triangle(), fixtures::translation(1e7F, 0, 0), {{1e7, 0, 0}, 0.5});
  ASSERT_EQ(triangles.size(), 1U);
  EXPECT_EQ(triangles[0][0].position, (Floats{0, 0, 0}));
  EXPECT_EQ(triangles[0][1].position, (Floats{0.5F, 0, 0}));
  EXPECT_EQ(triangles[0][2].position, (Floats{0, 0.5F, 0}));
  EXPECT_EQ(triangles[0][0].normal, (Floats{0, 0, 1}));
}

TEST(TriangleBaker, keeps_fronts_and_outward_normals_under_any_placement) {
  const struct {
    const char* name;
    sglMat4<float> matrix;
    Floats normal;
  } kRows[] = {
      {"mirrored across its plane", fixtures::scale(1, 1, -1), {0, 0, -1}},
      {"mirrored along its plane", fixtures::scale(-1, 1, 1), {0, 0, 1}},
      {"turned about", fixtures::scale(-1, -1, 1), {0, 0, 1}},
      {"flattened", fixtures::scale(3, 2, 0), {0, 0, 1}},
      {"tiny", fixtures::scale(1e-20F, 1e-20F, 1e-20F), {0, 0, 1}},
      {"huge", fixtures::scale(1e30F, 1e30F, 1e30F), {0, 0, 1}},
  };
  for (const auto& row : kRows) {
    for (const bool hasNormals : {true, false}) {
      SCOPED_TRACE(row.name);
      const auto triangles = baked(hasNormals ? fixtures::triangle() : withoutNormals(), row.matrix);
      ASSERT_EQ(triangles.size(), 1U);
      std::array<glm::dvec3, 3> at{};
      for (std::size_t i = 0; i < 3; ++i) {
        const PictureVertex& vertex = triangles[0][i];
        EXPECT_EQ(vertex.normal, row.normal);
        at[i] = {vertex.position[0], vertex.position[1], vertex.position[2]};
      }
      // The normal stands on the side from which the corners run counterclockwise.
      EXPECT_GT(glm::cross(at[1] - at[0], at[2] - at[0]).z * double{row.normal[2]}, 0.0);
    }
  }
}

TEST(TriangleBaker, stretched_normals_stay_upright_on_their_surface) {
  auto set = fixtures::triangle();
  set->setNormalList(new sglDataPtr(std::vector<float>{1, 0, 1, 1, 0, 1, 1, 0, 1}), sglGeoSet::BIND_PER_VERTEX);
  const auto triangles = baked(std::move(set), fixtures::scale(2, 1, 1));
  const float length = std::sqrt(1.25F);
  EXPECT_NEAR(triangles[0][0].normal[0], 0.5F / length, 1e-6);
  EXPECT_NEAR(triangles[0][0].normal[2], 1.0F / length, 1e-6);
}

TEST(TriangleBaker, computed_normals_follow_a_clockwise_front_and_given_ones_do_not) {
  for (const bool hasNormals : {true, false}) {
    auto set = hasNormals ? fixtures::triangle() : withoutNormals();
    set->setState(0, {new sglFrontFace(sglFrontFace::CLOCKWISE)});
    const auto triangles = baked(std::move(set), {});
    EXPECT_EQ(triangles[0][0].normal, (Floats{0, 0, hasNormals ? 1.0F : -1.0F}));
  }
}

TEST(TriangleBaker, replaces_normals_without_a_length) {
  auto set = fixtures::triangle();
  set->setNormalList(new sglDataPtr(std::vector<float>{0, 0, 0, NAN, 0, 0, 0, 0, 2}), sglGeoSet::BIND_PER_VERTEX);
  const auto triangles = baked(std::move(set), {});
  for (const PictureVertex& vertex : triangles[0]) EXPECT_EQ(vertex.normal, (Floats{0, 0, 1}));
}

TEST(TriangleBaker, colours_corners_by_the_binding_and_thins_them_with_the_material) {
  const sglRef<sglMaterial> material(new sglMaterial);
  material->setDiffuse(0, 1, 0, sglMaterial::FRONT_AND_BACK);
  material->setAlpha(0.5F, sglMaterial::FRONT_AND_BACK);
  const std::vector<float> colors = {1, 0, 0, 1, 0, 0, 1, 1, 2, -1, NAN, 0.5F};
  const struct {
    sglGeoSet::BindingEnum binding;
    std::array<Bytes, 3> expected;
  } kRows[] = {
      {sglGeoSet::BIND_OFF, {Bytes{0, 255, 0, 128}, Bytes{0, 255, 0, 128}, Bytes{0, 255, 0, 128}}},
      {sglGeoSet::BIND_OVERALL, {Bytes{255, 0, 0, 128}, Bytes{255, 0, 0, 128}, Bytes{255, 0, 0, 128}}},
      {sglGeoSet::BIND_PER_PRIM, {Bytes{255, 0, 0, 128}, Bytes{255, 0, 0, 128}, Bytes{255, 0, 0, 128}}},
      {sglGeoSet::BIND_PER_VERTEX, {Bytes{255, 0, 0, 128}, Bytes{0, 0, 255, 128}, Bytes{255, 0, 0, 64}}},
  };
  for (const auto& row : kRows) {
    auto set = fixtures::triangle();
    set->setState(0, {material});
    set->setColorList(new sglDataPtr(colors), row.binding);
    const auto triangles = baked(std::move(set), {});
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(triangles[0][i].color, row.expected[i]) << row.binding << ' ' << i;
  }
}

TEST(TriangleBaker, passes_over_triangles_that_are_not_finite_and_keeps_the_others_normals) {
  auto set = withoutNormals();
  set->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, NAN, 0, 0}));
  set->setCoordIndexList(new sglDataPtr(std::vector<std::uint32_t>{0, 1, 3, 0, 1, 2}));
  set->setNumPrims(2);
  const auto triangles = baked(std::move(set), {});
  ASSERT_EQ(triangles.size(), 1U);
  EXPECT_EQ(triangles[0][2].normal, (Floats{0, 0, 1}));
}

}  // namespace
}  // namespace embedded
