#pragma once

// Base of the geo-sets whose corners have an index for each list.

#include <VekSG/sglGeoSet.h>

// Index lists hold unsigned 32-bit numbers, one a corner, and are shared like the other lists. Null takes a list away.
class VEK_API sglIndexedGeoSet : public sglGeoSet {
 public:
  ~sglIndexedGeoSet() override;

  void setCoordIndexList(sglDataPtr* list) { m_coordIndices = list; }
  [[nodiscard]] sglDataPtr* getCoordIndexList() const { return m_coordIndices.get(); }

  void setNormalIndexList(sglDataPtr* list) { m_normalIndices = list; }
  [[nodiscard]] sglDataPtr* getNormalIndexList() const { return m_normalIndices.get(); }

  void setColorIndexList(sglDataPtr* list) { m_colorIndices = list; }
  [[nodiscard]] sglDataPtr* getColorIndexList() const { return m_colorIndices.get(); }

  void setTexCoordIndexList(sglDataPtr* list) { m_texCoordIndices = list; }
  [[nodiscard]] sglDataPtr* getTexCoordIndexList() const { return m_texCoordIndices.get(); }

 protected:
  sglIndexedGeoSet() = default;

 private:
  sglRef<sglDataPtr> m_coordIndices;
  sglRef<sglDataPtr> m_normalIndices;
  sglRef<sglDataPtr> m_colorIndices;
  sglRef<sglDataPtr> m_texCoordIndices;
};
