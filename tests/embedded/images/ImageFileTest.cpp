// Image files in and out.

#include "embedded/images/ImageFile.h"

#include <VekFoundations/CVekImage.h>
#include <VekSG/sglTexture2D.h>
#include <VekSGdb/sglImageLoader.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "embedded/images/ImageCodecs.h"
#include "tests/TempFolder.h"

namespace {

using embedded::Raster;
using Bytes = std::vector<std::uint8_t>;

// 2 by 2: red, green; blue, white.
Raster corners(unsigned channels) {
  Raster raster;
  EXPECT_TRUE(embedded::makeRaster(2, 2, channels, raster));
  const Bytes rgb = {255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255};
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t c = 0; c < channels; ++c) {
      raster.bytes[i * channels + c] = c == 3 ? static_cast<std::uint8_t>(i * 60) : rgb[i * 3 + c];
    }
  }
  return raster;
}

Bytes littleEndian(std::initializer_list<int> words) {
  Bytes bytes;
  for (const int word : words) {
    bytes.push_back(static_cast<std::uint8_t>(word & 255));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8));
  }
  return bytes;
}

Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// A Targa header of an uncompressed true-colour image.
Bytes targa(int width, int height, std::uint8_t bits) {
  return Bytes{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0} + littleEndian({width, height}) + Bytes{bits, 0x20};
}

// A GIF of 2 by 1 on a screen of 3 by 1: colours 1 and 2 of black, red, green, blue; colour 2 is transparent when
// asked.
Bytes gif(int width, int height, bool transparent) {
  Bytes file = {'G', 'I', 'F', '8', '9', 'a'};
  file = file + littleEndian({width, height}) + Bytes{0xF1, 0, 0, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255};
  if (transparent) file = file + Bytes{0x21, 0xF9, 4, 1, 0, 0, 2, 0};
  // Code size 2: clear (100), 1 (001), 2 (010), end (101), three bits each from the lowest.
  return file + Bytes{0x2C, 0, 0, 0, 0, 2, 0, 1, 0, 0, 2, 2, 0x8C, 0x0A, 0, 0x3B};
}

TEST(ImageFile, PngKeepsEveryChannel) {
  const fixtures::TempFolder folder;
  for (unsigned channels = 1; channels <= 4; ++channels) {
    const Raster raster = corners(channels);
    ASSERT_TRUE(embedded::writeImageFile(folder.path("a.PNG"), raster));
    Raster back;
    ASSERT_TRUE(embedded::readImageFile(folder.path() + "\\a.PNG", back));
    EXPECT_EQ(back.channels, channels);
    EXPECT_EQ(back.bytes, raster.bytes);
  }
}

TEST(ImageFile, JpegKeepsSizeAndAlmostTheColours) {
  const fixtures::TempFolder folder;
  for (const unsigned channels : {1U, 2U, 3U, 4U}) {
    Raster raster;
    ASSERT_TRUE(embedded::makeRaster(20, 10, channels, raster));
    for (std::size_t i = 0; i < raster.bytes.size(); ++i)
      raster.bytes[i] = static_cast<std::uint8_t>(40 * (i % channels + 1));
    ASSERT_TRUE(embedded::writeImageFile(folder.path("a.jpg"), raster));
    Raster back;
    ASSERT_TRUE(embedded::readImageFile(folder.path("a.jpg"), back));
    EXPECT_EQ(back.width, 20U);
    EXPECT_EQ(back.height, 10U);
    ASSERT_EQ(back.channels, channels < 3 ? 1U : 3U);
    for (unsigned c = 0; c < back.channels; ++c) EXPECT_NEAR(back.bytes[c], 40 * (c + 1), 3);
  }
}

TEST(ImageFile, TargaAndBmpAreRead) {
  Raster raster;
  ASSERT_TRUE(embedded::readPlainImage(targa(2, 1, 24) + Bytes{1, 2, 3, 4, 5, 6}, raster));
  EXPECT_EQ(raster.channels, 3U);
  EXPECT_EQ(raster.bytes, (Bytes{3, 2, 1, 6, 5, 4}));
  const Bytes bmp = Bytes{'B', 'M'} + littleEndian({62, 0, 0, 0, 54, 0, 40, 0, 2, 0, 1, 0, 1, 24, 0, 0, 8, 0}) +
                    Bytes(16) + Bytes{1, 2, 3, 4, 5, 6, 0, 0};
  ASSERT_TRUE(embedded::readPlainImage(bmp, raster));
  EXPECT_EQ(raster.width, 2U);
  EXPECT_EQ(raster.bytes, (Bytes{3, 2, 1, 6, 5, 4}));
}

