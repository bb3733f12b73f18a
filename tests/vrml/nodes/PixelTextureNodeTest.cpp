// The picture in a pixel texture: its size as the file gives it, its bytes when they fit that size.

#include "vrml/nodes/PixelTextureNode.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace vrml {
namespace {

struct Row {
  const char* name;
  std::vector<std::int32_t> integers;
  std::vector<int> bytes;  // empty when the image is refused
};

const std::vector<Row> kRows = {
    {"nothing", {}, {}},
    {"a size alone", {1, 1}, {}},
    {"one grey pixel", {1, 1, 1, 0x1234}, {0x34}},
    {"grey and alpha", {2, 1, 2, 0x0102, 0x0304}, {1, 2, 3, 4}},
    {"red green blue", {2, 1, 3, 0xFF0000, 0x00FF01}, {0xFF, 0, 0, 0, 0xFF, 1}},
    {"four components", {1, 1, 4, static_cast<std::int32_t>(0xFFFEFDFC)}, {0xFF, 0xFE, 0xFD, 0xFC}},
    {"no width", {0, 1, 1}, {}},
    {"negative sizes", {-1, -1, 1, 5}, {}},
    {"no components", {1, 1, 0, 5}, {}},
    {"five components", {1, 1, 5, 5}, {}},
    {"a pixel too few", {2, 2, 1, 1, 2, 3}, {}},
    {"a pixel too many", {1, 1, 1, 1, 2}, {}},
    {"a size that overflows", {65536, 65536, 4}, {}},
    {"the largest size", {2147483647, 2147483647, 4, 1}, {}},
};

TEST(PixelTextureNode, BytesOfImages) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    PixelTextureNode texture;
    for (const std::int32_t integer : row.integers) texture.editImageField().addValue(integer);
    const unsigned char* const image = texture.getImage();
    ASSERT_EQ(image != nullptr, !row.bytes.empty());
    for (std::size_t i = 0; i < row.bytes.size(); ++i) EXPECT_EQ(image[i], row.bytes[i]) << i;
    EXPECT_EQ(texture.getWidth(), row.integers.empty() ? 0 : row.integers[0]);
    EXPECT_EQ(texture.getHeight(), row.integers.size() < 2 ? 0 : row.integers[1]);
    EXPECT_EQ(texture.getComponents(), row.integers.size() < 3 ? 0 : row.integers[2]);
  }
}

TEST(PixelTextureNode, FollowsAChangeOfItsField) {
  PixelTextureNode texture;
  for (const std::int32_t integer : {1, 1, 1, 7}) texture.editImageField().addValue(integer);
  EXPECT_EQ(texture.getImage()[0], 7);
  texture.editImageField().replaceValue(3, 9);
  EXPECT_EQ(texture.getImage()[0], 9);
  texture.editImageField().clear();
  EXPECT_EQ(texture.getImage(), nullptr);
}

}  // namespace
}  // namespace vrml
