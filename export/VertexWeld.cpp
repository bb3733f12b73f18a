// Welding without comparing everything with everything. A grid over the positions, with cells a few tolerances wide,
// yields the vertices that may be near; a vertex leaves the grid when somebody stands for it, so that a crowd of
// coincident vertices is walked once. Where many vertices share a cell and normals keep them apart, the cell gets a
// tree over the normals. Grid and tree only choose whom to compare: whether two vertices are near is decided in one
// place, in the host's single precision.

#include "export/VertexWeld.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>

namespace exporter {
namespace {

using Index = std::uint32_t;
using Vec3f = std::array<float, 3>;
using Vec3d = std::array<double, 3>;

template <class Vec>
bool isFinite(const Vec& v) {
  return std::all_of(v.begin(), v.end(), [](auto component) { return std::isfinite(component); });
}

template <class Vec>
Vec cross(const Vec& a, const Vec& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

template <class Vec>
auto length(const Vec& a) {
  return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]);
}

Vec3d widened(const Vec3f& v) { return {v[0], v[1], v[2]}; }

/// The vertices, and the answer to whether two of them are near.
class Vertices {
 public:
  Vertices(std::span<const float> coords, std::span<const float> normals, const WeldTolerance& tolerance)
      : m_coords(coords), m_normals(normals), m_tolerance(tolerance), m_distances(coords.size() / 3) {
    computeDistances();
  }

  [[nodiscard]] Index count() const { return static_cast<Index>(m_distances.size()); }
  [[nodiscard]] bool hasNormals() const { return !m_normals.empty(); }
  [[nodiscard]] const WeldTolerance& tolerance() const { return m_tolerance; }
  [[nodiscard]] float distance(Index v) const { return m_distances[v]; }
  [[nodiscard]] Vec3f position(Index v) const { return vectorAt(m_coords, v); }
  [[nodiscard]] Vec3f normal(Index v) const {
    return std::size_t{v} * 3 + 3 <= m_normals.size() ? vectorAt(m_normals, v) : Vec3f{};
  }

  /// Whether a vertex can be near another one at all.
  [[nodiscard]] bool canMeet(Index v) const { return isFinite(position(v)) && (!hasNormals() || isFinite(normal(v))); }

  [[nodiscard]] bool areNear(Index a, Index b) const {
    const float d = static_cast<float>(double{distance(a)} - double{distance(b)});
    if (!(-m_tolerance.position <= d && d <= m_tolerance.position)) return false;
    return positionsAreNear(position(a), position(b)) && (!hasNormals() || normalsAreNear(normal(a), normal(b)));
  }

 private:
  static Vec3f vectorAt(std::span<const float> list, Index v) {
    const std::size_t first = std::size_t{v} * 3;
    return {list[first], list[first + 1], list[first + 2]};
  }

  void computeDistances() {
    if (m_distances.empty()) return;
    // An arbitrary point, such that few vertices are equally far from it.
    constexpr float kArbitrary = 2.14F;
    Vec3f reference = position(0);
    for (float& component : reference) component = component * kArbitrary + kArbitrary;
    for (Index v = 0; v < count(); ++v) {
      const Vec3f p = position(v);
      m_distances[v] = length(Vec3f{p[0] - reference[0], p[1] - reference[1], p[2] - reference[2]});
    }
  }

  [[nodiscard]] bool positionsAreNear(const Vec3f& a, const Vec3f& b) const {
    if (m_tolerance.position == 0.0F) return a == b;
    for (unsigned axis = 0; axis < 3; ++axis) {
      if (!(std::abs(a[axis] - b[axis]) < m_tolerance.position)) return false;
    }
    return true;
  }

  [[nodiscard]] bool normalsAreNear(const Vec3f& a, const Vec3f& b) const {
    return length(cross(a, b)) < m_tolerance.normal;
  }

