// GIF files: blocks, frames, interlace and transparency.

#include "image/FileGIF89a.h"

#include "tests/image/ImageTest.h"

namespace image {
namespace {

using imagetest::Bytes;
using imagetest::operator+;
using imagetest::colored;
using imagetest::fourColors;
using imagetest::gifControl;
using imagetest::gifDescriptor;
using imagetest::gifImage;
using imagetest::gifScreen;
using imagetest::literalData;
using imagetest::subBlocks;
using imagetest::words;

constexpr std::uint8_t kInterlaced = 0x40;
constexpr std::uint8_t kLocalTableOf4 = 0x81;

Bytes square() { return gifImage(2, 2, {0, 1, 2, 3}); }
Bytes squarePixels() { return colored(fourColors(), {0, 1, 2, 3}); }

Bytes framePixels(const GIFFrame& frame) {
  return imagetest::bytesOf(frame.pixels.get(), std::size_t{3} * frame.width * frame.height);
}

struct Row {
  const char* name;
  Bytes file;
  std::size_t frameCount;
};

/// Reads each from a buffer of its size; the first frame, if any, is the square.
void expectSquares(std::initializer_list<Row> rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const imagetest::ExactBuffer file(row.file);
    const FileGIF89a reader(file.span());
    EXPECT_EQ(reader.getFrames().size(), row.frameCount);
    EXPECT_EQ(reader.isOk(), row.frameCount > 0);
    EXPECT_EQ(imagetest::pixelsOf(reader), row.frameCount > 0 ? squarePixels() : Bytes{});
  }
}

TEST(FileGIF89a, is_one_frame_when_an_image_is_followed_by_the_trailer) {
  const FileGIF89a reader(gifScreen() + Bytes{','} + square() + Bytes{';'});
  ASSERT_TRUE(reader.isOk());
  EXPECT_EQ(reader.getFileType(), 1);
  EXPECT_EQ(reader.getWidth(), 2);
  EXPECT_EQ(reader.getHeight(), 2);
  ASSERT_EQ(reader.getFrames().size(), 1u);
  EXPECT_EQ(imagetest::pixelsOf(reader), squarePixels());
  EXPECT_EQ(reader.getImage(), reader.getFrames()[0].pixels.get());
  EXPECT_EQ(reader.getFrames()[0].writeCursor, 4u);
  EXPECT_FALSE(reader.hasTransparencyColor());
}

TEST(FileGIF89a, keeps_what_the_screen_and_the_descriptor_say) {
  const Bytes file = Bytes{'G', 'I', 'F', '8', '7', 'b'} + words({0x1234, 0xFEDC}) + Bytes{0x71, 9, 49} +
                     gifControl(true, 200) + Bytes{','} + words({0x0102, 0x0304, 1, 2}) + Bytes{0xB9} + Bytes(12, 5) +
                     Bytes{2} + subBlocks(literalData(2, {3}));
  const FileGIF89a reader(file);
  const GIFScreen& screen = reader.getScreen();
  EXPECT_EQ(Bytes(screen.signature, screen.signature + 3), (Bytes{'G', 'I', 'F'}));
  EXPECT_EQ(Bytes(screen.version, screen.version + 3), (Bytes{'8', '7', 'b'}));
  EXPECT_EQ(screen.width, 0x1234);
  EXPECT_EQ(screen.height, 0xFEDC);
  EXPECT_EQ(screen.flags, 0x71);
  EXPECT_EQ(screen.backgroundIndex, 9);
  EXPECT_EQ(screen.pixelAspect, 49);
  ASSERT_EQ(reader.getFrames().size(), 1u);
  const GIFFrame& frame = reader.getFrames()[0];
  EXPECT_EQ(frame.left, 0x0102);
  EXPECT_EQ(frame.top, 0x0304);
  EXPECT_EQ(frame.width, 1);
  EXPECT_EQ(frame.height, 2);
  EXPECT_EQ(frame.flags, 0xB9);
  EXPECT_EQ(frame.localColorTable, Bytes(12, 5));
  EXPECT_EQ(frame.writeCursor, 1u);
  EXPECT_TRUE(frame.hasTransparency);
  EXPECT_EQ(frame.transparentIndex, 200u);
}

TEST(FileGIF89a, takes_tables_of_every_size) {
  for (unsigned bits = 0; bits < 8; ++bits) {
    const std::size_t count = std::size_t{2} << bits;
    Bytes table(3 * count, 0);
    table[3 * count - 3] = 77;
    const std::vector<unsigned> last(1, static_cast<unsigned>(count - 1));
    const Bytes data = Bytes{8} + subBlocks(literalData(8, last));
    const auto flags = static_cast<std::uint8_t>(0x80 | bits);
    const Bytes screen = Bytes(6) + words({1, 1});
    const FileGIF89a global(screen + Bytes{flags, 0, 0} + table + Bytes{','} + gifDescriptor(1, 1) + data);
    const FileGIF89a local(screen + Bytes{0, 0, 0} + Bytes{','} + gifDescriptor(1, 1, flags) + table + data);
    EXPECT_EQ(imagetest::pixelsOf(global), (Bytes{77, 0, 0})) << count << " colours";
    EXPECT_EQ(imagetest::pixelsOf(local), (Bytes{77, 0, 0})) << count << " colours";
  }
}

TEST(FileGIF89a, finds_the_first_image_behind_whatever_stands_before_it) {
  const Bytes image = Bytes{','} + square();
  Bytes noSignature = gifScreen() + image;
  std::fill_n(noSignature.begin(), 6, std::uint8_t{'x'});
  expectSquares({
      {"nothing but the screen", gifScreen(), 0},
      {"a trailer", gifScreen() + Bytes{';'}, 0},
      {"a trailer in front of an image", gifScreen() + Bytes{';'} + image, 0},
      {"no trailer", gifScreen() + image, 1},
      {"no signature", noSignature, 1},
      {"bytes that introduce nothing", gifScreen() + Bytes{0, 1, 2, 255, 'G', 0} + image, 1},
      {"a comment", gifScreen() + Bytes{'!', 0xFE, 2, 'a', 'b', 3, 'c', 'd', 'e', 0} + image, 1},
      {"a comment whose data hold an image's comma", gifScreen() + Bytes{'!', 0xFE, 2, ',', ',', 0} + image, 1},
      {"a comment whose first zero is data", gifScreen() + Bytes{'!', 0xFE, 3, 0, ';', 'x', 0} + image, 0},
      {"a comment whose first zero is data, and harmless", gifScreen() + Bytes{'!', 0xFE, 3, 1, 0, 'x', 0} + image, 1},
      {"plain text with zeros in its first block", gifScreen() + Bytes{'!', 1, 3, 0, ';', 0, 2, 'h', 'i', 0} + image,
       1},
      {"an application with zeros in its first block", gifScreen() + Bytes{'!', 0xFF, 3, 0, ';', 0, 0} + image, 1},
      {"an application with a zero in its second", gifScreen() + Bytes{'!', 0xFF, 1, 9, 3, 1, 0, ';', 0} + image, 0},
      {"an extension of no kind", gifScreen() + Bytes{'!', 0x77, 9, 9, 9, 0} + image, 1},
      {"an extension of no kind and no bytes", gifScreen() + Bytes{'!', 0x77, 0} + image, 1},
      {"the label 0, which ends nothing", gifScreen() + Bytes{'!', 0, 4, 0} + image, 1},
      {"a control extension", gifScreen() + gifControl(true, 1) + image, 1},
  });
}

TEST(FileGIF89a, is_empty_when_its_first_image_is_not_whole) {
  const Bytes start = gifScreen() + Bytes{','} + gifDescriptor(2, 2);
  const Bytes data = literalData(2, {0, 1, 2, 3});
  expectSquares({
      {"no data", start + Bytes{2, 0, ';'}, 0},
      {"no closing block", start + Bytes{2, static_cast<std::uint8_t>(data.size())} + data, 0},
      {"a cut block", start + Bytes{2, 200} + data, 0},
      {"a code size of 12", start + Bytes{12} + subBlocks(data), 0},
      {"a code size of 255", start + Bytes{255} + subBlocks(data), 0},
      {"a cut local table", gifScreen() + Bytes{','} + gifDescriptor(2, 2, 0x87) + Bytes(700), 0},
      {"a cut screen", {'G', 'I', 'F', '8', '9', 'a', 2, 0, 2, 0, 0, 0}, 0},
      {"a cut global table", {'G', 'I', 'F', '8', '9', 'a', 2, 0, 2, 0, 0x80, 0, 0, 1, 2, 3, 4, 5}, 0},
  });
  const fixtures::TempFolder folder;
  EXPECT_FALSE(FileGIF89a(folder.path("missing.gif")).isOk());
  EXPECT_FALSE(FileGIF89a(folder.path("")).isOk());
}

TEST(FileGIF89a, puts_data_together_from_blocks_of_any_length) {
  const Bytes data = literalData(2, {0, 1, 2, 3});
  Bytes single;
  for (const std::uint8_t byte : data) single = single + Bytes{1, byte};
  Bytes large = data;
  large.resize(700);
  expectSquares({
      {"of one byte", gifScreen() + Bytes{','} + gifDescriptor(2, 2) + Bytes{2} + single + Bytes{0, ';'}, 1},
      {"of 255 bytes", gifScreen() + Bytes{','} + gifDescriptor(2, 2) + Bytes{2} + subBlocks(large) + Bytes{';'}, 1},
  });
}

TEST(FileGIF89a, goes_from_an_image_straight_to_the_next) {
  const Bytes first = gifScreen() + Bytes{','} + square();
  const FileGIF89a bare(first + gifImage(1, 1, {3}) + gifImage(3, 1, {2, 1, 0}) + Bytes{';'});
  ASSERT_EQ(bare.getFrames().size(), 3u);
  EXPECT_EQ(imagetest::pixelsOf(bare), squarePixels());
  EXPECT_EQ(framePixels(bare.getFrames()[1]), colored(fourColors(), {3}));
  EXPECT_EQ(framePixels(bare.getFrames()[2]), colored(fourColors(), {2, 1, 0}));

  expectSquares({
      {"a second image in the usual way is none", first + Bytes{','} + square() + Bytes{';'}, 1},
      {"nor is one behind a control extension", first + gifControl(true, 0) + Bytes{','} + square() + Bytes{';'}, 1},
      {"a second image without data", first + gifDescriptor(1, 1) + Bytes{2, 0}, 1},
      {"a second image that claims too much", first + gifImage(65535, 65535, {1}), 1},
      {"a second image of a bad code size", first + gifDescriptor(1, 1) + Bytes{12, 1, 1, 0}, 1},
      {"images until one is not whole", first + square() + gifDescriptor(1, 1) + Bytes{2, 0} + square(), 2},
  });
}

TEST(FileGIF89a, takes_the_transparency_of_the_last_control_before_the_image) {
  const Bytes image = Bytes{','} + square();
  const Bytes colors = fourColors();
  const struct {
    const char* name;
    Bytes before;
    bool expected;
    std::uint32_t index;
  } rows[] = {
      {"no control", {}, false, 0},
      {"one", gifControl(true, 2), true, 2},
      {"the second of two", gifControl(true, 2) + gifControl(true, 3), true, 3},
      {"the second of two, which is off", gifControl(true, 2) + gifControl(false, 3), false, 3},
      {"other bits of the flags", {'!', 0xF9, 4, 0xFE, 0, 0, 1, 0}, false, 1},
      {"all bits of the flags", {'!', 0xF9, 4, 0xFF, 0, 0, 1, 0}, true, 1},
      {"more bytes than usual", {'!', 0xF9, 6, 1, 0, 0, 2, 3, 3, 0}, true, 2},
      {"three bytes", gifControl(false, 3) + Bytes{'!', 0xF9, 3, 1, 9, 9, 0}, true, 0},
      {"one byte", gifControl(false, 3) + Bytes{'!', 0xF9, 1, 1, 0}, true, 0},
      {"no byte", gifControl(true, 3) + Bytes{'!', 0xF9, 0, 0}, false, 0},
      {"a comment in between", gifControl(true, 2) + Bytes{'!', 0xFE, 1, 1, 0}, true, 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const imagetest::ExactBuffer file(gifScreen() + row.before + image);
    const FileGIF89a reader(file.span());
    ASSERT_TRUE(reader.isOk());
    EXPECT_EQ(reader.hasTransparencyColor(), row.expected);
    EXPECT_EQ(reader.getFrames()[0].transparentIndex, row.index);
    Bytes rgb = {1, 2, 3};
    reader.getTransparencyColor(std::span<std::uint8_t, 3>(rgb.data(), 3));
    EXPECT_EQ(rgb, row.expected ? colored(colors, {row.index}) : (Bytes{1, 2, 3}));
    const PixelArray rgba = reader.getRGBAImage();
    for (std::uint32_t i = 0; i < 4; ++i)
      EXPECT_EQ(rgba[i * std::size_t{4} + 3], row.expected && i == row.index ? 0 : 255) << "pixel " << i;
  }
}

TEST(FileGIF89a, keeps_the_transparency_for_later_images) {
  const FileGIF89a reader(gifScreen() + gifControl(true, 2) + Bytes{','} + square() + square());
  ASSERT_EQ(reader.getFrames().size(), 2u);
  EXPECT_TRUE(reader.getFrames()[1].hasTransparency);
  EXPECT_EQ(reader.getFrames()[1].transparentIndex, 2u);
}

TEST(FileGIF89a, has_the_transparent_colour_of_the_table_that_colours_it) {
  const Bytes local = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 11, 12};
  const Bytes data = Bytes{2} + subBlocks(literalData(2, {1}));
  const Bytes noTable = Bytes(6) + words({1, 1}) + Bytes{0, 0, 0};
  const struct {
    const char* name;
    Bytes file;
    Bytes expected;
  } rows[] = {
      {"the local before the global",
       gifScreen() + gifControl(true, 1) + Bytes{','} + gifDescriptor(1, 1, kLocalTableOf4) + local + data,
       {6, 5, 4}},
      {"the local alone",
       noTable + gifControl(true, 2) + Bytes{','} + gifDescriptor(1, 1, kLocalTableOf4) + local + data,
       {3, 2, 1}},
      {"past the local",
       gifScreen() + gifControl(true, 4) + Bytes{','} + gifDescriptor(1, 1, kLocalTableOf4) + local + data,
       {0, 0, 0}},
      {"past the global", gifScreen() + gifControl(true, 255) + Bytes{','} + gifDescriptor(1, 1) + data, {0, 0, 0}},
      {"no table", noTable + gifControl(true, 0) + Bytes{','} + gifDescriptor(1, 1) + data, {0, 0, 0}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const imagetest::ExactBuffer file(row.file);
    const FileGIF89a reader(file.span());
    ASSERT_TRUE(reader.hasTransparencyColor());
    Bytes rgb = {1, 2, 3};
    reader.getTransparencyColor(std::span<std::uint8_t, 3>(rgb.data(), 3));
    EXPECT_EQ(rgb, row.expected);
  }
}

TEST(FileGIF89a, is_black_where_there_is_no_colour) {
  const Bytes noTable = Bytes(6) + words({1, 1}) + Bytes{0, 0, 0};
  const Bytes past = gifDescriptor(2, 1) + Bytes{3} + subBlocks(literalData(3, {3, 4}));
  const FileGIF89a indices(gifScreen() + Bytes{','} + past);
  EXPECT_EQ(imagetest::pixelsOf(indices), colored(fourColors(), {3}) + Bytes(3));
  const FileGIF89a tables(noTable + Bytes{','} + past);
  EXPECT_TRUE(tables.isOk());
  EXPECT_EQ(imagetest::pixelsOf(tables), Bytes(6));
  const FileGIF89a few(gifScreen() + Bytes{','} + gifImage(2, 2, {1, 2}));
  EXPECT_EQ(imagetest::pixelsOf(few), colored(fourColors(), {1, 2}) + Bytes(6));
  EXPECT_EQ(few.getFrames()[0].writeCursor, 2u);
  const FileGIF89a none(gifScreen() + Bytes{','} + gifDescriptor(1, 1) + Bytes{2, 1, 5, 0});
  EXPECT_EQ(imagetest::pixelsOf(none), Bytes(3));
}

TEST(FileGIF89a, drops_pixels_past_the_frame) {
  expectSquares({{"", gifScreen() + Bytes{','} + gifImage(2, 2, {0, 1, 2, 3, 3, 3, 3, 3, 3, 3, 3, 3}), 1}});
}

TEST(FileGIF89a, puts_interlaced_rows_in_order) {
  const struct {
    unsigned height;
    std::vector<unsigned> rowOf;  // where each row that comes goes to
  } rows[] = {
      {1, {0}},
      {2, {0, 1}},
      {3, {0, 2, 1}},
      {4, {0, 2, 1, 3}},
      {5, {0, 4, 2, 1, 3}},
      {8, {0, 4, 2, 6, 1, 3, 5, 7}},
      {9, {0, 8, 4, 2, 6, 1, 3, 5, 7}},
      {17, {0, 8, 16, 4, 12, 2, 6, 10, 14, 1, 3, 5, 7, 9, 11, 13, 15}},
  };
  Bytes table(std::size_t{3} * 64);
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<std::uint8_t>(i + 1);
  const Bytes screen = Bytes(6) + words({2, 17}) + Bytes{0x85, 0, 0} + table;
  for (const auto& row : rows) {
    // Two columns, so that a row is more than a pixel; and the same cut short in the middle of every row.
    for (unsigned count = 0; count <= 2 * row.height; ++count) {
      SCOPED_TRACE(std::to_string(row.height) + " rows, " + std::to_string(count) + " pixels");
      std::vector<unsigned> indices(count);
      Bytes expected(std::size_t{6} * row.height);
      for (unsigned i = 0; i < count; ++i) {
        indices[i] = i;
        std::copy_n(table.begin() + 3 * i, 3, expected.begin() + 6 * row.rowOf[i / 2] + 3 * (i % 2));
      }
      const Bytes data = Bytes{6} + subBlocks(literalData(6, indices));
      const FileGIF89a reader(screen + Bytes{','} + gifDescriptor(2, row.height, kInterlaced) + data);
      ASSERT_TRUE(reader.isOk());
      EXPECT_EQ(imagetest::pixelsOf(reader), expected);
    }
  }
}

TEST(FileGIF89a, has_no_image_when_its_first_frame_has_no_pixel) {
  for (const auto& [width, height] : {std::pair(0U, 2U), std::pair(2U, 0U), std::pair(0U, 0U)}) {
    for (const std::uint8_t flags : {std::uint8_t{0}, kInterlaced}) {
      const FileGIF89a reader(gifScreen() + Bytes{','} + gifImage(width, height, {1, 2}, flags) + square());
      EXPECT_FALSE(reader.isOk());
      EXPECT_EQ(reader.getFrames().size(), 2u);
      EXPECT_EQ(reader.getImage(1, 1), nullptr);
    }
  }
}

TEST(FileGIF89a, refuses_more_pixels_than_there_may_be) {
  const auto claimOf = [](unsigned width, unsigned height) {
    return FileGIF89a(gifScreen() + Bytes{','} + gifImage(width, height, {1})).isOk();
  };
  EXPECT_TRUE(claimOf(8000, 8000));
  EXPECT_FALSE(claimOf(8001, 8000));
  EXPECT_FALSE(claimOf(65535, 65535));
  EXPECT_FALSE(claimOf(65535, 977));
  EXPECT_TRUE(claimOf(65535, 976));
}

TEST(FileGIF89a, counts_the_pixels_of_all_frames_together) {
  const Bytes file =
      gifScreen() + Bytes{','} + square() + gifImage(8000, 7999, {1}) + gifImage(7996, 1, {2}) + gifImage(1, 1, {3});
  EXPECT_EQ(FileGIF89a(file).getFrames().size(), 3u);
  EXPECT_EQ(FileGIF89a(gifScreen() + Bytes{','} + square() + gifImage(8000, 8000, {1})).getFrames().size(), 1u);
}

TEST(FileGIF89a, keeps_no_more_frames_than_there_may_be) {
  Bytes file = gifScreen() + Bytes{','};
  const Bytes frame = gifDescriptor(1, 1) + Bytes{2, 1, 5, 0};
  for (std::size_t i = 0; i < FileGIF89a::kMaxFrames + 5; ++i) file.insert(file.end(), frame.begin(), frame.end());
  EXPECT_EQ(FileGIF89a(file).getFrames().size(), FileGIF89a::kMaxFrames);
}

// 192 MB if every pixel were touched.
TEST(FileGIF89a, takes_no_memory_for_what_is_only_claimed) {
  for (const std::uint8_t flags : {std::uint8_t{0}, kInterlaced}) {
    const long before = imagetest::residentKiB();
    const FileGIF89a reader(gifScreen() + Bytes{','} + gifImage(8000, 8000, {1, 2, 3}, flags));
    EXPECT_TRUE(reader.isOk());
    EXPECT_LT(imagetest::residentKiB() - before, 96 * 1024);
  }
}

TEST(FileGIF89a, has_the_whole_frame_or_none_when_it_is_cut_off) {
  const Bytes start = gifScreen() + Bytes{'!', 0xFE, 2, 'a', 'b', 0} + gifControl(true, 2) + Bytes{','} +
                      gifDescriptor(2, 2, kLocalTableOf4) + fourColors() + Bytes{2} +
                      subBlocks(literalData(2, {0, 1, 2, 3}));
  const Bytes file = start + square() + Bytes{';'};
  imagetest::forEveryCutOff(file, [&](std::span<const std::uint8_t> cut) {
    const FileGIF89a reader(cut);
    EXPECT_EQ(reader.isOk(), cut.size() >= start.size());
    EXPECT_EQ(imagetest::pixelsOf(reader), reader.isOk() ? squarePixels() : Bytes{});
    EXPECT_EQ(reader.getFrames().size(),
              std::size_t{cut.size() >= start.size()} + std::size_t{cut.size() >= start.size() + square().size()});
  });
}

}  // namespace
}  // namespace image
