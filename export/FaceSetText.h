#pragma once

// The lists of an exported face set as text: vectors, and triangles as index lists.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "export/TextWriter.h"

namespace exporter {

/// Writes a list of 3-vectors under a field name. `data` holds at least one vector and `count` of them; the first is
/// written whatever the count. Neither pointer is null.
void writeVectors(TextWriter& out, const char* name, const float* data, std::size_t count);

/// Writes a list of 2-vectors, as writeVectors does.
void writePairs(TextWriter& out, const char* name, const float* data, std::size_t count);

/// Writes triangles of three indices each. `indices` holds at least one triangle and `triangleCount` of them; the first
/// is written whatever the count. Indices are printed as signed numbers.
void writeTriangles(TextWriter& out, const std::uint32_t* indices, std::size_t triangleCount);

/// Writes the triangles 0 1 2, 3 4 5 and so on, as far as `vertexCount` reaches; the first whatever the count.
void writeConsecutiveTriangles(TextWriter& out, std::size_t vertexCount);

/// Writes strips as triangles: of every second triangle of a strip the last two indices are swapped, so that all are
/// wound alike. The strips follow each other in `indices`. A strip of fewer than three indices writes nothing.
/// Triangles that reach past `indexCount` are left out.
void writeStrips(TextWriter& out, const std::uint32_t* indices, std::span<const std::uint32_t> lengths,
                 std::size_t indexCount = std::numeric_limits<std::size_t>::max());

}  // namespace exporter
