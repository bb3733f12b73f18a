// Reading whole files: what is one, and what is not.

#include "vrml/reader/FileText.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>
#include <thread>

#include "ReaderTesting.h"
#include "vrml/reader/Unpacker.h"

namespace vrml {
namespace {

using readertest::TemporaryFolder;

const std::string kPacked = "\x1F\x8B packed";
std::string lastPacked;

/// Unpacks to twice its size and something in front, unless the bytes end in an x.
bool unpackTwice(std::string_view packed, std::string& plain) {
  lastPacked = packed;
  plain = "twice " + std::string(packed) + std::string(packed);
  return !packed.ends_with('x');
}

/// Lets a function unpack files for as long as it lives.
class Unpacking {
 public:
  explicit Unpacking(Unpacker unpacker) : m_before(setUnpacker(unpacker)) {}
  ~Unpacking() { setUnpacker(m_before); }
  Unpacking(const Unpacking&) = delete;
  Unpacking& operator=(const Unpacking&) = delete;

 private:
  Unpacker m_before;
};

TEST(FileText, holds_a_file_with_zero_bytes_behind_it) {
  const TemporaryFolder folder;
  FileText text;
  ASSERT_TRUE(text.read(folder.write("a", std::string("ab\0\r\n", 5))));
  EXPECT_EQ(text.text(), std::string_view("ab\0\r\n", 5));
  EXPECT_EQ(std::string(text.text().data() + 5, kScanPadding), std::string(kScanPadding, '\0'));
}

TEST(FileText, holds_files_around_its_first_block) {
  const TemporaryFolder folder;
  for (const std::size_t size : {0u, 1u, 65'519u, 65'520u, 65'521u, 65'536u, 200'000u}) {
    FileText text;
    ASSERT_TRUE(text.read(folder.write("a", std::string(size, 'x')))) << size;
    EXPECT_EQ(text.text(), std::string(size, 'x')) << size;
  }
}

TEST(FileText, can_be_read_again) {
  const TemporaryFolder folder;
  FileText text;
  ASSERT_TRUE(text.read(folder.write("a", std::string(100'000, 'x'))));
  ASSERT_TRUE(text.read(folder.write("b", "y")));
  EXPECT_EQ(text.text(), "y");
  EXPECT_FALSE(text.read(folder.path("none")));
  EXPECT_EQ(text.text(), "");
}

TEST(FileText, does_not_open_a_folder_or_a_file_that_is_not_there) {
  const TemporaryFolder folder;
  FileText text;
  EXPECT_FALSE(text.read(folder.path("none")));
  EXPECT_FALSE(text.read(folder.path("")));
  EXPECT_FALSE(text.read(""));
}

TEST(FileText, reads_a_pipe_to_its_end) {
  const TemporaryFolder folder;
  const std::string path = folder.path("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::string sent;
  for (int i = 0; i < 50'000; ++i) sent += std::to_string(i) + "\n";
  std::thread writer([&] { std::ofstream(path, std::ios::binary) << sent; });
  FileText text;
  const bool opened = text.read(path);
  writer.join();
  ASSERT_TRUE(opened);
  EXPECT_EQ(text.text(), sent);
}

TEST(FileText, is_unpacked_when_it_begins_as_gzip_does) {
  const TemporaryFolder folder;
  const Unpacking unpacking(unpackTwice);
  FileText text;
  for (const std::size_t size : {0u, 1u, 40'000u, 65'536u, 300'000u}) {
    const std::string packed = kPacked + std::string(size, 'p');
    ASSERT_TRUE(text.read(folder.write("a", packed)));
    EXPECT_EQ(lastPacked, packed);
    EXPECT_EQ(text.text(), "twice " + packed + packed) << size;
    EXPECT_EQ(std::string(text.text().data() + text.text().size(), kScanPadding), std::string(kScanPadding, '\0'));
  }
  lastPacked.clear();
  for (const char* plain : {"", "\x1F", "\x8B\x1F", "#VRML V2.0 utf8\n"}) {
    ASSERT_TRUE(text.read(folder.write("a", plain)));
    EXPECT_EQ(text.text(), plain);
  }
  EXPECT_EQ(lastPacked, "");
}

TEST(FileText, stands_as_it_is_when_nobody_unpacks_it) {
  const TemporaryFolder folder;
  FileText text;
  ASSERT_TRUE(text.read(folder.write("a", kPacked)));
  EXPECT_EQ(text.text(), kPacked);
  const Unpacking unpacking(unpackTwice);
  ASSERT_TRUE(text.read(folder.write("a", kPacked + "x")));
  EXPECT_EQ(text.text(), kPacked + "x");
  EXPECT_EQ(setUnpacker(nullptr), &unpackTwice);
  EXPECT_EQ(setUnpacker(unpackTwice), nullptr);
}

}  // namespace
}  // namespace vrml
