#include "vrml/reader/NameIndex.h"

// A hash table with open addressing, from which nothing is ever taken out: when a name's first bearer goes, all is
// built anew at the next look-up. While a file is read that does not happen, however often its names are used.

#include <cstring>
#include <functional>

#include "vrml/nodes/Node.h"

namespace vrml {
namespace {

constexpr std::size_t kFirstPlaces = 16;

}  // namespace

void NameIndex::add(Node& node, bool isLast) {
  if (m_isStale || (isLast && node.getReferenceNode()) || !node.hasName()) return;
  if (isLast)
    record(node);
  else
    m_isStale = true;
}

void NameIndex::remove(const Node& node) {
  if (m_isStale || m_count == 0 || node.getReferenceNode() || !node.hasName()) return;
  m_isStale = placeOf(node.getName(), hashOf(node.getName())).node == &node;
}

Node* NameIndex::find(std::string_view name, const Node& root) {
  if (m_isStale) rebuild(root);
  if (m_count == 0) return nullptr;
  const std::uint32_t hash = hashOf(name);
  // Who asks for a node goes on to its values: they come while the names are compared.
  Node::prefetch(homeOf(hash).node);
  return placeOf(name, hash).node;
}

void NameIndex::prefetch(std::string_view name) const noexcept {
  if (m_isStale || m_count == 0) return;
  const Def& home = homeOf(hashOf(name));
  __builtin_prefetch(m_names.data() + home.name);
  Node::prefetch(home.node);
}

std::uint32_t NameIndex::hashOf(std::string_view name) noexcept {
  const std::size_t hash = std::hash<std::string_view>()(name);
  return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

bool NameIndex::isNamed(const Def& def, std::string_view name) const noexcept {
  std::uint32_t length;
  std::memcpy(&length, m_names.data() + def.name, sizeof length);
  return length == name.size() && std::memcmp(m_names.data() + def.name + sizeof length, name.data(), length) == 0;
}

// The name's place, or the free one where it belongs.
Def& NameIndex::placeOf(std::string_view name, std::uint32_t hash) noexcept {
  const std::size_t mask = m_defs.size() - 1;
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    Def& def = m_defs[i];
    if (!def.node || (def.hash == hash && isNamed(def, name))) return def;
  }
}

void NameIndex::record(Node& node) {
  if (4 * (m_count + 1) > 3 * m_defs.size()) grow();
  const std::string_view name = node.getName();
  const std::uint32_t hash = hashOf(name);
  Def& def = placeOf(name, hash);
  if (def.node) return;
  // The name first: without memory for it the place must stay free.
  const auto place = static_cast<std::uint32_t>(m_names.size());
  const auto length = static_cast<std::uint32_t>(name.size());
  m_names.append(reinterpret_cast<const char*>(&length), sizeof length).append(name);
  def = {&node, hash, place};
  ++m_count;
}

void NameIndex::grow() {
  std::vector<Def> old(m_defs.empty() ? kFirstPlaces : 2 * m_defs.size());
  old.swap(m_defs);
  const std::size_t mask = m_defs.size() - 1;
  for (const Def& def : old) {
    if (!def.node) continue;
    std::size_t i = def.hash & mask;
    while (m_defs[i].node) i = (i + 1) & mask;
    m_defs[i] = def;
  }
}

void NameIndex::clear() noexcept {
  m_defs.clear();
  m_names.clear();
  m_count = 0;
  m_isStale = false;
}

void NameIndex::rebuild(const Node& root) {
  clear();
  m_isStale = true;  // also when memory runs out half way
  for (Node* node = root.nextInDocument(&root); node; node = node->nextInDocument(&root))
    if (node->hasName()) record(*node);
  m_isStale = false;
}

}  // namespace vrml
