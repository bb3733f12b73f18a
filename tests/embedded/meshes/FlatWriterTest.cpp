// Assemblies as OBJ, STL and PLY, read back as models.

#include "embedded/meshes/FlatWriter.h"

#include <VekSG/sglTexture2D.h>
#include <gtest/gtest.h>

#include "embedded/images/ImageFile.h"
#include "embedded/meshes/MeshReader.h"
#include "embedded/meshes/Surface.h"
#include "tests/TempFolder.h"
#include "tests/embedded/meshes/MeshFixtures.h"

namespace {

using embedded::MeshFile;
using embedded::MeshNotes;
using fixtures::TempFolder;
using Root = std::unique_ptr<CVekAssyRoot>;

std::vector<MeshFile> filesOf(const CVekAssyRoot& root, const std::string& extension, MeshNotes& notes) {
  std::vector<MeshFile> files;
  std::string error;
  EXPECT_TRUE(embedded::writeFlatMesh(root, extension, "out." + extension, files, notes, error)) << error;
  return files;
}

// Two squares in the host's world, a red one on the ground and a blue one above it.
Root twoSquares() {
  auto group =
      fixtures::groupAt({}, "world", fixtures::actorOf(fixtures::square({fixtures::material(1, 0, 0)}), "red"));
  group->AddChild(fixtures::groupAt(fixtures::translation(4, 0, 2), "up",
                                    fixtures::actorOf(fixtures::square({fixtures::material(0, 0.2F, 1, 0.4F)}), "blue"))
                      .release());
  return fixtures::rootOf(std::move(group));
}

Root writtenAndRead(const CVekAssyRoot& root, const TempFolder& folder, const std::string& extension) {
  MeshNotes notes;
  for (const MeshFile& file : filesOf(root, extension, notes)) folder.write(file.name, file.bytes);
  std::string error;
  Root back = embedded::readMeshFile(folder.path("out." + extension), {}, notes, error);
  EXPECT_NE(back, nullptr) << error;
  EXPECT_TRUE(notes.all().empty()) << notes.all().front();
  return back;
}

// The actors that a tree shows.
class Collector : public embedded::AssemblyVisitor {
 public:
  explicit Collector(const CVekAssyRoot& root) { embedded::walkAssembly(&root, *this); }
  bool enter(const CVekAssyNode* node, const glm::dmat4&) override {
    if (const auto* actor = dynamic_cast<const CVekActorMesh*>(node)) actors.push_back(actor);
    return true;
  }
  std::vector<const CVekActorMesh*> actors;
};

const sglIndexedTriangleSet& setOf(const CVekActor& actor) {
  return dynamic_cast<const sglIndexedTriangleSet&>(
      *dynamic_cast<const sglGeode&>(*actor.GetPresentable()).getGeometry(0));
}

TEST(FlatWriter, EveryFormatKeepsTrianglesAndPlace) {
  for (const char* extension : {"obj", "stl", "ply"}) {
    const TempFolder folder;
    const Root back = writtenAndRead(*twoSquares(), folder, extension);
    EXPECT_EQ(embedded::assemblyTriangleCount(back.get()), 4U) << extension;
    const CVekBBox box = embedded::assemblyBounds(back.get());
    EXPECT_EQ(box.getMin(), (sglVec3<float>{0, 0, 0})) << extension;
    EXPECT_EQ(box.getMax(), (sglVec3<float>{5, 1, 2})) << extension;
    const CVekActorMesh& first = *Collector(*back).actors.at(0);
    ASSERT_NE(setOf(first).getCoordList(), nullptr);
  }
}

TEST(FlatWriter, ObjHasYUpGroupsAndMaterials) {
  const TempFolder folder;
  const Root back = writtenAndRead(*twoSquares(), folder, "obj");
  EXPECT_NE(folder.read("out.obj").find("mtllib out.mtl"), std::string::npos);
  EXPECT_NE(folder.read("out.obj").find("v 4 2 "), std::string::npos) << "(4, 0, 2) with y up";
  const Collector tree(*back);
  ASSERT_EQ(tree.actors.size(), 2U);
  EXPECT_EQ(tree.actors[0]->GetName(), "red");
  const embedded::Surface blue = embedded::surfaceOf(*tree.actors[1], setOf(*tree.actors[1]));
  EXPECT_EQ(blue.diffuse, (std::array<float, 3>{0, 0.2F, 1}));
  EXPECT_EQ(blue.specular, (std::array<float, 3>{0.5F, 0.25F, 0.125F}));
  EXPECT_EQ(blue.shininess, 64.0F);
  EXPECT_EQ(blue.alpha, 0.4F);
}

TEST(FlatWriter, PlyHasTheColoursAtItsVertices) {
  const TempFolder folder;
  const Root back = writtenAndRead(*twoSquares(), folder, "ply");
  const Collector tree(*back);
  ASSERT_EQ(tree.actors.size(), 1U) << "one mesh";
  const sglDataPtr* colors = setOf(*tree.actors[0]).getColorList();
  ASSERT_NE(colors, nullptr);
  ASSERT_EQ(colors->getCount(), 8U) << "red and blue";
  EXPECT_EQ(colors->getFloats()[0], 1.0F);
  EXPECT_NEAR(colors->getFloats()[5], 0.2, 0.003);
}

TEST(FlatWriter, ObjBringsItsTextures) {
  const TempFolder folder;
  embedded::Raster raster;
  ASSERT_TRUE(embedded::makeRaster(2, 2, 3, raster));
  for (const char* name : {"x/a.png", "y/a.png"}) {
    folder.write(name, "");
    ASSERT_TRUE(embedded::writeImageFile(folder.path(name), raster));
  }
  auto group = fixtures::groupAt({}, "");
  for (const char* name : {"x/a.png", "y/a.png", "z/a.png"}) {
    auto actor = fixtures::actorOf(fixtures::square({}), name);
    fixtures::setMapPath(*actor, folder.path(name));
    group->AddChild(actor.release());
  }
  MeshNotes notes;
  const auto files = filesOf(*fixtures::rootOf(std::move(group)), "obj", notes);
  std::string names;
  for (const MeshFile& file : files) names += file.name + " ";
  EXPECT_EQ(names, "out.obj out.mtl Textures/a.png Textures/a_2.png ");
  EXPECT_EQ(files.at(2).bytes, folder.read("x/a.png"));
  EXPECT_NE(files.at(1).bytes.find("map_Kd Textures/a_2.png"), std::string::npos);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_NE(notes.all()[0].find("z/a.png"), std::string::npos);
}

TEST(FlatWriter, FlatFacesStayFlat) {
  auto set = fixtures::square({});
  set->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 1}));  // bent along its diagonal
  const TempFolder folder;
  const Root back = writtenAndRead(*fixtures::rootOf(fixtures::actorOf(std::move(set), "bent")), folder, "obj");
  EXPECT_EQ(setOf(*Collector(*back).actors.at(0)).getNormalList()->getCount(), 6U) << "one normal a triangle";
}

TEST(FlatWriter, NothingToWriteIsAnError) {
  for (const char* extension : {"obj", "stl", "ply"}) {
    std::vector<MeshFile> files;
    MeshNotes notes;
    std::string error;
    EXPECT_FALSE(embedded::writeFlatMesh(CVekAssyRoot(), extension, "a", files, notes, error)) << extension;
    EXPECT_EQ(error, "there are no triangles to write");
    EXPECT_TRUE(files.empty());
  }
}

TEST(FlatWriter, TheSameAssemblyGivesTheSameBytes) {
  for (const char* extension : {"obj", "stl", "ply"}) {
    MeshNotes notes;
    const auto first = filesOf(*twoSquares(), extension, notes);
    const auto second = filesOf(*twoSquares(), extension, notes);
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(first[i].bytes, second[i].bytes) << first[i].name;
  }
}

}  // namespace
