// A file that breaks off anywhere, or is damaged anywhere, ends in an answer.

#include <gtest/gtest.h>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::everyConstruct;
using readertest::loadText;
using readertest::verdict;
using readertest::written;

TEST(CutOff, loads_the_text_that_has_everything) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, everyConstruct(), true, false);
  EXPECT_EQ(verdict(scene), "ok");
  EXPECT_FALSE(scene.readWide());
}

TEST(CutOff, answers_at_every_byte) {
  const EchoCapture echo;
  const std::string text = everyConstruct();
  for (std::size_t length = 0; length <= text.size(); ++length) {
    SceneGraph scene;
    loadText(scene, text.substr(0, length), true, false);
    if (!scene.succeeded()) {
      EXPECT_GT(scene.getErrorLine(), 0) << length;
    }
    // Whatever was built can be written.
    const std::string out = written(scene);
    EXPECT_EQ(Parser::currentParser(), nullptr) << length;
  }
}

TEST(CutOff, lists_tokens_at_every_byte) {
  const EchoCapture echo;
  const std::string text = everyConstruct();
  for (std::size_t length = 0; length <= text.size(); length += 3)
    for (const bool wide : {false, true}) {
      const std::string lines = readertest::listing(text.substr(0, length), wide);
      EXPECT_TRUE(lines.ends_with("\tend\t\n")) << length;
    }
}

TEST(CutOff, answers_to_every_byte_changed) {
  const EchoCapture echo;
  const std::string text = everyConstruct();
  const std::string changes = std::string("\"{}[]#\n\r\\,x0-.e\xff") + '\0';
  std::size_t next = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::string changed = text;
    changed[at] = changes[next++ % changes.size()];
    SceneGraph scene;
    loadText(scene, changed, true, false);
    if (!scene.succeeded()) {
      EXPECT_GT(scene.getErrorLine(), 0) << at;
      continue;
    }
    const std::string first = written(scene);
    EXPECT_EQ(readertest::loaded(first), first) << at << ": " << changed.substr(at < 40 ? 0 : at - 40, 80);
  }
}

TEST(CutOff, answers_to_every_byte_left_out) {
  const EchoCapture echo;
  const std::string text = everyConstruct();
  for (std::size_t at = 0; at < text.size(); ++at) {
    SceneGraph scene;
    loadText(scene, text.substr(0, at) + text.substr(at + 1), true, false);
    if (scene.succeeded()) {
      const std::string first = written(scene);
      EXPECT_EQ(readertest::loaded(first), first) << at;
    }
  }
}

}  // namespace
}  // namespace vrml
