// Viewpoints and background, as far as the host has cameras and views.

#include "export/SceneViews.h"

#include <VekFoundations/CVekPropNumerical.h>
#include <VekGeometry/CVekPropLocation.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "export/CVekVRMLLoader.h"
#include "tests/export/Scene.h"
#include "tests/export/Written.h"

namespace {

using exporter_test::written;

// Origin (0, 0, 10), looking along -z.
const sglMat4<float> kFrame = {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 10, 1}};

CVekCamera& selectCamera(CVekStager& stager) {
  auto viewport = std::make_unique<CVekViewport>();
  auto camera = std::make_unique<CVekCamera>();
  camera->SetMatLocalToParent(kFrame);
  CVekCamera& result = *camera;
  viewport->GetNavigator()->SetCamera(std::move(camera));
  stager.GetViewportManager()->SetViewportSelected(std::move(viewport));
  return result;
}

/// A view of that name, with those of the three properties that are asked for.
struct ViewParts {
  std::string name;
  bool hasLocation = true;
  std::unique_ptr<CVekProperty> perspective = std::make_unique<CVekProp<bool>>(true);
  std::unique_ptr<CVekProperty> fov = std::make_unique<CVekPropNumerical<float>>(0.5F);
};

std::unique_ptr<CVekView> view(ViewParts parts) {
  auto properties = std::make_unique<CVekPropertySet>();
  const auto set = [&properties](const char* name, std::unique_ptr<CVekProperty> property) {
    properties->SetProperty(GetPropIDServer().GetID(name), std::move(property));
  };
  CVekFrame frame;
  frame.SetMatLocalToGlobal(kFrame);
  if (parts.hasLocation) set("Navigator.Camera.Location", std::make_unique<CVekPropLocation>(CVekLocation(frame)));
  set("Navigator.Camera.Proj.Persp", std::move(parts.perspective));
  set("Navigator.Camera.Fov", std::move(parts.fov));
  auto result = std::make_unique<CVekView>();
  result->SetName(parts.name);
  result->SetNavigatorProperties(std::move(properties));
  return result;
}

std::string viewsOf(CVekStager& stager) {
  CVekVRMLLoader writer;
  writer.SetStager(&stager);
  return written([&writer](std::FILE* file) { writer.AddViews(file); });
}

std::string backgroundOf(CVekStager& stager) {
  CVekVRMLLoader writer;
  writer.SetStager(&stager);
  return written([&writer](std::FILE* file) { writer.AddBackground(file); });
}

/// A viewpoint at kFrame; `fov` is the text of its field of view, or nothing.
std::string viewpoint(const std::string& description, const std::string& fov) {
  return "Viewpoint { \ndescription\"" + description + "\"" + (fov.empty() ? "" : "\nfieldOfView " + fov + " ") +
         "\norientation 1.000000 0.000000 0.000000 0.000000 \nposition 0.000000 0.000000 10.000000 \n}\n";
}

const std::string kMain = viewpoint("Zentra Stager Main Camera", "0.785398");

TEST(SceneViews, TheMainCameraStandsFirstThenTheViewsInOrder) {
  CVekStager stager;
  selectCamera(stager);
  EXPECT_EQ(viewsOf(stager), "Group {\nchildren [" + kMain + "] \n}");
  stager.GetViewportManager()->AddView(view({.name = "Front"}));
  stager.GetViewportManager()->AddView(view({.name = "A"}));
  EXPECT_EQ(viewsOf(stager),
            "Group {\nchildren [" + kMain + viewpoint("Front", "0.500000") + viewpoint("A", "0.500000") + "] \n}");
}

TEST(SceneViews, WithoutAListOfViewsTheGroupStaysOpen) {
  CVekStager stager;
  selectCamera(stager);
  stager.GetViewportManager()->RemoveViewList();
  EXPECT_EQ(viewsOf(stager), "Group {\nchildren [" + kMain);
}

TEST(SceneViews, WithoutACameraThereAreNoViews) {
  CVekStager stager;
  EXPECT_EQ(viewsOf(stager), "") << "no viewport";
  stager.GetViewportManager()->SetViewportSelected(std::make_unique<CVekViewport>());
  stager.GetViewportManager()->AddView(view({.name = "Front"}));
  EXPECT_EQ(viewsOf(stager), "") << "no camera";
  EXPECT_EQ(written([](std::FILE* file) { CVekVRMLLoader().AddViews(file); }), "") << "no stager";
  CVekVRMLLoader writer;
  writer.SetStager(&stager);
  writer.AddViews(nullptr);
  writer.AddBackground(nullptr);
}

TEST(SceneViews, ViewsWithoutAPlaceAreSkipped) {
  CVekStager stager;
  selectCamera(stager);
  CVekViewportManager& manager = *stager.GetViewportManager();
  manager.AddView(nullptr);
  manager.AddView(view({.name = "kept"}));
  manager.AddView(std::make_unique<CVekView>());
  manager.AddView(view({.name = "nowhere", .hasLocation = false}));
  manager.AddView(view({.name = "last"}));
  EXPECT_EQ(viewsOf(stager),
            "Group {\nchildren [" + kMain + viewpoint("kept", "0.500000") + viewpoint("last", "0.500000") + "] \n}");
}

