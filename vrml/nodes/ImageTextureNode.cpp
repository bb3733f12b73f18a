// The table of the node type, its two hooks, and its picture.

#include "vrml/nodes/ImageTextureNode.h"

#include <array>
#include <utility>

#include "image/FileGIF89a.h"
#include "image/ImageFileType.h"
#include "vrml/nodes/LocalUrl.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kTextureFields, std::array{dataField<&ImageTextureData::url>(FieldList::exposedField, "url")});

}  // namespace

constinit const NodeClass ImageTextureNode::kClass =
    describe<ImageTextureNode>({.typeName = "ImageTexture", .fields = kFields});

// A picture file that was asked for.
struct ImageTextureNode::Picture {
  explicit Picture(std::string file) : path(std::move(file)) {
    if (isRegularFile(path) && image::getImageFileType(path) == image::kGIFFile)
      reader = std::make_unique<const image::FileGIF89a>(path);
  }

  std::string path;
  std::unique_ptr<const image::FileImage> reader;  // null when the file is none that is read
};

ImageTextureNode::ImageTextureNode(NodeData* shared) : TypedNode(kClass, shared) {}
ImageTextureNode::~ImageTextureNode() = default;

const char* ImageTextureNode::refresh() {
  m_picture.reset();
  if (getUrl().getSize() == 0) return nullptr;
  const char* const first = getUrl().get1Value(0);
  m_fileName = first ? first : "";
  return m_fileName.c_str();
}

void ImageTextureNode::prepare() {
  if (getUrl().getSize() == 0) m_fileName.clear();
}

int ImageTextureNode::getWidth() const {
  const image::FileImage* const shown = picture();
  return shown ? shown->getWidth() : 0;
}

int ImageTextureNode::getHeight() const {
  const image::FileImage* const shown = picture();
  return shown ? shown->getHeight() : 0;
}

const unsigned char* ImageTextureNode::getImage() {
  const image::FileImage* const shown = picture();
  return shown ? shown->getImage() : nullptr;
}

// An instance has the urls of its source, which stand in the source's file.
const image::FileImage* ImageTextureNode::picture() const {
  if (const Node* const source = getReferenceNode()) return static_cast<const ImageTextureNode*>(source)->picture();
  const char* const url = getUrl().getSize() == 0 ? nullptr : getUrl().get1Value(0);
  std::string path = localPath(url ? url : "", fileOfNode(*this));
  if (!m_picture || m_picture->path != path) m_picture = std::make_unique<const Picture>(std::move(path));
  const image::FileImage* const reader = m_picture->reader.get();
  return reader && reader->isOk() ? reader : nullptr;
}

}  // namespace vrml
