#pragma once

// The value rules of the grammar: one production per kind of value, shared by the fields of nodes, the declarations of
// Scripts, and the interfaces and instances of PROTOs.

#include <cstddef>
#include <string>

#include "vrml/fields/Field.h"
#include "vrml/nodes/Names.h"
#include "vrml/reader/Lexer.h"

namespace vrml {

/// The tokens of a scanner as the grammar sees them: commas stand wherever white space may, so they are passed over.
///
/// Every `read` begins at the current token and, when it returns true, has taken the value: the current token is then
/// the one behind it. False is a syntax error at the current token.
class ValueReader {
 public:
  explicit ValueReader(Lexer& lexer) : m_lexer(lexer) {}

  [[nodiscard]] const Token& token() const noexcept { return m_lexer.token(); }
  [[nodiscard]] bool at(TokenKind kind) const noexcept { return token().kind == kind; }
  void advance() {
    while (m_lexer.next().kind == TokenKind::comma) {
    }
  }
  [[nodiscard]] Lexer& lexer() noexcept { return m_lexer; }

  /// Reads a value of the field's type into it. A list grows by what is read; of a single value the last one counts.
  /// Not for fields that hold nodes.
  [[nodiscard]] bool readValue(Field& field);

  /// Reads a text that may stand in a bracketed list, of which the first one counts.
  [[nodiscard]] bool readFirstString(Field& field);

  /// Reads a value of a type that is kept as VRML text: nodes (NULL, USE and a name, node statements when these are
  /// allowed, and of MFNode a list of them), truth values, integers of an image. Appends it.
  [[nodiscard]] bool readText(ScriptWord type, bool allowNodes, std::string& out);

 private:
  template <std::size_t n, class Store>
  bool readFloats(Store store);
  template <std::size_t n, class Append>
  bool readFloatList(Append append);
  bool readInteger(std::int32_t& value);
  template <class List>
  bool readIntegerList(List& list);
  template <class List>
  bool readImage(List& list);
  template <class List>
  bool readStringList(List& list);
  bool readNodeText(bool allowNodes, std::string& out);

  Lexer& m_lexer;
};

}  // namespace vrml
