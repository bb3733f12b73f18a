// Whole pictures, judged coarsely: how much of them is covered, where, and in which colour. Nothing is compared pixel
// by pixel, so that any renderer will do.

#include "embedded/pictures/PictureTaking.h"

#include <VekSG/sglBillboard.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTransparency.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/embedded/SceneFixtures.h"

namespace embedded {
namespace {

using Pixel = std::array<int, 3>;

constexpr PictureFormat kFormat{96, 64, 4, {0, 0, 255}};

// A part of a picture, from 0 to 1 across and downwards.
struct Part {
  double left = 0.0;
  double top = 0.0;
  double right = 1.0;
  double bottom = 1.0;
};

constexpr Part kLeft{0.0, 0.0, 0.5, 1.0};
constexpr Part kRight{0.5, 0.0, 1.0, 1.0};
constexpr Part kMiddle{0.45, 0.45, 0.55, 0.55};

class Shot {
 public:
  explicit Shot(PictureResult result) : m_result(std::move(result)) { EXPECT_EQ(m_result.error, ""); }

  [[nodiscard]] Pixel at(unsigned x, unsigned y) const {
    const std::uint8_t* pixel = m_result.raster.bytes.data() + (std::size_t{y} * m_result.raster.width + x) * 3;
    return {pixel[0], pixel[1], pixel[2]};
  }

  [[nodiscard]] Pixel mean(const Part& part) const {
    Pixel sum{};
    int count = 0;
    visit(part, [&](const Pixel& pixel) {
      for (std::size_t i = 0; i < 3; ++i) sum[i] += pixel[i];
      ++count;
    });
    for (int& value : sum) value /= std::max(count, 1);
    return sum;
  }

  // How much of a part is not background.
  [[nodiscard]] double coverage(const Part& part = {}) const {
    int covered = 0;
    int count = 0;
    visit(part, [&](const Pixel& pixel) {
      covered += pixel == Pixel{0, 0, 255} ? 0 : 1;
      ++count;
    });
    return static_cast<double>(covered) / count;
  }

  [[nodiscard]] bool isEmpty() const { return m_result.isEmpty; }

 private:
  template <class Visit>
  void visit(const Part& part, Visit visit) const {
    const auto place = [](double share, unsigned size) { return static_cast<unsigned>(share * size); };
    const Raster& raster = m_result.raster;
    for (unsigned y = place(part.top, raster.height); y < place(part.bottom, raster.height); ++y) {
      for (unsigned x = place(part.left, raster.width); x < place(part.right, raster.width); ++x) visit(at(x, y));
    }
  }

