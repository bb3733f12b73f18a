#pragma once

// A cylinder, or the stump of a cone, about the z axis: from z = 0 to z = height.

#include <VekSG/sglPrimitive.h>

class VEK_API sglCylinder : public sglPrimitive {
 public:
  // `around` flat pieces around, `along` pieces from bottom to top; `capped` closes both ends.
  sglCylinder(unsigned around, unsigned along, float height, float bottomRadius, float topRadius, bool capped);
  ~sglCylinder() override;

  [[nodiscard]] unsigned getNumAround() const { return m_around; }
  [[nodiscard]] unsigned getNumAlong() const { return m_along; }
  [[nodiscard]] float getHeight() const { return m_height; }
  [[nodiscard]] float getBottomRadius() const { return m_bottomRadius; }
  [[nodiscard]] float getTopRadius() const { return m_topRadius; }
  [[nodiscard]] bool isCapped() const { return m_capped; }

 private:
  unsigned m_around;
  unsigned m_along;
  float m_height;
  float m_bottomRadius;
  float m_topRadius;
  bool m_capped;
};
