#pragma once

// Base of the strip sets whose one index list serves every other list.

#include <VekSG/sglGeoSet.h>

class VEK_API sglMonoIndexedGeoStripSet : public sglGeoSet {
 public:
  ~sglMonoIndexedGeoStripSet() override;

  // Unsigned 32-bit indices, one a corner, into positions, normals and texture coordinates alike.
  void setCoordIndexList(sglDataPtr* list) { m_coordIndices = list; }
  [[nodiscard]] sglDataPtr* getCoordIndexList() const { return m_coordIndices.get(); }

  // The length of each strip in indices, unsigned 32-bit numbers.
  void setPrimLengths(sglDataPtr* list) { m_primLengths = list; }
  [[nodiscard]] sglDataPtr* getPrimLengths() const { return m_primLengths.get(); }

 protected:
  sglMonoIndexedGeoStripSet() = default;

 private:
  sglRef<sglDataPtr> m_coordIndices;
  sglRef<sglDataPtr> m_primLengths;
};