TEST(SceneViews, AnOrthographicCameraHasNoFieldOfView) {
  CVekStager stager;
  CVekCamera& camera = selectCamera(stager);
  camera.SetPerspective(false);
  EXPECT_EQ(viewsOf(stager), "Group {\nchildren [" + viewpoint("Zentra Stager Main Camera", "") + "] \n}");
}

TEST(SceneViews, TheFieldOfViewOfAViewNeedsBothProperties) {
  struct Row {
    const char* name;
    std::unique_ptr<CVekProperty> perspective;
    std::unique_ptr<CVekProperty> fov;
    const char* expected;
  };
  const auto flag = [](bool value) { return std::make_unique<CVekProp<bool>>(value); };
  const auto number = [](float value) { return std::make_unique<CVekPropNumerical<float>>(value); };
  Row rows[] = {
      {"perspective", flag(true), number(0.25F), "0.250000"},
      {"orthographic", flag(false), number(0.25F), ""},
      {"no projection", nullptr, number(0.25F), ""},
      {"a projection of another kind", number(1.0F), number(0.25F), ""},
      {"no field of view", flag(true), nullptr, ""},
      {"a field of view of another kind", flag(true), std::make_unique<CVekProp<float>>(0.25F), ""},
  };
  for (Row& row : rows) {
    CVekStager stager;
    selectCamera(stager);
    stager.GetViewportManager()->AddView(
        view({.name = "v", .perspective = std::move(row.perspective), .fov = std::move(row.fov)}));
    EXPECT_EQ(viewsOf(stager), "Group {\nchildren [" + kMain + viewpoint("v", row.expected) + "] \n}") << row.name;
  }
}

std::string viewText(const std::string& description, float fovRadians) {
  return written([&](std::FILE* file) {
    CVekVRMLLoader().WriteView(file, {0, 0, 10}, {0, 0, 1}, {0, 1, 0}, description, fovRadians);
  });
}

TEST(SceneViews, FieldsOfViewOutsideARightAngleAreLeftOut) {
  struct Row {
    float fovRadians;
    const char* expected;
  };
  const Row rows[] = {{0.785398F, "0.785398"},
                      {1.570796F, "1.570796"},
                      {1.5707964F, ""},
                      {1.6F, ""},
                      {3.0F, ""},
                      {0.0F, ""},
                      {-0.5F, ""},
                      {NAN, ""},
                      {1e-7F, "0.000000"}};
  for (const Row& row : rows) {
    EXPECT_EQ(viewText("v", row.fovRadians), viewpoint("v", row.expected)) << row.fovRadians;
  }
  CVekVRMLLoader().WriteView(nullptr, {}, {}, {}, "v", 1.0F);
}

TEST(SceneViews, TheMainFieldOfViewIsNarrowedBeforeItIsCompared) {
  CVekStager stager;
  CVekCamera& camera = selectCamera(stager);
  // Below half pi as a double, above it as the nearest float.
  camera.SetFOVPaper(1.57079632);
  EXPECT_EQ(viewsOf(stager), "Group {\nchildren [" + viewpoint("Zentra Stager Main Camera", "") + "] \n}");
}

TEST(SceneViews, NamesStandAsAFormatString) {
  EXPECT_EQ(viewText("100%% of %d and %s", 0.0F), viewpoint("100% of  and ", ""));
  EXPECT_EQ(viewText("50%", 0.0F), viewpoint("50%", ""));
  EXPECT_EQ(viewText("Umriss \xc3\xa4", 0.0F), viewpoint("Umriss \xc3\xa4", ""));
}

TEST(SceneViews, PositionsAndFramesAreTheCameras) {
  CVekStager stager;
  CVekCamera& camera = selectCamera(stager);
  camera.SetMatLocalToParent({{0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 1.5F, -2, 0.25F, 1}});
  EXPECT_EQ(viewsOf(stager),
            "Group {\nchildren [Viewpoint { \ndescription\"Zentra Stager Main Camera\"\nfieldOfView 0.785398 "
            "\norientation 0.000000 -1.000000 0.000000 1.570796 \nposition 1.500000 -2.000000 0.250000 \n}\n] \n}");
}

TEST(SceneViews, TheBackgroundsThreeColors) {
  CVekStager stager;
  EXPECT_EQ(backgroundOf(stager), "") << "no viewport";
  EXPECT_EQ(written([](std::FILE* file) { CVekVRMLLoader().AddBackground(file); }), "") << "no stager";
  stager.GetViewportManager()->SetViewportSelected(std::make_unique<CVekViewport>());
  CVekRenderer& renderer = *stager.GetViewportManager()->GetViewportSelected()->GetRenderer();
  renderer.SetBkColor({255, 255, 255});
  EXPECT_EQ(backgroundOf(stager),
            "DEF browns Background { skyAngle [0, 3.1416] skyColor [1.000000 1.000000 1.000000, 0.500000 0.500000 "
            "0.500000, 0.000000 0.000000 0.000000] }");
  renderer.SetBkColor({1, 51, 254});
  renderer.SetBkFootColor({3, 128, 7});
  EXPECT_EQ(backgroundOf(stager),
            "DEF browns Background { skyAngle [0, 3.1416] skyColor [0.003922 0.200000 0.996078, 0.001961 0.100000 "
            "0.498039, 0.011765 0.501961 0.027451] }");
}

}  // namespace
