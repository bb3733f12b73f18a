// An open hash table of vertex numbers over the list of vertices itself: a model's vertices are looked up as often as
// it has corners, and a node for each would cost more than the vertex.

#include "embedded/meshes/VertexWelder.h"

#include <algorithm>
#include <bit>

namespace embedded {
namespace {

constexpr std::uint32_t kFree = 0xFFFFFFFFU;
constexpr std::size_t kSmallestTable = 64;

// A float's bits, the same for both zeros.
std::uint32_t bitsOf(float value) { return std::bit_cast<std::uint32_t>(value == 0.0F ? 0.0F : value); }

std::size_t hashOf(std::span<const float> vertex) {
  std::uint64_t hash = 0x9E3779B97F4A7C15U;
  for (const float value : vertex) {
    hash = (hash ^ bitsOf(value)) * 0xFF51AFD7ED558CCDU;
    hash ^= hash >> 32U;
  }
  return static_cast<std::size_t>(hash);
}

}  // namespace

bool VertexWelder::isAt(std::size_t number, std::span<const float> vertex) const {
  const float* known = m_floats.data() + number * m_floatsPerVertex;
  return std::equal(vertex.begin(), vertex.end(), known, [](float a, float b) { return bitsOf(a) == bitsOf(b); });
}

void VertexWelder::grow() {
  std::vector<std::uint32_t> table(std::max(kSmallestTable, m_table.size() * 2), kFree);
  const std::size_t mask = table.size() - 1;
  for (std::size_t number = 0; number < count(); ++number) {
    std::size_t place = hashOf({m_floats.data() + number * m_floatsPerVertex, m_floatsPerVertex}) & mask;
    while (table[place] != kFree) place = (place + 1) & mask;
    table[place] = static_cast<std::uint32_t>(number);
  }
  m_table = std::move(table);
}

std::uint32_t VertexWelder::add(std::span<const float> vertex) {
  if (count() * 2 >= m_table.size()) grow();
  const std::size_t mask = m_table.size() - 1;
  std::size_t place = hashOf(vertex) & mask;
  while (m_table[place] != kFree) {
    if (isAt(m_table[place], vertex)) return m_table[place];
    place = (place + 1) & mask;
  }
  m_table[place] = static_cast<std::uint32_t>(count());
  m_floats.insert(m_floats.end(), vertex.begin(), vertex.end());
  return m_table[place];
}

std::vector<float> VertexWelder::takeFloats() {
  m_table.clear();
  std::vector<float> floats;
  floats.swap(m_floats);
  return floats;
}

}  // namespace embedded
