#pragma once

// A holder of one array of numbers, shared between drawables.

#include <VekSG/sglReferenced.h>

#include <cstddef>
#include <cstdint>
#include <vector>

// Holds either floats or unsigned 32-bit numbers. The numbers are moved in, never copied: a list of any size is handed
// over at no cost, as in `new sglDataPtr(std::move(indices))`. They do not change afterwards.
class VEK_API sglDataPtr : public sglReferenced {
 public:
  explicit sglDataPtr(std::vector<float> values);
  explicit sglDataPtr(std::vector<std::uint32_t> values);

  // The first float, null when the array holds unsigned numbers or nothing.
  [[nodiscard]] const float* getFloats() const { return m_floats.empty() ? nullptr : m_floats.data(); }

  // The first unsigned number, null when the array holds floats or nothing.
  [[nodiscard]] const std::uint32_t* getUnsigneds() const { return m_unsigneds.empty() ? nullptr : m_unsigneds.data(); }

  // The number of single numbers: three a vector in a list of vectors.
  [[nodiscard]] std::size_t getCount() const { return m_floats.size() + m_unsigneds.size(); }

 protected:
  ~sglDataPtr() override;

 private:
  std::vector<float> m_floats;  // at most one of the two holds anything
  std::vector<std::uint32_t> m_unsigneds;
};