  PictureResult m_result;
};

Shot shotOf(const sglNode& scene, const ViewDirection& direction) {
  return Shot(takePicture({&scene}, direction, kFormat, false));
}

constexpr ViewDirection kFront{0.0, 0.0};
constexpr ViewDirection kBack{180.0, 0.0};
constexpr ViewDirection kTop{0.0, 90.0};

sglRef<sglStatelet> unlit() { return new sglLighting(false); }

sglRef<sglMaterial> material(const Rgb& color, float alpha = 1.0F,
                             sglMaterial::SideEnum side = sglMaterial::FRONT_AND_BACK) {
  sglRef<sglMaterial> made(new sglMaterial);
  made->setDiffuse(color[0], color[1], color[2], side);
  made->setAlpha(alpha, side);
  return made;
}

// A square in the plane of x and z, from -1 to 1, its front to -y.
std::unique_ptr<sglIndexedTriangleSet> square(const sglStateletList& states) {
  auto set = std::make_unique<sglIndexedTriangleSet>();
  set->setNumPrims(2);
  set->setCoordList(new sglDataPtr(std::vector<float>{-1, 0, -1, 1, 0, -1, 1, 0, 1, -1, 0, 1}));
  set->setCoordIndexList(new sglDataPtr(std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
  const std::vector<float> texCoords{0, 0, 1, 0, 1, 1, 0, 1};
  set->setTexCoordIndexList(set->getCoordIndexList());
  set->setState(0, states, sglTexCoords(new sglDataPtr(texCoords), sglTexCoords::FLOAT, 2));
  return set;
}

std::unique_ptr<sglNode> squareAt(const sglMat4<float>& matrix, const sglStateletList& states) {
  return fixtures::placed(matrix, fixtures::geodeOf(square(states)));
}

void expectNear(const Pixel& actual, const Pixel& expected, int tolerance) {
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance) << "channel " << i;
}

TEST(PictureTaking, shows_a_cube_in_its_colour_and_fills_the_picture_with_it) {
  auto cube = std::make_unique<sglCube>(1.0F, 1.0F, 1.0F);
  cube->setState(0, {material({1, 0, 0})});
  const auto scene = fixtures::geodeOf(std::move(cube));
  const Shot front = shotOf(*scene, kFront);
  EXPECT_FALSE(front.isEmpty());
  EXPECT_NEAR(front.coverage(), 0.6, 0.1);
  EXPECT_EQ(front.coverage({0.0, 0.0, 0.15, 1.0}), 0.0);
  EXPECT_EQ(front.coverage({0.4, 0.2, 0.6, 0.8}), 1.0);
  const Pixel color = front.mean(kMiddle);
  EXPECT_GT(color[0], 150);
  EXPECT_LT(color[1], 30);
  EXPECT_LT(color[2], 30);
}

TEST(PictureTaking, lays_right_to_the_right_and_up_to_the_top) {
  auto scene = std::make_unique<sglGroup>();
  scene->addChild(squareAt(fixtures::translation(-1.5F, 0, 0), {unlit(), material({1, 0, 0})}).release(), true);
  scene->addChild(squareAt(fixtures::translation(1.5F, 0, 2), {unlit(), material({0, 1, 0})}).release(), true);
  const Shot shot = shotOf(*scene, kFront);
  const Pixel low = shot.mean({0.0, 0.5, 0.5, 1.0});
  const Pixel high = shot.mean({0.5, 0.0, 1.0, 0.5});
  EXPECT_GT(low[0], 60);
  EXPECT_EQ(low[1], 0);
  EXPECT_GT(high[1], 60);
  EXPECT_EQ(high[0], 0);
  EXPECT_LT(shot.coverage({0.0, 0.0, 0.5, 0.4}), 0.05);
}

TEST(PictureTaking, hides_backs_unless_they_are_to_be_seen) {
  const struct {
    const char* name;
    sglStateletList states;
    bool fromFront;
    bool fromBack;
  } kRows[] = {
      {"as it is", {}, true, false},
      {"both sides", {new sglCullMode(sglCullMode::CULL_OFF)}, true, true},
      {"backs only", {new sglCullMode(sglCullMode::CULL_FRONT)}, false, true},
      {"clockwise", {new sglFrontFace(sglFrontFace::CLOCKWISE)}, false, true},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const auto scene = fixtures::geodeOf(square(row.states));
    EXPECT_EQ(shotOf(*scene, kFront).coverage() > 0.4, row.fromFront);
    EXPECT_EQ(shotOf(*scene, kBack).coverage() > 0.4, row.fromBack);
  }
}

TEST(PictureTaking, shows_each_side_in_its_own_material) {
  const sglRef<sglMaterial> sides(new sglMaterial);
  sides->setDiffuse(1, 0, 0, sglMaterial::FRONT);
  sides->setDiffuse(0, 1, 0, sglMaterial::BACK);
  const auto scene = fixtures::geodeOf(square({sides, new sglCullMode(sglCullMode::CULL_OFF)}));
  const Pixel front = shotOf(*scene, kFront).mean(kMiddle);
  EXPECT_GT(front[0], 150);
  EXPECT_LT(front[1], 30);
  const Pixel back = shotOf(*scene, kBack).mean(kMiddle);
  EXPECT_GT(back[1], 150);
  EXPECT_LT(back[0], 30);
}

TEST(PictureTaking, lays_colours_over_the_material_by_vertex_and_by_face) {
  for (const bool isLit : {true, false}) {
    const sglRef<sglStatelet> lighting(new sglLighting(isLit));
    auto set = square({lighting, material({0, 0, 1})});
    set->setColorIndexList(set->getCoordIndexList());
    const std::vector<float> corners = {1, 0, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 1, 0, 0, 1};
    set->setColorList(new sglDataPtr(corners), sglGeoSet::BIND_PER_VERTEX);
    const auto byVertex = fixtures::geodeOf(std::move(set));
    const Shot vertices = shotOf(*byVertex, kFront);
    EXPECT_GT(vertices.mean({0.2, 0.2, 0.3, 0.8})[0], 130);
    EXPECT_GT(vertices.mean({0.7, 0.2, 0.8, 0.8})[1], 130);
    EXPECT_LT(vertices.mean(kMiddle)[2], 30);

    auto faces = square({lighting, material({0, 0, 1})});
    faces->setColorList(new sglDataPtr(std::vector<float>{1, 0, 0, 1, 0, 1, 0, 1}), sglGeoSet::BIND_PER_PRIM);
    const auto byFace = fixtures::geodeOf(std::move(faces));
    const Shot shot = shotOf(*byFace, kFront);
    EXPECT_GT(shot.mean({0.65, 0.75, 0.75, 0.85})[0], 150);  // the lower right triangle
    EXPECT_LT(shot.mean({0.65, 0.75, 0.75, 0.85})[1], 30);
    EXPECT_GT(shot.mean({0.25, 0.15, 0.35, 0.25})[1], 150);
  }
}

TEST(PictureTaking, uses_colours_as_the_colour_material_mode_says) {
  const sglRef<sglMaterial> glowing = material({0, 0, 0});
  glowing->setColorMaterial(sglMaterial::FRONT_AND_BACK, sglMaterial::EMISSION);
  auto set = square({glowing});
  set->setColorList(new sglDataPtr(std::vector<float>{0, 1, 0, 1}), sglGeoSet::BIND_OVERALL);
  const auto scene = fixtures::geodeOf(std::move(set));
  expectNear(shotOf(*scene, kFront).mean(kMiddle), {0, 255, 0}, 2);
}

// Texels from the bottom: red and green, above them blue and white.
sglRef<sglTexture2D> fourTexels(std::uint8_t alpha) {
  const sglRef<sglTexture2D> texture(new sglTexture2D);
  const std::vector<std::uint8_t> bytes = {255, 0, 0, alpha, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255};
  EXPECT_TRUE(texture->setImage(2, 2, sglTexture::FORMAT_RGBA, bytes));
  texture->setMinFilter(sglTexture::NEAREST);
  texture->setMagFilter(sglTexture::NEAREST);
  return texture;
}

constexpr Part kLowerLeft{0.25, 0.6, 0.4, 0.85};
constexpr Part kLowerRight{0.6, 0.6, 0.75, 0.85};
constexpr Part kUpperRight{0.6, 0.15, 0.75, 0.4};

TEST(PictureTaking, lays_a_texture_on_upright_and_mixes_it_as_its_environment_says) {
  const struct {
    sglTexEnv::ModeEnum mode;
    Pixel lowerRight;
    Pixel upperRight;
  } kRows[] = {
      {sglTexEnv::MODULATE, {0, 128, 0}, {255, 128, 0}},
      {sglTexEnv::REPLACE, {0, 255, 0}, {255, 255, 255}},
      {sglTexEnv::DECAL, {0, 255, 0}, {255, 255, 255}},
      {sglTexEnv::ADD, {255, 255, 0}, {255, 255, 255}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.mode);
    const sglRef<sglTexEnv> environment(new sglTexEnv);
    environment->setMode(row.mode);
    const auto scene = fixtures::geodeOf(square({unlit(), material({1, 0.5F, 0}), fourTexels(255), environment}));
    const Shot shot = shotOf(*scene, kFront);
    expectNear(shot.mean(kLowerRight), row.lowerRight, 4);
    expectNear(shot.mean(kUpperRight), row.upperRight, 4);
    EXPECT_GT(shot.mean(kLowerLeft)[0], 200);
    EXPECT_LT(shot.mean(kLowerLeft)[2], 30);
  }
}

TEST(PictureTaking, lays_a_texture_on_a_primitive) {
  auto cube = std::make_unique<sglCube>(2.0F, 2.0F, 2.0F);
  cube->setState(0, {unlit(), material({1, 1, 1}), fourTexels(255)});
  const auto scene = fixtures::geodeOf(std::move(cube));
  const Shot shot = shotOf(*scene, kTop);  // onto the side that faces along z
  expectNear(shot.mean(kLowerRight), {0, 255, 0}, 4);
  expectNear(shot.mean(kUpperRight), {255, 255, 255}, 4);
}

TEST(PictureTaking, takes_a_texture_that_is_larger_than_the_renderer_allows) {
  const sglRef<sglTexture2D> texture(new sglTexture2D);
  constexpr unsigned kWidth = 70'000;
  std::vector<std::uint8_t> bytes(kWidth, 0);
  std::fill(bytes.begin() + kWidth / 2, bytes.end(), std::uint8_t{255});
  ASSERT_TRUE(texture->setImage(kWidth, 1, sglTexture::FORMAT_LUMINANCE, bytes));
  const auto scene = fixtures::geodeOf(square({unlit(), material({1, 1, 1}), texture}));
  const Shot shot = shotOf(*scene, kFront);
  expectNear(shot.mean(kLowerLeft), {0, 0, 0}, 8);
  expectNear(shot.mean(kLowerRight), {255, 255, 255}, 8);
}

TEST(PictureTaking, drops_what_fails_the_alpha_test) {
  const auto scene = fixtures::geodeOf(
      square({unlit(), material({1, 1, 1}), new sglAlphaTest(sglAlphaTest::GREATER, 0.5F), fourTexels(100)}));
  const Shot shot = shotOf(*scene, kFront);
  EXPECT_EQ(shot.coverage(kLowerLeft), 0.0);
  EXPECT_EQ(shot.coverage(kLowerRight), 1.0);
}

TEST(PictureTaking, shows_what_is_behind_glass_in_whatever_order_it_comes) {
  for (const bool isGlassFirst : {true, false}) {
    auto scene = std::make_unique<sglGroup>();
    const auto glass = [] { return squareAt(fixtures::translation(0, -1, 0), {unlit(), material({1, 0, 0}, 0.5F)}); };
    if (isGlassFirst) scene->addChild(glass().release(), true);
    scene->addChild(squareAt(fixtures::translation(0, 1, 0), {unlit(), material({0, 1, 0})}).release(), true);
    if (!isGlassFirst) scene->addChild(glass().release(), true);
    expectNear(shotOf(*scene, kFront).mean(kMiddle), {128, 128, 0}, 6);
  }
}

TEST(PictureTaking, lays_the_nearest_of_several_panes_over_the_others) {
  for (const bool isNearFirst : {true, false}) {
    auto scene = std::make_unique<sglGroup>();
    for (const bool isNear : {isNearFirst, !isNearFirst}) {
      const Rgb color = isNear ? Rgb{1, 0, 0} : Rgb{0, 1, 0};
      scene->addChild(
          squareAt(fixtures::translation(0, isNear ? -1.0F : 1.0F, 0), {unlit(), material(color, 0.75F)}).release(),
          true);
    }
    const Pixel color = shotOf(*scene, kFront).mean(kMiddle);
    EXPECT_GT(color[0], 170);
    EXPECT_LT(color[1], 70);
  }
}

TEST(PictureTaking, is_the_background_and_says_so_when_there_is_nothing) {
  const Shot shot = shotOf(sglGroup(), kFront);
  EXPECT_TRUE(shot.isEmpty());
  EXPECT_EQ(shot.coverage(), 0.0);
  EXPECT_TRUE(takePicture({}, kFront, kFormat, false).isEmpty);
}

TEST(PictureTaking, turns_billboards_to_the_eye) {
  // Edge-on to an eye above, were it not for the billboard: it lies in the plane of x and z, its local z is up.
  auto billboard = std::make_unique<sglBillboard>();
  auto set = fixtures::triangle();
  set->setCoordList(new sglDataPtr(std::vector<float>{-1, -1, 0, 1, -1, 0, 0, 1, 0}));
  billboard->addChild(fixtures::geodeOf(std::move(set)).release(), true);
  billboard->setAxis({1, 0, 0});
  EXPECT_GT(shotOf(*billboard, kTop).coverage(), 0.2);
  EXPECT_GT(shotOf(*billboard, kFront).coverage(), 0.2);
  EXPECT_GT(shotOf(*billboard, {0.0, 45.0}).coverage(), 0.2);
}

TEST(PictureTaking, is_right_for_models_of_any_size_at_any_distance) {
  for (const float scale : {1e-15F, 1.0F, 1e15F}) {
    for (const float distance : {0.0F, 1e4F}) {
      SCOPED_TRACE(scale);
      sglMat4<float> matrix = fixtures::scale(scale, scale, scale);
      matrix[12] = scale * distance;
      const auto scene = squareAt(matrix, {material({1, 0, 0})});
      const Shot shot = shotOf(*scene, kFront);
      EXPECT_NEAR(shot.coverage(), 0.6, 0.1);
      EXPECT_GT(shot.mean(kMiddle)[0], 150);
    }
  }
}

TEST(PictureTaking, draws_more_triangles_than_one_batch_holds) {
  auto set = square({unlit(), material({1, 0, 0})});
  std::vector<std::uint32_t> indices;
  for (int i = 0; i < 70'000; ++i) indices.insert(indices.end(), {0, 1, 1});
  indices.insert(indices.end(), {0, 1, 2, 0, 2, 3});
  set->setNumPrims(static_cast<unsigned>(indices.size() / 3));
  set->setCoordIndexList(new sglDataPtr(std::move(indices)));
  const auto scene = fixtures::geodeOf(std::move(set));
  EXPECT_EQ(shotOf(*scene, kFront).coverage(kMiddle), 1.0);
}

}  // namespace
}  // namespace embedded
