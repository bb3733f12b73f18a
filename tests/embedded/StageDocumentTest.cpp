// Stage documents: read, written, refused.

#include "embedded/StageDocument.h"

#include <VekFoundations/CVekPropNumerical.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekGeometry/CVekPropLocation.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexture2D.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <sstream>

#include "embedded/StageProperties.h"
#include "tests/TempFolder.h"
#include "tests/embedded/SceneFixtures.h"

namespace {

using embedded::StageError;

std::unique_ptr<CVekStager> read(std::string_view text, const std::string& folder = "") {
  StageError error;
  auto stager = embedded::readStageDocument(text, folder, error);
  EXPECT_NE(stager, nullptr) << error.line << ": " << error.text;
  return stager;
}

std::string written(const CVekStager& stager) {
  std::ostringstream out;
  embedded::writeStageDocument(out, stager);
  return out.str();
}

const CVekAssyNode* childOf(const CVekStager& stager, std::size_t index) {
  return *std::next(stager.GetSceneManager()->GetAssyRoot()->GetChilds().begin(), static_cast<std::ptrdiff_t>(index));
}

// The only child of the assembly, as an actor.
const CVekActor& actorOf(const CVekStager& stager) { return dynamic_cast<const CVekActor&>(*childOf(stager, 0)); }

std::string withMesh(const std::string& keys) {
  return R"({"assembly": {"type": "root", "children": [{"type": "mesh")" + keys + "}]}}";
}

std::string withDrawable(const std::string& drawable) {
  return withMesh(R"(, "geode": {"geometries": [)" + drawable + "]}");
}

const sglDrawable* drawableOf(const CVekStager& stager) {
  return dynamic_cast<const sglGeode&>(*actorOf(stager).GetPresentable()).getGeometry(0);
}

TEST(StageDocument, WhatIsLeftOutTakesTheDefaults) {
  const auto stager = read("{}");
  EXPECT_EQ(stager->GetSceneManager()->GetAssyRoot(), nullptr);
  const CVekViewportManager& manager = *stager->GetViewportManager();
  ASSERT_NE(manager.GetViewportSelected(), nullptr);
  ASSERT_NE(manager.GetViewportSelected()->GetNavigator()->GetCamera(), nullptr);
  EXPECT_TRUE(manager.GetViewportSelected()->GetNavigator()->GetCamera()->IsPerspective());
  EXPECT_NEAR(manager.GetViewportSelected()->GetNavigator()->GetCamera()->GetFOVPaper(), 0.785398, 1e-6);
  ASSERT_NE(manager.GetViews(), nullptr);
  EXPECT_EQ(manager.GetViews()->GetCount(), 0U);
  EXPECT_EQ(int{manager.GetViewportSelected()->GetRenderer()->GetBkFootColor()[2]}, 0);
}

TEST(StageDocument, NullAndFalseMeanThatThereIsNone) {
  const auto stager = read(R"({"assembly": null, "camera": null, "views": null})");
  EXPECT_EQ(stager->GetViewportManager()->GetViewportSelected()->GetNavigator()->GetCamera(), nullptr);
  EXPECT_EQ(stager->GetViewportManager()->GetViews(), nullptr);
  EXPECT_EQ(read(R"({"viewport": false})")->GetViewportManager()->GetViewportSelected(), nullptr);
}

TEST(StageDocument, CameraAndBackground) {
  const auto stager = read(R"({"camera": {"perspective": false, "fov": 1.5707963267948966,
      "frame": [1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,10,1]}, "background": {"color": [1, 2, 255], "floor": [4, 5, 6]}})");
  const CVekViewport& viewport = *stager->GetViewportManager()->GetViewportSelected();
  EXPECT_FALSE(viewport.GetNavigator()->GetCamera()->IsPerspective());
  EXPECT_EQ(viewport.GetNavigator()->GetCamera()->GetFOVPaper(), 1.5707963267948966);
  EXPECT_EQ(viewport.GetNavigator()->GetCamera()->GetFrameInParent().GetOrigin().z, 10.0F);
  EXPECT_EQ(int{viewport.GetRenderer()->GetBkColor()[2]}, 255);
  EXPECT_EQ(int{viewport.GetRenderer()->GetBkFootColor()[0]}, 4);
  const auto plain = read(R"({"camera": {}})");
  const CVekCamera& camera = *plain->GetViewportManager()->GetViewportSelected()->GetNavigator()->GetCamera();
  EXPECT_TRUE(camera.IsPerspective());
  EXPECT_EQ(camera.GetFOVPaper(), 0.0);
  EXPECT_EQ(camera.GetMatLocalToParent(), sglMat4<float>());
}