  std::span<const float> m_coords;
  std::span<const float> m_normals;
  WeldTolerance m_tolerance;
  std::vector<float> m_distances;  // to the reference point
};

/// Takes a vertex and those that it stands for out of a list of members that nobody stands for yet, and writes it down
/// as theirs. The others keep no order. Returns how many are left, at the front.
Index claim(const Vertices& vertices, Index vertex, std::span<Index> members, std::vector<Index>& standsFor) {
  auto left = static_cast<Index>(members.size());
  for (Index i = 0; i < left;) {
    const Index member = members[i];
    if (member == vertex || vertices.areNear(vertex, member)) {
      standsFor[member] = vertex;
      members[i] = members[--left];
    } else {
      ++i;
    }
  }
  return left;
}

/// The vertices of one crowded cell, by normal: a tree of boxes around the normals as points. The normals near a given
/// one lie in a thin cylinder around the line through it, which meets few boxes.
class NormalTree {
 public:
  NormalTree(const Vertices& vertices, std::span<Index> members) : m_vertices(vertices), m_members(members) {
    m_nodes.push_back({.begin = 0, .end = static_cast<Index>(members.size())});
    for (Index node = 0; node < m_nodes.size(); ++node) split(node);
  }

  void claimFor(Index vertex, std::vector<Index>& standsFor) {
    const Vec3d normal = widened(m_vertices.normal(vertex));
    m_open.assign(1, 0);
    while (!m_open.empty()) {
      const Index at = m_open.back();
      m_open.pop_back();
      if (m_nodes[at].live == 0 || !mayHold(m_nodes[at], normal)) continue;
      if (m_nodes[at].firstChild != 0) {
        m_open.insert(m_open.end(), {m_nodes[at].firstChild, m_nodes[at].firstChild + 1});
      } else {
        const Node& leaf = m_nodes[at];
        const Index left = claim(m_vertices, vertex, m_members.subspan(leaf.begin, leaf.live), standsFor);
        removeMembers(at, leaf.live - left);
      }
    }
  }

 private:
  static constexpr Index kLeafMembers = 16;

  struct Node {
    Index begin = 0;
    Index end = 0;
    Index live = 0;        // members that nobody stands for yet; in a leaf the first ones
    Index firstChild = 0;  // 0 in a leaf; the second child follows the first
    Index parent = 0;
    Vec3d centre{};
    double radius = 0.0;
  };

  void split(Index at) {
    Node node = m_nodes[at];
    node.live = node.end - node.begin;
    const std::span<Index> members = m_members.subspan(node.begin, node.live);
    Vec3d low = widened(m_vertices.normal(members.front()));
    Vec3d high = low;
    for (const Index member : members) {
      const Vec3d normal = widened(m_vertices.normal(member));
      for (unsigned axis = 0; axis < 3; ++axis) {
        low[axis] = std::min(low[axis], normal[axis]);
        high[axis] = std::max(high[axis], normal[axis]);
      }
    }
    Vec3d extent{};
    for (unsigned axis = 0; axis < 3; ++axis) {
      node.centre[axis] = (low[axis] + high[axis]) / 2;
      extent[axis] = high[axis] - low[axis];
    }
    node.radius = length(extent) / 2;
    const auto widest = static_cast<unsigned>(std::max_element(extent.begin(), extent.end()) - extent.begin());
    if (node.live > kLeafMembers && extent[widest] > 0.0) {
      node.firstChild = static_cast<Index>(m_nodes.size());
      const auto middle = members.begin() + node.live / 2;
      std::nth_element(members.begin(), middle, members.end(),
                       [&](Index a, Index b) { return m_vertices.normal(a)[widest] < m_vertices.normal(b)[widest]; });
      const Index cut = node.begin + node.live / 2;
      m_nodes.push_back({.begin = node.begin, .end = cut, .parent = at});
      m_nodes.push_back({.begin = cut, .end = node.end, .parent = at});
    }
    m_nodes[at] = node;
  }

