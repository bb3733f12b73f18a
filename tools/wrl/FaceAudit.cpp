// One pass over the index list, face by face, nothing copied. The cutting of a polygon into triangles must match the
// import's face collector, since which triangles come out degenerate depends on where the cuts are.

#include "tools/wrl/FaceAudit.h"

#include <algorithm>
#include <utility>

namespace wrl {

namespace {

using Corners = std::span<const std::int32_t>;

// Cuts in zigzag order: (0, 1, n-1), (n-1, 1, 2), (n-1, 2, n-2), ...
std::int64_t countDegenerateTriangles(Corners face) {
  std::size_t a = 0;
  std::size_t b = 1;
  std::size_t c = face.size() - 1;
  std::size_t forward = 2;
  std::size_t backward = face.size() - 2;
  std::int64_t count = 0;
  for (std::size_t i = 0; i + 2 < face.size(); ++i) {
    if (face[a] == face[b] || face[b] == face[c] || face[c] == face[a]) ++count;
    if (i % 2 == 0) {
      a = std::exchange(c, forward++);
    } else {
      b = std::exchange(c, backward--);
    }
  }
  return count;
}

void addFace(Corners face, std::int64_t pointCount, FaceLosses& losses) {
  const auto namesNoPoint = [pointCount](std::int32_t index) { return index < 0 || index >= pointCount; };
  if (std::any_of(face.begin(), face.end(), namesNoPoint)) {
    ++losses.facesOutOfRange;
  } else if (face.size() < 3) {
    ++losses.degenerateFaces;
  } else {
    losses.degenerateTriangles += countDegenerateTriangles(face);
  }
}

}  // namespace

FaceLosses findFaceLosses(Corners coordIndex, std::int64_t pointCount) {
  FaceLosses losses;
  auto first = coordIndex.begin();
  for (;;) {
    const auto end = std::find(first, coordIndex.end(), -1);
    if (end == coordIndex.end()) {
      losses.openCorners = end - first;
      return losses;
    }
    addFace(Corners(first, end), pointCount, losses);
    first = end + 1;
  }
}

}  // namespace wrl
