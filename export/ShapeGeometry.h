#pragma once

// The geometry of a Shape, from the four kinds of triangle sets of the host. Nothing of the host's is changed.

#include <VekKernel/CVekActor.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglTriangleSet.h>

#include <cstddef>
#include <span>

#include "export/TextWriter.h"

namespace exporter {

/// Each writes the whole face set and the brace that closes the Shape. A list that is shorter than its indices or
/// counts say is written as far as it goes, in whole triangles and whole points. A set without primitives writes
/// nothing.
void writeGeometry(TextWriter& out, const CVekActor& actor, const sglTriangleSet& set);
void writeGeometry(TextWriter& out, const CVekActor& actor, const sglIndexedTriangleSet& set);
void writeGeometry(TextWriter& out, const CVekActor& actor, const sglIndexedTriangleStripSet& set);
void writeGeometry(TextWriter& out, const CVekActor& actor, const sglMonoIndexedTriangleStripSet& set);

/// The texture coordinates of a textured actor's geo-set, 2 floats each; empty when the actor has no texture in slot 0,
/// or the geo-set no valid coordinates. The span points into the host's list.
[[nodiscard]] std::span<const float> textureCoordinates(const CVekActor& actor, const sglGeoSet& set);

/// Writes texture coordinates under a field name, as the actor's texture matrix moves them; what is not strictly
/// between minus and plus a million becomes 0. `data` holds at least one pair and `count` of them; the first is written
/// whatever the count. The actor may be null; then there is no matrix.
void writeTextureCoordinates(TextWriter& out, const CVekActor* actor, const char* name, const float* data,
                             std::size_t count);

}  // namespace exporter
