#pragma once

// Small scenes for the tests of the embedded host.

#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglTransform.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace fixtures {

// One triangle (0, 0, 0), (1, 0, 0), (0, 1, 0), with a normal along z and a lighting state.
inline std::unique_ptr<sglIndexedTriangleSet> triangle() {
  auto set = std::make_unique<sglIndexedTriangleSet>();
  sglRef<sglDataPtr> indices(new sglDataPtr(std::vector<std::uint32_t>{0, 1, 2}));
  set->setNumPrims(1);
  set->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0}));
  set->setNormalList(new sglDataPtr(std::vector<float>{0, 0, 1, 0, 0, 1, 0, 0, 1}), sglGeoSet::BIND_PER_VERTEX);
  set->setCoordIndexList(indices.get());
  set->setNormalIndexList(indices.get());
  sglStateletList states{sglRef<sglStatelet>(new sglLighting(true))};
  set->setState(0, states);
  set->enableDisplayList(true);
  return set;
}

inline std::unique_ptr<sglGeode> geodeOf(std::unique_ptr<sglDrawable> drawable) {
  auto geode = std::make_unique<sglGeode>();
  geode->addGeometry(drawable.release());
  return geode;
}

inline std::unique_ptr<sglGeode> triangleGeode() { return geodeOf(triangle()); }

inline sglMat4<float> translation(float x, float y, float z) {
  sglMat4<float> matrix;
  matrix[12] = x;
  matrix[13] = y;
  matrix[14] = z;
  return matrix;
}

inline sglMat4<float> scale(float x, float y, float z) {
  sglMat4<float> matrix;
  matrix[0] = x;
  matrix[5] = y;
  matrix[10] = z;
  return matrix;
}

// A transform with one child.
inline std::unique_ptr<sglTransform<float>> placed(const sglMat4<float>& matrix, std::unique_ptr<sglNode> child) {
  auto transform = std::make_unique<sglTransform<float>>();
  transform->setMatrix(matrix);
  transform->addChild(child.release(), true);
  return transform;
}

// A chain of groups, one in the other, with a triangle at its end.
inline std::unique_ptr<sglNode> deepScene(int depth) {
  std::unique_ptr<sglNode> scene = triangleGeode();
  for (int i = 0; i < depth; ++i) {
    auto group = std::make_unique<sglGroup>();
    group->addChild(scene.release(), true);
    scene = std::move(group);
  }
  return scene;
}

inline std::vector<float> floatsOf(const sglDataPtr* list) {
  if (list == nullptr || list->getFloats() == nullptr) return {};
  return {list->getFloats(), list->getFloats() + list->getCount()};
}

inline std::vector<std::uint32_t> unsignedsOf(const sglDataPtr* list) {
  if (list == nullptr || list->getUnsigneds() == nullptr) return {};
  return {list->getUnsigneds(), list->getUnsigneds() + list->getCount()};
}

}  // namespace fixtures
