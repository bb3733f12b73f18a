#pragma once

// The base of the nodes that a Shape shows. A geometry's bounding box follows from its own values; it is kept in the
// fifth list and apart from it as a BoundingBox.

#include "vrml/nodes/BoundingBox.h"
#include "vrml/nodes/Node.h"

namespace vrml {

class GeometryNode : public Node {
 public:
  void prepare() override { recomputeBoundingBox(); }
  /// Computes the box and notes its centre and size in bboxCenter and bboxSize of the fifth list; an empty box leaves
  /// -1 there.
  void recomputeBoundingBox() override;
  /// The box that was computed last; empty when none was.
  [[nodiscard]] BoundingBox getBoundingBox() const { return computedBox(); }

  /// The box of the geometry as it is now; empty for a geometry whose extent its values do not tell (a text).
  [[nodiscard]] virtual BoundingBox computeBox() const;

 protected:
  using Node::Node;

  /// The box of the points of the Coordinate child.
  [[nodiscard]] BoundingBox boxOfPoints() const;
};

}  // namespace vrml
