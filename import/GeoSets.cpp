// A list that is missing is not handed over, so that the host's own defaults stand.

#include "import/GeoSets.h"

#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>

#include <memory>
#include <utility>

namespace importer {

namespace {

void setLists(sglIndexedGeoSet& set, const CornerLists& values, const CornerLists& indices) {
  set.setCoordList(values.coords.get());
  set.setCoordIndexList(indices.coords.get());
  if (values.normals) {
    set.setNormalList(values.normals.get(), sglGeoSet::BIND_PER_VERTEX);
    set.setNormalIndexList(indices.normals.get());
  }
  if (values.colors) {
    set.setColorList(values.colors.get(), sglGeoSet::BIND_PER_VERTEX);
    set.setColorIndexList(indices.colors.get());
  }
  if (values.texCoords) set.setTexCoordIndexList(indices.texCoords.get());
}

void setStates(sglDrawable& drawable, const sglStateletList& states, const CornerLists& values) {
  if (values.texCoords)
    drawable.setState(0, states, sglTexCoords(values.texCoords.get(), sglTexCoords::FLOAT, 2));
  else
    drawable.setState(0, states);
  drawable.enableDisplayList(true);
}

void handOver(sglGeode& geode, std::unique_ptr<sglDrawable> drawable) {
  geode.addGeometry(drawable.get());
  static_cast<void>(drawable.release());
}

}  // namespace

void addGeoSets(sglGeode& geode, const Primitives& primitives, const CornerLists& values,
                const sglStateletList& states) {
  if (primitives.stripLengths) {
    auto strips = std::make_unique<sglIndexedTriangleStripSet>();
    strips->setNumPrims(static_cast<unsigned>(primitives.stripLengths->getCount()));
    strips->setPrimLengths(primitives.stripLengths.get());
    setLists(*strips, values, primitives.stripIndices);
    setStates(*strips, states, values);
    handOver(geode, std::move(strips));
  }
  if (primitives.numTriangles != 0) {
    auto triangles = std::make_unique<sglIndexedTriangleSet>();
    triangles->setNumPrims(primitives.numTriangles);
    setLists(*triangles, values, primitives.triangleIndices);
    setStates(*triangles, states, values);
    handOver(geode, std::move(triangles));
  }
}

}  // namespace importer
