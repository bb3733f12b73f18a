// States, textures and arrays live as long as somebody holds them.

#include <VekSG/sglCullMode.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>
#include <gtest/gtest.h>

#include <array>

#include "tests/embedded/SceneFixtures.h"

namespace {

class Probe : public sglStatelet {
 public:
  explicit Probe(int& destroyed) : m_destroyed(destroyed) {}

 protected:
  ~Probe() override { ++m_destroyed; }

 private:
  int& m_destroyed;
};

TEST(Statelets, OneIsSharedByItsDrawablesAndGoesWithTheLast) {
  int destroyed = 0;
  auto first = fixtures::triangle();
  auto second = fixtures::triangle();
  {
    const sglStateletList list{sglRef<sglStatelet>(new Probe(destroyed))};
    first->setState(0, list);
    second->setState(0, list);
    EXPECT_EQ(list[0]->getRefCount(), 3U);
  }
  first.reset();
  EXPECT_EQ(destroyed, 0);
  second.reset();
  EXPECT_EQ(destroyed, 1);
}

TEST(Statelets, AListThatIsNeverHandedOverReleasesItsStates) {
  int destroyed = 0;
  { const sglStateletList list{sglRef<sglStatelet>(new Probe(destroyed))}; }
  EXPECT_EQ(destroyed, 1);
}

TEST(Statelets, ACacheKeepsATextureAlive) {
  sglRef<sglTexture2D> cached(new sglTexture2D);
  auto drawable = fixtures::triangle();
  drawable->setState(0, {sglRef<sglStatelet>(cached)});
  EXPECT_EQ(cached->getRefCount(), 2U);
  drawable.reset();
  EXPECT_EQ(cached->getRefCount(), 1U);
}

TEST(Statelets, AStateReplacesTheOneOfItsNumber) {
  int destroyed = 0;
  auto drawable = fixtures::triangle();
  drawable->setState(0, {sglRef<sglStatelet>(new Probe(destroyed))});
  drawable->setState(0, {});
  EXPECT_EQ(destroyed, 1);
  ASSERT_NE(drawable->getState(0), nullptr);
  EXPECT_TRUE(drawable->getState(0)->getStatelets().empty());
}

TEST(Statelets, NullEntriesAndUnknownNumbersAreLeftOut) {
  auto drawable = fixtures::triangle();
  drawable->setState(0, {sglRef<sglStatelet>(), sglRef<sglStatelet>(new sglLighting(false))});
  EXPECT_EQ(drawable->getState(0)->getStatelets().size(), 1U);
  drawable->setState(3, {});
  EXPECT_EQ(drawable->getState(1), nullptr);
  EXPECT_NE(drawable->getState(3), nullptr);
  drawable->setState(4'000'000'000U, {});
  EXPECT_EQ(drawable->getState(4'000'000'000U), nullptr);
}

TEST(Statelets, TextureCoordinatesShareTheirArray) {
  sglRef<sglDataPtr> data(new sglDataPtr(std::vector<float>{0, 0, 1, 0, 0, 1}));
  auto drawable = fixtures::triangle();
  drawable->setState(0, {}, sglTexCoords(data.get(), sglTexCoords::FLOAT, 2));
  const std::vector<sglTexCoords>& list = drawable->getState(0)->getTexCoordList();
  ASSERT_EQ(list.size(), 1U);
  EXPECT_TRUE(list[0].isValid());
  EXPECT_EQ(list[0].getDataPtr(), data.get());
}

TEST(Statelets, OnlyPairsOfFloatsAreValidTextureCoordinates) {
  sglRef<sglDataPtr> floats(new sglDataPtr(std::vector<float>{0, 0}));
  sglRef<sglDataPtr> unsigneds(new sglDataPtr(std::vector<std::uint32_t>{0, 0}));
  EXPECT_FALSE(sglTexCoords().isValid());
  EXPECT_FALSE(sglTexCoords(nullptr, sglTexCoords::FLOAT, 2).isValid());
  EXPECT_FALSE(sglTexCoords(floats.get(), sglTexCoords::FLOAT, 3).isValid());
  EXPECT_FALSE(sglTexCoords(unsigneds.get(), sglTexCoords::FLOAT, 2).isValid());
}

TEST(Statelets, ArraysAreMovedInAndSayWhatTheyHold) {
  std::vector<float> values(1000, 2.5F);
  const float* address = values.data();
  const sglRef<sglDataPtr> data(new sglDataPtr(std::move(values)));
  EXPECT_EQ(data->getFloats(), address);
  EXPECT_EQ(data->getUnsigneds(), nullptr);
  EXPECT_EQ(data->getCount(), 1000U);
  const sglRef<sglDataPtr> empty(new sglDataPtr(std::vector<std::uint32_t>{}));
  EXPECT_EQ(empty->getUnsigneds(), nullptr);
  EXPECT_EQ(empty->getCount(), 0U);
}

TEST(Statelets, MaterialSettersReachTheSideTheyName) {
  const sglRef<sglMaterial> material(new sglMaterial);
  EXPECT_EQ(material->getFrontAlpha(), 1.0F);
  material->setDiffuse(0.1F, 0.2F, 0.3F, sglMaterial::FRONT_AND_BACK);
  material->setShininess(64.0F, sglMaterial::FRONT);
  material->setAlpha(0.5F, sglMaterial::BACK);
  EXPECT_EQ(material->getFrontDiffuse(), (sglVec3<float>{0.1F, 0.2F, 0.3F}));
  EXPECT_EQ(material->getBackDiffuse(), (sglVec3<float>{0.1F, 0.2F, 0.3F}));
  EXPECT_EQ(material->getFrontShininess(), 64.0F);
  EXPECT_EQ(material->getBackShininess(), 0.0F);
  EXPECT_EQ(material->getFrontAlpha(), 1.0F);
  EXPECT_EQ(material->getBackAlpha(), 0.5F);
  EXPECT_EQ(material->getSide(), sglMaterial::BACK);
  EXPECT_FALSE(material->isColorMaterial());
  material->setColorMaterial(sglMaterial::FRONT_AND_BACK, sglMaterial::AMBIENT_AND_DIFFUSE);
  EXPECT_TRUE(material->isColorMaterial());
}

TEST(Statelets, AFreshTextureHasNoFormatAndNoImage) {
  const sglRef<sglTexture2D> texture(new sglTexture2D);
  EXPECT_EQ(texture->getInternalFormat(), 0U);
  EXPECT_FALSE(texture->hasCompressionLevel());
  EXPECT_EQ(texture->getWidth(), 0U);
}

TEST(Statelets, AnImageMustHaveAsManyBytesAsItsSizeSays) {
  const sglRef<sglTexture2D> texture(new sglTexture2D);
  EXPECT_FALSE(texture->setImage(2, 1, sglTexture::FORMAT_RGB, std::vector<std::uint8_t>(5)));
  EXPECT_FALSE(texture->setImage(2, 1, sglTexture::FORMAT_UNKNOWN, {}));
  EXPECT_FALSE(texture->setImage(0x80000000U, 0x80000000U, sglTexture::FORMAT_RGBA, {}));
  EXPECT_EQ(texture->getInternalFormat(), 0U);
  EXPECT_TRUE(texture->setImage(2, 1, sglTexture::FORMAT_RGBA, std::vector<std::uint8_t>(8)));
  EXPECT_EQ(texture->getInternalFormat(), 0x1908U);
  EXPECT_EQ(texture->getImage().size(), 8U);
}

TEST(Statelets, HoldersMoveCopyAndConvert) {
  int destroyed = 0;
  sglRef<Probe> probe(new Probe(destroyed));
  sglRef<sglStatelet> copy(probe);
  sglRef<sglStatelet> moved(std::move(copy));
  EXPECT_FALSE(copy);  // NOLINT(bugprone-use-after-move): a holder that was moved from is empty
  EXPECT_EQ(probe->getRefCount(), 2U);
  sglRef<sglStatelet>& same = moved;
  moved = same;
  moved = nullptr;
  EXPECT_EQ(probe->getRefCount(), 1U);
  probe = nullptr;
  EXPECT_EQ(destroyed, 1);
}

}  // namespace
