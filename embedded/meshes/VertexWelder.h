#pragma once

// Finds equal vertices, so that each is stored once.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace embedded {

// Collects vertices of a fixed number of floats. Two vertices are one when every float is equal; the two zeros are, and
// so is what is not a number with its own kind. Nothing is rounded: no model is so small that its vertices run
// together.
class VertexWelder {
 public:
  explicit VertexWelder(std::size_t floatsPerVertex) : m_floatsPerVertex(floatsPerVertex) {}

  // The number of a vertex, which is new when no equal one came before. `vertex` has floatsPerVertex floats. At most
  // 2^32 - 1 different vertices.
  std::uint32_t add(std::span<const float> vertex);

  [[nodiscard]] std::size_t count() const { return m_floats.size() / m_floatsPerVertex; }

  // The different vertices in the order of their numbers, tightly packed. The welder is empty afterwards.
  [[nodiscard]] std::vector<float> takeFloats();

 private:
  [[nodiscard]] bool isAt(std::size_t number, std::span<const float> vertex) const;
  void grow();

  std::size_t m_floatsPerVertex;
  std::vector<float> m_floats;
  std::vector<std::uint32_t> m_table;  // numbers by hash, the next free place on a collision; a power of two long
};

}  // namespace embedded