TEST(StageDocument, ViewsHaveThePropertiesThatTheyName) {
  const auto stager = read(R"({"views": [null, {"name": "A"}, {"name": "B", "properties": false, "fov": 1},
      {"frame": [1,0,0,0,0,1,0,0,0,0,1,0,7,0,0,1], "perspective": true, "fov": 0.5}]})");
  const CVekFList<CVekView>& views = *stager->GetViewportManager()->GetViews();
  ASSERT_EQ(views.GetCount(), 4U);
  const std::vector<CVekView*> list(views.begin(), views.end());
  EXPECT_EQ(list[0], nullptr);
  EXPECT_EQ(list[1]->GetName(), "A");
  ASSERT_NE(list[1]->GetNavigatorProperties(), nullptr);
  EXPECT_EQ(embedded::propertyOf<CVekPropLocation>(list[1]->GetNavigatorProperties(), embedded::kCameraLocation),
            nullptr);
  EXPECT_EQ(list[2]->GetNavigatorProperties(), nullptr);
  const CVekPropertySet* properties = list[3]->GetNavigatorProperties();
  const auto* location = embedded::propertyOf<CVekPropLocation>(properties, embedded::kCameraLocation);
  const auto* perspective = embedded::propertyOf<CVekProp<bool>>(properties, embedded::kCameraPerspective);
  const auto* fov = embedded::propertyOf<CVekPropNumerical<float>>(properties, embedded::kCameraFov);
  ASSERT_NE(location, nullptr);
  EXPECT_EQ(location->GetValue().GetFrame().GetOrigin().x, 7.0F);
  ASSERT_NE(perspective, nullptr);
  EXPECT_TRUE(perspective->GetValue());
  ASSERT_NE(fov, nullptr);
  EXPECT_EQ(fov->GetValue(), 0.5F);
}

TEST(StageDocument, NodesBecomeTheirClassesInTheDocumentsOrder) {
  const auto stager = read(R"({"assembly": {"name": "model", "children": [
      {"children": [{"type": "mesh"}, {"type": "root"}], "name": "g", "type": "group"},
      {"type": "plainGroup", "name": "p"}, {"type": "mesh", "name": "m", "visible": false},
      {"type": "actor", "name": "a"}], "type": "root", "matrix": [2,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1]}})");
  const CVekAssyRoot& root = *stager->GetSceneManager()->GetAssyRoot();
  EXPECT_EQ(root.GetName(), "model");
  EXPECT_EQ(root.GetMatLocalToParent()[0], 2.0F);
  std::string names;
  for (const CVekAssyNode* child : root.GetChilds()) names += child->GetName();
  EXPECT_EQ(names, "gpma");
  const auto* group = dynamic_cast<const CVekKAssyGroup*>(childOf(*stager, 0));
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->GetChilds().size(), 2U);
  EXPECT_NE(dynamic_cast<const CVekAssyRoot*>(*group->GetChilds().rbegin()), nullptr);
  EXPECT_EQ(dynamic_cast<const CVekKAssyGroup*>(childOf(*stager, 1)), nullptr);
  EXPECT_FALSE(dynamic_cast<const CVekActorMesh&>(*childOf(*stager, 2)).IsDisplayed());
  EXPECT_EQ(dynamic_cast<const CVekActorMesh*>(childOf(*stager, 3)), nullptr);
  EXPECT_TRUE(dynamic_cast<const CVekActor&>(*childOf(*stager, 3)).IsDisplayed());
}

TEST(StageDocument, NullChildrenAndNullGeometriesArePassedOn) {
  const auto stager = read(R"({"assembly": {"type": "root", "children": [null, null,
      {"type": "mesh", "geode": {"geometries": [null, {"type": "sglCube"}]}}, {"type": "mesh", "geode": null}]}})");
  EXPECT_EQ(childOf(*stager, 0), nullptr);
  const auto& geode =
      dynamic_cast<const sglGeode&>(*dynamic_cast<const CVekActor&>(*childOf(*stager, 1)).GetPresentable());
  EXPECT_EQ(geode.getNumGeometries(), 2U);
  EXPECT_EQ(geode.getGeometry(0), nullptr);
  EXPECT_EQ(dynamic_cast<const CVekActor&>(*childOf(*stager, 2)).GetPresentable(), nullptr);
}

