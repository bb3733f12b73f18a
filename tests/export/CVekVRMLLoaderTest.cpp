// The frame of the file, the walk over the assembly, and what the host hears meanwhile.

#include "export/CVekVRMLLoader.h"

#include <VekSG/sglCube.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "embedded/LoaderSettings.h"
#include "tests/TempFolder.h"
#include "tests/export/CommaLocale.h"
#include "tests/export/Scene.h"
#include "tests/export/Written.h"

namespace {

using exporter_test::geoSet;
using exporter_test::group;
using exporter_test::kHead;
using exporter_test::kIdentityPlacement;
using exporter_test::kTriangleShape;
using exporter_test::mesh;
using exporter_test::written;
using fixtures::contentOf;
using fixtures::TempFolder;

static_assert(!std::is_polymorphic_v<CVekVRMLLoader>);
static_assert(std::is_copy_constructible_v<CVekVRMLLoader> && std::is_copy_assignable_v<CVekVRMLLoader>);

struct Export {
  long primitiveCount;
  std::string text;
};

Export exported(CVekAssyNode* root) {
  const TempFolder folder;
  CVekVRMLLoader writer;
  const long primitiveCount = writer.WriteSceneGraph(folder.path("out.wrl"), root);
  EXPECT_EQ(errno, 0);
  return {primitiveCount, contentOf(folder.path("out.wrl"))};
}

/// The text between the head and the end of the file.
std::string bodyOf(CVekAssyNode* root) {
  const std::string text = exported(root).text;
  const std::size_t headSize = std::string(kHead).size();
  EXPECT_EQ(text.substr(0, headSize), kHead);
  EXPECT_EQ(text.substr(text.size() - 3), "]}\n");
  return text.substr(headSize, text.size() - 3 - headSize);
}

CVekActorMesh* triangle() { return mesh({geoSet().release()}).release(); }

std::string transform(const std::string& name, const std::string& content) {
  return "DEF " + name + " Transform {\n" + kIdentityPlacement + content + "]}\n";
}

TEST(CVekVRMLLoader, ARootWithoutChildrenIsAnEmptyFrame) {
  CVekAssyRoot root;
  const auto [primitiveCount, text] = exported(&root);
  EXPECT_EQ(text, std::string(kHead) + "]}\n");
  EXPECT_EQ(primitiveCount, 0);
}

TEST(CVekVRMLLoader, HeadAndEndAreOperationsOfTheirOwn) {
  CVekVRMLLoader writer;
  writer.Head(nullptr);
  writer.End(nullptr);
  EXPECT_EQ(written([&](std::FILE* file) { writer.Head(file); }), kHead);
  EXPECT_EQ(written([&](std::FILE* file) { writer.End(file); }), "]}\n");
}

TEST(CVekVRMLLoader, TheRootIsNeverWrapped) {
  const auto root = group<CVekAssyRoot>("model", {triangle()});
  root->SetMatLocalToParent({{0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 5, 6, 7, 1}});
  EXPECT_EQ(bodyOf(root.get()), kTriangleShape);
  const auto outer = group<CVekAssyRoot>("outer", {group<CVekAssyRoot>("inner", {triangle()}).release()});
  EXPECT_EQ(bodyOf(outer.get()), kTriangleShape) << "a root within the tree";
}

TEST(CVekVRMLLoader, GroupsNestAndPlainGroupsLeaveNoTrace) {
  const auto root = group<CVekAssyRoot>(
      "model",
      {group<CVekKAssyGroup>("a", {triangle(), group<CVekKAssyGroup>("b").release()}).release(),
       group<CVekAssyGroup>("plain", {group<CVekKAssyGroup>("c", {triangle()}).release(), triangle()}).release()});
  EXPECT_EQ(bodyOf(root.get()),
            transform("a", kTriangleShape + transform("b", "")) + transform("c", kTriangleShape) + kTriangleShape);
}

TEST(CVekVRMLLoader, TheWalkMayBeginAnywhere) {
  const auto part = group<CVekKAssyGroup>("part", {triangle()});
  EXPECT_EQ(bodyOf(part.get()), transform("part", kTriangleShape));
  const std::unique_ptr<CVekActorMesh> actor(triangle());
  EXPECT_EQ(bodyOf(actor.get()), kTriangleShape);
}

TEST(CVekVRMLLoader, GroupNamesAreMadeLegalAndMayBeEqual) {
  const auto root =
      group<CVekAssyRoot>("", {group<CVekKAssyGroup>("3D-Part.1").release(), group<CVekKAssyGroup>("").release(),
                               group<CVekKAssyGroup>("USE").release(), group<CVekKAssyGroup>("a b").release(),
                               group<CVekKAssyGroup>("a_b").release(), group<CVekKAssyGroup>("50%d").release()});
  std::string expected;
  for (const char* name : {"_D_Part_1", "no_name", "_USE", "a_b", "a_b", "50%d"}) expected += transform(name, "");
  // Only the first byte is tested for a digit.
  EXPECT_EQ(bodyOf(root.get()), expected.replace(expected.find("50%d"), 1, "_"));
  EXPECT_EQ((*root->GetChilds().begin())->GetName(), "3D-Part.1") << "the host's name is not changed";
}

TEST(CVekVRMLLoader, PlacementsAreTakenApart) {
  auto part = group<CVekKAssyGroup>("m");
  part->SetMatLocalToParent({{-2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 5, 6.5F, 1}});
  EXPECT_EQ(bodyOf(part.get()),
            "DEF m Transform {\ncenter 0.0 0.0 0.0 rotation 1.000000 0.000000 0.000000 0.000000 scale -2.000000 "
            "1.000000 1.000000 translation 4.000000 5.000000 6.500000 \nchildren[\n]}\n");
}

TEST(CVekVRMLLoader, OnlyMeshesThatShowAreExported) {
  CVekActorMesh* const hidden = triangle();
  hidden->SetDisplayed(false);
  const auto root = group<CVekAssyRoot>(
      "", {hidden, mesh<CVekActor>({geoSet().release()}).release(), new CVekActorMesh, nullptr, triangle()});
  const auto [primitiveCount, text] = exported(root.get());
  EXPECT_EQ(text, std::string(kHead) + kTriangleShape + "]}\n");
  EXPECT_EQ(primitiveCount, 1);
}

TEST(CVekVRMLLoader, AGroupThatIsHiddenStillShowsItsChildren) {
  const auto root = group<CVekKAssyGroup>("g", {triangle()});
  root->SetDisplayed(false);
  EXPECT_EQ(bodyOf(root.get()), transform("g", kTriangleShape));
}

TEST(CVekVRMLLoader, EachGeometryIsAShapeOfItsOwn) {
  const auto actor = mesh({geoSet().release(), nullptr, new sglCube(1, 1, 1), geoSet().release()});
  EXPECT_EQ(bodyOf(actor.get()), std::string(kTriangleShape) + kTriangleShape);
}

TEST(CVekVRMLLoader, AGeometryWithoutStateStandsWithoutItsShape) {
  auto* const set = new sglIndexedTriangleSet;
  set->setNumPrims(1);
  set->setCoordList(new sglDataPtr(exporter_test::Floats{0, 0, 0, 1, 0, 0, 0, 1, 0}));
  set->setCoordIndexList(new sglDataPtr(exporter_test::Indices{0, 1, 2}));
  const std::string shape = kTriangleShape;
  EXPECT_EQ(bodyOf(mesh({set}).get()), shape.substr(shape.find("geometry")));
}

/// A geo-set of a kind that is not exported.
class PointSet : public sglGeoSet {
 public:
  PointSet() { setState(0, {}); }
  [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_OTHER; }
};

TEST(CVekVRMLLoader, PrimitivesOfUnsupportedKindsAreCounted) {
  auto* const points = new PointSet;
  points->setNumPrims(4000000000U);
  const auto actor = mesh({points, geoSet({.primCount = 5}).release(), new sglCube(1, 1, 1)});
  const auto [primitiveCount, text] = exported(actor.get());
  EXPECT_EQ(primitiveCount, 4000000005L);
  EXPECT_EQ(text, std::string(kHead) + kTriangleShape + "]}\n");
}

TEST(CVekVRMLLoader, ASetWithoutPrimitivesOpensNoShape) {
  EXPECT_EQ(bodyOf(mesh({geoSet({.primCount = 0}).release()}).get()), "");
}

TEST(CVekVRMLLoader, AllFourKindsAreWritten) {
  const auto actor =
      mesh({geoSet<sglTriangleSet>().release(), geoSet<sglMonoIndexedTriangleStripSet>({.lengths = {3}}).release(),
            geoSet<sglIndexedTriangleStripSet>({.lengths = {3}}).release(), geoSet<sglIndexedTriangleSet>().release()});
  const std::string shape = kTriangleShape;
  EXPECT_EQ(bodyOf(actor.get()), shape + shape + shape + shape);
}

TEST(CVekVRMLLoader, AKindThatIsNotWhatItSaysWritesNoGeometry) {
  class Impostor : public PointSet {
    [[nodiscard]] PrimTypeEnum getPrimType() const override { return PRIM_INDEXED_TRIANGLE_SET; }
  };
  auto* const impostor = new Impostor;
  impostor->setNumPrims(1);
  const std::string shape = kTriangleShape;
  EXPECT_EQ(bodyOf(mesh({impostor}).get()), shape.substr(0, shape.find("geometry")));
}

TEST(CVekVRMLLoader, TreesOfAnyDepth) {
  // A call for each level would not fit on the stack.
  constexpr int kDepth = 300000;
  CVekAssyRoot root;
  CVekAssyGroup* parent = &root;
  for (int i = 0; i < kDepth; ++i) {
    CVekAssyGroup* child = i % 100 == 0 ? new CVekKAssyGroup : new CVekAssyGroup;
    parent->AddChild(child);
    parent = child;
  }
  parent->AddChild(triangle());
  const auto [primitiveCount, text] = exported(&root);
  EXPECT_EQ(primitiveCount, 1);
  std::size_t openings = 0;
  for (std::size_t at = 0; (at = text.find("DEF no_name Transform", at)) != std::string::npos; ++at) ++openings;
  EXPECT_EQ(openings, kDepth / 100);
  EXPECT_NE(text.find(kTriangleShape), std::string::npos);
}

TEST(CVekVRMLLoader, WithoutARootThereIsNoFile) {
  const TempFolder folder;
  EXPECT_EQ(CVekVRMLLoader().WriteSceneGraph(folder.path("out.wrl"), nullptr), 0);
  EXPECT_NE(errno, 0);
  EXPECT_FALSE(std::filesystem::exists(folder.path("out.wrl")));
}

TEST(CVekVRMLLoader, AFileThatCannotBeOpenedWritesNothing) {
  const TempFolder folder;
  const std::unique_ptr<CVekActorMesh> actor(triangle());
  exporter_test::setMapPath(*actor, "wood.jpg");
  CVekVRMLLoader writer;
  writer.SetFileName(folder.path("nosuch/out.wrl"));
  EXPECT_EQ(writer.WriteSceneGraph(folder.path("nosuch/out.wrl"), actor.get()), 0);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_FALSE(std::filesystem::exists(folder.path("nosuch")));
}

TEST(CVekVRMLLoader, AnExistingFileIsReplaced) {
  const TempFolder folder;
  fixtures::writeFile(folder.path("out.wrl"), std::string(100000, 'x'));
  CVekAssyRoot root;
  CVekVRMLLoader().WriteSceneGraph(folder.path("out.wrl"), &root);
  EXPECT_EQ(contentOf(folder.path("out.wrl")), std::string(kHead) + "]}\n");
}

TEST(CVekVRMLLoader, AFullDiskIsReported) {
  CVekAssyRoot small;
  EXPECT_EQ(CVekVRMLLoader().WriteSceneGraph("/dev/full", &small), 0);
  EXPECT_EQ(errno, ENOSPC) << "found out when the file is closed";
  const auto large = mesh({geoSet({.primCount = 200000, .coordIndices = exporter_test::Indices(600000)}).release()});
  EXPECT_EQ(CVekVRMLLoader().WriteSceneGraph("/dev/full", large.get()), 200000);
  EXPECT_EQ(errno, ENOSPC) << "found out on the way";
}

TEST(CVekVRMLLoader, CopiesAreIndependent) {
  CVekStager stager;
  stager.GetViewportManager()->SetViewportSelected(std::make_unique<CVekViewport>());
  const TempFolder folder;
  for (const char* name : {"a", "b"}) std::filesystem::create_directory(folder.path(name));
  fixtures::writeFile(folder.path("wood.jpg"), "picture");

  CVekVRMLLoader original;
  original.SetStager(&stager);
  original.SetFileName(folder.path("a/out.wrl"));
  CVekVRMLLoader copy(original);
  CVekVRMLLoader assigned;
  assigned = original;
  original.SetStager(nullptr);
  original.SetFileName(folder.path("b/out.wrl"));

  const auto backgroundOf = [](CVekVRMLLoader& writer) {
    return written([&writer](std::FILE* file) { writer.AddBackground(file); });
  };
  EXPECT_EQ(backgroundOf(original), "");
  EXPECT_NE(backgroundOf(copy), "");
  EXPECT_NE(backgroundOf(assigned), "");

  CVekActorMesh actor;
  exporter_test::setMapPath(actor, folder.path("wood.jpg"));
  const auto set = geoSet();
  written([&](std::FILE* file) { copy.WriteAttributes(file, &actor, set.get(), ""); });
  EXPECT_TRUE(std::filesystem::exists(folder.path("a/Textures/wood.jpg")));
  EXPECT_FALSE(std::filesystem::exists(folder.path("b/Textures")));
}

TEST(CVekVRMLLoader, TheLocaleDoesNotMatter) {
  auto part = group<CVekKAssyGroup>("part", {triangle()});
  part->SetMatLocalToParent({{1234.5F, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 98765.25F, 0, 0, 1}});
  const std::string expected = bodyOf(part.get());
  const exporter_test::CommaLocale locale;
  ASSERT_TRUE(locale.isSet());
  EXPECT_EQ(bodyOf(part.get()), expected);
  EXPECT_NE(expected.find(" scale 1234.500000 "), std::string::npos);
}

/// What the host's progress callback heard.
class Progress {
 public:
  Progress() {
    s_heard.clear();
    embedded::loaderSettings().progress = hear;
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { embedded::resetLoaderSettings(); }

  struct Report {
    float fraction;
    std::string text;
    bool operator==(const Report&) const = default;
  };
  static void hear(float fraction, const char* text) { s_heard.push_back({fraction, text}); }
  [[nodiscard]] static const std::vector<Report>& heard() { return s_heard; }

 private:
  static inline std::vector<Report> s_heard;
};

TEST(CVekVRMLLoader, ProgressIsWrittenActorsOverAllActors) {
  const Progress progress;
  std::vector<CVekAssyNode*> actors(7);
  for (CVekAssyNode*& actor : actors) actor = triangle();
  // Counted below, never reported: not a mesh, hidden, and without a geode.
  CVekActorMesh* const hidden = triangle();
  hidden->SetDisplayed(false);
  const auto root = group<CVekAssyRoot>(
      "", {group<CVekKAssyGroup>("g", actors).release(), mesh<CVekActor>({}).release(), hidden, new CVekActorMesh});
  exported(root.get());
  std::vector<Progress::Report> expected = {{0.0F, ""}};
  for (int i = 1; i <= 7; ++i) expected.push_back({static_cast<float>(i) / 10.0F, std::to_string(i) + " / 10"});
  expected.push_back({1.0F, ""});
  EXPECT_EQ(Progress::heard(), expected);
  EXPECT_EQ(Progress::heard()[3], (Progress::Report{0.3F, "3 / 10"}));
}

TEST(CVekVRMLLoader, ProgressStartsAnewWithEachExport) {
  const Progress progress;
  const TempFolder folder;
  const auto root = group<CVekAssyRoot>("", {triangle()});
  CVekVRMLLoader writer;
  writer.WriteSceneGraph(folder.path("a.wrl"), root.get());
  const std::vector<Progress::Report> first = Progress::heard();
  writer.WriteSceneGraph(folder.path("b.wrl"), root.get());
  EXPECT_EQ(Progress::heard().size(), 2 * first.size());
  EXPECT_EQ(Progress::heard()[4], (Progress::Report{1.0F, "1 / 1"}));
}

TEST(CVekVRMLLoader, TheRootItselfIsNotCounted) {
  const Progress progress;
  const std::unique_ptr<CVekActorMesh> actor(triangle());
  exported(actor.get());
  EXPECT_EQ(Progress::heard()[1], (Progress::Report{std::numeric_limits<float>::infinity(), "1 / 0"}));
}

TEST(CVekVRMLLoader, NobodyHearsOfAFileThatCannotBeOpened) {
  const Progress progress;
  const TempFolder folder;
  CVekAssyRoot root;
  CVekVRMLLoader().WriteSceneGraph(folder.path("nosuch/out.wrl"), &root);
  EXPECT_TRUE(Progress::heard().empty());
}

TEST(CVekVRMLLoader, ActorsAreCountedBeforeTheFirstReportAndVisitedAfterIt) {
  const Progress progress;
  static CVekAssyGroup* growing = nullptr;
  const auto root = group<CVekAssyRoot>("", {triangle()});
  growing = root.get();
  embedded::loaderSettings().progress = [](float fraction, const char* text) {
    if (Progress::heard().empty()) growing->AddChild(triangle());
    Progress::hear(fraction, text);
  };
  EXPECT_EQ(bodyOf(root.get()), std::string(kTriangleShape) + kTriangleShape);
  EXPECT_EQ(Progress::heard(),
            (std::vector<Progress::Report>{{0.0F, ""}, {1.0F, "1 / 1"}, {2.0F, "2 / 1"}, {1.0F, ""}}));
}

TEST(CVekVRMLLoader, ViewsAndBackgroundComeAfterTheLastReport) {
  const Progress progress;
  static CVekStager* stager = nullptr;
  CVekStager host;
  stager = &host;
  embedded::loaderSettings().progress = [](float fraction, const char*) {
    if (fraction == 1.0F) stager->GetViewportManager()->SetViewportSelected(std::make_unique<CVekViewport>());
  };
  const TempFolder folder;
  CVekAssyRoot root;
  CVekVRMLLoader writer;
  writer.SetStager(&host);
  writer.WriteSceneGraph(folder.path("out.wrl"), &root);
  EXPECT_NE(contentOf(folder.path("out.wrl")).find("]}\nDEF browns Background {"), std::string::npos);
}

TEST(CVekVRMLLoader, ChildrenThatComeDuringTheWalkAreNotVisited) {
  static CVekAssyGroup* growing = nullptr;
  const auto root = group<CVekAssyRoot>("", {triangle(), triangle()});
  growing = root.get();
  embedded::loaderSettings().progress = [](float, const char* text) {
    if (*text != '\0') growing->AddChild(triangle());
  };
  const std::string body = bodyOf(root.get());
  embedded::resetLoaderSettings();
  EXPECT_EQ(body, std::string(kTriangleShape) + kTriangleShape);
  EXPECT_EQ(root->GetChilds().size(), 4U);
}

}  // namespace
