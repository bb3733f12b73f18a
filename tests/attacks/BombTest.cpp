// Small files that ask for much, in ways that combine what is limited: below a limit they load, above it they are
// refused with a line, and neither takes more than the limit allows.

#include "tests/attacks/Attack.h"
#include "vrml/reader/Limits.h"

namespace {

using attack::repeated;

class Bomb : public attack::Attack {};

// `depth` nodes inside one another around a text.
std::string nest(std::size_t depth, const std::string& core) {
  return repeated("Group{children ", depth) + core + std::string(depth, '}');
}

// A chain of PROTOs, each of which holds the one before it at the bottom of `depth` nodes.
std::string protoChain(std::size_t length, std::size_t depth) {
  std::string text = "PROTO P0 [ ] { Group { } }\n";
  for (std::size_t i = 1; i <= length; ++i)
    text += "PROTO P" + std::to_string(i) + " [ ] { " + nest(depth, "P" + std::to_string(i - 1) + " { }") + " }\n";
  return text + "P" + std::to_string(length) + " { }\n";
}

TEST_F(Bomb, of_nodes_that_expansions_open) {
  EXPECT_FALSE(loadText(protoChain(40, 102)).isReported()) << "4080 and one";
  EXPECT_TRUE(loadText(protoChain(41, 102)).isReported()) << "4182 and one";
}

TEST_F(Bomb, of_expansions_in_nested_nodes) {
  EXPECT_FALSE(loadText("PROTO A [ ] { Group { } }\n" + nest(vrml::kOpenNodeLimit - 1, "A { }")).isReported());
  EXPECT_TRUE(loadText("PROTO A [ ] { Group { } }\n" + nest(vrml::kOpenNodeLimit, "A { }")).isReported());
}

TEST_F(Bomb, of_nested_nodes_that_inline_nested_nodes) {
  writeWorld("f0.wrl", nest(4000, "Shape { geometry Box { } }"));
  for (int i = 1; i <= vrml::kInlineDepthLimit; ++i)
    writeWorld("f" + std::to_string(i) + ".wrl", nest(400, "Inline { url \"f" + std::to_string(i - 1) + ".wrl\" }"));
  EXPECT_FALSE(load(path("f" + std::to_string(vrml::kInlineDepthLimit) + ".wrl")).isReported());
  const std::string tooDeep =
      writeWorld("g.wrl", "Inline { url \"f" + std::to_string(vrml::kInlineDepthLimit) + ".wrl\" }");
  EXPECT_TRUE(load(tooDeep).isReported());
}

// 16 files, each of which asks for the one before it many times over.
TEST_F(Bomb, of_inlines_of_inlines) {
  writeWorld("f0.wrl", "Shape { geometry Box { } }");
  for (int i = 1; i < vrml::kInlineDepthLimit; ++i)
    writeWorld("f" + std::to_string(i) + ".wrl",
               repeated("Inline { url \"f" + std::to_string(i - 1) + ".wrl\" }\n", 20));
  EXPECT_FALSE(load(path("f2.wrl")).isReported()) << "420 files";
  const attack::Loaded loaded = load(path("f15.wrl"));
  EXPECT_TRUE(loaded.isReported());
  EXPECT_NE(loaded.messages.find("Line 2, at or about \"Inline\""), std::string::npos) << loaded.messages;
}

// A file that asks for itself under ever other names.
TEST_F(Bomb, of_a_file_that_inlines_itself) {
  const std::string file = writeWorld("self.wrl",
                                      "Shape { geometry Box { } } Inline { url [ \"./self.wrl\" ] } Inline { "
                                      "url \".././/" +
                                          path("").substr(path("").rfind('/', path("").size() - 2) + 1) +
                                          "self.wrl\" } Inline { url \"file:self.wrl\" }");
  EXPECT_FALSE(load(file).isReported());
}

// Copies of copies, brought in by files: the nodes of the whole tree count, wherever they come from.
TEST_F(Bomb, of_copies_that_are_inlined_and_copied) {
  std::string part = "DEF a0 Group { }\n";
  for (int i = 1; i <= 4; ++i)
    part += "DEF a" + std::to_string(i) + " Group { children [ " + repeated("USE a" + std::to_string(i - 1) + " ", 10) +
            "] }\n";
  writeWorld("part.wrl", part);  // some 12,000 nodes
  const std::string text = "DEF b Group { children [ " + repeated("Inline { url \"part.wrl\" } ", 5) + "] }\n";
  EXPECT_FALSE(loadText(text + repeated("USE b\n", 3)).isReported());
  if (!attack::isLong()) return;  // four million nodes take their time under the sanitizers
  const attack::Loaded refused = loadText(text + repeated("USE b\n", 100));
  EXPECT_TRUE(refused.isReported());
  EXPECT_NE(refused.messages.find("\"USE\""), std::string::npos) << refused.messages;
}

// Every file of a load takes from the same allowance of text.
TEST_F(Bomb, of_expansions_in_inlined_files) {
  const std::string title(1'000'000, 't');
  writeWorld("part.wrl", "PROTO P [ ] { WorldInfo { title \"" + title + "\" } }\nP { } P { } P { } P { }\n");
  EXPECT_FALSE(loadText(repeated("Inline { url \"part.wrl\" }\n", 16)).isReported());
  EXPECT_TRUE(loadText(repeated("Inline { url \"part.wrl\" }\n", 17)).isReported());
}

// An instance's text holds the text of a value as often as its body asks for it.
TEST_F(Bomb, of_values_in_values) {
  std::string text = "PROTO P0 [ field MFNode n [ ] ] { Group { children IS n } }\n";
  for (int i = 1; i <= 40; ++i) {
    const std::string inner = "P" + std::to_string(i - 1) + " { n IS n } ";
    text += "PROTO P" + std::to_string(i) + " [ field MFNode n [ ] ] { Group { children [ " + inner + inner + "] } }\n";
  }
  EXPECT_FALSE(loadText(text + "P9 { n [ Group { } Group { } ] }\n").isReported()) << "512 instances";
  if (!attack::isLong()) return;  // a million instances take their time under the sanitizers
  EXPECT_TRUE(loadText(text + "P40 { n [ Group { } Group { } ] }\n").isReported());
}

}  // namespace
