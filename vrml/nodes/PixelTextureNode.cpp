// The table of the node type, and the way from its integers to bytes. The number of bytes is checked against the number
// of integers that are really there, so a size that a file merely claims allocates nothing.

#include "vrml/nodes/PixelTextureNode.h"

#include <cstdint>
#include <span>

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kTextureFields, std::array{dataField<&PixelTextureData::image>(FieldList::exposedField, "image")});

constexpr std::size_t kHeaderIntegers = 3;

}  // namespace

constinit const NodeClass PixelTextureNode::kClass =
    describe<PixelTextureNode>({.typeName = "PixelTexture", .fields = kFields});

const unsigned char* PixelTextureNode::getImage() {
  const std::span<const std::int32_t> integers = getImageField().values();
  const int width = getWidth();
  const int height = getHeight();
  const int components = getComponents();
  if (width < 1 || height < 1 || components < 1 || components > 4) return nullptr;
  const std::uint64_t pixelCount = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
  if (integers.size() - kHeaderIntegers != pixelCount) return nullptr;

  m_bytes.clear();
  m_bytes.reserve(pixelCount * static_cast<std::uint64_t>(components));
  for (const std::int32_t pixel : integers.subspan(kHeaderIntegers))
    for (int component = components; component-- > 0;)
      m_bytes.push_back(static_cast<unsigned char>(static_cast<std::uint32_t>(pixel) >> (8 * component)));
  return m_bytes.data();
}

}  // namespace vrml
