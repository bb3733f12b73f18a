#pragma once

// What an import leaves out of an IndexedFaceSet, found from its index list alone.

#include <cstdint>
#include <span>

namespace wrl {

/// Counts of what is dropped. A face is counted once, under the first of the reasons that holds.
struct FaceLosses {
  std::int64_t facesOutOfRange = 0;      // with an index that names no point
  std::int64_t degenerateFaces = 0;      // of fewer than three corners
  std::int64_t degenerateTriangles = 0;  // triangles, of faces that are kept, that name one point twice
  std::int64_t openCorners = 0;          // corners behind the last -1, whose face never ends
};

/// Follows `coordIndex` (-1 ends a face) as the import does. `pointCount` is the number of points there are to name.
[[nodiscard]] FaceLosses findFaceLosses(std::span<const std::int32_t> coordIndex, std::int64_t pointCount);

}  // namespace wrl
