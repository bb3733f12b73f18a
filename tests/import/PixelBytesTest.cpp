#include "import/PixelBytes.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using importer::PixelImage;

TEST(PixelImage, is_read_only_when_its_size_is_right) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  const struct {
    const char* name;
    std::vector<std::int32_t> integers;
    bool right;
  } rows[] = {
      {"nothing", {}, false},
      {"one integer", {1}, false},
      {"two integers", {1, 1}, false},
      {"no pixels", {0, 0, 0}, false},
      {"no width", {0, 1, 3}, false},
      {"no height", {1, 0, 3}, false},
      {"no components", {1, 1, 0, 5}, false},
      {"a negative width", {-1, -1, 3, 5}, false},
      {"negative components", {1, 1, -3, 5}, false},
      {"a pixel missing", {2, 1, 3, 5}, false},
      {"a pixel too many", {2, 1, 3, 5, 6, 7}, false},
      {"one pixel", {1, 1, 3, 5}, true},
      {"two by one", {2, 1, 3, 5, 6}, true},
      {"two by two", {2, 2, 1, 5, 6, 7, 8}, true},
      {"five components", {1, 1, 5, 255}, true},
      {"components without bound", {1, 1, kMost, 255}, true},
      {"a size past 32 bits whose low bits fit", {65536, 65536, 1}, false},
      {"the largest size", {kMost, kMost, kMost, 1}, false},
  };
  for (const auto& row : rows) EXPECT_EQ(PixelImage::read(row.integers).has_value(), row.right) << row.name;
}

TEST(PixelImage, packs_from_the_last_pixel_to_the_first) {
  using Bytes = std::vector<std::uint8_t>;
  const auto minus = [](std::uint32_t pattern) { return static_cast<std::int32_t>(pattern); };
  const struct {
    const char* name;
    std::vector<std::int32_t> integers;
    Bytes bytes;
  } rows[] = {
      {"one component", {3, 1, 1, 0x01, 0xFF, 0x1234}, {0x34, 0xFF, 0x01}},
      {"two components", {2, 1, 2, 0x0102, 0xA0FF00}, {0xFF, 0x00, 0x01, 0x02}},
      {"three components", {2, 1, 3, 0xFF0000, 0x00FF00}, {0x00, 0xFF, 0x00, 0xFF, 0x00, 0x00}},
      {"three components, high byte ignored", {1, 1, 3, minus(0xAA010203)}, {1, 2, 3}},
      {"four components, the first inverted", {1, 2, 4, minus(0xFF010203), 0x00040506}, {255, 4, 5, 6, 0, 1, 2, 3}},
      {"four components, half transparent", {1, 1, 4, minus(0x80112233)}, {0x7F, 0x11, 0x22, 0x33}},
      {"a negative number", {1, 1, 1, -1}, {0xFF}},
  };
  for (const auto& row : rows) {
    const auto image = PixelImage::read(row.integers);
    ASSERT_TRUE(image.has_value()) << row.name;
    EXPECT_EQ(importer::packPixels(*image), row.bytes) << row.name;
  }
}

}  // namespace
