#pragma once

// Writes a node tree back as VRML text that reads back to the same tree and then gives the same text again. Used
// through Node::write.

#include <iosfwd>
#include <string>
#include <string_view>

#include "vrml/nodes/Node.h"

namespace vrml {

class MField;

class NodeWriter {
 public:
  explicit NodeWriter(std::ostream& out) : m_out(out) {}

  /// Writes `top` and all below it, its first line `depth` tabs deep.
  void write(const Node& top, int depth);

  /// Writes the field lines that the table of a node's class asks for, each behind `indent` and a tab.
  void writeFields(const Node& node, const char* indent);

 private:
  [[nodiscard]] static bool isWrittenAsUse(const Node& node);
  [[nodiscard]] static bool standsInBlock(const Node& child);
  [[nodiscard]] static const Node* nextPart(const Node& parent, const Node* part);
  void begin(const Node& node);
  void end(const Node& node, const Node* last);
  void enter(const Node& child, const Node* previous);
  void closeBlock();
  void leave(const Node& child);
  void writeField(const Node& node, const FieldDecl& decl, const char* indent);
  void writeSingle(const Field& field, bool escapes);
  void writeList(const MField& list, const char* indent, bool escapes);
  void put(std::string_view text);

  std::ostream& m_out;
  std::string m_indent;  // of the node that is being written
  std::string m_line;    // the text of one line, kept for its room
};

}  // namespace vrml