TEST(StageDocument, PathsAreRelativeToTheDocument) {
  struct Row {
    const char* path;
    const char* folder;
    const char* expected;
  };
  const Row rows[] = {
      {"wood.jpg", "", "wood.jpg"},
      {"wood.jpg", "dir", "dir/wood.jpg"},
      {"wood.jpg", "dir/", "dir/wood.jpg"},
      {"maps\\\\a.png", "d", "d/maps\\a.png"},
      {"/abs/wood.jpg", "dir", "/abs/wood.jpg"},
      {"C:\\\\a.png", "dir", "C:\\a.png"},
      {"", "dir", ""},
  };
  for (const Row& row : rows) {
    const auto stager = read(withMesh(R"(, "mapPath": ")" + std::string(row.path) + "\""), row.folder);
    const auto* path = embedded::propertyOf<CVekPropPath>(actorOf(*stager).GetProperties(), embedded::kMapPath);
    ASSERT_NE(path, nullptr);
    EXPECT_EQ(path->GetValue(), row.expected);
  }
  EXPECT_EQ(embedded::propertyOf<CVekPropPath>(actorOf(*read(withMesh(""))).GetProperties(), embedded::kMapPath),
            nullptr);
}

TEST(StageDocument, PathsAreWrittenForTheFolderOfTheDocument) {
  const std::string here = std::filesystem::current_path().string();
  struct Row {
    const char* path;
    const char* folder;
    std::string expected;
  };
  const Row rows[] = {
      {"dir/wood.jpg", "", "dir/wood.jpg"},
      {"dir/wood.jpg", "dir/", "wood.jpg"},
      {"dir/maps/wood.jpg", "./dir/", "maps/wood.jpg"},
      {"dir\\\\wood.jpg", "dir/", "wood.jpg"},
      {"dir/wood.jpg", "other/", here + "/dir/wood.jpg"},
      {"dir/../wood.jpg", "dir/", here + "/wood.jpg"},
      {"directory/wood.jpg", "dir/", here + "/directory/wood.jpg"},
      {"/abs/wood.jpg", "/abs/", "/abs/wood.jpg"},
      {"C:\\\\a.png", "dir/", "C:\\\\a.png"},
      {"", "dir/", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.path) + " from " + row.folder);
    const auto stager = read(withMesh(R"(, "mapPath": ")" + std::string(row.path) + "\""));
    std::ostringstream out;
    embedded::writeStageDocument(out, *stager, row.folder);
    EXPECT_NE(out.str().find("\"mapPath\":\"" + row.expected + "\""), std::string::npos) << out.str();
  }
}

TEST(StageDocument, TexturesLieInTheFirstSlot) {
  const auto stager =
      read(withMesh(R"(, "texture": {"repeatS": true, "matrix": [1,0,0,0,0,1,0,0,0,0,1,0,0.5,0,0,1]})"));
  const CVekTexture* texture = actorOf(*stager).GetTexture(0);
  ASSERT_NE(texture, nullptr);
  EXPECT_EQ(texture->GetTexMatrix()[12], 0.5F);
  const auto* image = dynamic_cast<const sglTexture2D*>(texture->GetTexture());
  ASSERT_NE(image, nullptr);
  sglTexture2D::WrapEnum s{};
  sglTexture2D::WrapEnum t{};
  image->getWrapMode(s, t);
  EXPECT_EQ(s, sglTexture2D::WRAP_REPEAT);
  EXPECT_EQ(t, sglTexture2D::WRAP_CLAMP);
  const auto without = read(withMesh(R"(, "texture": {"image": false})"));
  ASSERT_NE(actorOf(*without).GetTexture(0), nullptr);
  EXPECT_EQ(actorOf(*without).GetTexture(0)->GetTexture(), nullptr);
  EXPECT_FALSE(actorOf(*read(withMesh(""))).HasTexture());
}

