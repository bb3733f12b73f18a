// The assembly, the camera and the views are gone through as an export does, until the first number that is not finite.
// What an export leaves out does not count: the root's placement, what does not show, drawables of other kinds.

#include "embedded/FiniteNumbers.h"

#include <VekGeometry/CVekPropLocation.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekAssyRoot.h>
#include <VekSG/sglGeoSet.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglMaterial.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "embedded/AssemblyWalk.h"
#include "embedded/StageProperties.h"

namespace embedded {
namespace {

bool isFinite(const sglVec3<float>& vector) {
  return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

bool isFinite(const sglDataPtr* list) {
  if (list == nullptr || list->getFloats() == nullptr) return true;
  const std::span<const float> values(list->getFloats(), list->getCount());
  return std::all_of(values.begin(), values.end(), [](float value) { return std::isfinite(value); });
}

bool isFinite(const sglMaterial& material) {
  return isFinite(material.getFrontDiffuse()) && isFinite(material.getFrontSpecular()) &&
         std::isfinite(material.getFrontShininess()) && std::isfinite(material.getFrontAlpha());
}

// Of several materials the last one is written.
bool hasFiniteMaterial(const sglDrawable& drawable) {
  const StateElement* const state = drawable.getState(0);
  const sglMaterial* last = nullptr;
  if (state == nullptr) return true;
  for (const sglRef<sglStatelet>& statelet : state->getStatelets()) {
    if (const auto* material = dynamic_cast<const sglMaterial*>(statelet.get())) last = material;
  }
  return last == nullptr || isFinite(*last);
}

bool isFinite(const sglDrawable* drawable) {
  const auto* set = dynamic_cast<const sglGeoSet*>(drawable);
  if (set == nullptr || set->getPrimType() == sglGeoSet::PRIM_OTHER || set->getNumPrims() == 0) return true;
  return isFinite(set->getCoordList()) && isFinite(set->getNormalList()) && hasFiniteMaterial(*set);
}

bool isFinite(const CVekActor& actor) {
  const auto* geode = dynamic_cast<const sglGeode*>(actor.GetPresentable());
  const bool isWritten = geode != nullptr && actor.IsDisplayed() && dynamic_cast<const CVekActorMesh*>(&actor);
  if (!isWritten) return true;
  for (unsigned i = 0; i < geode->getNumGeometries(); ++i) {
    if (!isFinite(geode->getGeometry(i))) return false;
  }
  return true;
}

// Written are the lengths of the first three rows, which may be infinite where no number is, and the fourth row.
bool isFinite(const CVekKAssyGroup& group) {
  const sglMat4<float>& matrix = group.GetMatLocalToParent();
  for (unsigned row = 0; row < 3; ++row) {
    double sum = 0.0;
    for (unsigned column = 0; column < 4; ++column) sum += double{matrix(row, column)} * double{matrix(row, column)};
    if (!std::isfinite(static_cast<float>(std::sqrt(sum)))) return false;
  }
  return isFinite(sglVec3<float>{matrix[12], matrix[13], matrix[14]});
}

// A viewpoint is made of these three rows.
bool isFinite(const CVekFrame& frame) {
  return isFinite(frame.GetVy()) && isFinite(frame.GetVz()) && isFinite(frame.GetOrigin());
}

bool hasFiniteViewpoints(const CVekStager& stager) {
  const CVekViewportManager& manager = *stager.GetViewportManager();
  const CVekViewport* const viewport = manager.GetViewportSelected();
  const CVekCamera* const camera = viewport != nullptr ? viewport->GetNavigator()->GetCamera() : nullptr;
  if (camera == nullptr) return true;
  if (!isFinite(camera->GetFrameInParent())) return false;
  if (manager.GetViews() == nullptr) return true;
  return std::all_of(manager.GetViews()->begin(), manager.GetViews()->end(), [](const CVekView* view) {
    const CVekPropertySet* const properties = view != nullptr ? view->GetNavigatorProperties() : nullptr;
    const auto* location = propertyOf<CVekPropLocation>(properties, kCameraLocation);
    return location == nullptr || isFinite(location->GetValue().GetFrame());
  });
}

class FiniteVisitor : public AssemblyVisitor {
 public:
  bool enter(const CVekAssyNode* node, const glm::dmat4& /*world*/) override {
    if (const auto* actor = dynamic_cast<const CVekActor*>(node)) {
      finite = finite && isFinite(*actor);
      return false;
    }
    const auto* group = dynamic_cast<const CVekKAssyGroup*>(node);
    const bool isPlaced = group != nullptr && dynamic_cast<const CVekAssyRoot*>(node) == nullptr;
    finite = finite && (!isPlaced || isFinite(*group));
    return finite;
  }

  bool finite = true;
};

}  // namespace

bool hasOnlyFiniteNumbers(const CVekStager& stager) {
  FiniteVisitor visitor;
  walkAssembly(stager.GetSceneManager()->GetAssyRoot(), visitor);
  return visitor.finite && hasFiniteViewpoints(stager);
}

}  // namespace embedded
