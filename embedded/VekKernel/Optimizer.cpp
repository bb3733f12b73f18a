// Merging a scene into one object: every drawable that shows becomes an indexed triangle set in world coordinates, all
// in one geode. Each keeps its states, so that one drawable stays one drawable: states are what cannot be merged. Where
// nothing moves, lists are shared with the source, and lists that two drawables of a geode share are moved once.

#include <VekKernel/CVekOptimizer.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglGroup.h>

#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <map>
#include <memory>

#include "embedded/Matrix.h"
#include "embedded/SceneWalk.h"
#include "embedded/Tessellation.h"

namespace {

// A list and what has become of it. The list is held, so that its address stays its own.
struct MovedList {
  sglRef<sglDataPtr> source;
  sglRef<sglDataPtr> result;
};

using Lists = std::map<const sglDataPtr*, MovedList>;

glm::dvec3 vectorAt(const float* data, std::size_t index) { return {data[index], data[index + 1], data[index + 2]}; }

// The list with every vector of three replaced by its image.
template <class Image>
sglRef<sglDataPtr> mapped(const sglDataPtr& list, Image image) {
  std::vector<float> values(list.getFloats(), list.getFloats() + list.getCount());
  for (std::size_t i = 0; i + 3 <= values.size(); i += 3) {
    const glm::dvec3 moved = image(vectorAt(list.getFloats(), i));
    for (unsigned axis = 0; axis < 3; ++axis) values[i + axis] = static_cast<float>(moved[static_cast<int>(axis)]);
  }
  return new sglDataPtr(std::move(values));
}

// The list with the last two indices of every triangle exchanged.
sglRef<sglDataPtr> turned(const sglDataPtr& list) {
  std::vector<std::uint32_t> indices(list.getUnsigneds(), list.getUnsigneds() + list.getCount());
  for (std::size_t i = 0; i + 3 <= indices.size(); i += 3) std::swap(indices[i + 1], indices[i + 2]);
  return new sglDataPtr(std::move(indices));
}

// Moves triangle sets from one geode's coordinates to the world's.
class Mover {
 public:
  explicit Mover(const glm::dmat4& world) : m_world(world), m_moves(world != glm::dmat4(1.0)) {
    const glm::dmat3 axes(world);
    m_mirrors = glm::determinant(axes) < 0.0;
    // Normals go with the cofactors, which is the inverse transposed times the determinant, and exists for every
    // matrix.
    m_normals = glm::dmat3(glm::cross(axes[1], axes[2]), glm::cross(axes[2], axes[0]), glm::cross(axes[0], axes[1]));
    if (m_mirrors) m_normals = -m_normals;
  }

  void move(sglIndexedTriangleSet& set) {
    if (!m_moves) return;
    set.setCoordList(moved(m_coords, set.getCoordList(),
                           [this](const glm::dvec3& point) { return embedded::imageOf(m_world, point); }));
    set.setNormalList(moved(m_movedNormals, set.getNormalList(),
                            [this](const glm::dvec3& normal) {
                              const glm::dvec3 image = m_normals * normal;
                              const double length = glm::length(image);
                              return length > 0.0 ? image / length * glm::length(normal) : image;
                            }),
                      set.getNormalBinding());
    if (m_mirrors) turn(set);
  }

 private:
  // The result of `make` for the list, made once.
  template <class Make>
  static sglDataPtr* once(Lists& lists, sglDataPtr* list, Make make) {
    MovedList& entry = lists[list];
    if (!entry.result) entry = {list, make()};
    return entry.result.get();
  }

  template <class Image>
  static sglDataPtr* moved(Lists& lists, sglDataPtr* list, Image image) {
    if (list == nullptr || list->getFloats() == nullptr) return nullptr;
    return once(lists, list, [&] { return mapped(*list, image); });
  }

  // A mirror turns every triangle over; exchanging two corners turns it back.
  void turn(sglIndexedTriangleSet& set) {
    set.setCoordIndexList(turnedList(set.getCoordIndexList()));
    set.setNormalIndexList(turnedList(set.getNormalIndexList(), set.getNormalBinding()));
    set.setColorIndexList(turnedList(set.getColorIndexList(), set.getColorBinding()));
    set.setTexCoordIndexList(turnedList(set.getTexCoordIndexList()));
  }

  sglDataPtr* turnedList(sglDataPtr* list, sglGeoSet::BindingEnum binding = sglGeoSet::BIND_PER_VERTEX) {
    if (list == nullptr || list->getUnsigneds() == nullptr) return nullptr;
    if (binding != sglGeoSet::BIND_PER_VERTEX) return list;
    return once(m_turned, list, [&] { return turned(*list); });
  }

  glm::dmat4 m_world;
  glm::dmat3 m_normals{1.0};
  bool m_moves;
  bool m_mirrors = false;
  Lists m_coords;
  Lists m_movedNormals;
  Lists m_turned;
};

class Collector : public embedded::SceneVisitor {
 public:
  explicit Collector(sglGeode& target) : m_target(target) {}

  bool enter(const sglNode& node, const glm::dmat4& world) override {
    const auto* geode = dynamic_cast<const sglGeode*>(&node);
    if (geode == nullptr) return true;
    Mover mover(world);
    for (unsigned i = 0; i < geode->getNumGeometries(); ++i) {
      std::unique_ptr<sglIndexedTriangleSet> set = m_tessellator.triangleSetOf(geode->getGeometry(i));
      if (set == nullptr) continue;
      mover.move(*set);
      m_target.addGeometry(set.get());
      static_cast<void>(set.release());
    }
    return false;
  }

 private:
  sglGeode& m_target;
  embedded::Tessellator m_tessellator;
};

}  // namespace

CVekOptimizer::CVekOptimizer() = default;

CVekOptimizer::~CVekOptimizer() = default;

sglGroup* CVekOptimizer::FactorizeGraph(sglNode* root, CString name) {
  if (root == nullptr) return nullptr;
  const std::unique_ptr<sglNode> graph(root);
  auto group = std::make_unique<sglGroup>();
  auto geode = std::make_unique<sglGeode>();
  group->setName(name);
  geode->setName(name);
  Collector collector(*geode);
  embedded::walkScene(root, embedded::SceneChoice::Shown, collector);
  group->addChild(geode.get(), true);
  static_cast<void>(geode.release());
  return group.release();
}
