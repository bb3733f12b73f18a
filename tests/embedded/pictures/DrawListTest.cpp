#include "embedded/pictures/DrawList.h"

#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekKAssyGroup.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTransparency.h>
#include <gtest/gtest.h>

#include <cmath>

#include "embedded/Matrix.h"
#include "embedded/StageProperties.h"
#include "embedded/images/ImageFile.h"
#include "tests/TempFolder.h"
#include "tests/embedded/SceneFixtures.h"

namespace embedded {
namespace {

template <class Group>
std::unique_ptr<Group> groupOf(std::vector<sglNode*> children) {
  auto group = std::make_unique<Group>();
  for (sglNode* child : children) group->addChild(child, true);
  return group;
}

sglNode* triangleAt(float x) {
  return fixtures::placed(fixtures::translation(x, 0, 0), fixtures::triangleGeode()).release();
}

// Where each item's origin stands along x.
std::vector<double> placesOf(const DrawList& list) {
  std::vector<double> places;
  for (const DrawItem& item : list.items()) places.push_back(list.placements()[item.placement].world[3].x);
  return places;
}

TEST(DrawList, takes_the_finest_level_and_the_selected_choice) {
  const auto lod = groupOf<sglLOD>({triangleAt(1), triangleAt(2)});
  DrawList levels(Onlooker(), false);
  levels.addScene(lod.get());
  EXPECT_EQ(placesOf(levels), (std::vector<double>{1}));

  const auto choices = groupOf<sglSwitch>({triangleAt(1), triangleAt(2), triangleAt(3)});
  const struct {
    std::int32_t selected;
    std::vector<double> shown;
  } kRows[] = {{0, {1}}, {2, {3}}, {sglSwitch::SELECT_NONE, {}}, {sglSwitch::SELECT_ALL, {1, 2, 3}}, {7, {}}};
  for (const auto& row : kRows) {
    choices->setSelectedChild(row.selected);
    DrawList list(Onlooker(), false);
    list.addScene(choices.get());
    EXPECT_EQ(placesOf(list), row.shown) << row.selected;
  }
}

TEST(DrawList, gives_drawables_of_equal_states_one_look) {
  auto geode = std::make_unique<sglGeode>();
  for (const float red : {1.0F, 0.5F, 1.0F}) {
    auto set = fixtures::triangle();
    const sglRef<sglMaterial> material(new sglMaterial);
    material->setDiffuse(red, 0, 0, sglMaterial::FRONT_AND_BACK);
    set->setState(0, {material});
    geode->addGeometry(set.release());
  }
  geode->addGeometry(nullptr);
  DrawList list(Onlooker(), false);
  list.addScene(geode.get());
  ASSERT_EQ(list.items().size(), 3U);
  EXPECT_EQ(list.looks().size(), 2U);
  EXPECT_EQ(list.items()[0].look, list.items()[2].look);
  EXPECT_EQ(list.placements().size(), 1U);
}

TEST(DrawList, leaves_out_what_cannot_be_seen) {
  const struct {
    float alpha;
    bool hasTransparencyOff;
    bool isThere;
  } kRows[] = {{0.0F, false, false}, {0.1F, false, true}, {1.0F, false, true}, {0.0F, true, true}};
  for (const auto& row : kRows) {
    auto set = fixtures::triangle();
    const sglRef<sglMaterial> material(new sglMaterial);
    material->setAlpha(row.alpha, sglMaterial::FRONT_AND_BACK);
    sglStateletList states{material};
    if (row.hasTransparencyOff) states.push_back(new sglTransparency(false, sglTransparency::BLEND));
    set->setState(0, states);
    const auto geode = fixtures::geodeOf(std::move(set));
    DrawList list(Onlooker(), false);
    list.addScene(geode.get());
    EXPECT_EQ(!list.items().empty(), row.isThere) << row.alpha;
    EXPECT_EQ(!list.bounds().isEmpty(), row.isThere) << row.alpha;
  }
}

TEST(DrawList, measures_primitives_and_leaves_out_what_is_not_finite) {
  const auto geode = fixtures::geodeOf(std::make_unique<sglCube>(2.0F, 3.0F, 4.0F));
  auto odd = fixtures::triangle();
  odd->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, -1, 0, 0, INFINITY, NAN, 0}));
  geode->addGeometry(odd.release());
  DrawList list(Onlooker(), false);
  EXPECT_TRUE(list.bounds().isEmpty());
  list.addScene(geode.get());
  const auto corners = list.bounds().corners();
  EXPECT_EQ(corners.front(), glm::dvec3(-1, 0, 0));
  EXPECT_EQ(corners.back(), glm::dvec3(2, 3, 4));
}

