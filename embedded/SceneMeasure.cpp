// Boxes and counts. Only the points that triangles use are measured: a file's unused points say nothing about what
// shows.

#include "embedded/SceneMeasure.h"

#include <VekSG/sglGeode.h>

#include "embedded/Matrix.h"
#include "embedded/Tessellation.h"
#include "embedded/TriangleReader.h"

namespace embedded {
namespace {

// Calls `take` with each drawable of each geode that is not null.
template <class Take>
class DrawableVisitor : public SceneVisitor {
 public:
  explicit DrawableVisitor(Take take) : m_take(take) {}

  bool enter(const sglNode& node, const glm::dmat4& world) override {
    const auto* geode = dynamic_cast<const sglGeode*>(&node);
    if (geode == nullptr) return true;
    for (unsigned i = 0; i < geode->getNumGeometries(); ++i) {
      if (const sglDrawable* drawable = geode->getGeometry(i)) m_take(*drawable, world);
    }
    return false;
  }

 private:
  Take m_take;
};

sglVec3<float> narrow(const glm::dvec3& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)};
}

}  // namespace

CVekBBox sceneBounds(const sglNode* scene, SceneChoice choice) {
  CVekBBox box;
  includeScene(scene, choice, glm::dmat4(1.0), box);
  return box;
}

void includeScene(const sglNode* scene, SceneChoice choice, const glm::dmat4& outer, CVekBBox& box) {
  Tessellator tessellator;
  DrawableVisitor visitor([&](const sglDrawable& drawable, const glm::dmat4& world) {
    const std::unique_ptr<sglIndexedTriangleSet> set = tessellator.triangleSetOf(&drawable);
    if (set == nullptr) return;
    const glm::dmat4 matrix = innerThenOuter(world, outer);
    TriangleReader reader(*set);
    Triangle triangle;
    while (reader.next(triangle)) {
      for (const Corner& corner : triangle) {
        const float* point = set->getCoordList()->getFloats() + std::size_t{corner.coord} * 3;
        box.expandToInclude(narrow(imageOf(matrix, {point[0], point[1], point[2]})));
      }
    }
  });
  walkScene(scene, choice, visitor);
}

std::uint64_t sceneTriangleCount(const sglNode* scene, SceneChoice choice) {
  std::uint64_t count = 0;
  DrawableVisitor visitor([&](const sglDrawable& drawable, const glm::dmat4&) { count += countTriangles(&drawable); });
  walkScene(scene, choice, visitor);
  return count;
}

}  // namespace embedded
