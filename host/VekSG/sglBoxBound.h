#pragma once

// An axis-aligned box around points.

#include <VekFoundations/VekExport.h>
#include <VekSG/sglVec3.h>

// Empty until a point is put in; the corners of an empty box mean nothing.
class VEK_API sglBoxBound {
 public:
  sglBoxBound() { makeEmpty(); }

  // Forgets all points.
  void makeEmpty();

  // Grows to hold a point. A coordinate that is not a number does not count.
  void expandToInclude(const sglVec3<float>& point);

  [[nodiscard]] bool isEmpty() const { return !(m_min.x <= m_max.x && m_min.y <= m_max.y && m_min.z <= m_max.z); }
  [[nodiscard]] const sglVec3<float>& getMin() const { return m_min; }
  [[nodiscard]] const sglVec3<float>& getMax() const { return m_max; }

 private:
  sglVec3<float> m_min;
  sglVec3<float> m_max;
};
