// What every reader offers over its pixels: other sizes, and an alpha channel.

#include "image/FileImage.h"

#include <array>
#include <optional>

#include "tests/image/ImageTest.h"

namespace image {
namespace {

using imagetest::Bytes;

using Color = std::array<std::uint8_t, 3>;

/// An image that was never in a file.
class MadeImage final : public FileImage {
 public:
  MadeImage(int width, int height, std::optional<Color> transparent = std::nullopt)
      : m_width(width),
        m_height(height),
        m_pixels(makePixels(static_cast<std::uint32_t>(std::max(width, 0)),
                            static_cast<std::uint32_t>(std::max(height, 0)), 3)),
        m_transparent(transparent) {
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width && m_pixels; ++x) setPixel(x, y, colorAt(x, y));
  }

  static Color colorAt(int x, int y) {
    return {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x * 3 + y * 5)};
  }
  void setPixel(int x, int y, Color color) {
    const std::size_t pixel =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    std::copy(color.begin(), color.end(), m_pixels.get() + 3 * pixel);
  }
  void dropPixels() { m_pixels.reset(); }

  [[nodiscard]] ImageFileType getFileType() const noexcept override { return kUnknownFile; }
  [[nodiscard]] int getWidth() const noexcept override { return m_width; }
  [[nodiscard]] int getHeight() const noexcept override { return m_height; }
  using FileImage::getImage;
  [[nodiscard]] const std::uint8_t* getImage() const noexcept override { return m_pixels.get(); }
  [[nodiscard]] bool hasTransparencyColor() const noexcept override { return m_transparent.has_value(); }
  void getTransparencyColor(std::span<std::uint8_t, 3> rgb) const noexcept override {
    if (m_transparent) std::copy(m_transparent->begin(), m_transparent->end(), rgb.begin());
  }

 private:
  int m_width;
  int m_height;
  PixelArray m_pixels;
  std::optional<Color> m_transparent;
};

TEST(FileImage, is_ok_with_a_pixel_or_more) {
  const struct {
    int width;
    int height;
    bool expected;
  } rows[] = {{1, 1, true}, {5, 3, true}, {0, 1, false}, {1, 0, false}, {0, 0, false}, {-1, 1, false}, {1, -1, false}};
  for (const auto& row : rows)
    EXPECT_EQ(MadeImage(row.width, row.height).isOk(), row.expected) << row.width << " x " << row.height;
  MadeImage withoutPixels(2, 2);
  withoutPixels.dropPixels();
  EXPECT_FALSE(withoutPixels.isOk());
}

TEST(FileImage, has_no_transparent_colour_of_its_own) {
  const FileTarga targa(Bytes{});
  const FileImage& reader = targa;
  EXPECT_FALSE(reader.hasTransparencyColor());
  std::uint8_t rgb[3] = {1, 2, 3};
  reader.getTransparencyColor(rgb);
  EXPECT_EQ(Bytes(rgb, rgb + 3), (Bytes{1, 2, 3}));
}

