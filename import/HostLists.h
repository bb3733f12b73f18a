#pragma once

// The host's lists, each made once for each list of the file: shapes that USE one Coordinate, or one IndexedFaceSet,
// share what is made of it, so that what a USE costs does not grow with what it refers to.

#include <VekSG/sglDataPtr.h>
#include <VekSG/sglRef.h>

#include <cstdint>
#include <unordered_map>

#include "import/FaceSet.h"

namespace importer {

/// One list for each part of a corner: of values, or of indices into these. A part that a shape lacks is null.
struct CornerLists {
  sglRef<sglDataPtr> coords;
  sglRef<sglDataPtr> normals;
  sglRef<sglDataPtr> texCoords;
  sglRef<sglDataPtr> colors;
};

/// What the face collector made of a face set, as the host takes it.
struct Primitives {
  std::uint32_t numTriangles = 0;   // those outside strips
  CornerLists triangleIndices;      // three places a triangle; all null when there is none
  sglRef<sglDataPtr> stripLengths;  // null when there are no strips
  CornerLists stripIndices;         // strip behind strip
};

/// The collector's content as index lists; only those are made whose values the face set has.
[[nodiscard]] Primitives primitivesOf(const Stripper& stripper, const FaceSet& faceSet);

/// Remembers what became of the lists that several nodes of the file share. These must stay where they are, and as they
/// are, as long as this object lives.
class HostLists {
 public:
  /// Faces and what they became.
  struct Faces {
    FaceCounts counts;
    Primitives primitives;
  };

  /// Collects the faces of a face set, with the collector's messages, or finds what it became before, when there were
  /// no messages.
  [[nodiscard]] Faces facesOf(const FaceSet& faceSet);

  /// The values of a face set in the order of the file, tightly packed, colours with an alpha of 1 each.
  [[nodiscard]] CornerLists valuesOf(const FaceSet& faceSet);

 private:
  struct SharedFaces {
    FaceSet faceSet;
    Faces faces;
  };

  template <class Value, class Flatten>
  sglRef<sglDataPtr> valueList(const FileList<Value>& list, Flatten flatten);

  // By the place of a list's first value: instances read the values of their source where these are.
  std::unordered_map<const void*, sglRef<sglDataPtr>> m_values;
  std::unordered_map<const void*, SharedFaces> m_faces;  // the last one of each coordinate index
};

}  // namespace importer
