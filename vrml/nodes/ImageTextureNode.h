#pragma once

// A texture from a picture file. The node itself reads no file; it knows which of its urls is the current one.

#include <string>

#include "vrml/fields/MFString.h"
#include "vrml/nodes/TextureNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ImageTextureData : TextureData {
  Named<MFString> url{"url"};
};

class ImageTextureNode final : public TypedNode<TextureNode, ImageTextureData> {
 public:
  static const NodeClass kClass;
  explicit ImageTextureNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  /// Takes the first url, when there is one, as the current file name and answers with it; null without a url.
  const char* refresh() override;
  /// Forgets the current file name when there is no url.
  void prepare() override;

  /// The current file name; "" before the first refresh and after a prepare without a url.
  [[nodiscard]] const std::string& getFileName() const noexcept { return m_fileName; }

  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }

 private:
  std::string m_fileName;
};

}  // namespace vrml
