#pragma once

// A PROTO declaration of a file: its interface, and the text of its body, which an instance stands for. An instance is
// expanded as text: the body with each `IS` replaced by a value, which the scanner then reads in place of the instance.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vrml/fields/Field.h"
#include "vrml/nodes/LinkedListNode.h"
#include "vrml/nodes/Names.h"
#include "vrml/reader/Rules.h"

namespace vrml {

class ValueReader;

/// How an interface declares one of its names.
enum class InterfaceKind : std::uint8_t {
  field,         // set by the instance
  exposedField,  // set by the instance, and routed from and to
  eventIn,       // routed to; has no value
  eventOut,      // routed from; has no value
};

class Proto : public LinkedListNode<Proto> {
 public:
  /// One line of the interface.
  struct Declaration {
    InterfaceKind kind;
    /// The type, when its values are kept as VRML text in an SFString: it holds nodes or has no class. Else `none`.
    ScriptWord textType;
    std::unique_ptr<Field> value;     // of the declared type and name, with the declared value
    std::unique_ptr<Field> instance;  // the value that the instance being expanded gives; null when it gives none
  };

  /// Reads the interface text with the scanner's value rules; reading stops quietly at what it does not understand. The
  /// body is the text of the first node of the PROTO's body, braces included.
  Proto(std::string_view name, std::string_view body, std::string_view interface, const Rules& rules);
  ~Proto() override;

  [[nodiscard]] const std::string& name() const noexcept { return m_name; }
  [[nodiscard]] const std::string& body() const noexcept { return m_body; }
  [[nodiscard]] const std::vector<Declaration>& declarations() const noexcept { return m_declarations; }

  /// Appends the body with the values that `instance`, the text between an instance's braces, gives, and the declared
  /// ones elsewhere. False when that would be longer than `room`; `out` is of no use then.
  [[nodiscard]] bool expand(std::string_view instance, std::size_t room, std::string& out);

 private:
  // A stretch of the body up to an IS, or to the end.
  struct Piece {
    std::string text;             // its words, each with a blank behind it
    std::size_t withoutField;     // length of the text when the field in front of the IS goes
    std::size_t withoutDeclared;  // the same, where by the wide rules a Script's whole declaration goes
    bool isLast;                  // no IS follows
    std::string interfaceName;    // behind the IS
  };
  struct Word {
    std::string_view text;
    std::size_t begin;  // in the piece's text
  };

  void readInterface(std::string_view text);
  bool readDeclaration(ValueReader& values);
  bool readValue(ValueReader& values, const Declaration& declaration, Field& value) const;
  void readInstance(std::string_view text);
  void forgetInstance() noexcept;
  [[nodiscard]] Declaration* findDeclaration(std::string_view name) noexcept;
  void splitBody();
  [[nodiscard]] static Piece cutPiece(std::string text, const std::vector<Word>& words, std::string_view interfaceName);
  void appendValue(const Declaration& declaration, std::string& out) const;

  std::string m_name;
  std::string m_body;
  Rules m_rules;
  std::vector<Declaration> m_declarations;
  std::unordered_map<std::string_view, std::size_t> m_byName;  // indices of m_declarations; keys view their names
  std::vector<Declaration*> m_given;                           // those that the instance being expanded gives values
  std::vector<Piece> m_pieces;                                 // the body, cut when the first instance is expanded
};

}  // namespace vrml
