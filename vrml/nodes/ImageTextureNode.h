#pragma once

// A texture from a picture file. Of these the node reads GIF files, and none before somebody asks for the picture: most
// worlds are read by those who never do.

#include <memory>
#include <string>

#include "vrml/fields/MFString.h"
#include "vrml/nodes/TextureNode.h"
#include "vrml/nodes/TypedNode.h"

namespace image {
class FileImage;
}

namespace vrml {

struct ImageTextureData : TextureData {
  Named<MFString> url{"url"};
};

class ImageTextureNode final : public TypedNode<TextureNode, ImageTextureData> {
 public:
  static const NodeClass kClass;
  explicit ImageTextureNode(NodeData* shared = nullptr);
  ~ImageTextureNode() override;

  /// Takes the first url, when there is one, as the current file name and answers with it; null without a url. The
  /// picture is read anew when it is asked for next.
  const char* refresh() override;
  /// Forgets the current file name when there is no url.
  void prepare() override;

  /// The picture of the GIF file that the first url names, relative to the file that this node was read from: 3 bytes
  /// a pixel (red, green, blue), row by row from above, valid until the url changes or the next refresh. 0 and null
  /// when the url names no regular file that begins as a GIF does and can be read as one. The first of these calls
  /// reads the file; an instance has its source's picture.
  [[nodiscard]] int getWidth() const override;
  [[nodiscard]] int getHeight() const override;
  [[nodiscard]] const unsigned char* getImage() override;

  /// The current file name; "" before the first refresh and after a prepare without a url.
  [[nodiscard]] const std::string& getFileName() const noexcept { return m_fileName; }

  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }

 private:
  struct Picture;

  // Null when there is no picture to show.
  [[nodiscard]] const image::FileImage* picture() const;

  std::string m_fileName;
  mutable std::unique_ptr<const Picture> m_picture;  // what the last question found; null before the first
};

}  // namespace vrml
