#pragma once

// A box from the origin to its size on each axis.

#include <VekSG/sglPrimitive.h>
#include <VekSG/sglVec3.h>

class VEK_API sglCube : public sglPrimitive {
 public:
  sglCube(float sizeX, float sizeY, float sizeZ);
  ~sglCube() override;

  [[nodiscard]] const sglVec3<float>& getSize() const { return m_size; }

 private:
  sglVec3<float> m_size;
};
