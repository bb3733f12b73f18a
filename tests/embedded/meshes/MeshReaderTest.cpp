// Models of other formats as assemblies.

#include "embedded/meshes/MeshReader.h"

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglTexture2D.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "embedded/TriangleReader.h"
#include "embedded/images/ImageFile.h"
#include "embedded/meshes/FlatWriter.h"
#include "embedded/meshes/GlbWriter.h"
#include "embedded/meshes/Surface.h"
#include "tests/TempFolder.h"
#include "tests/embedded/meshes/MeshFixtures.h"

namespace {

using embedded::MeshNotes;
using embedded::MeshReadOptions;
using embedded::UpAxis;
using fixtures::TempFolder;
using Floats = std::vector<float>;
using Root = std::unique_ptr<CVekAssyRoot>;

Root read(const std::string& path, const MeshReadOptions& options, MeshNotes& notes) {
  std::string error;
  Root root = embedded::readMeshFile(path, options, notes, error);
  EXPECT_NE(root, nullptr) << error;
  return root;
}

Root read(const std::string& path, const MeshReadOptions& options = {}) {
  MeshNotes notes;
  Root root = read(path, options, notes);
  EXPECT_TRUE(notes.all().empty()) << notes.all().front();
  return root;
}

std::string errorOf(const std::string& path) {
  MeshNotes notes;
  std::string error;
  EXPECT_EQ(embedded::readMeshFile(path, {}, notes, error), nullptr);
  return error;
}

// The tree in one line, actors with a star.
class Scribe : public embedded::AssemblyVisitor {
 public:
  bool enter(const CVekAssyNode* node, const glm::dmat4&) override {
    const auto* actor = dynamic_cast<const CVekActorMesh*>(node);
    if (actor != nullptr) actors.push_back(actor);
    text += node->GetName() + (actor != nullptr ? "*(" : "(");
    return true;
  }
  void leave(const CVekAssyNode&) override { text += ")"; }