  /// |c x n| is at most |p x n| + |p - c| |n| for every normal p of the node; the last term covers single precision.
  [[nodiscard]] bool mayHold(const Node& node, const Vec3d& normal) const {
    const double size = length(normal);
    const double slack = 1e-6 * size * (length(node.centre) + node.radius);
    return length(cross(node.centre, normal)) <= m_vertices.tolerance().normal + node.radius * size + slack;
  }

  void removeMembers(Index at, Index removed) {
    if (removed == 0) return;
    m_nodes[at].live -= removed;
    while (at != 0) {
      at = m_nodes[at].parent;
      m_nodes[at].live -= removed;
    }
  }

  const Vertices& m_vertices;
  std::span<Index> m_members;
  std::vector<Node> m_nodes;
  std::vector<Index> m_open;  // of the walk, kept for its memory
};

/// The vertices by position.
class Grid {
 public:
  explicit Grid(const Vertices& vertices) : m_vertices(vertices) {
    std::vector<Index> members;
    for (Index v = 0; v < vertices.count(); ++v) {
      if (vertices.canMeet(v)) members.push_back(v);
    }
    if (members.empty()) return;
    measure(members);
    fill(members);
  }

  /// Lets a vertex stand for all near ones that are left.
  void claimFor(Index vertex, std::vector<Index>& standsFor) {
    if (m_cells.empty()) return;
    const Vec3f position = m_vertices.position(vertex);
    std::array<std::uint64_t, 3> low{};
    std::array<std::uint64_t, 3> high{};
    for (unsigned axis = 0; axis < 3; ++axis) {
      low[axis] = cellOf(axis, double{position[axis]} - m_reach);
      high[axis] = cellOf(axis, double{position[axis]} + m_reach);
    }
    for (std::uint64_t z = low[2]; z <= high[2]; ++z) {
      for (std::uint64_t y = low[1]; y <= high[1]; ++y) claimRow(vertex, low[0], high[0], y, z, standsFor);
    }
  }

 private:
  // Cells are a few times the reach, so that most vertices look into few of them, but few enough for the key's bits.
  static constexpr double kCellReaches = 4.0;
  static constexpr unsigned kAxisBits = 21;
  static constexpr double kMaxCells = 1U << (kAxisBits - 1U);
  // Members above which a cell with normals gets a tree.
  static constexpr Index kCrowd = 64;

  struct Cell {
    std::uint64_t key;
    Index begin;
    Index live;  // members that nobody stands for yet, the first ones
    Index tree;  // a place in m_trees, or kNoTree
  };
  static constexpr Index kNoTree = std::numeric_limits<Index>::max();

  static std::uint64_t keyOf(std::uint64_t x, std::uint64_t y, std::uint64_t z) {
    return x | y << kAxisBits | z << (2 * kAxisBits);
  }

  void measure(std::span<const Index> members) {
    m_low = widened(m_vertices.position(members.front()));
    Vec3d high = m_low;
    for (const Index member : members) {
      const Vec3d position = widened(m_vertices.position(member));
      for (unsigned axis = 0; axis < 3; ++axis) {
        m_low[axis] = std::min(m_low[axis], position[axis]);
        high[axis] = std::max(high[axis], position[axis]);
      }
    }
    double extent = 0.0;
    for (unsigned axis = 0; axis < 3; ++axis) extent = std::max(extent, high[axis] - m_low[axis]);
    m_reach = std::min(1.0001 * double{m_vertices.tolerance().position}, extent);
    m_cellSize = std::max(kCellReaches * m_reach, extent / kMaxCells);
    if (m_cellSize == 0.0) m_cellSize = 1.0;
  }

