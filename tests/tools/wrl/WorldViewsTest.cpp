// Viewpoints of worlds as views of pages, in coordinates that have z up.

#include "tools/wrl/WorldViews.h"

#include <gtest/gtest.h>

#include <glm/geometric.hpp>

#include "tests/TempFolder.h"

namespace wrl {
namespace {

WorldViews viewsOf(const std::string& world, embedded::UpAxis up = embedded::UpAxis::Y, std::size_t most = 10) {
  const fixtures::TempFolder folder;
  vrml::SceneGraph scene;
  scene.load(folder.write("a.wrl", "#VRML V2.0 utf8\n" + world + "\n"), true);
  EXPECT_TRUE(scene.succeeded()) << scene.getErrorLineText();
  return worldViewsOf(scene, up, most);
}

void expectNear(const glm::dvec3& found, const glm::dvec3& wanted) {
  EXPECT_LT(glm::distance(found, wanted), 1e-6) << found.x << ' ' << found.y << ' ' << found.z;
}

TEST(WorldViews, have_the_first_title) {
  EXPECT_EQ(viewsOf("").title, "");
  EXPECT_EQ(
      viewsOf("WorldInfo { info \"x\" } Group { children WorldInfo { title \"T\" } } WorldInfo { title \"U\" }").title,
      "T");
}

TEST(WorldViews, stand_where_the_viewpoint_does) {
  const WorldViews world = viewsOf("Viewpoint { position 1 2 3 fieldOfView 0.5 }");
  ASSERT_EQ(world.views.size(), 1U);
  const embedded::PageView& view = world.views[0];
  expectNear(*view.eye, {1, -3, 2});
  expectNear(view.axes.back, {0, -1, 0});
  expectNear(view.axes.up, {0, 0, 1});
  expectNear(view.axes.right, {1, 0, 0});
  EXPECT_NEAR(view.fovRadians, 0.5, 1e-6);
  EXPECT_TRUE(view.isPerspective);
}

TEST(WorldViews, stand_upright_in_a_world_that_has_z_up) {
  const WorldViews world = viewsOf("Viewpoint { position 1 2 3 }", embedded::UpAxis::Z);
  expectNear(*world.views[0].eye, {1, 2, 3});
  expectNear(world.views[0].axes.back, {0, 0, 1});
}

TEST(WorldViews, are_moved_by_the_transforms_around_them) {
  const WorldViews world = viewsOf(
      "Transform { translation 10 0 0 scale 2 2 2 children Group { children\n"
      "Transform { rotation 0 1 0 1.5707963 children Viewpoint { position 0 0 1 orientation 1 0 0 -1.5707963 } } } }");
  ASSERT_EQ(world.views.size(), 1U);
  expectNear(*world.views[0].eye, {12, 0, 0});
  expectNear(world.views[0].axes.back, {0, 0, 1});
  expectNear(world.views[0].axes.up, {-1, 0, 0});
}

TEST(WorldViews, are_named_by_description_name_or_number) {
  const WorldViews world =
      viewsOf("Viewpoint { } DEF Gate Viewpoint { } DEF b Viewpoint { description \"From above\" }");
  ASSERT_EQ(world.views.size(), 3U);
  EXPECT_EQ(world.views[0].name, "Viewpoint 1");
  EXPECT_EQ(world.views[1].name, "Gate");
  EXPECT_EQ(world.views[2].name, "From above");
}

TEST(WorldViews, leave_out_what_is_no_place_and_what_is_too_many) {
  EXPECT_TRUE(viewsOf("Transform { scale 0 0 0 children Viewpoint { } }").views.empty());
  EXPECT_EQ(viewsOf("Viewpoint { orientation 0 0 0 1 fieldOfView -1 }").views.at(0).fovRadians, 0.78539816339744828);
  EXPECT_EQ(viewsOf("Viewpoint { } Viewpoint { } Viewpoint { }", embedded::UpAxis::Y, 2).views.size(), 2U);
  // Those that are left out count: each costs a walk over what is around it.
  const std::string nowhere = "Transform { scale 0 0 0 children [ Viewpoint { } Viewpoint { } ] }";
  EXPECT_TRUE(viewsOf(nowhere + " Viewpoint { }", embedded::UpAxis::Y, 2).views.empty());
}

}  // namespace
}  // namespace wrl