  std::string text;
  std::vector<const CVekActorMesh*> actors;
};

Scribe treeOf(const CVekAssyRoot& root) {
  Scribe scribe;
  embedded::walkAssembly(&root, scribe);
  return scribe;
}

const sglIndexedTriangleSet& setOf(const CVekActor& actor) {
  return dynamic_cast<const sglIndexedTriangleSet&>(
      *dynamic_cast<const sglGeode&>(*actor.GetPresentable()).getGeometry(0));
}

Floats listOf(const sglDataPtr* list) {
  return list == nullptr ? Floats() : Floats(list->getFloats(), list->getFloats() + list->getCount());
}

embedded::Surface surfaceOf(const CVekActor& actor) { return embedded::surfaceOf(actor, setOf(actor)); }

std::string boxOf(const CVekAssyRoot& root) {
  const CVekBBox box = embedded::assemblyBounds(&root);
  const auto text = [](const sglVec3<float>& point) {
    std::ostringstream out;
    out << point.x + 0.0F << ' ' << point.y + 0.0F << ' ' << point.z + 0.0F;
    return out.str();
  };
  return text(box.getMin()) + " to " + text(box.getMax());
}

constexpr const char* kObj =
    "mtllib model.mtl\n"
    "o Plate\nv 0 0 0\nv 2 0 0\nv 2 3 0\nv 0 3 0\nvt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\nvn 0 0 1\n"
    "usemtl red\nf 1/1/1 2/2/1 3/3/1 4/4/1\n"
    "o Fin\nv 0 0 5\nusemtl glass\nf 1 2 5\nl 1 2\n";
constexpr const char* kMtl =
    "newmtl red\nKd 1 0.25 0\nKs 0.5 0.5 0.5\nNs 32\nillum 2\nmap_Kd maps/a.png\n"
    "newmtl glass\nKd 0 0 1\nd 0.25\nNs 1000\n";

void writeImage(const std::string& path, unsigned channels = 3) {
  embedded::Raster raster;
  ASSERT_TRUE(embedded::makeRaster(2, 1, channels, raster));
  ASSERT_TRUE(embedded::writeImageFile(path, raster));
}

TEST(MeshReader, ObjWithMaterials) {
  const TempFolder folder;
  folder.write("model.obj", kObj);
  folder.write("model.mtl", kMtl);
  std::filesystem::create_directory(folder.path("maps"));
  writeImage(folder.path("maps/a.png"));
  const Root root = read(folder.path("model.obj"));
  EXPECT_EQ(root->GetName(), "model");
  EXPECT_EQ(boxOf(*root), "0 -5 0 to 2 0 3") << "y up became z up";
  EXPECT_EQ(embedded::assemblyTriangleCount(root.get()), 3U);
  const Scribe tree = treeOf(*root);
  ASSERT_EQ(tree.actors.size(), 2U) << tree.text;
  const CVekActorMesh& plate = *tree.actors[0];
  EXPECT_EQ(plate.GetName(), "Plate");
  const sglIndexedTriangleSet& set = setOf(plate);
  EXPECT_EQ(set.getNumPrims(), 2U);
  EXPECT_EQ(set.getCoordList()->getCount(), 12U) << "four points";
  EXPECT_EQ(listOf(set.getNormalList()), (Floats{0, 0, 1})) << "one normal";
  EXPECT_EQ(set.getTexCoordIndexList()->getCount(), 6U);
  const embedded::Surface red = surfaceOf(plate);
  EXPECT_EQ(red.diffuse, (std::array<float, 3>{1, 0.25F, 0}));
  EXPECT_EQ(red.specular, (std::array<float, 3>{0.5F, 0.5F, 0.5F}));
  EXPECT_EQ(red.shininess, 32.0F);
  EXPECT_EQ(red.texturePath, folder.path("maps/a.png"));
  EXPECT_TRUE(red.isDoubleSided) << "an OBJ does not say which side is the front";
  EXPECT_TRUE(plate.HasTexture());
  const embedded::Surface glass = surfaceOf(*tree.actors[1]);
  EXPECT_EQ(glass.alpha, 0.25F);
  EXPECT_EQ(glass.shininess, 128.0F);
  EXPECT_EQ(listOf(setOf(*tree.actors[1]).getNormalList()), Floats());
}

TEST(MeshReader, TheUpAxisMayBeSaid) {
  const TempFolder folder;
  folder.write("model.obj", "v 0 0 0\nv 2 0 0\nv 2 3 1\nf 1 2 3\n");
  folder.write("model.stl",
               "solid s\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 2 0 0\nvertex 2 3 1\n"
               "endloop\nendfacet\nendsolid s\n");
  const std::string asItStands = "0 0 0 to 2 3 1";
  const std::string turned = "0 -1 0 to 2 0 3";
  EXPECT_EQ(boxOf(*read(folder.path("model.obj"))), turned);
  EXPECT_EQ(boxOf(*read(folder.path("model.obj"), {UpAxis::Z, ""})), asItStands);
  EXPECT_EQ(boxOf(*read(folder.path("model.obj"), {UpAxis::Y, ""})), turned);
  EXPECT_EQ(boxOf(*read(folder.path("model.stl"))), asItStands);
  EXPECT_EQ(boxOf(*read(folder.path("model.stl"), {UpAxis::Y, ""})), turned);
}

TEST(MeshReader, StlFacetsAreWelded) {
  const TempFolder folder;
  folder.write("a.stl",
               "solid s\n"
               "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 1 1 0\nendloop\nendfacet\n"
               "facet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 1 0\nvertex 0 1 0\nendloop\nendfacet\n"
               "endsolid s\n");
  const Root root = read(folder.path("a.stl"));
  const Scribe tree = treeOf(*root);
  ASSERT_EQ(tree.actors.size(), 1U);
  EXPECT_EQ(setOf(*tree.actors[0]).getNumPrims(), 2U);
  EXPECT_EQ(setOf(*tree.actors[0]).getCoordList()->getCount(), 12U);
  EXPECT_EQ(listOf(setOf(*tree.actors[0]).getNormalList()), (Floats{0, 0, 1}));
}

std::string plyWithColors(const std::string& second) {
  return "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\nproperty float z\n"
         "property uchar red\nproperty uchar green\nproperty uchar blue\n"
         "element face 1\nproperty list uchar int vertex_indices\nend_header\n"
         "0 0 0 255 51 0\n1 0 0 " +
         second + "\n0 1 0 255 51 0\n3 0 1 2\n";
}

TEST(MeshReader, PlyColoursAreTheMaterialsWhenAllAreOne) {
  const TempFolder folder;
  folder.write("one.ply", plyWithColors("255 51 0"));
  folder.write("two.ply", plyWithColors("0 51 0"));
  const Root one = read(folder.path("one.ply"));
  const CVekActorMesh& plain = *treeOf(*one).actors.at(0);
  EXPECT_EQ(surfaceOf(plain).diffuse, (std::array<float, 3>{1, 0.2F, 0}));
  EXPECT_EQ(setOf(plain).getColorList(), nullptr);
  const Root two = read(folder.path("two.ply"));
  const CVekActorMesh& mixed = *treeOf(*two).actors.at(0);
  EXPECT_EQ(listOf(setOf(mixed).getColorList()), (Floats{1, 0.2F, 0, 1, 0, 0.2F, 0, 1}));
  EXPECT_NEAR(surfaceOf(mixed).diffuse[0], 2.0 / 3.0, 1e-6) << "the mean, for formats without such lists";
}

// Two instances of one triangle, in a file whose z axis is up.
std::string dae(const std::string& upAxis) {
  return R"(<?xml version="1.0"?><COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
<asset><unit name="meter" meter="1"/><up_axis>)" +
         upAxis + R"(</up_axis></asset>
<library_effects><effect id="e"><profile_COMMON><technique sid="common"><phong>
<diffuse><color>0 0.5 1 1</color></diffuse></phong></technique></profile_COMMON></effect></library_effects>
<library_materials><material id="m" name="m"><instance_effect url="#e"/></material></library_materials>
<library_geometries><geometry id="g" name="Tri"><mesh>
<source id="p"><float_array id="pa" count="9">0 0 0 2 0 0 2 3 1</float_array>
<technique_common><accessor source="#pa" count="3" stride="3"><param name="X" type="float"/>
<param name="Y" type="float"/><param name="Z" type="float"/></accessor></technique_common></source>
<vertices id="v"><input semantic="POSITION" source="#p"/></vertices>
<triangles count="1" material="m"><input semantic="VERTEX" source="#v" offset="0"/><p>0 1 2</p></triangles>
</mesh></geometry></library_geometries>
<library_visual_scenes><visual_scene id="s" name="Scene">
<node id="a" name="First"><instance_geometry url="#g"><bind_material><technique_common>
<instance_material symbol="m" target="#m"/></technique_common></bind_material></instance_geometry></node>
<node id="b" name="Second"><translate>10 0 0</translate><node id="c" name="Inner">
<instance_geometry url="#g"><bind_material><technique_common>
<instance_material symbol="m" target="#m"/></technique_common></bind_material></instance_geometry></node></node>
</visual_scene></library_visual_scenes><scene><instance_visual_scene url="#s"/></scene></COLLADA>)";
}