TEST(ImageFile, TheFirstGifImageLiesOnItsScreen) {
  Raster raster;
  ASSERT_TRUE(embedded::readGif(gif(3, 1, false), raster));
  EXPECT_EQ(raster.bytes, (Bytes{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0}));
  ASSERT_TRUE(embedded::readGif(gif(3, 1, true), raster));
  EXPECT_EQ(raster.bytes, (Bytes{255, 0, 0, 255, 0, 0, 0, 0, 0, 0, 0, 0}));
  ASSERT_TRUE(embedded::readGif(gif(1, 1, false), raster));
  EXPECT_EQ(raster.bytes, (Bytes{255, 0, 0, 255}));
}

TEST(ImageFile, TooLargeImagesAreRefused) {
  EXPECT_TRUE(embedded::isAllowedSize(8000, 8000));
  EXPECT_FALSE(embedded::isAllowedSize(8000, 8001));
  EXPECT_FALSE(embedded::isAllowedSize(0xFFFFFFFFFFFFFFFFU, 0xFFFFFFFFFFFFFFFFU));
  EXPECT_FALSE(embedded::isAllowedSize(0, 5));
  Raster raster;
  EXPECT_FALSE(embedded::readGif(gif(65535, 65535, false), raster));
  EXPECT_FALSE(embedded::readPlainImage(targa(65535, 65535, 24), raster));
  Raster small = corners(3);
  Bytes png;
  ASSERT_TRUE(embedded::writePng(small, png));
  png[16] = 0x7F;  // the width's first byte
  EXPECT_FALSE(embedded::readPng(png, raster));
  Bytes jpeg;
  ASSERT_TRUE(embedded::writeJpeg(small, jpeg));
  for (std::size_t i = 0; i + 8 < jpeg.size(); ++i) {
    if (jpeg[i] == 0xFF && jpeg[i + 1] == 0xC0)
      std::fill_n(jpeg.begin() + static_cast<std::ptrdiff_t>(i) + 5, 4, std::uint8_t{0xFD});
  }
  EXPECT_FALSE(embedded::readJpeg(jpeg, raster));
}

TEST(ImageFile, EveryCutOffAndEveryChangedByteIsSurvived) {
  Bytes png;
  Bytes jpeg;
  ASSERT_TRUE(embedded::writePng(corners(4), png));
  ASSERT_TRUE(embedded::writeJpeg(corners(3), jpeg));
  using Reader = bool (*)(std::span<const std::uint8_t>, Raster&);
  const std::pair<Reader, Bytes> rows[] = {
      {embedded::readPng, png},
      {embedded::readJpeg, jpeg},
      {embedded::readGif, gif(3, 1, true)},
      {embedded::readPlainImage, targa(2, 1, 24) + Bytes{1, 2, 3, 4, 5, 6}},
  };
  for (const auto& [reader, whole] : rows) {
    for (std::size_t length = 0; length < whole.size(); ++length) {
      Raster raster;
      const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      static_cast<void>(reader(cut, raster));
      Bytes changed = whole;
      changed[length] = static_cast<std::uint8_t>(changed[length] ^ 0x55U);
      if (length < 20 || reader != Reader{embedded::readPlainImage}) static_cast<void>(reader(changed, raster));
    }
  }
}

TEST(ImageFile, WhatIsNoImageIsRefused) {
  const fixtures::TempFolder folder;
  folder.write("text.png", "no image at all");
  folder.write("empty.png", "");
  Raster raster = corners(3);
  for (const char* name : {"text.png", "empty.png", "missing.png", ""}) {
    EXPECT_FALSE(embedded::readImageFile(folder.path(name), raster)) << name;
    EXPECT_EQ(raster.width, 0U);
    EXPECT_TRUE(raster.bytes.empty());
  }
  EXPECT_FALSE(embedded::writeImageFile(folder.path("a.tiff"), corners(3)));
  EXPECT_FALSE(embedded::writeImageFile(folder.path("a.jpg"), Raster{}));
  EXPECT_FALSE(embedded::writeImageFile(folder.path("no/folder/a.jpg"), corners(3)));
}