TEST(StageDocument, DrawablesHaveTheirListsAndStates) {
  const auto stager =
      read(withDrawable(R"({"states": [{"type": "sglMaterial", "diffuse": [0.5, 0.25, 0.75], "alpha": 0.25}],
      "coords": [0,0,0,1,0,0,0,1,0], "coordIndex": [0, 1, 4294967295], "texCoords": [0, 0, 1, 0, 0, 1], "normals": [],
      "numPrims": 1, "displayList": true, "type": "sglIndexedTriangleSet"})"));
  const auto& set = dynamic_cast<const sglIndexedTriangleSet&>(*drawableOf(*stager));
  EXPECT_EQ(set.getNumPrims(), 1U);
  EXPECT_EQ(fixtures::floatsOf(set.getCoordList()).size(), 9U);
  EXPECT_EQ(fixtures::unsignedsOf(set.getCoordIndexList()), (std::vector<std::uint32_t>{0, 1, 4294967295U}));
  ASSERT_NE(set.getNormalList(), nullptr);
  EXPECT_EQ(set.getNormalList()->getCount(), 0U);
  EXPECT_EQ(set.getNormalIndexList(), nullptr);
  EXPECT_TRUE(set.isDisplayListEnabled());
  ASSERT_NE(set.getState(0), nullptr);
  ASSERT_EQ(set.getState(0)->getTexCoordList().size(), 1U);
  EXPECT_TRUE(set.getState(0)->getTexCoordList()[0].isValid());
  const auto* material = dynamic_cast<const sglMaterial*>(set.getState(0)->getStatelets()[0].get());
  ASSERT_NE(material, nullptr);
  EXPECT_EQ(material->getFrontDiffuse(), (sglVec3<float>{0.5F, 0.25F, 0.75F}));
  EXPECT_EQ(material->getBackAlpha(), 0.25F);
  EXPECT_EQ(material->getFrontShininess(), 0.0F);
}

TEST(StageDocument, WithoutStatesThereIsNoState) {
  const auto stager = read(withDrawable(R"({"type": "sglTriangleSet", "texCoords": [0, 0]})"));
  EXPECT_EQ(drawableOf(*stager)->getState(0), nullptr);
  EXPECT_NE(drawableOf(*read(withDrawable(R"({"type": "sglTriangleSet", "states": []})")))->getState(0), nullptr);
}

TEST(StageDocument, ALeftOutAlphaIsZeroAndABackSideLeavesTheFrontNew) {
  const auto stager = read(withDrawable(R"({"type": "sglCube", "states": [{"type": "sglMaterial"},
      {"type": "sglMaterial", "side": 1029, "alpha": 0.5}, {"type": "sglMaterial", "colorMaterial": {"mode": 5634}}]})"));
  const sglStateletList& states = drawableOf(*stager)->getState(0)->getStatelets();
  EXPECT_EQ(dynamic_cast<const sglMaterial&>(*states[0]).getFrontAlpha(), 0.0F);
  EXPECT_EQ(dynamic_cast<const sglMaterial&>(*states[1]).getFrontAlpha(), 1.0F);
  EXPECT_EQ(dynamic_cast<const sglMaterial&>(*states[1]).getBackAlpha(), 0.5F);
  EXPECT_TRUE(dynamic_cast<const sglMaterial&>(*states[2]).isColorMaterial());
  EXPECT_EQ(dynamic_cast<const sglMaterial&>(*states[2]).getColorMaterialMode(), 5634U);
}