TEST(MeshReader, ColladaNodesAndInstances) {
  const TempFolder folder;
  folder.write("a.dae", dae("Z_UP"));
  const Root root = read(folder.path("a.dae"));
  const Scribe tree = treeOf(*root);
  EXPECT_EQ(tree.text, "a(Scene(First(Tri*())Second(Inner(Tri*()))))");
  EXPECT_EQ(boxOf(*root), "0 0 0 to 12 3 1");
  EXPECT_EQ(setOf(*tree.actors.at(0)).getCoordList(), setOf(*tree.actors.at(1)).getCoordList()) << "lists are shared";
  EXPECT_EQ(surfaceOf(*tree.actors[0]).diffuse, (std::array<float, 3>{0, 0.5F, 1}));
}

TEST(MeshReader, ColladaSaysWhichAxisIsUpUnlessSomebodyElseDoes) {
  const TempFolder folder;
  folder.write("z.dae", dae("Z_UP"));
  folder.write("y.dae", dae("Y_UP"));
  const std::string asItStands = "0 0 0 to 12 3 1";
  const std::string turned = "0 -1 0 to 12 0 3";
  EXPECT_EQ(boxOf(*read(folder.path("z.dae"))), asItStands);
  EXPECT_EQ(boxOf(*read(folder.path("y.dae"))), turned);
  EXPECT_EQ(boxOf(*read(folder.path("z.dae"), {UpAxis::Y, ""})), turned);
  EXPECT_EQ(boxOf(*read(folder.path("z.dae"), {UpAxis::Z, ""})), asItStands);
  EXPECT_EQ(boxOf(*read(folder.path("y.dae"), {UpAxis::Z, ""})), asItStands);
}

