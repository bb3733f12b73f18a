#include "embedded/pictures/Look.h"

#include <VekSG/sglFrontFace.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglTransparency.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/embedded/SceneFixtures.h"

namespace embedded {
namespace {

sglRef<sglMaterial> material(float alpha) {
  sglRef<sglMaterial> made(new sglMaterial);
  made->setDiffuse(1, 0.5F, 0.25F, sglMaterial::FRONT_AND_BACK);
  made->setAlpha(alpha, sglMaterial::FRONT_AND_BACK);
  return made;
}

sglRef<sglTexture2D> texture(sglTexture::FormatEnum format, std::size_t texelBytes) {
  sglRef<sglTexture2D> made(new sglTexture2D);
  EXPECT_TRUE(made->setImage(1, 1, format, std::vector<std::uint8_t>(texelBytes)));
  return made;
}

Look lookWith(const sglStateletList& states, bool hasTexCoords = true, const sglTexture2D* lent = nullptr) {
  const auto set = fixtures::triangle();
  const sglTexCoords texCoords(new sglDataPtr(std::vector<float>{0, 0, 1, 0, 0, 1}), sglTexCoords::FLOAT, 2);
  hasTexCoords ? set->setState(0, states, texCoords) : set->setState(0, states);
  return lookOf(*set, lent);
}

TEST(Look, of_a_drawable_without_states_is_lit_opaque_and_one_sided) {
  const Look look = lookOf(sglIndexedTriangleSet(), nullptr);
  EXPECT_EQ(look, Look());
  EXPECT_TRUE(look.isLit);
  EXPECT_FALSE(look.isBlended);
  EXPECT_EQ(look.cullMode, sglCullMode::CULL_BACK);
}

TEST(Look, takes_every_state_and_of_two_the_last) {
  const sglRef<sglTexEnv> environment(new sglTexEnv);
  environment->setMode(sglTexEnv::DECAL);
  const sglRef<sglTexture2D> image = texture(sglTexture::FORMAT_RGB, 3);
  const sglRef<sglTexture2D> empty(new sglTexture2D);
  const Look look = lookWith({new sglLighting(true), new sglLighting(false), material(0.5F), material(1.0F), image,
                              empty, environment, new sglAlphaTest(sglAlphaTest::GREATER, 0.25F),
                              new sglCullMode(sglCullMode::CULL_OFF), new sglFrontFace(sglFrontFace::CLOCKWISE)});
  EXPECT_FALSE(look.isLit);
  EXPECT_EQ(look.front.diffuse, (Rgb{1, 0.5F, 0.25F}));
  EXPECT_EQ(look.back, look.front);
  EXPECT_EQ(look.front.alpha, 1.0F);
  EXPECT_EQ(look.texture, image.get());
  EXPECT_EQ(look.environment, sglTexEnv::DECAL);
  EXPECT_EQ(look.alphaFunc, sglAlphaTest::GREATER);
  EXPECT_EQ(look.alphaReference, 0.25F);
  EXPECT_EQ(look.cullMode, sglCullMode::CULL_OFF);
  EXPECT_TRUE(look.isClockwise);
}

TEST(Look, keeps_the_two_sides_of_a_material_apart) {
  const sglRef<sglMaterial> sides(new sglMaterial);
  sides->setDiffuse(1, 0, 0, sglMaterial::FRONT);
  sides->setDiffuse(0, 0, 1, sglMaterial::BACK);
  sides->setShininess(500.0F, sglMaterial::BACK);
  const Look look = lookWith({sides});
  EXPECT_EQ(look.front.diffuse, (Rgb{1, 0, 0}));
  EXPECT_EQ(look.back.diffuse, (Rgb{0, 0, 1}));
  EXPECT_EQ(look.back.shininess, 128.0F);
}

TEST(Look, has_a_highlight_only_on_what_shines) {
  for (const float shininess : {0.0F, 1.0F}) {
    const sglRef<sglMaterial> made(new sglMaterial);
    made->setSpecular(1, 1, 1, sglMaterial::FRONT_AND_BACK);
    made->setShininess(shininess, sglMaterial::FRONT_AND_BACK);
    EXPECT_EQ(lookWith({made}).front.specular[0], shininess);
    EXPECT_EQ(lookWith({made}).back.specular[0], shininess);
  }
}

TEST(Look, is_blended_when_said_or_when_something_is_transparent) {
  const sglRef<sglTexture2D> alphaImage = texture(sglTexture::FORMAT_RGBA, 4);
  const sglRef<sglTexture2D> plainImage = texture(sglTexture::FORMAT_RGB, 3);
  const sglRef<sglStatelet> test(new sglAlphaTest(sglAlphaTest::GREATER, 0.5F));
  const sglRef<sglStatelet> on(new sglTransparency(true, sglTransparency::BLEND));
  const sglRef<sglStatelet> off(new sglTransparency(false, sglTransparency::BLEND));
  const struct {
    const char* name;
    sglStateletList states;
    bool isBlended;
  } kRows[] = {
      {"nothing", {}, false},
      {"opaque material", {material(1.0F)}, false},
      {"transparent material", {material(0.5F)}, true},
      {"transparent material, switched off", {material(0.5F), off}, false},
      {"switched on", {on}, true},
      {"image with alpha", {alphaImage}, true},
      {"image with alpha, tested", {test, alphaImage}, false},
      {"image without alpha", {plainImage}, false},
  };
  for (const auto& row : kRows) EXPECT_EQ(lookWith(row.states).isBlended, row.isBlended) << row.name;
}

TEST(Look, is_blended_when_a_colour_is_transparent) {
  for (const float alpha : {1.0F, 0.5F}) {
    const auto set = fixtures::triangle();
    set->setColorList(new sglDataPtr(std::vector<float>{1, 0, 0, alpha}), sglGeoSet::BIND_OVERALL);
    EXPECT_EQ(lookOf(*set, nullptr).isBlended, alpha < 1.0F);
    EXPECT_TRUE(lookOf(*set, nullptr).hasColors);
    EXPECT_EQ(lookOf(*set, nullptr).colorMode, sglMaterial::DIFFUSE);
    set->setColorList(set->getColorList(), sglGeoSet::BIND_OFF);
    EXPECT_FALSE(lookOf(*set, nullptr).hasColors);
  }
}

TEST(Look, follows_colour_material_mode) {
  const sglRef<sglMaterial> tracking(new sglMaterial);
  tracking->setColorMaterial(sglMaterial::FRONT, sglMaterial::EMISSION);
  const Look look = lookWith({tracking});
  EXPECT_EQ(look.colorSide, sglMaterial::FRONT);
  EXPECT_EQ(look.colorMode, sglMaterial::EMISSION);
}

TEST(Look, wears_the_actors_texture_when_it_has_none_and_no_texture_without_coordinates) {
  const sglRef<sglTexture2D> own = texture(sglTexture::FORMAT_RGB, 3);
  const sglRef<sglTexture2D> lent = texture(sglTexture::FORMAT_RGB, 3);
  const sglRef<sglTexture2D> empty(new sglTexture2D);
  EXPECT_EQ(lookWith({}, true, lent.get()).texture, lent.get());
  EXPECT_EQ(lookWith({empty}, true, lent.get()).texture, lent.get());
  EXPECT_EQ(lookWith({own}, true, lent.get()).texture, own.get());
  EXPECT_EQ(lookWith({empty}, true, empty.get()).texture, nullptr);
  EXPECT_EQ(lookWith({own}, false, lent.get()).texture, nullptr);
}

TEST(Look, holds_only_numbers_that_can_be_ordered) {
  const sglRef<sglMaterial> odd(new sglMaterial);
  odd->setDiffuse(NAN, -1, 9, sglMaterial::FRONT_AND_BACK);
  odd->setAlpha(NAN, sglMaterial::FRONT_AND_BACK);
  const Look look = lookWith({odd});
  EXPECT_EQ(look.front.diffuse, (Rgb{0, 0, 1}));
  EXPECT_EQ(look.front.alpha, 0.0F);
  EXPECT_EQ(look, lookWith({odd}));
}

}  // namespace
}  // namespace embedded