TEST(FileImage, resamples_to_the_pixel_above_and_left_in_32_bit_floats) {
  const struct {
    int width;
    int height;
    int toWidth;
    int toHeight;
  } rows[] = {{3, 2, 6, 4}, {3, 2, 2, 1},     {3, 2, 1, 1},       {3, 2, 5, 3},   {3, 2, 3, 2},     {1, 1, 7, 9},
              {7, 5, 3, 2}, {41, 60, 60, 41}, {100, 99, 99, 100}, {255, 1, 3, 5}, {1, 200, 10, 200}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.width) + " x " + std::to_string(row.height) + " to " + std::to_string(row.toWidth) +
                 " x " + std::to_string(row.toHeight));
    const MadeImage image(row.width, row.height);
    Bytes expected;
    for (int y = 0; y < row.toHeight; ++y) {
      for (int x = 0; x < row.toWidth; ++x) {
        const float xScale = static_cast<float>(row.width) / static_cast<float>(row.toWidth);
        const float yScale = static_cast<float>(row.height) / static_cast<float>(row.toHeight);
        const Color color = MadeImage::colorAt(static_cast<int>(static_cast<float>(x) * xScale),
                                               static_cast<int>(static_cast<float>(y) * yScale));
        expected.insert(expected.end(), color.begin(), color.end());
      }
    }
    const PixelArray resampled = image.getImage(row.toWidth, row.toHeight);
    EXPECT_EQ(imagetest::bytesOf(resampled.get(), expected.size()), expected);
    const PixelArray withAlpha = image.getRGBAImage(row.toWidth, row.toHeight);
    ASSERT_NE(withAlpha, nullptr);
    for (std::size_t i = 0; i < expected.size() / 3; ++i) {
      ASSERT_EQ(Bytes(withAlpha.get() + 4 * i, withAlpha.get() + 4 * i + 3),
                Bytes(expected.begin() + static_cast<std::ptrdiff_t>(3 * i),
                      expected.begin() + static_cast<std::ptrdiff_t>(3 * i + 3)));
      ASSERT_EQ(withAlpha[4 * i + 3], 255);
    }
  }
}

TEST(FileImage, is_transparent_where_the_colour_is_exactly_that) {
  MadeImage image(3, 1, Color{10, 20, 30});
  image.setPixel(0, 0, {10, 20, 30});
  image.setPixel(1, 0, {10, 20, 31});
  image.setPixel(2, 0, {10, 20, 30});
  const PixelArray own = image.getRGBAImage();
  EXPECT_EQ(imagetest::bytesOf(own.get(), 12), (Bytes{10, 20, 30, 0, 10, 20, 31, 255, 10, 20, 30, 0}));
  const PixelArray narrow = image.getRGBAImage(2, 1);
  EXPECT_EQ(imagetest::bytesOf(narrow.get(), 8), (Bytes{10, 20, 30, 0, 10, 20, 31, 255}));
}

TEST(FileImage, makes_no_copy_of_no_size_and_none_of_no_image) {
  const MadeImage image(2, 2);
  const struct {
    int width;
    int height;
  } rows[] = {{0, 1},          {1, 0},         {-1, 1},
              {1, -1},         {-3, -3},       {8001, 8000},
              {2147483647, 1}, {1, 64000001},  {2147483647, 2147483647},
              {65536, 65536},  {65537, 65537}, {-2147483647 - 1, -2147483647 - 1}};
  for (const auto& row : rows) {
    EXPECT_EQ(image.getImage(row.width, row.height), nullptr) << row.width << " x " << row.height;
    EXPECT_EQ(image.getRGBAImage(row.width, row.height), nullptr) << row.width << " x " << row.height;
  }
  for (const int side : {0, 2}) {
    const MadeImage empty(side, 2 - side);
    EXPECT_EQ(empty.getImage(1, 1), nullptr);
    EXPECT_EQ(empty.getRGBAImage(1, 1), nullptr);
    EXPECT_EQ(empty.getRGBAImage(), nullptr);
  }
}

// The last column times the scale rounds up to one, where there is no column any more.
TEST(FileImage, stays_inside_the_image_where_floats_round_up) {
  constexpr int kMany = (1 << 25) + 1;
  MadeImage image(1, 1);
  image.setPixel(0, 0, {1, 2, 3});
  const PixelArray wide = image.getImage(kMany, 1);
  ASSERT_NE(wide, nullptr);
  const PixelArray high = image.getImage(1, kMany);
  ASSERT_NE(high, nullptr);
  const std::size_t last = 3 * static_cast<std::size_t>(kMany - 1);
  EXPECT_EQ(Bytes(wide.get() + last, wide.get() + last + 3), (Bytes{1, 2, 3}));
  EXPECT_EQ(Bytes(high.get() + last, high.get() + last + 3), (Bytes{1, 2, 3}));
}

}  // namespace
}  // namespace image