// A triangle in a glTF file; `material` is what stands in its material's braces.
std::string gltf(const std::string& material, const std::string& rest = "") {
  return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],
"nodes":[{"name":"Top","children":[1]},{"name":"Leaf","mesh":0,"translation":[0,0,7]}],
"meshes":[{"name":"Tri","primitives":[{"attributes":{"POSITION":0},"indices":1,"material":0}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3","min":[0,0,0],"max":[1,1,0]},
{"bufferView":1,"componentType":5123,"count":3,"type":"SCALAR"}],
"bufferViews":[{"buffer":0,"byteLength":36},{"buffer":0,"byteOffset":36,"byteLength":6}],
"buffers":[{"byteLength":44,"uri":"data:application/octet-stream;base64,)"
         R"(AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAAAAABAAIAAAA="}],
"materials":[{)" +
         material + "}]" + rest + "}";
}

TEST(MeshReader, GltfNodesAndLooks) {
  const struct {
    const char* name;
    const char* material;
    std::array<float, 3> diffuse;
    float alpha;
    bool isDoubleSided;
    embedded::AlphaMode mode;
  } kRows[] = {
      {"opaque.gltf",
       R"("pbrMetallicRoughness":{"baseColorFactor":[0.21404114,1,0,0.5],"roughnessFactor":0.41722})",
       {0.5F, 1, 0},
       1.0F,
       false,
       embedded::AlphaMode::Opaque},
      {"blend.gltf",
       R"("alphaMode":"BLEND","doubleSided":true,"pbrMetallicRoughness":{"baseColorFactor":[1,1,1,0.5]})",
       {1, 1, 1},
       0.5F,
       true,
       embedded::AlphaMode::Blend},
  };
  const TempFolder folder;
  for (const auto& row : kRows) {
    folder.write(row.name, gltf(row.material));
    const Root root = read(folder.path(row.name));
    const Scribe tree = treeOf(*root);
    EXPECT_EQ(tree.text, root->GetName() + "(Top(Leaf(Tri*())))");
    EXPECT_EQ(boxOf(*root), "0 -7 0 to 1 -7 1");
    const auto& top = dynamic_cast<const CVekKAssyGroup&>(**root->GetChilds().begin());
    EXPECT_EQ(top.GetMatLocalToParent(), fixtures::uprightTurn()) << "as an imported world's root transform";
    const embedded::Surface surface = surfaceOf(*tree.actors.at(0));
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(surface.diffuse[i], row.diffuse[i], 1e-6) << row.name;
    EXPECT_EQ(surface.alpha, row.alpha) << row.name;
    EXPECT_EQ(surface.isDoubleSided, row.isDoubleSided) << row.name;
    EXPECT_EQ(surface.alphaMode, row.mode) << row.name;
  }
  const Root opaque = read(folder.path("opaque.gltf"));
  EXPECT_NEAR(surfaceOf(*treeOf(*opaque).actors.at(0)).shininess, 64.0, 0.01);
}

TEST(MeshReader, WhatHasNoNameInGltfGetsNone) {
  std::string text = gltf("");
  for (const std::string name : {R"("name":"Leaf",)", R"("name":"Tri",)"}) text.erase(text.find(name), name.size());
  const TempFolder folder;
  folder.write("a.gltf", text);
  EXPECT_EQ(treeOf(*read(folder.path("a.gltf"))).text, "a(Top((*())))");
}

TEST(MeshReader, TexturesOfGltfMayBeMovedAndScaledButNotTurned) {
  const TempFolder folder;
  writeImage(folder.path("a.png"));
  const auto model = [](const std::string& transform) {
    // The positions stand for texture coordinates too: the first two of each three numbers.
    std::string text = gltf(R"("pbrMetallicRoughness":{"baseColorTexture":{"index":0,"extensions":{)"
                            R"("KHR_texture_transform":{)" +
                                transform + "}}}}",
                            R"(,"textures":[{"source":0}],"images":[{"uri":"a.png"}],)"
                            R"("extensionsUsed":["KHR_texture_transform"])");
    const auto replace = [&text](const std::string& from, const std::string& to) {
      text.replace(text.find(from), from.size(), to);
    };
    replace(R"("POSITION":0)", R"("POSITION":0,"TEXCOORD_0":2)");
    replace(R"("bufferViews":[)", R"("bufferViews":[{"buffer":0,"byteLength":36,"byteStride":12},)");
    replace(R"([{"bufferView":0,)", R"([{"bufferView":1,)");
    replace(R"({"bufferView":1,"componentType":5123,"count":3,"type":"SCALAR"})",
            R"({"bufferView":2,"componentType":5123,"count":3,"type":"SCALAR"},)"
            R"({"bufferView":0,"componentType":5126,"count":3,"type":"VEC2"})");
    return text;
  };
  folder.write("a.gltf", model(R"("offset":[0.25,0.125],"scale":[2,3])"));
  const Root root = read(folder.path("a.gltf"));
  const Floats expected{0.25F, 0.875F, 2.25F, 0.875F, 0.25F, -2.125F};  // from the lower left
  EXPECT_EQ(listOf(embedded::texCoordList(setOf(*treeOf(*root).actors.at(0)))), expected);
  folder.write("b.gltf", model(R"("rotation":0.5)"));
  MeshNotes notes;
  EXPECT_NE(read(folder.path("b.gltf"), {}, notes), nullptr);
  EXPECT_EQ(notes.all(), std::vector<std::string>{"the texture a.png is not turned"});
}

// An assembly of one textured square and the .glb file of it.
void writeTexturedGlb(const TempFolder& folder, const std::string& name, unsigned channels = 3) {
  writeImage(folder.path("source.png"), channels);
  auto actor = fixtures::actorOf(fixtures::square({fixtures::material(1, 0.5F, 0)}), "square");
  fixtures::setMapPath(*actor, folder.path("source.png"));
  const Root root = fixtures::rootOf(fixtures::groupAt(fixtures::uprightTurn(), "", std::move(actor)));
  std::ofstream out(folder.path(name), std::ios::binary);
  MeshNotes notes;
  std::string error;
  ASSERT_TRUE(embedded::writeGlb(*root, out, notes, error)) << error;
}

TEST(MeshReader, AGlbComesBackAsItWas) {
  const TempFolder folder;
  writeTexturedGlb(folder, "a.glb");
  const Root root = read(folder.path("a.glb"), {std::nullopt, folder.path("deep/maps")});
  const Scribe tree = treeOf(*root);
  EXPECT_EQ(boxOf(*root), "0 0 0 to 1 0 1") << "the square stands upright";
  ASSERT_EQ(tree.actors.size(), 1U);
  EXPECT_EQ(listOf(embedded::texCoordList(setOf(*tree.actors[0]))), (Floats{0, 0, 1, 0, 1, 1, 0, 1}));
  const embedded::Surface surface = surfaceOf(*tree.actors[0]);
  EXPECT_NEAR(surface.diffuse[1], 0.5, 1e-6);
  EXPECT_EQ(surface.texturePath, folder.path("deep/maps/a_0.png"));
  EXPECT_EQ(folder.read("deep/maps/a_0.png"), folder.read("source.png"));
}

TEST(MeshReader, TexturesInsideAreLeftOutWithANoteWhenThereIsNoFolder) {
  const TempFolder folder;
  writeTexturedGlb(folder, "a.glb");
  folder.write("file", "no folder");
  for (const std::string& maps : {std::string(), folder.path("file/maps")}) {
    MeshNotes notes;
    const Root root = read(folder.path("a.glb"), {std::nullopt, maps}, notes);
    EXPECT_EQ(surfaceOf(*treeOf(*root).actors.at(0)).texturePath, "");
    EXPECT_EQ(notes.all().size(), 1U) << maps;
  }
}

TEST(MeshReader, ATextureWithAlphaIsTestedUnlessGltfSaysOtherwise) {
  const TempFolder folder;
  folder.write("model.obj", kObj);
  folder.write("model.mtl", kMtl);
  std::filesystem::create_directory(folder.path("maps"));
  writeImage(folder.path("maps/a.png"), 4);
  writeTexturedGlb(folder, "a.glb", 4);
  const Root obj = read(folder.path("model.obj"));
  EXPECT_EQ(surfaceOf(*treeOf(*obj).actors.at(0)).alphaMode, embedded::AlphaMode::Mask);
  const Root glb = read(folder.path("a.glb"), {std::nullopt, folder.path("maps")});
  EXPECT_EQ(surfaceOf(*treeOf(*glb).actors.at(0)).alphaMode, embedded::AlphaMode::Opaque);
}

TEST(MeshReader, ATextureIsLookedForFromTheModelsFolder) {
  const TempFolder folder;
  writeImage(folder.path("a b.png"));
  for (const char* name : {"a b.png", "a%20b.png", "C:\\maps\\a b.png", "/nowhere/a b.png", "x/a b.png"}) {
    folder.write("model.obj", kObj);
    folder.write("model.mtl", std::string("newmtl red\nmap_Kd ") + name + "\nnewmtl glass\n");
    const Root root = read(folder.path("model.obj"));
    EXPECT_EQ(surfaceOf(*treeOf(*root).actors.at(0)).texturePath, folder.path("a b.png")) << name;
  }
  folder.write("model.mtl", "newmtl red\nmap_Kd missing.png\nnewmtl glass\n");
  MeshNotes notes;
  const Root root = read(folder.path("model.obj"), {}, notes);
  EXPECT_EQ(surfaceOf(*treeOf(*root).actors.at(0)).texturePath, folder.path("missing.png"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0], "the texture " + folder.path("missing.png") + " cannot be read");
}

TEST(MeshReader, WhatCannotBeReadIsSaid) {
  const TempFolder folder;
  folder.write("world.wrl", "#VRML V2.0 utf8\nGroup {}\n");
  folder.write("world.obj", "#VRML V2.0 utf8\nGroup {}\n");
  folder.write("broken.glb", "glTF and no more");
  folder.write("broken.gltf", "{ \"asset\": ");
  folder.write("broken.dae", "<COLLADA>");
  folder.write("empty.ply", "");
  folder.write("empty.stl", "");
  for (const char* name :
       {"world.wrl", "world.obj", "broken.glb", "broken.gltf", "broken.dae", "empty.ply", "empty.stl", "missing.obj"}) {
    const std::string error = errorOf(folder.path(name));
    EXPECT_FALSE(error.empty()) << name;
    EXPECT_EQ(error.find('\n'), std::string::npos) << name;
  }
  std::string polygon = plyWithColors("0 0 0");
  folder.write("corners.ply", polygon.erase(polygon.find("0 0 0 255") + 6));
  EXPECT_EQ(errorOf(folder.path("corners.ply")), "the file is damaged in a way that its reader breaks down on");
  folder.write("cut.ply", plyWithColors("0 0 0").substr(0, 60));
  EXPECT_EQ(errorOf(folder.path("cut.ply")), "the header of the PLY file has no end");
  EXPECT_EQ(errorOf(folder.path("world.wrl")), "no mesh format has the extension \".wrl\"");
  EXPECT_NE(errorOf(folder.path("missing.obj")).find("missing.obj"), std::string::npos);
}

TEST(MeshReader, WhatIsMissingIsNoted) {
  const TempFolder folder;
  folder.write("model.obj", kObj);
  MeshNotes notes;
  EXPECT_NE(read(folder.path("model.obj"), {}, notes), nullptr);
  ASSERT_FALSE(notes.all().empty());
  EXPECT_NE(notes.all()[0].find("model.mtl"), std::string::npos) << notes.all()[0];
}

TEST(MeshReader, ADeepFileIsReadOnAnOrdinaryStack) {
  constexpr int kDepth = 50'000;
  std::string nodes = R"("nodes":[)";
  for (int i = 1; i < kDepth; ++i) nodes += R"({"children":[)" + std::to_string(i) + "]},";
  std::string text = gltf("");
  const std::size_t begin = text.find(R"("nodes":[{)");
  const std::size_t end = text.find(R"("meshes")");
  text.replace(begin, end - begin, nodes + R"({"mesh":0}],)");
  const TempFolder folder;
  folder.write("deep.gltf", text);
  folder.write("brackets.gltf", std::string(kDepth, '['));
  EXPECT_EQ(embedded::assemblyTriangleCount(read(folder.path("deep.gltf")).get()), 1U);
  EXPECT_NE(errorOf(folder.path("brackets.gltf")), "");
}

TEST(MeshReader, ExtensionsInEitherCase) {
  EXPECT_TRUE(embedded::isReadableMesh("ply"));
  for (const char* name : {"wrl", "x3d", "x3dv", "json", ""}) EXPECT_FALSE(embedded::isReadableMesh(name)) << name;
  const TempFolder folder;
  folder.write("A.PLY", plyWithColors("0 0 0"));
  EXPECT_NE(read(folder.path("A.PLY")), nullptr);
}

}  // namespace