TEST(StageDocument, ErrorsNameTheKeyAndItsPlace) {
  struct Row {
    std::string text;
    const char* message;
  };
  const Row rows[] = {
      {R"({"colour": 1})", "/colour: unknown key \"colour\""},
      {R"({"viewport": 1})", "/viewport: true or false is expected, not a number"},
      {R"({"viewport": true, "viewport": true})", "/viewport: the key \"viewport\" comes twice"},
      {R"({"camera": {"fow": 1}})", "/camera/fow: unknown key \"fow\""},
      {R"({"camera": {"frame": [1]}})", "/camera/frame: a list of 16 numbers is expected"},
      {R"({"views": [{"name": 5}]})", "/views/0/name: a text is expected, not a number"},
      {R"({"background": {"color": [0, 0, 256]}})", "/background/color/2: a whole number from 0 to 255 is expected"},
      {R"({"background": {"color": [0, 0]}})", "/background/color: a list of 3 numbers is expected"},
      {R"({"background": null})", "/background: an object is expected, not null"},
      {R"({"assembly": {"type": "group"}})", "/assembly: the assembly's type is not \"root\""},
      {R"({"assembly": {}})", "/assembly: the key \"type\" is missing"},
      {R"({"assembly": {"type": "root", "visible": true}})", "/assembly: unknown key \"visible\" of type \"root\""},
      {R"({"assembly": {"type": "root", "children": [null, {"type": "cone"}]}})",
       "/assembly/children/1: unknown type \"cone\""},
      {R"({"assembly": {"type": "root", "children": [{"type": "plainGroup", "matrix": [1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1]}]}})",
       "/assembly/children/0: unknown key \"matrix\" of type \"plainGroup\""},
      {R"({"assembly": {"type": "root", "children": {}}})", "/assembly/children: a list is expected, not an object"},
      {withMesh(R"(, "geode": {"geometry": []})"), "/assembly/children/0/geode/geometry: unknown key \"geometry\""},
      {withMesh(R"(, "mapPath": "wood\u0000.jpg")"),
       "/assembly/children/0/mapPath: a path without a zero character is expected"},
      {withMesh(R"(, "name": "a", "name": "b")"), "/assembly/children/0/name: the key \"name\" comes twice"},
      {withDrawable(R"({"type": "sglCube", "coords": []})"),
       "/assembly/children/0/geode/geometries/0: unknown key \"coords\" of type \"sglCube\""},
      {withDrawable(R"({"type": "sglTriangleSet", "coords": [1, "2"]})"),
       "/assembly/children/0/geode/geometries/0/coords/1: a number is expected, not a text"},
      {withDrawable(R"({"type": "sglIndexedTriangleSet", "coordIndex": [-1]})"),
       "/assembly/children/0/geode/geometries/0/coordIndex/0: a whole number from 0 to 4294967295 is expected"},
      {withDrawable(R"({"type": "sglCube", "states": [{"type": "sglLighting", "mode": 1}]})"),
       "/assembly/children/0/geode/geometries/0/states/0: unknown key \"mode\" of type \"sglLighting\""},
      {withDrawable(R"({"type": "sglCube", "states": [{"type": "sglFog"}]})"),
       "/assembly/children/0/geode/geometries/0/states/0: unknown type \"sglFog\""},
      {withDrawable(R"({"type": "sglCube", "states": [null]})"),
       "/assembly/children/0/geode/geometries/0/states/0: an object is expected, not null"},
      {R"({ "assembly": )", "/assembly: the text ends where a value is expected"},
      {"[]", "/: an object is expected, not a list"},
      {"{} x", "/: something stands behind the document"},
  };
  for (const Row& row : rows) {
    StageError error;
    EXPECT_EQ(embedded::readStageDocument(row.text, "", error), nullptr) << row.text;
    EXPECT_EQ(error.text, row.message) << row.text;
    EXPECT_EQ(error.line, 1U);
  }
}

TEST(StageDocument, WhatIsWrittenReadsBackAndIsWrittenAlike) {
  const std::string text = R"({"assembly":
{"type":"root","name":"model","matrix":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1],"children":[
null,
{"type":"plainGroup","name":"p \"q\"","children":[
{"type":"group","name":"","matrix":[0.1,0,0,0,0,1,0,0,0,0,1,0,1,2,3,1],"children":[]}]},
{"type":"mesh","name":"m","visible":false,"geode":{"geometries":[null,{"type":"sglTriangleSet","numPrims":1,"coords":[0,0,0],"displayList":false},{"type":"sglIndexedTriangleStripSet","numPrims":1,"coords":[null,0.25,1e+20],"normals":[0,0,1],"texCoords":[0,1],"colors":[1,1,1,1],"coordIndex":[0,0,0],"normalIndex":[0,0,0],"colorIndex":[0,0,0],"texCoordIndex":[0,0,0],"normalBinding":3,"colorBinding":1,"primLengths":[3],"displayList":true,"states":[{"type":"sglLighting","on":false},{"type":"sglMaterial","diffuse":[1,0.5,0.25],"ambient":[0,0,0],"specular":[0,0,0],"shininess":64,"alpha":0.5,"side":1032},{"type":"sglMaterial","colorMaterial":{"side":1032,"mode":5634}},{"type":"sglTexture2D","wrapS":1,"wrapT":0,"minFilter":9987,"magFilter":9729,"autoMipmap":true,"internalFormat":6407,"compressionLevel":3},{"type":"sglTexEnv","mode":8448},{"type":"sglTransparency","on":true,"mode":0},{"type":"sglAlphaTest","func":516,"ref":0.5},{"type":"sglCullMode","mode":1},{"type":"sglFrontFace","mode":2304}]},{"type":"sglMonoIndexedTriangleStripSet","numPrims":1,"coords":[],"normals":[],"coordIndex":[],"primLengths":[],"displayList":false,"states":[]},{"type":"sglCube","size":[1,2,3],"displayList":false},{"type":"sglCone","segments":60,"height":2,"radius":1,"colors":[1,1,1,1],"colorBinding":1,"displayList":false},{"type":"sglCylinder","around":80,"along":10,"height":2,"bottomRadius":1,"topRadius":0.5,"capped":true,"displayList":false},{"type":"sglSphere","around":100,"poleToPole":30,"radius":1,"displayList":false}]},"mapPath":"maps\\wood.png","texture":{"repeatS":true,"repeatT":false,"matrix":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1]}},
{"type":"actor","name":"a","visible":true,"geode":null,"texture":{"repeatS":false,"repeatT":false,"matrix":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1],"image":false}}]},
"viewport":true,
"camera":{"perspective":true,"fov":0.785398,"frame":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,10,1]},
"views":[
null,
{"name":"Front","frame":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,10,1],"perspective":true,"fov":0.785398},
{"name":"none","properties":false}],
"background":{"color":[255,128,0],"floor":[0,1,2]}}
)";
  EXPECT_EQ(written(*read(text)), text);
}

