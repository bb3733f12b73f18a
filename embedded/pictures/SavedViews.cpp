#include "embedded/pictures/SavedViews.h"

#include <VekFoundations/CVekPropNumerical.h>
#include <VekGeometry/CVekPropLocation.h>

#include <cmath>
#include <glm/geometric.hpp>
#include <numbers>

#include "embedded/StageProperties.h"

namespace embedded {
namespace {

glm::dvec3 wide(const sglVec3<float>& vector) { return {vector.x, vector.y, vector.z}; }

const CVekPropLocation* locationOf(const CVekView& view) {
  return propertyOf<CVekPropLocation>(view.GetNavigatorProperties(), kCameraLocation);
}

bool isPerspective(const CVekView& view) {
  const auto* perspective = propertyOf<CVekProp<bool>>(view.GetNavigatorProperties(), kCameraPerspective);
  return perspective == nullptr || perspective->GetValue();
}

double fovOf(const CVekView& view) {
  const auto* fov = propertyOf<CVekPropNumerical<float>>(view.GetNavigatorProperties(), kCameraFov);
  const double radians = fov == nullptr ? 0.0 : double{fov->GetValue()};
  return radians > 0.0 && radians < std::numbers::pi * 0.99 ? radians : CVekCamera().GetFOVPaper();
}

bool isUnit(const glm::dvec3& vector) { return std::abs(glm::length(vector) - 1.0) < 1e-3; }

}  // namespace

std::vector<SavedView> savedViews(const CVekStager& stager) {
  std::vector<SavedView> saved;
  const CVekFList<CVekView>* views = stager.GetViewportManager()->GetViews();
  if (views == nullptr) return saved;
  for (const CVekView* view : *views) {
    if (view != nullptr && locationOf(*view) != nullptr) saved.push_back({view->GetName(), view});
  }
  return saved;
}

EyeAxes axesOf(const CVekView& view) {
  CVekFrame frame = locationOf(view)->GetValue().GetFrame();
  frame.NormalizeOrthoAlongZ();
  const EyeAxes axes{wide(frame.GetVx()), wide(frame.GetVy()), wide(frame.GetVz())};
  const bool areDirections = isUnit(axes.right) && isUnit(axes.up) && isUnit(axes.back);
  return areDirections ? axes : axesOf(defaultDirection());
}

PictureCamera cameraOf(const CVekView& view, const PictureBox& box, double aspect) {
  if (!isPerspective(view)) return fitParallelCamera(axesOf(view), box, aspect);
  PictureCamera camera;
  camera.axes = axesOf(view);
  camera.eye = wide(locationOf(view)->GetValue().GetFrame().GetOrigin());
  camera.fovRadians = fovOf(view);
  return camera;
}

}  // namespace embedded
