// The host is asked for the number of a property name once in the life of the process. The host's own server is
// replaced in this program by one that counts.

#include <VekFoundations/CVekPropIDServer.h>
#include <VekFoundations/CVekPropNumerical.h>
#include <VekGeometry/CVekPropLocation.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "export/CVekVRMLLoader.h"
#include "tests/TempFolder.h"
#include "tests/export/Scene.h"
#include "tests/export/Written.h"

namespace {

std::map<CString, int>& questionCounts() {
  static std::map<CString, int> counts;
  return counts;
}

}  // namespace

CVekPropID CVekPropIDServer::GetID(const CString& name) {
  static std::map<CString, CVekPropID> ids;
  ++questionCounts()[name];
  return ids.emplace(name, static_cast<CVekPropID>(ids.size() + 1)).first->second;
}

namespace {

TEST(PropertyIDs, AreAskedOnce) {
  const fixtures::TempFolder folder;
  CVekActorMesh actor;
  exporter_test::setMapPath(actor, "wood.jpg");
  const auto set = exporter_test::geoSet();
  CVekStager stager;
  auto viewport = std::make_unique<CVekViewport>();
  viewport->GetNavigator()->SetCamera(std::make_unique<CVekCamera>());
  stager.GetViewportManager()->SetViewportSelected(std::move(viewport));
  auto view = std::make_unique<CVekView>();
  view->SetNavigatorProperties(std::make_unique<CVekPropertySet>());
  stager.GetViewportManager()->AddView(std::move(view));

  CVekVRMLLoader writer;
  writer.SetStager(&stager);
  writer.SetFileName(folder.path("scene.wrl"));
  const auto writeAll = [&] {
    return exporter_test::written([&](std::FILE* file) {
      writer.WriteAttributes(file, &actor, set.get(), "");
      writer.AddViews(file);
    });
  };

  questionCounts().clear();
  const std::string first = writeAll();
  for (const auto& [name, count] : questionCounts()) EXPECT_EQ(count, 1) << name;
  EXPECT_NE(first.find("Textures\\wood.jpg"), std::string::npos);

  questionCounts().clear();
  EXPECT_EQ(writeAll(), first);
  EXPECT_TRUE(questionCounts().empty());
}

}  // namespace
