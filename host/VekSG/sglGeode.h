#pragma once

// A leaf of the scene graph that holds drawables.

#include <VekSG/sglDrawable.h>
#include <VekSG/sglNode.h>

#include <vector>

class VEK_API sglGeode : public sglNode {
 public:
  sglGeode();
  ~sglGeode() override;

  // Puts a drawable at the end and owns it from now on; it must be in no geode yet. A null one keeps its place.
  void addGeometry(sglDrawable* drawable);

  [[nodiscard]] unsigned getNumGeometries() const { return static_cast<unsigned>(m_geometries.size()); }

  // The drawable at a place from 0; null past the last one, and where a null one was added. It stays the geode's.
  [[nodiscard]] sglDrawable* getGeometry(unsigned index) const {
    return index < m_geometries.size() ? m_geometries[index] : nullptr;
  }

 private:
  std::vector<sglDrawable*> m_geometries;  // owned, may be null
};
