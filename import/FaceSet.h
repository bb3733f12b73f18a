#pragma once

// The polygons of an IndexedFaceSet on their way into the face collector.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "import/sglTriStripper.h"
#include "import/sglVertStructVNTC.h"

namespace vrml {
class Node;
}

namespace importer {

using Stripper = sglTriStripper<sglVertStructVNTC>;
using Vec2 = std::array<float, 2>;
using Vec3 = std::array<float, 3>;

/// A list of the file. Two lists are the same when they stand in the same place.
template <class Value>
struct FileList {
  std::span<const Value> values;
  bool isShared = false;  // whether other nodes of the file have it too

  friend bool operator==(const FileList& a, const FileList& b) {
    return a.values.data() == b.values.data() && a.values.size() == b.values.size();
  }
};

/// Values that corners have beside their position, and the rule by which a corner finds its own.
template <class Value>
struct CornerValues {
  FileList<Value> list;            // empty: the shape has none
  FileList<std::int32_t> indices;  // by corner, the -1 entries counted, or by face; may be empty
  bool perVertex = true;           // otherwise a value belongs to a face

  friend bool operator==(const CornerValues&, const CornerValues&) = default;
};

/// What an IndexedFaceSet says about its faces. The lists point into the parsed node. Nothing need be in range.
struct FaceSet {
  FileList<std::int32_t> coordIndex;  // -1 ends a face
  FileList<Vec3> points;
  CornerValues<Vec3> normals;
  CornerValues<Vec2> texCoords;
  CornerValues<Vec3> colors;

  friend bool operator==(const FaceSet&, const FaceSet&) = default;
};

/// Reads an IndexedFaceSet node; texture coordinates only when asked for. Nothing when it has no Coordinate node.
[[nodiscard]] std::optional<FaceSet> readFaceSet(const vrml::Node& node, bool withTexCoords);

/// How many faces a walk met, by their corners.
struct FaceCounts {
  std::size_t tris = 0;
  std::size_t quads = 0;
  std::size_t polygons = 0;    // any other number of corners
  std::size_t outOfRange = 0;  // of these all, those that have a coordinate index outside the points
  std::size_t degenerate = 0;  // and those that the collector has reported

  friend bool operator==(const FaceCounts&, const FaceCounts&) = default;
};

/// Hands every face that a -1 ends to the collector, in order, except those with a coordinate index outside the points.
/// Corners behind the last -1 are dropped. The place of a normal, texture coordinate or colour that is missing,
/// negative or too large is 0, and so are all when the shape has none.
FaceCounts collectFaces(const FaceSet& faceSet, Stripper& stripper);

}  // namespace importer
