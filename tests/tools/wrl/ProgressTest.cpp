// What only a terminal gets, on a pseudo-terminal: the line that tells people how far a command has come, and ends of
// lines.

#include <gtest/gtest.h>
#include <pty.h>

#include <array>
#include <iostream>

#include "tests/tools/wrl/RunTool.h"
#include "tools/wrl/Echo.h"
#include "tools/wrl/FileCount.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {
namespace {

using std::chrono::milliseconds;

// Standard error on a terminal of its own.
class Progresses : public testing::Test {
 protected:
  void SetUp() override {
    int slave = -1;
    if (::openpty(&m_master, &slave, m_name.data(), nullptr, nullptr) != 0) GTEST_SKIP() << "no pseudo-terminals here";
    ::fcntl(m_master, F_SETFL, O_NONBLOCK);
    m_errors = std::make_unique<Redirected>(STDERR_FILENO, m_name.data(), O_WRONLY | O_NOCTTY);
    ::close(slave);
  }
  void TearDown() override {
    m_errors.reset();
    if (m_master != -1) ::close(m_master);
  }

  // What the terminal got since the last call.
  std::string seen() const {
    std::string text;
    std::array<char, 256> block{};
    for (;;) {
      const ssize_t count = ::read(m_master, block.data(), block.size());
      if (count <= 0) return text;
      text.append(block.data(), static_cast<std::size_t>(count));
    }
  }

 private:
  int m_master = -1;
  std::array<char, 256> m_name{};
  std::unique_ptr<Redirected> m_errors;
};

const std::string kWipe = "\r\x1b[K";

TEST_F(Progresses, nothing_is_shown_before_anybody_wonders) {
  {
    Progress progress;
    progress.show("at once");
    FileCount count(2);
    count.begin("a.wrl");
  }
  EXPECT_EQ(seen(), "");
}

TEST_F(Progresses, files_are_counted_when_there_are_several) {
  {
    FileCount count(2, milliseconds(0));
    count.begin("a.wrl");
    EXPECT_EQ(seen(), kWipe + "1 of 2: a.wrl");
    {
      Progress inner(milliseconds(0));
      inner.show("half");
      EXPECT_EQ(seen(), kWipe + "1 of 2: half");
    }
    EXPECT_EQ(seen(), kWipe);
  }
  Progress behind(milliseconds(0));
  behind.show("alone");
  EXPECT_EQ(seen(), kWipe + "alone");
  FileCount single(1, milliseconds(0));
  single.begin("a.wrl");
  EXPECT_EQ(seen(), "");
}

TEST_F(Progresses, what_is_written_takes_the_place_of_the_line) {
  Progress progress(milliseconds(0));
  progress.show("half");
  std::cerr << "a.wrl: error\n";
  std::cerr << "b.wrl: error\n";
  EXPECT_EQ(seen(), kWipe + "half" + kWipe + "a.wrl: error\r\nb.wrl: error\r\n");
}

// The result stands behind it on the same terminal.
TEST_F(Progresses, what_the_reader_echoes_gets_a_line_of_its_own) {
  const fixtures::TempFolder folder;
  const auto read = [&folder](const std::string& text) {
    const std::string file = folder.write("a.wrl", text);
    const EchoToStandardError echo;
    vrml::SceneGraph scene;
    scene.load(file, true);
    EXPECT_TRUE(scene.succeeded());
  };
  read("? Group { }\n");
  EXPECT_EQ(seen(), "?\r\n");
  read("Group { }\n");
  EXPECT_EQ(seen(), "");
}

TEST(Progress, without_a_terminal_nothing_is_shown) {
  const fixtures::TempFolder folder;
  {
    const Redirected errors(STDERR_FILENO, folder.path("err"));
    Progress progress(milliseconds(0));
    EXPECT_FALSE(progress.isShown());
    progress.show("half");
  }
  EXPECT_EQ(folder.read("err"), "");
}

}  // namespace
}  // namespace wrl
