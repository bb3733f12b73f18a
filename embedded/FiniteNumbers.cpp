// A walk that ends at the first number that is not finite. A product of placements is finite only if all of them are.

#include "embedded/FiniteNumbers.h"

#include <VekKernel/CVekActor.h>
#include <VekSG/sglGeoSet.h>
#include <VekSG/sglGeode.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "embedded/AssemblyWalk.h"

namespace embedded {
namespace {

bool isFinite(const sglDataPtr* list) {
  if (list == nullptr || list->getFloats() == nullptr) return true;
  const std::span<const float> values(list->getFloats(), list->getCount());
  return std::all_of(values.begin(), values.end(), [](float value) { return std::isfinite(value); });
}

bool isFinite(const sglDrawable* drawable) {
  const auto* set = dynamic_cast<const sglGeoSet*>(drawable);
  return set == nullptr || (isFinite(set->getCoordList()) && isFinite(set->getNormalList()));
}

bool isFinite(const glm::dmat4& matrix) {
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 4; ++row) {
      if (!std::isfinite(matrix[column][row])) return false;
    }
  }
  return true;
}

bool isFinite(const CVekActor& actor) {
  const auto* geode = dynamic_cast<const sglGeode*>(actor.GetPresentable());
  if (geode == nullptr || !actor.IsDisplayed()) return true;
  for (unsigned i = 0; i < geode->getNumGeometries(); ++i) {
    if (!isFinite(geode->getGeometry(i))) return false;
  }
  return true;
}

class FiniteVisitor : public AssemblyVisitor {
 public:
  bool enter(const CVekAssyNode* node, const glm::dmat4& world) override {
    const auto* actor = dynamic_cast<const CVekActor*>(node);
    finite = finite && isFinite(world) && (actor == nullptr || isFinite(*actor));
    return finite && actor == nullptr;
  }

  bool finite = true;
};

}  // namespace

bool hasOnlyFiniteNumbers(const CVekAssyNode* root) {
  FiniteVisitor visitor;
  walkAssembly(root, visitor);
  return visitor.finite;
}

}  // namespace embedded
