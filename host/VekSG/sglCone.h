#pragma once

// A cone about the z axis: its base at z = 0, its tip at z = height.

#include <VekSG/sglPrimitive.h>

class VEK_API sglCone : public sglPrimitive {
 public:
  // `segments` flat pieces around.
  sglCone(unsigned segments, float height, float radius);
  ~sglCone() override;

  [[nodiscard]] unsigned getNumSegments() const { return m_segments; }
  [[nodiscard]] float getHeight() const { return m_height; }
  [[nodiscard]] float getRadius() const { return m_radius; }

 private:
  unsigned m_segments;
  float m_height;
  float m_radius;
};
