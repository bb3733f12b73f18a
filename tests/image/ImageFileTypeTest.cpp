// What the first four bytes of a file say.

#include "image/ImageFileType.h"

#include <string_view>

#include "tests/image/ImageTest.h"

namespace image {
namespace {

using namespace std::string_view_literals;

TEST(getImageFileType, goes_by_the_first_four_bytes) {
  const struct {
    const char* name;
    std::string_view content;
    int expected;
  } rows[] = {
      {"a GIF", "GIF89a", 1},
      {"a GIF of any kind", "GIF!", 1},
      {"a JPEG", "\xFF\xD8\xFF\xE0\0\x10JFIF"sv, 2},
      {"a JPEG by two bytes", "\xFF\xD8\0\0"sv, 2},
      {"a PNG", "\x89PNG\r\n\x1A\n", 4},
      {"a PNG by three bytes", "\0PNG"sv, 4},
      {"a PNG over the first byte of another", "GPNG", 4},
      {"lower case", "gif89a", 0},
      {"the second byte of a JPEG alone", "\0\xD8\xFF\xE0"sv, 0},
      {"the first byte of a JPEG alone", "\xFF\xD9\xFF\xE0", 0},
      {"PNG in front", "PNG\r", 0},
      {"a Targa", "\0\0\2\0\0\0\0\0\0\0\0\0\1\0\1\0\x18\0abc"sv, 0},
      {"three bytes", "GIF", 0},
      {"no bytes", "", 0},
  };
  const fixtures::TempFolder folder;
  const std::string path = folder.path("image");
  for (const auto& row : rows) {
    imagetest::writeFile(path, imagetest::Bytes(row.content.begin(), row.content.end()));
    EXPECT_EQ(getImageFileType(path), row.expected) << row.name;
  }
}

TEST(getImageFileType, knows_nothing_of_what_cannot_be_read) {
  const fixtures::TempFolder folder;
  EXPECT_EQ(getImageFileType(folder.path("missing")), 0);
  EXPECT_EQ(getImageFileType(folder.path("")), 0);
}

}  // namespace
}  // namespace image
