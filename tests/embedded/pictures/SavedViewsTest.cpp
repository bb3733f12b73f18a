#include "embedded/pictures/SavedViews.h"

#include <gtest/gtest.h>

#include "embedded/StageDocument.h"

namespace embedded {
namespace {

std::unique_ptr<CVekStager> stagerWith(const std::string& views) {
  StageError error;
  auto stager = readStageDocument("{\"assembly\": null, \"views\": " + views + "}", "", error);
  EXPECT_NE(stager, nullptr) << error.text;
  return stager;
}

const char* const kFrame = "\"frame\": [1,0,0,0, 0,0,1,0, 0,-1,0,0, 0,-10,0,1]";  // from the front

PictureBox unitBox() {
  PictureBox box;
  box.include({-1, -1, -1});
  box.include({1, 1, 1});
  return box;
}

TEST(SavedViews, are_those_that_say_where_they_look_from) {
  const auto stager =
      stagerWith(std::string("[null, {\"name\": \"nowhere\"}, {\"name\": \"bare\", \"properties\": false},") +
                 "{\"name\": \"A\", " + kFrame + "}, {\"name\": \"B\", " + kFrame + "}]");
  const std::vector<SavedView> views = savedViews(*stager);
  ASSERT_EQ(views.size(), 2U);
  EXPECT_EQ(views[0].name, "A");
  EXPECT_EQ(views[1].name, "B");
  EXPECT_TRUE(savedViews(*stagerWith("null")).empty());
}

TEST(SavedViews, give_their_own_eye_and_field_of_view) {
  const auto stager = stagerWith(std::string("[{\"name\": \"A\", \"perspective\": true, \"fov\": 0.5, ") + kFrame +
                                 "}, {\"name\": \"B\", " + kFrame +
                                 "}, {\"name\": \"C\", \"perspective\": true, \"fov\": 9, " + kFrame + "}]");
  const std::vector<SavedView> views = savedViews(*stager);
  const PictureCamera camera = cameraOf(*views[0].view, unitBox(), 1.0);
  EXPECT_TRUE(camera.isPerspective);
  EXPECT_NEAR(camera.fovRadians, 0.5, 1e-6);
  EXPECT_EQ(camera.eye, glm::dvec3(0, -10, 0));
  EXPECT_EQ(camera.axes.back, glm::dvec3(0, -1, 0));
  EXPECT_EQ(camera.axes.up, glm::dvec3(0, 0, 1));
  EXPECT_NEAR(cameraOf(*views[1].view, unitBox(), 1.0).fovRadians, 0.785398, 1e-6);
  EXPECT_NEAR(cameraOf(*views[2].view, unitBox(), 1.0).fovRadians, 0.785398, 1e-6);
}

TEST(SavedViews, see_all_of_the_model_without_perspective) {
  const auto stager = stagerWith(std::string("[{\"name\": \"A\", \"perspective\": false, ") + kFrame + "}]");
  const PictureCamera camera = cameraOf(*savedViews(*stager)[0].view, unitBox(), 2.0);
  EXPECT_FALSE(camera.isPerspective);
  EXPECT_NEAR(camera.span, 2.0 * 1.06, 1e-9);
  EXPECT_EQ(camera.axes.back, glm::dvec3(0, -1, 0));
}

TEST(SavedViews, look_from_the_usual_direction_when_their_axes_are_none) {
  const auto stager = stagerWith("[{\"name\": \"A\", \"frame\": [0,0,0,0, 0,0,0,0, 0,0,0,0, 1,2,3,1]}]");
  const EyeAxes axes = axesOf(*savedViews(*stager)[0].view);
  EXPECT_EQ(axes.back, axesOf(defaultDirection()).back);
}

}  // namespace
}  // namespace embedded
