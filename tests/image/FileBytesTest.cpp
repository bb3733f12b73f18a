// The bytes of files of every kind.

#include "image/FileBytes.h"

#include <sys/stat.h>

#include <thread>

#include "tests/image/ImageTest.h"

namespace image {
namespace {

using imagetest::Bytes;

Bytes numbered(std::size_t count) {
  Bytes bytes(count);
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  return bytes;
}

TEST(readFileBytes, gives_a_whole_file_or_as_much_as_is_asked_for) {
  const fixtures::TempFolder folder;
  const std::string path = folder.path("file");
  for (const std::size_t size : std::vector<std::size_t>{0, 1, 2, 4095, 65536, 200000}) {
    const Bytes content = numbered(size);
    imagetest::writeFile(path, content);
    EXPECT_EQ(readFileBytes(path), content) << size;
    for (const std::size_t limit : std::vector<std::size_t>{0, 1, 4, 65536}) {
      const Bytes beginning(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(std::min(size, limit)));
      EXPECT_EQ(readFileBytes(path, limit), beginning) << size << " bytes, " << limit << " asked for";
    }
  }
}

TEST(readFileBytes, reads_a_pipe_to_its_end) {
  const fixtures::TempFolder folder;
  const std::string path = folder.path("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  const Bytes content = numbered(300000);
  std::thread writer([&] { imagetest::writeFile(path, content); });
  EXPECT_EQ(readFileBytes(path), content);
  writer.join();
}

TEST(readFileBytes, ends_in_a_file_that_has_no_end) { EXPECT_EQ(readFileBytes("/dev/zero", 100000), Bytes(100000)); }

TEST(readFileBytes, finds_nothing_where_there_is_no_file) {
  const fixtures::TempFolder folder;
  EXPECT_TRUE(readFileBytes(folder.path("")).empty());
  EXPECT_TRUE(readFileBytes(folder.path("missing")).empty());
  EXPECT_TRUE(readFileBytes("").empty());
}

}  // namespace
}  // namespace image
