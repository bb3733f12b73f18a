#pragma once

// A texture whose picture stands in the file itself, as a list of integers: width, height, number of components, then
// one integer a pixel, row by row from below.

#include <vector>

#include "vrml/fields/SFImage.h"
#include "vrml/nodes/TextureNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct PixelTextureData : TextureData {
  Named<SFImage> image{"image"};
};

class PixelTextureNode final : public TypedNode<TextureNode, PixelTextureData> {
 public:
  static const NodeClass kClass;
  explicit PixelTextureNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  /// The first two integers of the image as they stand; 0 when they are missing.
  [[nodiscard]] int getWidth() const override { return getImageField().get1Value(0); }
  [[nodiscard]] int getHeight() const override { return getImageField().get1Value(1); }
  /// The number of components of a pixel; 0 when it is missing.
  [[nodiscard]] int getComponents() const { return getImageField().get1Value(2); }
  /// One byte a component, the most significant first, pixel by pixel in the order of the file. Null unless the image
  /// has 1 to 4 components and exactly width times height pixels, at least one. Valid until the next call.
  [[nodiscard]] const unsigned char* getImage() override;

  /// The whole list; its values() are the integers as the file gives them.
  [[nodiscard]] const SFImage& getImageField() const { return *data().image; }
  [[nodiscard]] SFImage& editImageField() { return *editData().image; }

 private:
  std::vector<unsigned char> m_bytes;
};

}  // namespace vrml
