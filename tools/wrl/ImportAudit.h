#pragma once

// What an import of a parsed file drops, named. The import itself says little about it, and nothing of most of it: this
// walks the tree the way the import does and notes every node, and every part of a node, that leaves no trace in the
// host's scene. What the reading passed over before there was a tree is in the reader's own notes.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vrml {
class Parser;
}

namespace wrl {

/// What becomes of a node or of a part of it. One line of the table of texts each.
enum class AuditKind : std::uint8_t {
  unsupportedGeometry,   // a geometry of a kind that is not converted
  shapeWithoutGeometry,  // a Shape that has none
  misplacedNode,         // a geometry, an appearance or a part of one where no Shape uses it
  surplusNode,           // a second one where the first is taken; detail is the type that holds them
  strayNode,             // a node of a type that its parent has no use for; detail is the parent's type
  noCoordinates,         // a face set without a Coordinate node
  facesOutOfRange,       // faces with an index that names no point
  degenerateFaces,       // faces of fewer than three corners
  degenerateTriangles,   // triangles that name a point twice
  openFaces,             // corners behind the last -1 of an index list
  imageTexture,          // a texture from a file; detail is the file
  movieTexture,          // a texture from a movie
  pixelTexture,          // an image without pixels, of too few or too many values, or of more than four components
  texturePixels,         // a texture that the host gets without its image
  textureCoordinates,    // texture coordinates of a shape without a texture
  proxy,                 // the proxy of a Collision
  fieldNotUsed,          // a field other than its default that nothing looks at; detail is the field
  onlyChildren,          // a grouping node that leaves nothing but its children
  notConverted,          // a node that has no counterpart in the host's scene
  routes,                // the ROUTEs of the file
};
inline constexpr int kAuditKindCount = static_cast<int>(AuditKind::routes) + 1;

/// One finding, or several that read the same.
struct AuditNote {
  AuditKind kind{};
  std::string nodeType;    // "" for routes
  std::string defName;     // "" for nodes without one, and for a field that is not used
  std::string detail;      // what the kind says, "" otherwise
  std::int64_t count = 0;  // faces, triangles, corners or routes
  std::int64_t nodes = 0;  // how many nodes the note stands for
};

/// What of a file the host can take.
struct AuditOptions {
  /// Whether the file that an ImageTexture names becomes a texture; empty: none does. `inlinedFile` is the file that
  /// the node stands in when an Inline brought it in, "" otherwise.
  std::function<bool(const std::string& url, const std::string& inlinedFile)> readsImage;
};

/// The findings: those on single nodes first, in the order of the file, then those that sum up a type. A node that USEs
/// repeat is looked at once.
[[nodiscard]] std::vector<AuditNote> auditImport(const vrml::Parser& scene, const AuditOptions& options);

/// The note as one line of English, `ElevationGrid "land" is not converted`.
[[nodiscard]] std::string auditText(const AuditNote& note);

}  // namespace wrl
