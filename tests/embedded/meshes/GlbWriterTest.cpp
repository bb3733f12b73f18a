// Assemblies as binary glTF, read back by the library that wrote the frame.

#include "embedded/meshes/GlbWriter.h"

#include <VekKernel/CVekActor.h>
#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglCube.h>
#include <gtest/gtest.h>
#include <tiny_gltf.h>

#include <cmath>
#include <cstring>
#include <sstream>

#include "embedded/images/ImageFile.h"
#include "embedded/meshes/GltfValues.h"
#include "tests/TempFolder.h"
#include "tests/embedded/meshes/MeshFixtures.h"

namespace {

using embedded::MeshNotes;
using Numbers = std::vector<double>;

std::string glbOf(const CVekAssyRoot& root, MeshNotes& notes) {
  std::ostringstream out;
  std::string error;
  EXPECT_TRUE(embedded::writeGlb(root, out, notes, error)) << error;
  return out.str();
}

// The model of a file, its images not decoded.
tinygltf::Model modelOf(const std::string& bytes) {
  tinygltf::TinyGLTF reader;
  reader.SetImageLoader([](tinygltf::Image*, int, std::string*, std::string*, int, int, const unsigned char*, int,
                           void*) { return true; },
                        nullptr);
  tinygltf::Model model;
  std::string error;
  std::string warning;
  EXPECT_TRUE(reader.LoadBinaryFromMemory(&model, &error, &warning,
                                          reinterpret_cast<const unsigned char*>(bytes.data()),
                                          static_cast<unsigned>(bytes.size())))
      << error;
  EXPECT_EQ(error + warning, "");
  return model;
}

tinygltf::Model modelOf(const CVekAssyRoot& root) {
  MeshNotes notes;
  const std::string bytes = glbOf(root, notes);
  EXPECT_TRUE(notes.all().empty()) << notes.all().front();
  return modelOf(bytes);
}

std::vector<float> floatsOf(const tinygltf::Model& model, int number) {
  const tinygltf::Accessor& accessor = model.accessors.at(static_cast<std::size_t>(number));
  const tinygltf::BufferView& view = model.bufferViews.at(static_cast<std::size_t>(accessor.bufferView));
  std::vector<float> floats(accessor.count * static_cast<std::size_t>(tinygltf::GetNumComponentsInType(
                                                 static_cast<std::uint32_t>(accessor.type))));
  std::memcpy(floats.data(), model.buffers.at(0).data.data() + view.byteOffset + accessor.byteOffset,
              floats.size() * sizeof(float));
  return floats;
}

// The tree in one line.
std::string treeOf(const tinygltf::Model& model) {
  std::string text;
  const std::function<void(int)> write = [&](int number) {
    const tinygltf::Node& node = model.nodes.at(static_cast<std::size_t>(number));
    text += node.name + (node.mesh < 0 ? "(" : "*(");
    for (const int child : node.children) write(child);
    text += ")";
  };
  for (const int node : model.scenes.at(0).nodes) write(node);
  return text;
}

std::unique_ptr<CVekAssyRoot> squareRoot(const sglStateletList& states) {
  return fixtures::rootOf(
      fixtures::groupAt(fixtures::uprightTurn(), "", fixtures::actorOf(fixtures::square(states), "square")));
}

TEST(GlbWriter, GroupsAndActorsBecomeNodesWithTheirNames) {
  auto inner = fixtures::groupAt(fixtures::translation(1, 2, 3), "inner", fixtures::actorOf(fixtures::square({}), "a"));
  inner->AddChild(nullptr);
  inner->AddChild(std::make_unique<CVekAssyGroup>().release());
  auto turned = fixtures::groupAt(fixtures::uprightTurn(), "turned", std::move(inner));
  turned->AddChild(fixtures::actorOf(fixtures::square({}), "b").release());
  const tinygltf::Model model = modelOf(*fixtures::rootOf(std::move(turned)));
  EXPECT_EQ(model.asset.version, "2.0");
  EXPECT_EQ(treeOf(model), "root(inner(a*()())b*())") << "the turn is taken back and has no node of its own";
  EXPECT_TRUE(model.nodes[0].rotation.empty());
  EXPECT_EQ(model.nodes[1].translation, (Numbers{1, 2, 3}));
  EXPECT_EQ(model.meshes.size(), 2U);
  EXPECT_EQ(model.meshes[0].name, "a");
  EXPECT_EQ(model.accessors.size(), 3U) << "equal lists are stored once";
}

TEST(GlbWriter, AGroupThatIsThereForOneActorIsItsNode) {
  auto group = fixtures::groupAt(fixtures::uprightTurn(), "");
  group->AddChild(fixtures::groupAt({}, "a", fixtures::actorOf(fixtures::square({}), "a")).release());
  group->AddChild(fixtures::groupAt({}, "b", fixtures::actorOf(fixtures::square({}), "other")).release());
  auto moved = fixtures::actorOf(fixtures::square({}), "c");
  moved->SetMatLocalToParent(fixtures::translation(1, 0, 0));
  group->AddChild(fixtures::groupAt({}, "c", std::move(moved)).release());
  auto two = fixtures::groupAt({}, "d", fixtures::actorOf(fixtures::square({}), "d"));
  two->AddChild(fixtures::actorOf(fixtures::square({}), "d").release());
  group->AddChild(two.release());
  EXPECT_EQ(treeOf(modelOf(*fixtures::rootOf(std::move(group)))), "root(a*()b(other*())c(c*())d(d*()d*()))");
}

TEST(GlbWriter, WhatHasZUpIsTurned) {
  auto root = fixtures::rootOf(fixtures::groupAt(fixtures::translation(0, 0, 1), "moved"));
  const tinygltf::Model model = modelOf(*root);
  EXPECT_EQ(treeOf(model), "root(moved())");
  ASSERT_EQ(model.nodes[0].rotation.size(), 4U);
  EXPECT_NEAR(model.nodes[0].rotation[0], -std::sqrt(0.5), 1e-7);  // a quarter turn about minus x
  EXPECT_NEAR(model.nodes[0].rotation[3], std::sqrt(0.5), 1e-7);
}

TEST(GlbWriter, VerticesAreWeldedAndHaveBounds) {
  const tinygltf::Model model = modelOf(*squareRoot({}));
  const tinygltf::Primitive& primitive = model.meshes.at(0).primitives.at(0);
  const tinygltf::Accessor& positions =
      model.accessors.at(static_cast<std::size_t>(primitive.attributes.at("POSITION")));
  EXPECT_EQ(positions.count, 4U);
  EXPECT_EQ(positions.minValues, (Numbers{0, 0, 0}));
  EXPECT_EQ(positions.maxValues, (Numbers{1, 1, 0}));
  const tinygltf::Accessor& indices = model.accessors.at(static_cast<std::size_t>(primitive.indices));
  EXPECT_EQ(indices.count, 6U);
  EXPECT_EQ(indices.componentType, TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT);
  EXPECT_EQ(primitive.attributes.count("NORMAL"), 0U);
  EXPECT_EQ(floatsOf(model, primitive.attributes.at("TEXCOORD_0")), (std::vector<float>{0, 1, 1, 1, 1, 0, 0, 0}))
      << "images begin at the top";
}

TEST(GlbWriter, ManyVerticesTakeWideIndices) {
  std::vector<float> points;
  for (unsigned i = 0; i < 65538; ++i) points.insert(points.end(), {static_cast<float>(i), 0, 0});
  std::vector<std::uint32_t> indices(65538);
  for (unsigned i = 0; i < indices.size(); ++i) indices[i] = i;
  auto set = std::make_unique<sglIndexedTriangleSet>();
  set->setNumPrims(21846);
  set->setCoordList(new sglDataPtr(std::move(points)));
  set->setCoordIndexList(new sglDataPtr(std::move(indices)));
  const tinygltf::Model model = modelOf(*fixtures::rootOf(fixtures::actorOf(std::move(set), "long")));
  const int number = model.meshes.at(0).primitives.at(0).indices;
  EXPECT_EQ(model.accessors.at(static_cast<std::size_t>(number)).componentType, TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT);
}

TEST(GlbWriter, LooksBecomeMaterials) {
  const sglRef<sglStatelet> test(new sglAlphaTest(sglAlphaTest::GREATER, 0.25F));
  const sglRef<sglStatelet> bothSides(new sglCullMode(sglCullMode::CULL_OFF));
  auto geode = fixtures::geodeOf(fixtures::square({fixtures::material(0.5F, 1, 0)}));
  geode->addGeometry(fixtures::square({fixtures::material(0.5F, 1, 0, 0.75F), bothSides}).release());
  geode->addGeometry(fixtures::square({test}).release());
  geode->addGeometry(fixtures::square({fixtures::material(0.5F, 1, 0)}).release());
  auto actor = std::make_unique<CVekActorMesh>();
  actor->SetPresentable(geode.release());
  const tinygltf::Model model = modelOf(*fixtures::rootOf(std::move(actor)));
  ASSERT_EQ(model.materials.size(), 3U) << "equal ones are one";
  const tinygltf::Material& opaque = model.materials[0];
  EXPECT_NEAR(opaque.pbrMetallicRoughness.baseColorFactor[0], 0.21404114, 1e-6) << "colour factors are linear";
  EXPECT_EQ(opaque.pbrMetallicRoughness.baseColorFactor[1], 1.0);
  EXPECT_EQ(opaque.pbrMetallicRoughness.metallicFactor, 0.0);
  EXPECT_NEAR(opaque.pbrMetallicRoughness.roughnessFactor, double{embedded::roughnessOf(64)}, 1e-7);
  EXPECT_EQ(opaque.alphaMode, "OPAQUE");
  EXPECT_FALSE(opaque.doubleSided);
  EXPECT_EQ(model.materials[1].pbrMetallicRoughness.baseColorFactor[3], 0.75);
  EXPECT_EQ(model.materials[1].alphaMode, "BLEND");
  EXPECT_TRUE(model.materials[1].doubleSided);
  EXPECT_EQ(model.materials[2].alphaMode, "MASK");
  EXPECT_EQ(model.materials[2].alphaCutoff, 0.25);
  EXPECT_EQ(model.meshes.at(0).primitives.at(3).material, 0);
}

TEST(GlbWriter, ColoursOfVerticesStandForTheMaterials) {
  auto set = fixtures::square({fixtures::material(0, 0, 1)});
  set->setColorList(new sglDataPtr(std::vector<float>{0.5F, 0, 0, 1, 0, 1, 0, 0.5F}), sglGeoSet::BIND_PER_PRIM);
  const tinygltf::Model model = modelOf(*fixtures::rootOf(fixtures::actorOf(std::move(set), "")));
  const std::vector<float> colors = floatsOf(model, model.meshes.at(0).primitives.at(0).attributes.at("COLOR_0"));
  EXPECT_NEAR(colors.at(0), 0.21404114, 1e-6);
  EXPECT_EQ(colors.at(15), 0.5F) << "alpha is no light";
  EXPECT_EQ(model.materials.at(0).pbrMetallicRoughness.baseColorFactor, (Numbers{1, 1, 1, 1}));
}

TEST(GlbWriter, TexturesAreEmbedded) {
  const fixtures::TempFolder folder;
  embedded::Raster raster;
  ASSERT_TRUE(embedded::makeRaster(2, 2, 3, raster));
  ASSERT_TRUE(embedded::writeImageFile(folder.path("a.png"), raster));
  ASSERT_TRUE(embedded::writeImageFile(folder.path("b.jpg"), raster));
  const std::string bmp(
      "BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\4\0\0\0"
      "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\2\3\0",
      58);
  folder.write("c.bmp", bmp);
  auto group = fixtures::groupAt(fixtures::uprightTurn(), "");
  for (const char* name : {"a.png", "b.jpg", "c.bmp", "a.png"}) {
    auto actor = fixtures::actorOf(fixtures::square({}), name);
    fixtures::setMapPath(*actor, folder.path(name));
    group->AddChild(actor.release());
  }
  const tinygltf::Model model = modelOf(*fixtures::rootOf(std::move(group)));
  ASSERT_EQ(model.images.size(), 3U);
  const char* kTypes[] = {"image/png", "image/jpeg", "image/png"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(model.images[i].mimeType, kTypes[i]) << i;
    EXPECT_EQ(model.materials.at(i).pbrMetallicRoughness.baseColorTexture.index, static_cast<int>(i));
  }
  const tinygltf::BufferView& view = model.bufferViews.at(static_cast<std::size_t>(model.images[1].bufferView));
  const auto* bytes = reinterpret_cast<const char*>(model.buffers.at(0).data.data());
  EXPECT_EQ(std::string(bytes + view.byteOffset, view.byteLength), folder.read("b.jpg")) << "as they are";
  EXPECT_EQ(model.samplers.size(), 1U);
}

TEST(GlbWriter, ATextureThatCannotBeReadIsLeftOutWithANote) {
  const fixtures::TempFolder folder;
  folder.write("broken.png", "\x89PNG\r\n\x1a\n and no more");
  for (const char* name : {"missing.png", "broken.png"}) {
    auto actor = fixtures::actorOf(fixtures::square({}), "");
    fixtures::setMapPath(*actor, folder.path(name));
    MeshNotes notes;
    const tinygltf::Model model = modelOf(glbOf(*fixtures::rootOf(std::move(actor)), notes));
    EXPECT_TRUE(model.images.empty()) << name;
    ASSERT_EQ(notes.all().size(), 1U) << name;
    EXPECT_NE(notes.all()[0].find(name), std::string::npos);
  }
}

TEST(GlbWriter, WhatDoesNotShowIsLeftOut) {
  auto group = fixtures::groupAt(fixtures::uprightTurn(), "");
  auto hidden = fixtures::actorOf(fixtures::square({}), "hidden");
  hidden->SetDisplayed(false);
  group->AddChild(hidden.release());
  group->AddChild(std::make_unique<CVekActor>().release());
  group->AddChild(std::make_unique<CVekActorMesh>().release());
  group->AddChild(fixtures::actorOf(nullptr, "null").release());
  const tinygltf::Model model = modelOf(*fixtures::rootOf(std::move(group)));
  EXPECT_EQ(treeOf(model), "root()");
  EXPECT_TRUE(model.meshes.empty());
}

TEST(GlbWriter, PrimitivesBecomeTriangles) {
  const tinygltf::Model model =
      modelOf(*fixtures::rootOf(fixtures::actorOf(std::make_unique<sglCube>(1.0F, 1.0F, 1.0F), "cube")));
  const tinygltf::Primitive& primitive = model.meshes.at(0).primitives.at(0);
  EXPECT_EQ(model.accessors.at(static_cast<std::size_t>(primitive.indices)).count, 36U);
  EXPECT_EQ(model.accessors.at(static_cast<std::size_t>(primitive.attributes.at("NORMAL"))).count, 24U);
}

TEST(GlbWriter, AShearIsTwoNodes) {
  sglMat4<float> shear;
  shear[4] = 0.5F;
  auto root = fixtures::rootOf(fixtures::groupAt(shear, "shear", fixtures::actorOf(fixtures::square({}), "a")));
  EXPECT_EQ(treeOf(modelOf(*root)), "root(shear((a*())))");
}

TEST(GlbWriter, NumbersThatAreNoneAreNoted) {
  sglMat4<float> matrix;
  matrix[12] = NAN;
  auto set = fixtures::square({});
  set->setCoordList(new sglDataPtr(std::vector<float>(12, INFINITY)));
  auto root = fixtures::rootOf(fixtures::groupAt(matrix, "g", fixtures::actorOf(std::move(set), "a")));
  MeshNotes notes;
  EXPECT_EQ(treeOf(modelOf(glbOf(*root, notes))), "root(g())");
  EXPECT_EQ(notes.all().size(), 2U);
}

TEST(GlbWriter, NamesThatAreNoTextAreMadeText) {
  const tinygltf::Model model = modelOf(*fixtures::rootOf(fixtures::groupAt({}, ""), "B\xFCrste \"x\""));
  EXPECT_EQ(model.nodes.at(0).name, "B\xEF\xBF\xBDrste \"x\"");
}

TEST(GlbWriter, TheSameAssemblyGivesTheSameBytes) {
  MeshNotes notes;
  EXPECT_EQ(glbOf(*squareRoot({fixtures::material(1, 0, 0)}), notes),
            glbOf(*squareRoot({fixtures::material(1, 0, 0)}), notes));
}

TEST(GlbWriter, ADeepAssemblyIsWrittenOnAnOrdinaryStack) {
  std::unique_ptr<CVekAssyNode> node = fixtures::actorOf(fixtures::square({}), "deep");
  for (int i = 0; i < 20'000; ++i) node = fixtures::groupAt({}, "g", std::move(node));
  MeshNotes notes;
  const tinygltf::Model model = modelOf(glbOf(*fixtures::rootOf(std::move(node)), notes));
  EXPECT_EQ(model.nodes.size(), 20'001U);
}

}  // namespace
