#include "vrml/reader/Notes.h"

// One table of texts, in the order of the kinds; "%t" stands for the node type, "%d" for the DEF name, "%n" for a blank
// and the DEF name in quotes where there is one, "%x" for the text.

#include <array>
#include <string_view>

namespace vrml {
namespace {

constexpr std::array kTexts = std::to_array<std::string_view>(
    {"read by the wide rules: the exact ones refuse it at or about \"%x\"", "unknown node %t%n passed over",
     "EXTERNPROTO %t passed over", "EXPORT %x passed over", "PROTO %t is cut off by the end of the file",
     "USE %d: no node of that name before it", "ROUTE %x: no such node or event before it",
     "ROUTE %x: leads from a node to itself", "%t%n is left out where its group is used again",
     "USE %d: a %t has no copy", "Inline%n: no file of its urls can be opened, \"%x\" the first",
     "Inline%n: %x does not parse", "Inline%n: %x is being loaded already",
     "Inline%n: %x is too deep, or one inlined file too many"});
static_assert(kTexts.size() == kNoteKindCount);

}  // namespace

std::string noteText(const Note& note) {
  std::string_view rest = kTexts[static_cast<std::size_t>(note.kind)];
  std::string text;
  for (std::size_t at = rest.find('%'); at != std::string_view::npos; at = rest.find('%')) {
    text.append(rest, 0, at);
    switch (rest[at + 1]) {
      case 't':
        text += note.nodeType;
        break;
      case 'n':
        if (!note.defName.empty()) text += " \"" + note.defName + "\"";
        break;
      case 'd':
        text += note.defName;
        break;
      default:
        text += note.text;
        break;
    }
    rest.remove_prefix(at + 2);
  }
  text += rest;
  return text;
}

}  // namespace vrml
