#pragma once

// The base of the textures: whether they repeat, and the picture that they show, as far as it is known here.

#include "vrml/fields/SFBool.h"
#include "vrml/nodes/Node.h"

namespace vrml {

struct TextureData : NodeData {
  Named<SFBool> repeatS{"repeatS", true};
  Named<SFBool> repeatT{"repeatT", true};
};

class TextureNode : public Node {
 public:
  /// Behind the operations of every node; the order stays. The texture's picture: its width and height in pixels, and
  /// its pixels as bytes, in the form that the class describes, owned by the node. 0 and null for a texture of which no
  /// picture is known.
  [[nodiscard]] virtual int getWidth() const { return 0; }
  [[nodiscard]] virtual int getHeight() const { return 0; }
  [[nodiscard]] virtual const unsigned char* getImage() { return nullptr; }

  [[nodiscard]] bool getRepeatS() const { return textureData().repeatS->getValue(); }
  void setRepeatS(bool value) { editTextureData().repeatS->setValue(value); }
  [[nodiscard]] bool getRepeatT() const { return textureData().repeatT->getValue(); }
  void setRepeatT(bool value) { editTextureData().repeatT->setValue(value); }

 protected:
  using Node::Node;

 private:
  [[nodiscard]] const TextureData& textureData() const { return static_cast<const TextureData&>(data()); }
  [[nodiscard]] TextureData& editTextureData() { return static_cast<TextureData&>(editData()); }
};

}  // namespace vrml
