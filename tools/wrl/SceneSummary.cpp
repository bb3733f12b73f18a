// One walk for what is counted here; triangles and the box are the embedded host's to measure.

#include "tools/wrl/SceneSummary.h"

#include <VekSG/sglBillboard.h>
#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglSphere.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransform.h>
#include <VekSG/sglTriangleSet.h>

#include <unordered_set>

#include "embedded/SceneMeasure.h"
#include "embedded/SceneWalk.h"

namespace wrl {

namespace {

// A type, and how an object is recognised as one.
template <class Base>
struct TypeTest {
  const char* name;
  bool (*matches)(const Base&);
};

template <class Type, class Base>
bool isA(const Base& object) {
  return dynamic_cast<const Type*>(&object) != nullptr;
}

// The first match counts: sglGroup is the base of the others.
constexpr TypeTest<sglNode> kNodeTypes[] = {
    {"sglGeode", isA<sglGeode>},   {"sglTransform", isA<sglTransform<float>>}, {"sglLOD", isA<sglLOD>},
    {"sglSwitch", isA<sglSwitch>}, {"sglBillboard", isA<sglBillboard>},        {"sglGroup", isA<sglGroup>},
};

constexpr TypeTest<sglDrawable> kDrawableTypes[] = {
    {"sglTriangleSet", isA<sglTriangleSet>},
    {"sglIndexedTriangleSet", isA<sglIndexedTriangleSet>},
    {"sglIndexedTriangleStripSet", isA<sglIndexedTriangleStripSet>},
    {"sglMonoIndexedTriangleStripSet", isA<sglMonoIndexedTriangleStripSet>},
    {"sglCube", isA<sglCube>},
    {"sglCone", isA<sglCone>},
    {"sglCylinder", isA<sglCylinder>},
    {"sglSphere", isA<sglSphere>},
};

template <class Base, std::size_t n>
void countType(TypeCounts& counts, const TypeTest<Base> (&types)[n], const Base& object) {
  for (const TypeTest<Base>& type : types) {
    if (!type.matches(object)) continue;
    ++counts[type.name];
    return;
  }
}

class Counter : public embedded::SceneVisitor {
 public:
  explicit Counter(SceneSummary& summary) : m_summary(summary) {}

  bool enter(const sglNode& node, const glm::dmat4&) override {
    countType(m_summary.nodes, kNodeTypes, node);
    if (const auto* const geode = dynamic_cast<const sglGeode*>(&node)) {
      for (unsigned i = 0; i < geode->getNumGeometries(); ++i) addDrawable(geode->getGeometry(i));
    }
    return true;
  }

 private:
  void addDrawable(const sglDrawable* drawable) {
    if (drawable == nullptr) return;
    countType(m_summary.drawables, kDrawableTypes, *drawable);
    const StateElement* const state = drawable->getState(0);
    if (state == nullptr) return;
    for (const sglRef<sglStatelet>& statelet : state->getStatelets()) {
      if (isA<sglMaterial>(*statelet) && m_seen.insert(statelet.get()).second) ++m_summary.materials;
      if (isA<sglTexture2D>(*statelet) && m_seen.insert(statelet.get()).second) ++m_summary.textures;
    }
  }

  SceneSummary& m_summary;
  std::unordered_set<const sglStatelet*> m_seen;  // shared ones count once
};

}  // namespace

SceneSummary summarizeScene(const sglNode* root) {
  SceneSummary summary;
  Counter counter(summary);
  embedded::walkScene(root, embedded::SceneChoice::Everything, counter);
  summary.triangles = embedded::sceneTriangleCount(root, embedded::SceneChoice::Everything);
  summary.box = embedded::sceneBounds(root, embedded::SceneChoice::Everything);
  return summary;
}

}  // namespace wrl
