// What a library prints on standard output comes out on standard error, and results stay apart from it.

#include "tools/wrl/Descriptors.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "tests/TempFolder.h"
#include "tests/tools/wrl/RunTool.h"

namespace wrl {
namespace {

TEST(StandardOutputAside, sends_text_on_as_it_was_written) {
  const fixtures::TempFolder folder;
  {
    const Redirected out(STDOUT_FILENO, folder.path("out"));
    const Redirected err(STDERR_FILENO, folder.path("err"));
    std::fputs("before ", stdout);
    {
      const StandardOutputAside aside;
      std::fwrite("+\0;", 1, 3, stdout);
      std::fputs(" inside", stdout);
    }
    std::fputs("after", stdout);
    std::fflush(stdout);
  }
  EXPECT_EQ(folder.read("out"), "before after");
  EXPECT_EQ(folder.read("err"), std::string("+\0; inside", 10));
}

TEST(StandardOutputAside, nests) {
  const fixtures::TempFolder folder;
  {
    const Redirected out(STDOUT_FILENO, folder.path("out"));
    const Redirected err(STDERR_FILENO, folder.path("err"));
    {
      const StandardOutputAside outer;
      { const StandardOutputAside inner; }
      std::fputs("still aside", stdout);
    }
    std::fputs("back", stdout);
    std::fflush(stdout);
  }
  EXPECT_EQ(folder.read("out"), "back");
  EXPECT_EQ(folder.read("err"), "still aside");
}

TEST(StandardOutputAside, takes_megabytes) {
  const fixtures::TempFolder folder;
  const std::string text(20'000'000, '+');
  {
    const Redirected err(STDERR_FILENO, folder.path("err"));
    const StandardOutputAside aside;
    std::fwrite(text.data(), 1, text.size(), stdout);
  }
  EXPECT_EQ(folder.read("err").size(), text.size());
}

TEST(StandardDescriptors, are_all_open_afterwards_and_a_missing_output_refuses_text) {
  const int saved = ::dup(STDOUT_FILENO);
  ::close(STDOUT_FILENO);
  openMissingStandardDescriptors();
  const bool isOpen = ::fcntl(STDOUT_FILENO, F_GETFD) != -1;
  const ssize_t written = ::write(STDOUT_FILENO, "x", 1);
  ::dup2(saved, STDOUT_FILENO);
  ::close(saved);
  EXPECT_TRUE(isOpen);
  EXPECT_EQ(written, -1);
}

}  // namespace
}  // namespace wrl
