// What a view lacks of the host's objects ends its writing early or counts as orthographic; nothing is reported.

#include "export/SceneViews.h"

#include <VekFoundations/CVekProp.h>
#include <VekFoundations/CVekPropIDServer.h>
#include <VekFoundations/CVekPropNumerical.h>
#include <VekFoundations/CVekPropertySet.h>
#include <VekGeometry/CVekPropLocation.h>

#include <numbers>

#include "export/CameraModel.h"
#include "export/FormatText.h"

namespace exporter {
namespace {

constexpr const char* kMainCameraDescription = "Zentra Stager Main Camera";

/// The numbers of a view's properties, the same for the life of the process.
struct ViewPropertyIDs {
  CVekPropID location = GetPropIDServer().GetID("Navigator.Camera.Location");
  CVekPropID perspective = GetPropIDServer().GetID("Navigator.Camera.Proj.Persp");
  CVekPropID fov = GetPropIDServer().GetID("Navigator.Camera.Fov");
};

const CVekViewport* selectedViewport(const CVekStager& stager) {
  const CVekViewportManager* manager = stager.GetViewportManager();
  return manager != nullptr ? manager->GetViewportSelected() : nullptr;
}

const CVekCamera* selectedCamera(const CVekStager& stager) {
  const CVekViewport* viewport = selectedViewport(stager);
  const CVekNavigator* navigator = viewport != nullptr ? viewport->GetNavigator() : nullptr;
  return navigator != nullptr ? navigator->GetCamera() : nullptr;
}

template <class Property>
const Property* propertyOf(const CVekPropertySet& properties, CVekPropID id) {
  return dynamic_cast<const Property*>(properties.GetProperty(id));
}

void writeFrame(TextWriter& out, const CVekFrame& frame, const CString& description, float fovRadians) {
  writeView(out, frame.GetOrigin(), frame.GetVz(), frame.GetVy(), description, fovRadians);
}

/// Radians; 0 for an orthographic view.
float fieldOfViewOf(const CVekPropertySet& properties, const ViewPropertyIDs& ids) {
  const auto* perspective = propertyOf<CVekProp<bool>>(properties, ids.perspective);
  if (perspective == nullptr || !perspective->GetValue()) return 0.0F;
  const auto* fov = propertyOf<CVekPropNumerical<float>>(properties, ids.fov);
  return fov != nullptr ? fov->GetValue() : 0.0F;
}

void writeSavedView(TextWriter& out, const CVekView& view, const ViewPropertyIDs& ids) {
  const CVekPropertySet* properties = view.GetNavigatorProperties();
  if (properties == nullptr) return;
  const auto* location = propertyOf<CVekPropLocation>(*properties, ids.location);
  if (location == nullptr) return;
  writeFrame(out, location->GetValue().GetFrame(), view.GetName(), fieldOfViewOf(*properties, ids));
}

sglVec3<double> widened(const sglVec3<float>& v) { return {v.x, v.y, v.z}; }

/// Writes a background colour's channels, 0 to 1, each multiplied by a factor first.
void printColor(TextWriter& out, const CVekColor& color, float factor) {
  const auto channel = [&](unsigned i) { return static_cast<float>(color[i]) * factor / 255.0F; };
  out.print(channel(0), " ", channel(1), " ", channel(2));
}

}  // namespace

void writeViews(TextWriter& out, const CVekStager& stager) {
  const CVekCamera* camera = selectedCamera(stager);
  if (camera == nullptr) return;
  out.put("Group {\nchildren [");
  const float fov = camera->IsPerspective() ? static_cast<float>(camera->GetFOVPaper()) : 0.0F;
  writeFrame(out, camera->GetFrameInParent(), kMainCameraDescription, fov);

  const CVekFList<CVekView>* views = stager.GetViewportManager()->GetViews();
  if (views == nullptr) return;
  static const ViewPropertyIDs ids;
  for (const CVekView* view : *views) {
    if (view != nullptr) writeSavedView(out, *view, ids);
  }
  out.put("] \n}");
}

void writeView(TextWriter& out, const sglVec3<float>& position, const sglVec3<float>& viewAxis,
               const sglVec3<float>& up, const CString& description, float fovRadians) {
  const sglVec3<double> from = widened(position);
  const sglVec3<double> axis = widened(viewAxis);
  const sglVec3<double> target = {from.x - axis.x, from.y - axis.y, from.z - axis.z};
  const Orientation orientation = orientationOf(from, target, widened(up));
  const auto narrow = [](double value) { return static_cast<float>(value); };

  out.put(expandFormat("Viewpoint { \ndescription\"" + description + "\""));
  if (fovRadians > 0.0F && double{fovRadians} < std::numbers::pi / 2) out.print("\nfieldOfView ", fovRadians, " ");
  out.print("\norientation ", narrow(orientation.axis.x), " ", narrow(orientation.axis.y), " ",
            narrow(orientation.axis.z), " ", narrow(orientation.angleRadians), " \nposition ", position.x, " ",
            position.y, " ", position.z, " \n}\n");
}

void writeBackground(TextWriter& out, const CVekStager& stager) {
  const CVekViewport* viewport = selectedViewport(stager);
  const CVekRenderer* renderer = viewport != nullptr ? viewport->GetRenderer() : nullptr;
  if (renderer == nullptr) return;
  out.put("DEF browns Background { skyAngle [0, 3.1416] skyColor [");
  printColor(out, renderer->GetBkColor(), 1.0F);
  out.put(", ");
  printColor(out, renderer->GetBkColor(), 0.5F);
  out.put(", ");
  printColor(out, renderer->GetBkFootColor(), 1.0F);
  out.put("] }");
}

}  // namespace exporter