TEST(DrawList, turns_billboards_and_those_inside_them) {
  // Local z turns to the eye at the right; the inner one hangs at z = 1 of the outer one, one unit nearer to the eye.
  auto inner = groupOf<sglBillboard>({triangleAt(0)});
  auto held = fixtures::placed(fixtures::translation(0, 0, 1), std::move(inner));
  auto outer = groupOf<sglBillboard>({held.release()});
  const auto scene = fixtures::placed(fixtures::translation(10, 0, 0), std::move(outer));
  DrawList list({{1, 0, 0, 0}, {0, 1, 0}}, false);
  list.addScene(scene.get());
  EXPECT_TRUE(list.hasBillboards());
  ASSERT_EQ(list.items().size(), 1U);
  const glm::dmat4& world = list.placements()[0].world;
  EXPECT_NEAR(world[3].x, 11.0, 1e-9);
  EXPECT_NEAR(world[3].z, 0.0, 1e-9);
  EXPECT_NEAR(world[2].x, 1.0, 1e-9);  // z points to the eye
  EXPECT_NEAR(world[1].y, 1.0, 1e-9);
}

TEST(DrawList, shows_the_actors_of_an_assembly_that_are_displayed) {
  CVekKAssyGroup root;
  root.SetMatLocalToParent(fixtures::translation(5, 0, 0));
  for (const bool isShown : {true, false}) {
    auto mesh = std::make_unique<CVekActorMesh>();
    mesh->SetPresentable(fixtures::triangleGeode().release());
    mesh->SetMatLocalToParent(fixtures::translation(isShown ? 1.0F : 2.0F, 0, 0));
    mesh->SetDisplayed(isShown);
    root.AddChild(mesh.release());
  }
  root.AddChild(nullptr);
  DrawList list(Onlooker(), false);
  list.addAssembly(&root);
  list.addAssembly(nullptr);
  EXPECT_EQ(placesOf(list), (std::vector<double>{6}));
}

TEST(DrawList, reads_the_image_that_an_actor_names_when_it_may) {
  const fixtures::TempFolder folder;
  Raster raster;
  ASSERT_TRUE(makeRaster(2, 2, 3, raster));
  ASSERT_TRUE(writeImageFile(folder.path("a.png"), raster));
  CVekKAssyGroup root;
  auto mesh = std::make_unique<CVekActorMesh>();
  auto set = fixtures::triangle();
  set->setState(0, {}, sglTexCoords(new sglDataPtr(std::vector<float>{0, 0, 1, 0, 0, 1}), sglTexCoords::FLOAT, 2));
  mesh->SetPresentable(fixtures::geodeOf(std::move(set)).release());
  auto texture = std::make_unique<CVekTexture>();
  texture->SetTexture(new sglTexture2D);
  texture->SetTexMatrix(fixtures::scale(3, 4, 1));
  mesh->SetTexture(0, std::move(texture));
  mesh->GetProperties()->SetProperty(GetPropIDServer().GetID(kMapPath),
                                     std::make_unique<CVekPropPath>(folder.path("a.png")));
  root.AddChild(mesh.release());
  for (const bool readsImages : {true, false}) {
    DrawList list(Onlooker(), readsImages);
    list.addAssembly(&root);
    ASSERT_EQ(list.looks().size(), 1U);
    EXPECT_EQ(list.looks()[0].texture != nullptr, readsImages);
    if (readsImages) {
      EXPECT_EQ(list.looks()[0].texture->getWidth(), 2U);
    }
    EXPECT_EQ(list.placements()[0].texture, wideMatrix(fixtures::scale(3, 4, 1)));
  }
}

}  // namespace
}  // namespace embedded
