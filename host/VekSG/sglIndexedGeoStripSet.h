#pragma once

// Base of the indexed geo-sets that are made of strips.

#include <VekSG/sglIndexedGeoSet.h>

class VEK_API sglIndexedGeoStripSet : public sglIndexedGeoSet {
 public:
  ~sglIndexedGeoStripSet() override;

  // The length of each strip in indices, unsigned 32-bit numbers. The strips follow each other in the index lists.
  void setPrimLengths(sglDataPtr* list) { m_primLengths = list; }
  [[nodiscard]] sglDataPtr* getPrimLengths() const { return m_primLengths.get(); }

 protected:
  sglIndexedGeoStripSet() = default;

 private:
  sglRef<sglDataPtr> m_primLengths;
};
