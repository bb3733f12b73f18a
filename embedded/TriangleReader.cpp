// Reading triangles. A corner is a position in the index list (or a point, in a set without one); every list of values
// finds its value from the position, the primitive or neither, as its binding says, through its own index list where it
// has one.

#include "embedded/TriangleReader.h"

#include <VekSG/sglIndexedGeoStripSet.h>
#include <VekSG/sglMonoIndexedGeoStripSet.h>
#include <VekSG/sglPrimitive.h>

#include <algorithm>

#include "embedded/Tessellation.h"

namespace embedded {
namespace {

constexpr std::size_t kCornersOfTriangle = 3;

std::size_t countOf(const sglDataPtr* list) { return list == nullptr ? 0 : list->getCount(); }

}  // namespace

const sglDataPtr* texCoordList(const sglDrawable& drawable) {
  const StateElement* state = drawable.getState(0);
  if (state == nullptr || state->getTexCoordList().empty()) return nullptr;
  const sglTexCoords& texCoords = state->getTexCoordList().front();
  return texCoords.isValid() ? texCoords.getDataPtr() : nullptr;
}

TriangleReader::Indices TriangleReader::indicesOf(const sglDataPtr* list) {
  if (list == nullptr || list->getUnsigneds() == nullptr) return {};
  return {list->getUnsigneds(), list->getCount()};
}

TriangleReader::Channel TriangleReader::channelOf(const sglDataPtr* list, std::size_t componentCount,
                                                  sglGeoSet::BindingEnum binding, const sglDataPtr* indices) {
  if (list == nullptr || list->getFloats() == nullptr) return {};
  return {indicesOf(indices), list->getCount() / componentCount, binding};
}

TriangleReader::TriangleReader(const sglGeoSet& geoSet) {
  const sglDataPtr* coords = geoSet.getCoordList();
  if (coords == nullptr || coords->getFloats() == nullptr) return;
  const auto* indexed = dynamic_cast<const sglIndexedGeoSet*>(&geoSet);
  const auto* strips = dynamic_cast<const sglIndexedGeoStripSet*>(&geoSet);
  const auto* mono = dynamic_cast<const sglMonoIndexedGeoStripSet*>(&geoSet);
  m_pointCount = coords->getCount() / 3;
  m_primCount = geoSet.getNumPrims();
  m_hasIndices = indexed != nullptr || mono != nullptr;
  m_hasStrips = strips != nullptr || mono != nullptr;
  if (indexed != nullptr) m_coordIndices = indicesOf(indexed->getCoordIndexList());
  if (mono != nullptr) m_coordIndices = indicesOf(mono->getCoordIndexList());
  if (strips != nullptr) m_primLengths = indicesOf(strips->getPrimLengths());
  if (mono != nullptr) m_primLengths = indicesOf(mono->getPrimLengths());
  m_cornerCount = m_hasIndices ? m_coordIndices.count : m_pointCount;
  if (m_hasStrips) m_primCount = std::min(m_primCount, m_primLengths.count);

  const auto indexList = [indexed](sglDataPtr* (sglIndexedGeoSet::*list)() const) -> const sglDataPtr* {
    return indexed == nullptr ? nullptr : (indexed->*list)();
  };
  m_normals =
      channelOf(geoSet.getNormalList(), 3, geoSet.getNormalBinding(), indexList(&sglIndexedGeoSet::getNormalIndexList));
  m_colors =
      channelOf(geoSet.getColorList(), 4, geoSet.getColorBinding(), indexList(&sglIndexedGeoSet::getColorIndexList));
  m_texCoords = channelOf(texCoordList(geoSet), 2, sglGeoSet::BIND_PER_VERTEX,
                          indexList(&sglIndexedGeoSet::getTexCoordIndexList));
}

std::uint32_t TriangleReader::valueOf(const Channel& channel, std::size_t position, std::size_t prim,
                                      std::uint32_t coord) {
  std::size_t value = 0;
  switch (channel.binding) {
    case sglGeoSet::BIND_OFF:
      return kNoIndex;
    case sglGeoSet::BIND_OVERALL:
      break;
    case sglGeoSet::BIND_PER_PRIM:
      value = prim;
      break;
    case sglGeoSet::BIND_PER_VERTEX:
      value = channel.indices.data != nullptr ? position : coord;
      break;
    default:
      return kNoIndex;
  }
  if (channel.indices.data != nullptr) {
    if (value >= channel.indices.count) return kNoIndex;
    value = channel.indices.data[value];
  }
  return value < channel.valueCount ? static_cast<std::uint32_t>(value) : kNoIndex;
}

Corner TriangleReader::corner(std::size_t position, std::size_t prim) const {
  Corner corner;
  const std::size_t coord = m_hasIndices ? m_coordIndices.data[position] : position;
  if (coord >= m_pointCount || coord >= kNoIndex) return corner;
  corner.coord = static_cast<std::uint32_t>(coord);
  corner.normal = valueOf(m_normals, position, prim, corner.coord);
  corner.color = valueOf(m_colors, position, prim, corner.coord);
  corner.texCoord = valueOf(m_texCoords, position, prim, corner.coord);
  return corner;
}

bool TriangleReader::nextTriangle(std::array<std::size_t, 3>& positions, std::size_t& prim) {
  if (m_prim >= m_primCount || (m_prim + 1) * kCornersOfTriangle > m_cornerCount) return false;
  prim = m_prim++;
  const std::size_t first = prim * kCornersOfTriangle;
  positions = {first, first + 1, first + 2};
  return true;
}

bool TriangleReader::nextOfStrips(std::array<std::size_t, 3>& positions, std::size_t& prim) {
  while (m_prim < m_primCount) {
    const std::size_t at = m_stripBegin + m_stripAt;
    const std::size_t length = m_primLengths.data[m_prim];
    if (m_stripAt + kCornersOfTriangle <= length && at + kCornersOfTriangle <= m_cornerCount) {
      const bool swapped = m_stripAt % 2 != 0;
      positions = {at, swapped ? at + 2 : at + 1, swapped ? at + 1 : at + 2};
      prim = m_prim;
      ++m_stripAt;
      return true;
    }
    m_stripBegin += length;
    m_stripAt = 0;
    ++m_prim;
  }
  return false;
}

bool TriangleReader::next(Triangle& triangle) {
  std::array<std::size_t, 3> positions{};
  std::size_t prim = 0;
  while (m_hasStrips ? nextOfStrips(positions, prim) : nextTriangle(positions, prim)) {
    for (std::size_t i = 0; i < kCornersOfTriangle; ++i) triangle[i] = corner(positions[i], prim);
    if (triangle[0].coord != kNoIndex && triangle[1].coord != kNoIndex && triangle[2].coord != kNoIndex) return true;
  }
  return false;
}

namespace {

std::uint64_t countOfStrips(std::uint64_t primCount, const sglDataPtr* lengths, std::uint64_t cornerCount) {
  if (lengths == nullptr || lengths->getUnsigneds() == nullptr) return 0;
  const std::uint64_t strips = std::min<std::uint64_t>(primCount, lengths->getCount());
  std::uint64_t count = 0;
  std::uint64_t begin = 0;
  for (std::uint64_t strip = 0; strip < strips && begin < cornerCount; ++strip) {
    const std::uint64_t length = lengths->getUnsigneds()[strip];
    const std::uint64_t present = std::min(length, cornerCount - begin);
    if (present >= kCornersOfTriangle) count += present - 2;
    begin += length;
  }
  return count;
}

}  // namespace

std::uint64_t countTriangles(const sglDrawable* drawable) {
  if (const auto* primitive = dynamic_cast<const sglPrimitive*>(drawable)) return countTriangles(*primitive);
  const auto* geoSet = dynamic_cast<const sglGeoSet*>(drawable);
  if (geoSet == nullptr) return 0;
  const std::uint64_t prims = geoSet->getNumPrims();
  if (const auto* strips = dynamic_cast<const sglIndexedGeoStripSet*>(geoSet)) {
    return countOfStrips(prims, strips->getPrimLengths(), countOf(strips->getCoordIndexList()));
  }
  if (const auto* mono = dynamic_cast<const sglMonoIndexedGeoStripSet*>(geoSet)) {
    return countOfStrips(prims, mono->getPrimLengths(), countOf(mono->getCoordIndexList()));
  }
  const auto* indexed = dynamic_cast<const sglIndexedGeoSet*>(geoSet);
  const std::uint64_t corners =
      indexed != nullptr ? countOf(indexed->getCoordIndexList()) : countOf(geoSet->getCoordList()) / 3;
  return std::min(prims, corners / kCornersOfTriangle);
}

}  // namespace embedded