  void fill(std::span<const Index> members) {
    std::vector<std::pair<std::uint64_t, Index>> keyed;
    keyed.reserve(members.size());
    for (const Index member : members) {
      const Vec3d position = widened(m_vertices.position(member));
      keyed.emplace_back(keyOf(cellOf(0, position[0]), cellOf(1, position[1]), cellOf(2, position[2])), member);
    }
    std::sort(keyed.begin(), keyed.end());
    m_members.reserve(members.size());
    for (const auto& [key, member] : keyed) {
      if (m_cells.empty() || m_cells.back().key != key) {
        m_cells.push_back({key, static_cast<Index>(m_members.size()), 0, kNoTree});
      }
      m_members.push_back(member);
      ++m_cells.back().live;
    }
  }

  [[nodiscard]] std::uint64_t cellOf(unsigned axis, double coordinate) const {
    const double cell = (coordinate - m_low[axis]) / m_cellSize;
    return static_cast<std::uint64_t>(std::clamp(cell, 0.0, kMaxCells));
  }

  void claimRow(Index vertex, std::uint64_t lowX, std::uint64_t highX, std::uint64_t y, std::uint64_t z,
                std::vector<Index>& standsFor) {
    const std::uint64_t last = keyOf(highX, y, z);
    auto cell = std::lower_bound(m_cells.begin(), m_cells.end(), keyOf(lowX, y, z),
                                 [](const Cell& c, std::uint64_t key) { return c.key < key; });
    for (; cell != m_cells.end() && cell->key <= last; ++cell) claimIn(*cell, vertex, standsFor);
  }

  void claimIn(Cell& cell, Index vertex, std::vector<Index>& standsFor) {
    const std::span<Index> members = std::span(m_members).subspan(cell.begin, cell.live);
    if (cell.tree == kNoTree && m_vertices.hasNormals() && cell.live > kCrowd) {
      cell.tree = static_cast<Index>(m_trees.size());
      m_trees.emplace_back(m_vertices, members);
    }
    if (cell.tree == kNoTree) {
      cell.live = claim(m_vertices, vertex, members, standsFor);
    } else {
      m_trees[cell.tree].claimFor(vertex, standsFor);
    }
  }

  const Vertices& m_vertices;
  Vec3d m_low{};
  double m_reach = 0.0;       // how far apart near vertices can be on one axis
  double m_cellSize = 1.0;    // on each axis
  std::vector<Cell> m_cells;  // by key, so that neighbours along x follow each other
  std::vector<Index> m_members;
  std::vector<NormalTree> m_trees;
};

/// The vertices by distance, equal ones by number. Distances are not negative, so their bits have their order; those
/// that are not numbers come last.
std::vector<Index> orderOf(const Vertices& vertices) {
  std::vector<std::uint64_t> keys(vertices.count());
  for (Index v = 0; v < vertices.count(); ++v) {
    keys[v] = std::uint64_t{std::bit_cast<std::uint32_t>(vertices.distance(v))} << 32U | v;
  }
  std::sort(keys.begin(), keys.end());
  std::vector<Index> order(keys.size());
  std::transform(keys.begin(), keys.end(), order.begin(), [](std::uint64_t key) { return static_cast<Index>(key); });
  return order;
}

}  // namespace

std::vector<std::uint32_t> WeldIdenticalVertices(std::span<const float> coords, std::span<const float> normals,
                                                 const WeldTolerance& tolerance) {
  const Vertices vertices(coords, normals, tolerance);
  std::vector<Index> standsFor(vertices.count());
  std::iota(standsFor.begin(), standsFor.end(), Index{0});
  if (!(tolerance.position >= 0.0F)) return standsFor;

  Grid grid(vertices);
  for (const Index vertex : orderOf(vertices)) {
    // From an infinite distance on, no difference of distances is a number.
    if (!std::isfinite(vertices.distance(vertex))) break;
    if (standsFor[vertex] == vertex && vertices.canMeet(vertex)) grid.claimFor(vertex, standsFor);
  }
  return standsFor;
}

}  // namespace exporter