TEST(Image, HoldsThreeChannelsWithBlueFirst) {
  const fixtures::TempFolder folder;
  CVekImage image;
  for (const unsigned channels : {3U, 4U}) {
    ASSERT_TRUE(embedded::writeImageFile(folder.path("a.png"), corners(channels)));
    ASSERT_TRUE(image.LoadImageA(folder.path() + "\\a.png", false));
    EXPECT_EQ(image.GetWidth(), 2U);
    EXPECT_EQ(image.GetHeight(), 2U);
    EXPECT_EQ(image.GetFormat(), SGL_IMAGE_RGB);
    EXPECT_EQ(image.GetType(), SGL_IMAGE_UNSIGNED_BYTE);
    ASSERT_NE(image.GetPixel(0, 0), nullptr);
    EXPECT_EQ(int{image.GetPixel(0, 0)[2]}, 255);
    EXPECT_EQ(int{image.GetPixel(0, 0)[0]}, 0);
    EXPECT_EQ(int{image.GetPixel(0, 1)[0]}, 255);
    EXPECT_EQ(image.GetPixel(2, 0), nullptr);
    EXPECT_EQ(image.GetPixel(0, 2), nullptr);
  }
  ASSERT_TRUE(image.LoadImageA(folder.path("a.png"), true));
  EXPECT_EQ(int{image.GetPixel(0, 0)[0]}, 255);
}

TEST(Image, GreyImagesHaveThreeEqualChannelsAndAFailureLeavesItEmpty) {
  const fixtures::TempFolder folder;
  ASSERT_TRUE(embedded::writeImageFile(folder.path("a.png"), corners(1)));
  CVekImage image;
  ASSERT_TRUE(image.LoadImageA(folder.path("a.png"), false));
  EXPECT_EQ((Bytes{image.GetPixel(0, 0), image.GetPixel(0, 0) + 3}), (Bytes{255, 255, 255}));
  EXPECT_FALSE(image.LoadImageA(folder.path("missing.png"), false));
  EXPECT_EQ(image.GetWidth(), 0U);
  EXPECT_EQ(image.GetPixel(0, 0), nullptr);
}

TEST(ImageLoader, WritesJpegFilesAndRefusesEmptyImages) {
  const fixtures::TempFolder folder;
  const Bytes pixels(std::size_t{16} * 8 * 3, 200);
  const auto write = [&](const std::string& name, const std::uint8_t* data, unsigned width, unsigned height) {
    return sglImageLoader::writeImage(folder.path(name), data, width, height, SGL_IMAGE_RGB, SGL_IMAGE_UNSIGNED_BYTE,
                                      0);
  };
  EXPECT_TRUE(write("a.jpg", pixels.data(), 16, 8));
  EXPECT_EQ(folder.read("a.jpg").substr(0, 2), "\xFF\xD8");
  EXPECT_FALSE(write("b.jpg", pixels.data(), 0, 8));
  EXPECT_FALSE(write("b.jpg", nullptr, 16, 8));
  EXPECT_FALSE(std::filesystem::exists(folder.path("b.jpg")));
}

TEST(TextureImage, RowsBeginAtTheBottom) {
  const fixtures::TempFolder folder;
  ASSERT_TRUE(embedded::writeImageFile(folder.path("a.png"), corners(3)));
  const sglRef<sglTexture2D> texture(new sglTexture2D);
  ASSERT_TRUE(embedded::readTextureImage(folder.path("a.png"), texture.get()));
  EXPECT_EQ(texture->getInternalFormat(), sglTexture::FORMAT_RGB);
  EXPECT_EQ(texture->getImage(), (Bytes{0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 255, 0}));
  EXPECT_FALSE(embedded::readTextureImage(folder.path("none.png"), texture.get()));
  EXPECT_FALSE(embedded::readTextureImage(folder.path("a.png"), nullptr));
}

}  // namespace
