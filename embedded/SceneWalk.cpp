// The walk keeps its place on an explicit stack, since the depth of a scene is the input's. World matrices lie on a
// stack of their own that grows with transforms only.

#include "embedded/SceneWalk.h"

#include <VekSG/sglGroup.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTransform.h>

#include <vector>

#include "embedded/Matrix.h"

namespace embedded {
namespace {

// A node that was entered, and which of its children come next.
struct Place {
  const sglNode* node = nullptr;
  const sglGroup* group = nullptr;  // the same node, null when it has no children
  unsigned next = 0;
  unsigned end = 0;
  bool hasMatrix = false;
};

// The children of a switch that its selection shows.
void selectChildren(const sglSwitch& node, Place& place) {
  const std::int32_t selected = node.getSelectedChild();
  if (selected == sglSwitch::SELECT_ALL) return;
  const bool isChild = selected >= 0 && static_cast<unsigned>(selected) < place.end;
  place.next = isChild ? static_cast<unsigned>(selected) : 0;
  place.end = isChild ? place.next + 1 : 0;
}

Place placeOf(const sglNode* node, SceneChoice choice) {
  Place place;
  place.node = node;
  place.group = dynamic_cast<const sglGroup*>(node);
  if (place.group == nullptr) return place;
  place.end = place.group->getNumChildren();
  if (choice == SceneChoice::Everything) return place;
  if (const auto* selector = dynamic_cast<const sglSwitch*>(node)) {
    selectChildren(*selector, place);
  } else if (dynamic_cast<const sglLOD*>(node) != nullptr && place.end > 1) {
    place.end = 1;
  }
  return place;
}

class Walk {
 public:
  Walk(SceneChoice choice, SceneVisitor& visitor) : m_choice(choice), m_visitor(visitor) {}

  void run(const sglNode* root) {
    if (root == nullptr) return;
    enter(root);
    while (!m_places.empty()) {
      Place& place = m_places.back();
      if (place.next < place.end) {
        enter(place.group->getChild(place.next++));
      } else {
        leave();
      }
    }
  }

 private:
  void enter(const sglNode* node) {
    const auto* transform = dynamic_cast<const sglTransform<float>*>(node);
    if (transform != nullptr) {
      m_matrices.push_back(innerThenOuter(wideMatrix(transform->getMatrix()), m_matrices.back()));
    }
    if (m_visitor.enter(*node, m_matrices.back())) {
      m_places.push_back(placeOf(node, m_choice));
      m_places.back().hasMatrix = transform != nullptr;
    } else if (transform != nullptr) {
      m_matrices.pop_back();
    }
  }

  void leave() {
    const Place place = m_places.back();
    m_places.pop_back();
    if (place.hasMatrix) m_matrices.pop_back();
    m_visitor.leave(*place.node);
  }

  SceneChoice m_choice;
  SceneVisitor& m_visitor;
  std::vector<Place> m_places;
  std::vector<glm::dmat4> m_matrices{glm::dmat4(1.0)};
};

}  // namespace

SceneVisitor::~SceneVisitor() = default;

void SceneVisitor::leave(const sglNode&) {}

void walkScene(const sglNode* root, SceneChoice choice, SceneVisitor& visitor) { Walk(choice, visitor).run(root); }

}  // namespace embedded
