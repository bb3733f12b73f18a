// The watch over opened files sees every way in which this project opens one.

#include "fuzz/OpenWatch.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "tests/TempFolder.h"

namespace {

class OpenWatch : public testing::Test {
 protected:
  [[nodiscard]] std::string path(const std::string& name) const { return m_folder.path(name); }

 private:
  const fixtures::TempFolder m_folder;
};

// What was opened as "r NAME" and "w NAME", a "!" behind what is no regular file.
std::string watched(void (*open)(const std::string&), const std::string& file) {
  fuzz::startOpenWatch();
  open(file);
  std::string text;
  for (const fuzz::Opened& opened : fuzz::endOpenWatch())
    text += (opened.forWriting ? "w " : "r ") + opened.path + (opened.isRegular ? "" : "!") + "\n";
  return text;
}

TEST_F(OpenWatch, sees_what_is_written_and_what_is_read) {
  const std::string file = path("file");
  EXPECT_EQ(watched([](const std::string& name) { std::ofstream out(name); }, file), "w " + file + "\n");
  EXPECT_EQ(watched([](const std::string& name) { std::ifstream in(name); }, file), "r " + file + "\n");
  EXPECT_EQ(watched([](const std::string& name) { std::fclose(std::fopen(name.c_str(), "rb")); }, file),
            "r " + file + "\n");
  EXPECT_EQ(watched([](const std::string& name) { std::fclose(std::fopen(name.c_str(), "r+")); }, file),
            "w " + file + "\n");
  EXPECT_EQ(watched([](const std::string& name) { ::close(::open(name.c_str(), O_RDONLY)); }, file),
            "r " + file + "\n");
  EXPECT_EQ(watched([](const std::string& name) { ::close(::open(name.c_str(), O_CREAT | O_WRONLY, 0600)); }, file),
            "w " + file + "\n");
  EXPECT_EQ(watched([](const std::string& name) { std::filesystem::create_directory(name); }, path("folder")),
            "w " + path("folder") + "\n");
  EXPECT_EQ(watched([](const std::string& name) { std::ifstream in(name); }, "/dev/null"), "r /dev/null!\n");
  EXPECT_EQ(watched([](const std::string& name) { std::ifstream in(name); }, path("nowhere")), "");
}

TEST_F(OpenWatch, sees_a_copy) {
  const std::string file = path("file");
  std::ofstream(file) << "text";
  EXPECT_EQ(watched([](const std::string& name) { std::filesystem::copy_file(name, name + "2"); }, file),
            "r " + file + "\nw " + file + "2\n");
}

}  // namespace
