#pragma once

// The two sets of rules that a file is read by. Both run through one scanner and one grammar; what differs is named
// here, flag by flag, and nowhere else. A file is read by the exact rules first. Only when these refuse it is it read
// once more by the wide ones, which accept what VRML97 itself allows and the exact rules do not.

namespace vrml {

struct Rules {
  /// Braces in a PROTO instance are counted, and node-valued interface fields hold VRML text (`NULL`, `USE` and a name,
  /// whole node statements). Exact: an instance ends at its first closing brace, and such a field has no text.
  bool nestedInstances = false;

  /// In a string a backslash protects a quote and a backslash. Exact: a backslash is an ordinary character.
  bool stringEscapes = false;

  /// In a Script `exposedField` declares like `field`, a node statement as a field's value is kept as text up to its
  /// own closing brace, and a declaration `field TYPE name IS x` whose x has no value goes whole.
  bool scriptExtensions = false;

  /// A field keyword where a node is expected is a name: that of a PROTO, or of an unknown node.
  bool fieldKeywordNamesNode = false;

  /// The url list of an EXTERNPROTO is passed over to its bracket, whatever it holds; `EXPORT` and one word are passed
  /// over.
  bool looseStatements = false;

  /// A ROUTE ends with its fourth word, and one that ends in `TO` goes on in the next line. Exact: it takes its line.
  bool routesShareLines = false;

  /// The name of a USE ends at a blank, a comma, a bracket, a brace, a quote or `#`. Exact: it is made of name
  /// characters.
  bool wideUseNames = false;

  /// In a text that an expansion produced, an event name of the open node is passed over, with its value if it has one.
  bool dropsExpandedEvents = false;

  [[nodiscard]] static constexpr Rules exact() noexcept { return {}; }
  [[nodiscard]] static constexpr Rules wide() noexcept { return {true, true, true, true, true, true, true, true}; }
};

}  // namespace vrml
