#pragma once

// The DEF names of a scene, kept as nodes come and go, so that looking a name up does not search the tree.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vrml {

class Node;

/// One DEF name and the node that it means.
struct Def {
  Node* node =
      nullptr;  // the first bearer in document order, borrowed from the scene; null in a free place of the table
  std::uint32_t hash = 0;
  std::uint32_t name = 0;  // where the name stands in the text of all names, behind its length
};

/// Knows the first bearer of each name in document order, as long as nodes come in that order, as they do while a file
/// is read, and as long as no first bearer goes. After anything else the next look-up searches the tree, once, for all
/// names.
///
/// References and instances bear the name of their source, which is found before them: they are not recorded.
class NameIndex {
 public:
  /// The node has come into the tree. `isLast` when it stands behind every other node there.
  void add(Node& node, bool isLast);
  /// The node has gone.
  void remove(const Node& node);
  /// Every node is about to go: none of them needs to be taken out by itself.
  void clear() noexcept;
  /// A name of the tree has changed.
  void invalidate() noexcept { m_isStale = true; }

  /// The first bearer of the name below `root`; null when there is none.
  [[nodiscard]] Node* find(std::string_view name, const Node& root);
  /// A hint that a name will be looked up soon: what most likely bears it is brought in meanwhile. Stands in a file of
  /// its own, apart from who calls it, because a compiler that saw both would leave it out as doing nothing.
  void prefetch(std::string_view name) const noexcept;
  /// Whether there are so many names that a hint is worth its time.
  [[nodiscard]] bool isLarge() const noexcept { return m_count >= kLargeCount; }

 private:
  // The nodes of so many names fill the first two levels of the usual caches.
  static constexpr std::size_t kLargeCount = 4096;

  [[nodiscard]] static std::uint32_t hashOf(std::string_view name) noexcept;
  [[nodiscard]] bool isNamed(const Def& def, std::string_view name) const noexcept;
  // Where a name stands unless others were there before it. Not of an empty table.
  [[nodiscard]] const Def& homeOf(std::uint32_t hash) const noexcept { return m_defs[hash & (m_defs.size() - 1)]; }
  [[nodiscard]] Def& placeOf(std::string_view name, std::uint32_t hash) noexcept;
  void record(Node& node);
  void grow();
  void rebuild(const Node& root);

  // Two dense blocks instead of an object a name: what looking names up at random costs is cache misses.
  std::vector<Def> m_defs;  // a power of two of places, at most three quarters of them taken
  std::size_t m_count = 0;
  std::string m_names;
  bool m_isStale = false;
};

}  // namespace vrml
