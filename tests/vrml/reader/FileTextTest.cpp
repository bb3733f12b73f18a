// Reading whole files: what is one, and what is not.

#include "vrml/reader/FileText.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>
#include <thread>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::TemporaryFolder;

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

}  // namespace
}  // namespace vrml