TEST(StageDocument, WhatIsMissingIsWrittenAsNoneOrNull) {
  const std::string noViewport = "{\"assembly\":null,\n\"viewport\":false,\n\"views\":null}\n";
  EXPECT_EQ(written(*read(noViewport)), noViewport);
  const std::string noCamera =
      "{\"assembly\":null,\n\"viewport\":true,\n\"camera\":null,\n\"views\":[],\n\"background\":{\"color\":[0,0,0],"
      "\"floor\":[0,"
      "0,0]}}\n";
  EXPECT_EQ(written(*read(noCamera)), noCamera);
}

TEST(StageDocument, DeepTreesAreReadAndWrittenOnAnOrdinaryStack) {
  const std::size_t depth = 100'000;
  std::string text = "{\"assembly\":{\"type\":\"root\",\"children\":[";
  for (std::size_t i = 0; i < depth; ++i) text += "{\"type\":\"group\",\"children\":[";
  const std::string cut = text;
  for (std::size_t i = 0; i <= depth; ++i) text += "]}";
  text += "}";
  const auto stager = read(text);
  EXPECT_GT(written(*stager).size(), text.size());
  StageError error;
  EXPECT_EQ(embedded::readStageDocument(cut, "", error), nullptr);
  EXPECT_EQ(error.text.substr(0, 4), ".../");
}

TEST(StageDocument, EveryCutOffIsRefused) {
  const std::string text = written(*read(withDrawable(R"({"type": "sglTriangleSet", "coords": [1], "states": [{"type":
      "sglTexEnv", "mode": 7}]})")));
  for (std::size_t length = 0; length + 2 < text.size(); ++length) {
    StageError error;
    EXPECT_EQ(embedded::readStageDocument(std::string_view(text).substr(0, length), "", error), nullptr) << length;
    EXPECT_FALSE(error.text.empty());
  }
}

TEST(StageDocument, FilesAreReadWithTheirFolder) {
  const fixtures::TempFolder folder;
  folder.write("sub/stage.json", withMesh(R"(, "mapPath": "a.png")"));
  StageError error;
  const auto stager = embedded::readStageFile(folder.path("sub/stage.json"), error);
  ASSERT_NE(stager, nullptr) << error.text;
  EXPECT_EQ(embedded::propertyOf<CVekPropPath>(actorOf(*stager).GetProperties(), embedded::kMapPath)->GetValue(),
            folder.path("sub/a.png"));
  for (const std::string& path : {folder.path("missing.json"), folder.path("sub")}) {
    EXPECT_EQ(embedded::readStageFile(path, error), nullptr);
    EXPECT_EQ(error.line, 0U);
    EXPECT_EQ(error.text, "the file cannot be read");
  }
  folder.write("empty.json", "");
  EXPECT_EQ(embedded::readStageFile(folder.path("empty.json"), error), nullptr);
  EXPECT_EQ(error.line, 1U);
}

}  // namespace
