// The scene document, key by key.

#include "embedded/SceneDocument.h"

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglBillboard.h>
#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglSphere.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>
#include <VekSG/sglTriangleSet.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/embedded/SceneFixtures.h"

namespace {

std::string documentOf(const sglNode* scene, const std::vector<embedded::Message>& messages = {}) {
  std::ostringstream out;
  embedded::writeSceneDocument(out, scene, messages);
  return out.str();
}

// The text of one drawable in its document.
std::string drawableText(std::unique_ptr<sglDrawable> drawable) {
  const std::string document = documentOf(fixtures::geodeOf(std::move(drawable)).get());
  const std::string begin = "\"geometries\":[";
  const std::size_t from = document.find(begin) + begin.size();
  return document.substr(from, document.find("]},\n\"messages\"") - from);
}

TEST(SceneDocument, NoSceneAndMessages) {
  EXPECT_EQ(documentOf(nullptr), "{\"scene\":null,\n\"messages\":[]}\n");
  EXPECT_EQ(documentOf(nullptr, {{2, "a\n"}, {1, "\xFF"}}),
            "{\"scene\":null,\n\"messages\":[\n{\"level\":2,\"text\":\"a\\n\"},\n{\"level\":1,\"text\":"
            "\"\xEF\xBF\xBD\"}]}\n");
}

TEST(SceneDocument, EveryKindOfNodeOnItsLine) {
  auto root = std::make_unique<sglTransform<float>>();
  root->setMatrix(fixtures::translation(1, 2, 3));
  root->setName("root");
  auto group = std::make_unique<sglGroup>();
  auto lod = std::make_unique<sglLOD>();
  lod->setRange(1, 1e7F);
  auto selector = std::make_unique<sglSwitch>();
  selector->setSelectedChild(-2);
  auto billboard = std::make_unique<sglBillboard>();
  billboard->setAxis({0.0, 0.1, 1.0});
  group->addChild(std::make_unique<sglGeode>().release(), true);
  for (sglNode* child : {static_cast<sglNode*>(group.release()), static_cast<sglNode*>(lod.release()),
                         static_cast<sglNode*>(selector.release()), static_cast<sglNode*>(billboard.release())}) {
    root->addChild(child, true);
  }
  EXPECT_EQ(documentOf(root.get()),
            "{\"scene\":\n"
            "{\"type\":\"sglTransform\",\"name\":\"root\",\"matrix\":[1,0,0,0,0,1,0,0,0,0,1,0,1,2,3,1],\"children\":[\n"
            "{\"type\":\"sglGroup\",\"name\":\"\",\"children\":[\n"
            "{\"type\":\"sglGeode\",\"name\":\"\",\"geometries\":[]}]},\n"
            "{\"type\":\"sglLOD\",\"name\":\"\",\"ranges\":[0,1e+07],\"children\":[]},\n"
            "{\"type\":\"sglSwitch\",\"name\":\"\",\"selected\":-2,\"children\":[]},\n"
            "{\"type\":\"sglBillboard\",\"name\":\"\",\"axis\":[0,0.1,1],\"mode\":2,\"children\":[]}]},\n"
            "\"messages\":[]}\n");
}

TEST(SceneDocument, IndexedTrianglesWithEveryList) {
  auto set = fixtures::triangle();
  set->setColorList(new sglDataPtr(std::vector<float>{1, 0.5F, 0, 1}), sglGeoSet::BIND_PER_VERTEX);
  set->setColorIndexList(new sglDataPtr(std::vector<std::uint32_t>{0, 0, 0}));
  set->setTexCoordIndexList(new sglDataPtr(std::vector<std::uint32_t>{0, 0, 0}));
  set->setState(0, {sglRef<sglStatelet>(new sglLighting(true))},
                sglTexCoords(new sglDataPtr(std::vector<float>{0.25F, 1}), sglTexCoords::FLOAT, 2));
  EXPECT_EQ(drawableText(std::move(set)),
            "{\"type\":\"sglIndexedTriangleSet\",\"numPrims\":1,\"coords\":[0,0,0,1,0,0,0,1,0],"
            "\"normals\":[0,0,1,0,0,1,0,0,1],\"texCoords\":[0.25,1],\"colors\":[1,0.5,0,1],\"coordIndex\":[0,1,2],"
            "\"normalIndex\":[0,1,2],\"colorIndex\":[0,0,0],\"texCoordIndex\":[0,0,0],\"normalBinding\":3,"
            "\"colorBinding\":3,\"displayList\":true,\"states\":[{\"type\":\"sglLighting\",\"on\":true}]}");
}

TEST(SceneDocument, AbsentListsAreLeftOutAndEmptyOnesStay) {
  auto bare = std::make_unique<sglIndexedTriangleSet>();
  EXPECT_EQ(drawableText(std::move(bare)),
            "{\"type\":\"sglIndexedTriangleSet\",\"numPrims\":0,\"displayList\":false,\"states\":[]}");
  auto empty = std::make_unique<sglTriangleSet>();
  empty->setCoordList(new sglDataPtr(std::vector<float>{}));
  EXPECT_EQ(drawableText(std::move(empty)),
            "{\"type\":\"sglTriangleSet\",\"numPrims\":0,\"coords\":[],\"displayList\":false,\"states\":[]}");
}

TEST(SceneDocument, StripSets) {
  auto strips = std::make_unique<sglIndexedTriangleStripSet>();
  strips->setPrimLengths(new sglDataPtr(std::vector<std::uint32_t>{3}));
  EXPECT_EQ(drawableText(std::move(strips)),
            "{\"type\":\"sglIndexedTriangleStripSet\",\"numPrims\":0,\"primLengths\":[3],\"displayList\":false,"
            "\"states\":[]}");
  auto mono = std::make_unique<sglMonoIndexedTriangleStripSet>();
  mono->setCoordIndexList(new sglDataPtr(std::vector<std::uint32_t>{2, 1, 0}));
  mono->setPrimLengths(new sglDataPtr(std::vector<std::uint32_t>{3}));
  EXPECT_EQ(drawableText(std::move(mono)),
            "{\"type\":\"sglMonoIndexedTriangleStripSet\",\"numPrims\":0,\"coordIndex\":[2,1,0],\"primLengths\":[3],"
            "\"displayList\":false,\"states\":[]}");
}

TEST(SceneDocument, Primitives) {
  EXPECT_EQ(drawableText(std::make_unique<sglCube>(1.0F, 2.0F, 3.0F)),
            "{\"type\":\"sglCube\",\"size\":[1,2,3],\"displayList\":false,\"states\":[]}");
  auto cone = std::make_unique<sglCone>(60U, 2.0F, 1.0F);
  cone->setColorList(new sglDataPtr(std::vector<float>{1, 1, 1, 1}), sglGeoSet::BIND_OVERALL);
  EXPECT_EQ(drawableText(std::move(cone)),
            "{\"type\":\"sglCone\",\"segments\":60,\"height\":2,\"radius\":1,\"colors\":[1,1,1,1],\"colorBinding\":1,"
            "\"displayList\":false,\"states\":[]}");
  EXPECT_EQ(drawableText(std::make_unique<sglCylinder>(80U, 10U, 2.0F, 1.0F, 0.5F, true)),
            "{\"type\":\"sglCylinder\",\"around\":80,\"along\":10,\"height\":2,\"bottomRadius\":1,\"topRadius\":0.5,"
            "\"capped\":true,\"displayList\":false,\"states\":[]}");
  EXPECT_EQ(
      drawableText(std::make_unique<sglSphere>(100U, 30U, 1.0F)),
      "{\"type\":\"sglSphere\",\"around\":100,\"poleToPole\":30,\"radius\":1,\"displayList\":false,\"states\":[]}");
}

TEST(SceneDocument, EveryKindOfState) {
  auto* material = new sglMaterial;
  material->setDiffuse(1, 0.5F, 0.25F, sglMaterial::FRONT_AND_BACK);
  auto* colorMaterial = new sglMaterial;
  colorMaterial->setColorMaterial(sglMaterial::FRONT_AND_BACK, sglMaterial::AMBIENT_AND_DIFFUSE);
  auto* texture = new sglTexture2D;
  texture->setWrapMode(sglTexture2D::WRAP_REPEAT, sglTexture2D::WRAP_CLAMP);
  texture->setMinFilter(sglTexture::LINEAR_MIPMAP_LINEAR);
  auto* compressed = new sglTexture2D;
  compressed->setCompressionLevel(sglTexture::COMPRESSION_HIGH);
  auto cube = std::make_unique<sglCube>(0.0F, 0.0F, 0.0F);
  sglStateletList states;
  for (sglStatelet* state : std::initializer_list<sglStatelet*>{
           material, colorMaterial, texture, compressed, new sglTexEnv,
           new sglTransparency(true, sglTransparency::BLEND), new sglAlphaTest(sglAlphaTest::GREATER, 0.5F),
           new sglCullMode(sglCullMode::CULL_OFF), new sglFrontFace(sglFrontFace::CLOCKWISE)}) {
    states.emplace_back(state);
  }
  cube->setState(0, states);
  const std::string text = drawableText(std::move(cube));
  for (const char* expected : {
           "{\"type\":\"sglMaterial\",\"diffuse\":[1,0.5,0.25],\"ambient\":[0,0,0],\"specular\":[0,0,0],\"shininess\":"
           "0,"
           "\"alpha\":1,\"side\":1032}",
           "{\"type\":\"sglMaterial\",\"colorMaterial\":{\"side\":1032,\"mode\":5634}}",
           "{\"type\":\"sglTexture2D\",\"wrapS\":0,\"wrapT\":1,\"minFilter\":9987,\"magFilter\":9729,\"autoMipmap\":"
           "false,"
           "\"internalFormat\":0}",
           "\"internalFormat\":0,\"compressionLevel\":3}",
           "{\"type\":\"sglTexEnv\",\"mode\":8448}",
           "{\"type\":\"sglTransparency\",\"on\":true,\"mode\":0}",
           "{\"type\":\"sglAlphaTest\",\"func\":516,\"ref\":0.5}",
           "{\"type\":\"sglCullMode\",\"mode\":1}",
           "{\"type\":\"sglFrontFace\",\"mode\":2304}",
       }) {
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;
  }
}

TEST(SceneDocument, ANullDrawableIsNull) {
  sglGeode geode;
  geode.addGeometry(nullptr);
  EXPECT_NE(documentOf(&geode).find("\"geometries\":[null]"), std::string::npos);
}

TEST(SceneDocument, AVeryDeepSceneIsWrittenOnAnOrdinaryStack) {
  const std::string document = documentOf(fixtures::deepScene(200'000).get());
  EXPECT_EQ(std::count(document.begin(), document.end(), '{'), std::count(document.begin(), document.end(), '}'));
  EXPECT_EQ(std::count(document.begin(), document.end(), '\n'), 200'003);
}

}  // namespace
