// Targa files in and out.

#include "image/FileTarga.h"

#include "tests/image/ImageTest.h"

namespace image {
namespace {

using imagetest::Bytes;
using imagetest::operator+;
using imagetest::words;

// A header with a number of its own in every field that is not acted upon.
Bytes header(unsigned width, unsigned height, std::uint8_t depth = 24, std::uint8_t idLength = 0) {
  return Bytes{idLength, 1, 10} + words({0x1234, 0x2345}) + Bytes{32} + words({0x3456, 0x4567, width, height}) +
         Bytes{depth, 0x28};
}

void expectEmpty(const FileTarga& reader) {
  EXPECT_FALSE(reader.isOk());
  EXPECT_EQ(reader.getWidth(), 0);
  EXPECT_EQ(reader.getHeight(), 0);
  EXPECT_EQ(reader.getImage(), nullptr);
  EXPECT_EQ(reader.getRGBAImage(), nullptr);
  const TargaHeader& reset = reader.getHeader();
  EXPECT_EQ(reset.imageType, 2);
  for (const int field : {int{reset.idLength}, int{reset.colorMapType}, int{reset.colorMapOrigin},
                          int{reset.colorMapLength}, int{reset.colorMapDepth}, int{reset.xOrigin}, int{reset.yOrigin},
                          int{reset.width}, int{reset.height}, int{reset.pixelDepth}, int{reset.imageDescriptor}})
    EXPECT_EQ(field, 0);
}

TEST(FileTarga, keeps_the_pixels_and_the_header_as_the_file_has_them) {
  const imagetest::ExactBuffer file(header(2, 1, 24, 3) + Bytes{'a', 'b', 'c', 1, 2, 3, 4, 5, 6});
  const FileTarga reader(file.span());
  ASSERT_TRUE(reader.isOk());
  EXPECT_EQ(reader.getFileType(), 3);
  EXPECT_EQ(reader.getWidth(), 2);
  EXPECT_EQ(reader.getHeight(), 1);
  EXPECT_EQ(imagetest::pixelsOf(reader), (Bytes{1, 2, 3, 4, 5, 6}));
  EXPECT_FALSE(reader.hasTransparencyColor());
  const TargaHeader& fields = reader.getHeader();
  EXPECT_EQ(fields.idLength, 3);
  EXPECT_EQ(fields.colorMapType, 1);
  EXPECT_EQ(fields.imageType, 10);
  EXPECT_EQ(fields.colorMapOrigin, 0x1234);
  EXPECT_EQ(fields.colorMapLength, 0x2345);
  EXPECT_EQ(fields.colorMapDepth, 32);
  EXPECT_EQ(fields.xOrigin, 0x3456);
  EXPECT_EQ(fields.yOrigin, 0x4567);
  EXPECT_EQ(fields.pixelDepth, 24);
  EXPECT_EQ(fields.imageDescriptor, 0x28);
}

TEST(FileTarga, is_empty_after_a_file_that_it_does_not_read) {
  const Bytes fourPixels(16);
  const struct {
    const char* name;
    Bytes file;
  } rows[] = {
      {"no bytes", {}},
      {"a cut header", Bytes(17)},
      {"32 bits", header(2, 2, 32) + fourPixels},
      {"16 bits", header(2, 2, 16) + fourPixels},
      {"8 bits", header(2, 2, 8) + fourPixels},
      {"no depth", header(2, 2, 0) + fourPixels},
      {"a cut ID field", header(1, 1, 24, 17) + fourPixels},
      {"pixels cut by an ID field", header(2, 2, 24, 5) + fourPixels},
      {"no width", header(0, 2) + fourPixels},
      {"no height", header(2, 0) + fourPixels},
      {"a claim of 12 GB", header(65535, 65535) + fourPixels},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    expectEmpty(FileTarga(imagetest::ExactBuffer(row.file).span()));
  }
  const fixtures::TempFolder folder;
  expectEmpty(FileTarga(folder.path("missing.tga")));
  expectEmpty(FileTarga(folder.path("")));
}

TEST(FileTarga, refuses_more_pixels_than_there_may_be_even_when_all_are_there) {
  Bytes file = header(8000, 8000);
  file.resize(file.size() + std::size_t{3} * 8001 * 8000);
  EXPECT_TRUE(FileTarga(file).isOk());
  file[12] = 8001 & 0xFF;
  expectEmpty(FileTarga(file));
}

TEST(FileTarga, needs_every_byte_up_to_the_last_pixel) {
  const Bytes file = header(3, 2, 24, 4) + Bytes(4 + 18, 7);
  imagetest::forEveryCutOff(file, [](std::span<const std::uint8_t> cut) { expectEmpty(FileTarga(cut)); });
  EXPECT_TRUE(FileTarga(file).isOk());
}

TEST(FileTarga, saves_what_it_was_given) {
  const Bytes given = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
  PixelArray pixels = makePixels(3, 2, 3);
  std::copy(given.begin(), given.end(), pixels.get());
  const FileTarga image(3, 2, std::move(pixels));
  EXPECT_TRUE(image.isOk());
  EXPECT_EQ(image.getHeader().pixelDepth, 24);
  EXPECT_EQ(image.getHeader().imageType, 2);
  const fixtures::TempFolder folder;
  ASSERT_TRUE(image.save(folder.path("a.tga")));
  EXPECT_EQ(imagetest::contentOf(folder.path("a.tga")),
            (Bytes{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 0, 2, 0, 24, 0} + given));
}

TEST(FileTarga, saves_what_it_has_read_so_that_it_reads_back) {
  const Bytes pixels = {1, 2, 3, 4, 5, 6};
  const FileTarga first(header(2, 1, 24, 200) + Bytes(200, 9) + pixels);
  ASSERT_TRUE(first.isOk());
  const fixtures::TempFolder folder;
  ASSERT_TRUE(first.save(folder.path("a.tga")));
  EXPECT_EQ(imagetest::contentOf(folder.path("a.tga")), header(2, 1) + pixels);
  const FileTarga second(folder.path("a.tga"));
  EXPECT_EQ(imagetest::pixelsOf(second), pixels);
}

TEST(FileTarga, says_when_it_could_not_save) {
  const fixtures::TempFolder folder;
  const FileTarga empty(Bytes{});
  EXPECT_FALSE(empty.save(folder.path("empty.tga")));
  EXPECT_FALSE(std::filesystem::exists(folder.path("empty.tga")));
  EXPECT_FALSE(FileTarga(2, 2, nullptr).save(folder.path("empty.tga")));
  EXPECT_FALSE(FileTarga(0, 2, makePixels(1, 1, 3)).save(folder.path("empty.tga")));
  const FileTarga small(1, 1, makePixels(1, 1, 3));
  EXPECT_FALSE(small.save(folder.path("no/such/folder.tga")));
  // The file's buffer takes the small image, and fails only when it is emptied.
  EXPECT_FALSE(small.save("/dev/full"));
  EXPECT_FALSE(FileTarga(200, 200, makePixels(200, 200, 3)).save("/dev/full"));
}

}  // namespace
}  // namespace image
