// Standard input has a path, under which it can be read again and again.

#include "tools/wrl/Input.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// Descriptor 0 replaced for the time of a test.
class StandardInput : public ::testing::Test {
 protected:
  void SetUp() override { m_saved = ::dup(STDIN_FILENO); }
  void TearDown() override {
    ::dup2(m_saved, STDIN_FILENO);
    ::close(m_saved);
  }

 private:
  int m_saved = -1;
};

TEST(Input, takes_any_other_argument_exactly_as_given) {
  for (const char* file : {"a.wrl", "", "./-", "a\\b.wrl", "/x/y"}) {
    const InputPath input = inputPath(file);
    EXPECT_EQ(input.path, file);
    EXPECT_EQ(input.error, "");
  }
}

TEST_F(StandardInput, that_is_a_pipe_can_be_read_twice) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const std::string text(300'000, 'x');
  std::thread writer([&] {
    for (std::size_t done = 0; done < text.size();) {
      done += static_cast<std::size_t>(::write(ends[1], text.data() + done, text.size() - done));
    }
    ::close(ends[1]);
  });
  ::dup2(ends[0], STDIN_FILENO);
  ::close(ends[0]);
  const InputPath input = inputPath("-");
  writer.join();
  EXPECT_EQ(input.error, "");
  EXPECT_EQ(contentOf(input.path), text);
  EXPECT_EQ(contentOf(inputPath("-").path), text);
}

TEST_F(StandardInput, that_was_read_in_part_begins_where_it_stands) {
  const fixtures::TempFolder folder;
  const Redirected in(STDIN_FILENO, folder.write("in", "head\nrest"), O_RDONLY);
  std::array<char, 5> head{};
  ASSERT_EQ(::read(STDIN_FILENO, head.data(), head.size()), 5);
  EXPECT_EQ(contentOf(inputPath("-").path), "rest");
}

TEST_F(StandardInput, that_cannot_be_read_has_a_reason) {
  const fixtures::TempFolder folder;
  const Redirected in(STDIN_FILENO, folder.path(""), O_RDONLY);
  EXPECT_EQ(inputPath("-").error, "standard input: error: Is a directory");
}

}  // namespace
}  // namespace wrl
