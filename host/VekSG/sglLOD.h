#pragma once

// A group that shows one child by its distance from the eye.

#include <VekSG/sglGroup.h>

#include <vector>

// Child i shows from range i up to range i + 1.
class VEK_API sglLOD : public sglGroup {
 public:
  sglLOD();
  ~sglLOD() override;

  // Sets the distance at which child `index` begins, in the node's coordinates. Ranges below it that were never set are
  // 0. An index above 16 million changes nothing.
  void setRange(unsigned index, float distance);

  // The number of ranges, one more than the highest index that was set.
  [[nodiscard]] unsigned getNumRanges() const { return static_cast<unsigned>(m_ranges.size()); }

  // The distance at an index from 0; 0 past the last one.
  [[nodiscard]] float getRange(unsigned index) const { return index < m_ranges.size() ? m_ranges[index] : 0.0F; }

 private:
  std::vector<float> m_ranges;
};
