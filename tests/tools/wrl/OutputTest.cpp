// A result is delivered whole, or the failure is told and nothing is left of it.

#include "tools/wrl/Output.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <thread>

#include "tests/TempFolder.h"

namespace wrl {
namespace {

unsigned modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

TEST(Output, writes_a_new_file_with_ordinary_rights) {
  const fixtures::TempFolder folder;
  const mode_t mask = ::umask(022);
  Output output(folder.path("a.txt"));
  ::umask(mask);
  output.stream() << "text" << 1;
  EXPECT_FALSE(std::filesystem::exists(folder.path("a.txt")));
  EXPECT_TRUE(output.finish());
  EXPECT_EQ(output.error(), "");
  EXPECT_EQ(folder.read("a.txt"), "text1");
  EXPECT_EQ(modeOf(folder.path("a.txt")), 0644U);
  EXPECT_EQ(folder.entryCount(), 1);
}

TEST(Output, replaces_a_file_and_keeps_its_rights) {
  const fixtures::TempFolder folder;
  const std::string path = folder.write("a.txt", "old");
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  Output output(path);
  output.stream() << "new";
  EXPECT_EQ(folder.read("a.txt"), "old");
  EXPECT_TRUE(output.finish());
  EXPECT_EQ(folder.read("a.txt"), "new");
  EXPECT_EQ(modeOf(path), 0640U);
}

TEST(Output, leaves_the_old_file_when_it_is_not_finished) {
  const fixtures::TempFolder folder;
  const std::string path = folder.write("a.txt", "old");
  {
    Output output(path);
    output.stream() << "new" << std::flush;
  }
  EXPECT_EQ(folder.read("a.txt"), "old");
  EXPECT_EQ(folder.entryCount(), 1);
}

TEST(Output, keeps_a_symbolic_link_and_replaces_what_it_names) {
  const fixtures::TempFolder folder;
  folder.write("a.txt", "old");
  std::filesystem::create_symlink("a.txt", folder.path("link"));
  Output output(folder.path("link"));
  output.stream() << "new";
  EXPECT_TRUE(output.finish());
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link")));
  EXPECT_EQ(folder.read("a.txt"), "new");
}

TEST(Output, writes_far_more_than_its_buffer_in_order) {
  const fixtures::TempFolder folder;
  std::string expected;
  Output output(folder.path("a.txt"));
  for (int i = 0; i < 3000; ++i) {
    const std::string piece(static_cast<std::size_t>(i % 97), static_cast<char>('a' + i % 26));
    expected += piece + "\n";
    output.stream() << piece << '\n';
  }
  const std::string block(200'000, 'z');
  output.stream() << block;
  EXPECT_TRUE(output.finish());
  EXPECT_EQ(folder.read("a.txt"), expected + block);
}

struct FailingTarget {
  const char* name;
  const char* target;  // relative to the folder, or absolute
  const char* reason;
};

TEST(Output, tells_why_nothing_could_be_written) {
  const fixtures::TempFolder folder;
  std::filesystem::create_directory(folder.path("folder"));
  folder.write("file", "");
  const FailingTarget targets[] = {
      {"a full device", "/dev/full", "No space left on device"},
      {"no such folder", "none/a.txt", "No such file or directory"},
      {"a folder", "folder", "Is a directory"},
      {"a file for a folder", "file/a.txt", "Not a directory"},
  };
  for (const FailingTarget& target : targets) {
    SCOPED_TRACE(target.name);
    const std::string path = target.target[0] == '/' ? target.target : folder.path(target.target);
    Output output(path);
    output.stream() << "text";
    EXPECT_FALSE(output.finish());
    EXPECT_EQ(output.error(), path + ": error: " + target.reason);
    EXPECT_EQ(folder.entryCount(), 2);
  }
}

TEST(Output, writes_a_pipe_in_place) {
  const fixtures::TempFolder folder;
  const std::string path = folder.path("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  std::string received;
  std::thread reader([&path, &received] {
    std::ifstream in(path);
    received.assign(std::istreambuf_iterator<char>(in), {});
  });
  Output output(path);
  output.stream() << "text";
  EXPECT_TRUE(output.finish());
  reader.join();
  EXPECT_EQ(received, "text");
}

class ClosedPipe : public ::testing::Test {
 protected:
  void SetUp() override {
    m_handler = std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ::close(ends[0]);
    m_writer = ends[1];
  }
  void TearDown() override {
    ::close(m_writer);
    std::signal(SIGPIPE, m_handler);
  }
  int m_writer = -1;

 private:
  void (*m_handler)(int) = SIG_DFL;
};

TEST_F(ClosedPipe, keeps_the_first_error_and_swallows_the_rest) {
  DescriptorBuffer buffer(m_writer);
  std::ostream out(&buffer);
  out << "text" << std::flush;
  EXPECT_EQ(buffer.error(), EPIPE);
  EXPECT_FALSE(out.good());
  out.clear();
  out << std::string(1'000'000, 'x') << 'y' << std::flush;
  EXPECT_EQ(buffer.error(), EPIPE);
}

TEST_F(ClosedPipe, fails_the_result_on_standard_output) {
  const int saved = ::dup(STDOUT_FILENO);
  ASSERT_NE(::dup2(m_writer, STDOUT_FILENO), -1);
  Output output("-");
  output.stream() << "text";
  const bool finished = output.finish();
  ::dup2(saved, STDOUT_FILENO);
  ::close(saved);
  EXPECT_FALSE(finished);
  EXPECT_EQ(output.error(), "standard output: error: Broken pipe");
}

}  // namespace
}  // namespace wrl
