#pragma once

// A sphere whose centre is at half its radius on each axis; its poles lie along z.

#include <VekSG/sglPrimitive.h>

class VEK_API sglSphere : public sglPrimitive {
 public:
  // `around` flat pieces around, `poleToPole` pieces from pole to pole.
  sglSphere(unsigned around, unsigned poleToPole, float radius);
  ~sglSphere() override;

  [[nodiscard]] unsigned getNumAround() const { return m_around; }
  [[nodiscard]] unsigned getNumPoleToPole() const { return m_poleToPole; }
  [[nodiscard]] float getRadius() const { return m_radius; }

 private:
  unsigned m_around;
  unsigned m_poleToPole;
  float m_radius;
};
