// The table of the node type, and its two hooks.

#include "vrml/nodes/ImageTextureNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kTextureFields, std::array{dataField<&ImageTextureData::url>(FieldList::exposedField, "url")});

}  // namespace

constinit const NodeClass ImageTextureNode::kClass =
    describe<ImageTextureNode>({.typeName = "ImageTexture", .fields = kFields});

const char* ImageTextureNode::refresh() {
  if (getUrl().getSize() == 0) return nullptr;
  const char* const first = getUrl().get1Value(0);
  m_fileName = first ? first : "";
  return m_fileName.c_str();
}

void ImageTextureNode::prepare() {
  if (getUrl().getSize() == 0) m_fileName.clear();
}

}  // namespace vrml
