#pragma once

// The host's indexed drawables of one face set.

#include <VekSG/sglGeode.h>
#include <VekSG/sglStatelet.h>

#include "import/HostLists.h"

namespace importer {

/// Appends the strips, when there are any, and then the independent triangles, when there are any, to the geode, as one
/// drawable each. Both share the values; what these lack, the drawables lack too.
void addGeoSets(sglGeode& geode, const Primitives& primitives, const CornerLists& values,
                const sglStateletList& states);

}  // namespace importer
