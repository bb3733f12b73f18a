// The walk keeps its place on an explicit stack, since the depth of an assembly is the input's.

#include "embedded/AssemblyWalk.h"

#include <VekKernel/CVekActor.h>
#include <VekKernel/CVekAssyGroup.h>
#include <VekSG/sglNode.h>

#include <vector>

#include "embedded/Matrix.h"
#include "embedded/SceneMeasure.h"

namespace embedded {
namespace {

// A node that was entered, and which of its children come next.
struct Place {
  const CVekAssyNode* node = nullptr;
  CVekAssyNodeSet::const_iterator next;
  CVekAssyNodeSet::const_iterator end;
  bool hasMatrix = false;
};

class Walk {
 public:
  explicit Walk(AssemblyVisitor& visitor) : m_visitor(visitor) {}

  void run(const CVekAssyNode* root) {
    if (root == nullptr) return;
    enter(root);
    while (!m_places.empty()) {
      Place& place = m_places.back();
      if (place.next != place.end) {
        enter(*place.next++);
      } else {
        leave();
      }
    }
  }

 private:
  void enter(const CVekAssyNode* node) {
    const auto* drawn = dynamic_cast<const CVekDraw*>(node);
    if (drawn != nullptr) {
      m_matrices.push_back(innerThenOuter(wideMatrix(drawn->GetMatLocalToParent()), m_matrices.back()));
    }
    if (m_visitor.enter(node, m_matrices.back()) && node != nullptr) {
      static const CVekAssyNodeSet kNone;
      const auto* group = dynamic_cast<const CVekAssyGroup*>(node);
      const CVekAssyNodeSet& children = group != nullptr ? group->GetChilds() : kNone;
      m_places.push_back({node, children.begin(), children.end(), drawn != nullptr});
    } else if (drawn != nullptr) {
      m_matrices.pop_back();
    }
  }

  void leave() {
    const Place place = m_places.back();
    m_places.pop_back();
    if (place.hasMatrix) m_matrices.pop_back();
    m_visitor.leave(*place.node);
  }

  AssemblyVisitor& m_visitor;
  std::vector<Place> m_places;
  std::vector<glm::dmat4> m_matrices{glm::dmat4(1.0)};
};

// Calls `take` with the presentable of each actor that shows.
template <class Take>
class ShownVisitor : public AssemblyVisitor {
 public:
  explicit ShownVisitor(Take take) : m_take(take) {}

  bool enter(const CVekAssyNode* node, const glm::dmat4& world) override {
    const auto* actor = dynamic_cast<const CVekActor*>(node);
    if (actor != nullptr && actor->IsDisplayed()) m_take(actor->GetPresentable(), world);
    return actor == nullptr;
  }

 private:
  Take m_take;
};

}  // namespace

AssemblyVisitor::~AssemblyVisitor() = default;

void AssemblyVisitor::leave(const CVekAssyNode&) {}

void walkAssembly(const CVekAssyNode* root, AssemblyVisitor& visitor) { Walk(visitor).run(root); }

CVekBBox assemblyBounds(const CVekAssyNode* root) {
  CVekBBox box;
  ShownVisitor visitor([&box](const sglNode* presentable, const glm::dmat4& world) {
    includeScene(presentable, SceneChoice::Shown, world, box);
  });
  walkAssembly(root, visitor);
  return box;
}

std::uint64_t assemblyTriangleCount(const CVekAssyNode* root) {
  std::uint64_t count = 0;
  ShownVisitor visitor([&count](const sglNode* presentable, const glm::dmat4&) {
    count += sceneTriangleCount(presentable, SceneChoice::Shown);
  });
  walkAssembly(root, visitor);
  return count;
}

}  // namespace embedded
