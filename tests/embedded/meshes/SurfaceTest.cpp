// What a drawable looks like.

#include "embedded/meshes/Surface.h"

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/embedded/meshes/MeshFixtures.h"

namespace {

using embedded::AlphaMode;
using embedded::Surface;
using embedded::surfaceOf;

Surface surfaceWith(const sglStateletList& states) { return surfaceOf(CVekActorMesh(), *fixtures::square(states)); }

TEST(Surface, WithoutStatesItIsWhite) {
  const Surface surface = surfaceOf(CVekActorMesh(), sglIndexedTriangleSet());
  EXPECT_EQ(surface, Surface());
  EXPECT_EQ(surface.diffuse, (std::array<float, 3>{1, 1, 1}));
}

TEST(Surface, TheLastMaterialCountsAndValuesAreBrought0To1) {
  const Surface surface = surfaceWith({fixtures::material(0, 0, 1), fixtures::material(2, -1, NAN, 0.25F)});
  EXPECT_EQ(surface.diffuse, (std::array<float, 3>{1, 0, 0}));
  EXPECT_EQ(surface.specular, (std::array<float, 3>{0.5F, 0.25F, 0.125F}));
  EXPECT_EQ(surface.shininess, 64.0F);
  EXPECT_EQ(surface.alpha, 0.25F);
}

TEST(Surface, AlphaTakesEffectAsTheStatesSay) {
  const sglRef<sglStatelet> test(new sglAlphaTest(sglAlphaTest::GREATER, 0.75F));
  const sglRef<sglStatelet> otherTest(new sglAlphaTest(sglAlphaTest::LESS, 0.75F));
  const sglRef<sglStatelet> blending(new sglTransparency(true, sglTransparency::BLEND));
  const sglRef<sglStatelet> noBlending(new sglTransparency(false, sglTransparency::BLEND));
  const struct {
    const char* name;
    sglStateletList states;
    AlphaMode expected;
  } kRows[] = {
      {"opaque", {fixtures::material(1, 1, 1)}, AlphaMode::Opaque},
      {"see-through material", {fixtures::material(1, 1, 1, 0.5F)}, AlphaMode::Blend},
      {"alpha test", {fixtures::material(1, 1, 1), test}, AlphaMode::Mask},
      {"another alpha test", {otherTest}, AlphaMode::Opaque},
      {"see-through material with a test", {fixtures::material(1, 1, 1, 0.5F), test}, AlphaMode::Blend},
      {"blending", {blending}, AlphaMode::Blend},
      {"no blending", {noBlending}, AlphaMode::Opaque},
  };
  for (const auto& row : kRows) EXPECT_EQ(surfaceWith(row.states).alphaMode, row.expected) << row.name;
  EXPECT_EQ(surfaceWith({test}).alphaCutoff, 0.75F);
}

TEST(Surface, BothSidesShowWhereNothingIsCulled) {
  EXPECT_FALSE(surfaceWith({}).isDoubleSided);
  EXPECT_FALSE(surfaceWith({sglRef<sglStatelet>(new sglCullMode(sglCullMode::CULL_BACK))}).isDoubleSided);
  EXPECT_TRUE(surfaceWith({sglRef<sglStatelet>(new sglCullMode(sglCullMode::CULL_OFF))}).isDoubleSided);
}

TEST(Surface, FrontFacesMayGoClockwise) {
  const sglRef<sglStatelet> clockwise(new sglFrontFace(sglFrontFace::CLOCKWISE));
  EXPECT_FALSE(embedded::isClockwise(*fixtures::square({})));
  EXPECT_TRUE(embedded::isClockwise(*fixtures::square({clockwise})));
}

TEST(Surface, TheTextureIsTheDrawablesElseTheActors) {
  const sglRef<sglTexture2D> own(new sglTexture2D);
  own->setFileName("own.png");
  own->setWrapMode(sglTexture2D::WRAP_REPEAT, sglTexture2D::WRAP_CLAMP);
  const sglRef<sglTexture2D> actors(new sglTexture2D);
  actors->setWrapMode(sglTexture2D::WRAP_CLAMP, sglTexture2D::WRAP_REPEAT);
  CVekActorMesh actor;
  fixtures::setMapPath(actor, "actors.png");
  auto placed = std::make_unique<CVekTexture>();
  placed->SetTexture(actors.get());
  actor.SetTexture(0, std::move(placed));

  const Surface first = surfaceOf(actor, *fixtures::square({sglRef<sglStatelet>(own)}));
  EXPECT_EQ(first.texturePath, "own.png");
  EXPECT_TRUE(first.repeatsS);
  EXPECT_FALSE(first.repeatsT);
  const Surface second = surfaceOf(actor, *fixtures::square({}));
  EXPECT_EQ(second.texturePath, "actors.png");
  EXPECT_FALSE(second.repeatsS);
  EXPECT_TRUE(second.repeatsT);
  EXPECT_EQ(surfaceOf(actor, *fixtures::triangle()).texturePath, "") << "there are no texture coordinates";
}

}  // namespace
