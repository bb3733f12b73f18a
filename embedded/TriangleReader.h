#pragma once

// The triangles of a geo-set, whatever its kind, one after the other.

#include <VekSG/sglGeoSet.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace embedded {

// Stands for a list that a corner has no value in.
inline constexpr std::uint32_t kNoIndex = 0xFFFFFFFFU;

// Where a corner's values lie: the numbers of a position, a normal, a colour and a texture coordinate. Only `coord` is
// always there; every number lies inside its list.
struct Corner {
  std::uint32_t coord = kNoIndex;
  std::uint32_t normal = kNoIndex;
  std::uint32_t color = kNoIndex;
  std::uint32_t texCoord = kNoIndex;
};

using Triangle = std::array<Corner, 3>;

// The texture coordinates of a drawable's state 0, two floats each; null without any that are valid.
[[nodiscard]] const sglDataPtr* texCoordList(const sglDrawable& drawable);

// Reads a triangle set, an indexed one, or one of the two kinds of strip sets; any other kind has no triangles here
// (see Tessellation.h for primitives). Every triangle comes out in the winding of its set. Lists that are shorter than
// the counts say are read as far as they go, and a triangle with a position outside the list is passed over, so that
// any geo-set may be read. The geo-set must outlive the reader.
class TriangleReader {
 public:
  explicit TriangleReader(const sglGeoSet& geoSet);

  // Puts the next triangle into `triangle`; false when there is none left.
  bool next(Triangle& triangle);

 private:
  // Numbers of an index list, which may be missing.
  struct Indices {
    const std::uint32_t* data = nullptr;
    std::size_t count = 0;
  };

  // One list of values and how corners find theirs.
  struct Channel {
    Indices indices;
    std::size_t valueCount = 0;
    sglGeoSet::BindingEnum binding = sglGeoSet::BIND_OFF;
  };

  static Indices indicesOf(const sglDataPtr* list);
  static Channel channelOf(const sglDataPtr* list, std::size_t componentCount, sglGeoSet::BindingEnum binding,
                           const sglDataPtr* indices);
  static std::uint32_t valueOf(const Channel& channel, std::size_t position, std::size_t prim, std::uint32_t coord);

  bool nextTriangle(std::array<std::size_t, 3>& positions, std::size_t& prim);
  bool nextOfStrips(std::array<std::size_t, 3>& positions, std::size_t& prim);
  [[nodiscard]] Corner corner(std::size_t position, std::size_t prim) const;

  Indices m_coordIndices;
  Indices m_primLengths;
  Channel m_normals;
  Channel m_colors;
  Channel m_texCoords;
  std::size_t m_pointCount = 0;
  std::size_t m_cornerCount = 0;  // positions in the index list, or points of a set without one
  std::size_t m_primCount = 0;
  bool m_hasIndices = false;
  bool m_hasStrips = false;
  std::size_t m_prim = 0;        // the triangle or strip to be read next
  std::size_t m_stripBegin = 0;  // where that strip begins in the index list
  std::size_t m_stripAt = 0;     // the next triangle in that strip
};

// How many triangles a drawable has, as its counts and lists say; those of a primitive as it is tessellated. 0 for
// null.
[[nodiscard]] std::uint64_t countTriangles(const sglDrawable* drawable);

}  // namespace embedded
