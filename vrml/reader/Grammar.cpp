#include "vrml/reader/Grammar.h"

// The productions (values: see ValueReader.cpp; a comma may stand wherever white space may):
//
//   file         : { statement } end
//   statement    : node | skipped
//   node         : TYPE '{' { element } '}' | USE
//   element      : FIELD value                              a field of the open node, by its type
//                | FIELD nodeValue                          a member of the open node that holds nodes
//                | skipped
//                | scriptItem                               in a Script
//   nodeValue    : NULL | node | unknownNode | '[' { NULL | statement } ']'          brackets only where the member
//   takes a list scriptItem   : 'url' value | 'directOutput' value | 'mustEvaluate' value
//                | 'field' type NAME value | 'eventIn' type NAME [value] | 'eventOut' type NAME [value]
//                | 'exposedField' type NAME value           by the wide rules
//   skipped      : unknownNode | externProto
//                | 'EXPORT' NAME                            by the wide rules
//   unknownNode  : NAME '{' anything '}'                    in files that say that they are VRML 2.0
//   externProto  : 'EXTERNPROTO' NAME '[' anything ']' ( STRING | '[' { STRING } ']' )
//
// DEF, PROTO, ROUTE and the instances of PROTOs are the scanner's: none of them gives a token. The parser decides by
// the one token ahead of it and has no conflict: a NAME begins an unknown node exactly when a brace follows it, and a
// FIELD of a node's body is a node's name, by the wide rules, nowhere but where a node is expected.
//
// The parse runs on the parser's own stack of open nodes. The entry on top says what comes next: without one the file's
// statements, with an open list its items, otherwise the elements of its node. An action is done before the token
// behind it is taken: taking one can make the scanner read a DEF or a USE, which must find the tree as it is there.

#include <memory>
#include <string>

#include "vrml/fields/Field.h"
#include "vrml/fields/FieldFactory.h"
#include "vrml/fields/SFString.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/ScriptNode.h"
#include "vrml/reader/Lexer.h"
#include "vrml/reader/Limits.h"
#include "vrml/reader/Parser.h"
#include "vrml/reader/ValueReader.h"

namespace vrml {
namespace {

class Grammar {
 public:
  Grammar(Parser& parser, Lexer& lexer) : m_parser(parser), m_lexer(lexer), m_values(lexer) {}

  // False after an error, which is recorded.
  bool parseFile();
  [[nodiscard]] bool passedLimit() const noexcept { return m_passedLimit || m_lexer.passedLimit(); }

 private:
  [[nodiscard]] const Token& token() const noexcept { return m_values.token(); }
  [[nodiscard]] bool at(TokenKind kind) const noexcept { return m_values.at(kind); }
  void advance() { m_values.advance(); }
  bool limit() noexcept {
    m_passedLimit = true;
    return false;
  }

  bool parseNext(bool& done);
  bool parseStatement();
  bool parseNode();
  bool parseUse();
  bool parseUnknownNode();
  bool parseExternProto();
  bool parseExport();
  bool parseListItem(ParserNode& open);
  bool parseElement(ParserNode& open);
  bool parseField(ParserNode& open);
  bool parseNodeValue(ParserNode& open, const NodeMember& member);
  bool expandFieldKeyword();
  bool parseNodeKeywordAsName();
  bool parseScriptItem(ScriptNode& script);
  bool parseDeclaration(ScriptNode& script, FieldList list);
  bool parseDeclaredValue(ScriptWord type, Field& field);
  bool parseExpandedEvent(Node& node);
  bool skipValue();

  Parser& m_parser;
  Lexer& m_lexer;
  ValueReader m_values;
  bool m_passedLimit = false;
};

// ---- file, statement

bool Grammar::parseFile() {
  advance();
  for (bool done = false; !done;)
    if (!parseNext(done)) {
      yyerror("parse error");
      return false;
    }
  return true;
}

bool Grammar::parseNext(bool& done) {
  ParserNode* const open = m_parser.innermost();
  if (open) return open->inList ? parseListItem(*open) : parseElement(*open);
  done = at(TokenKind::end);
  return done || parseStatement();
}

bool Grammar::parseStatement() {
  switch (token().kind) {
    case TokenKind::node:
      return parseNode();
    case TokenKind::use:
      return parseUse();
    case TokenKind::identifier:
      if (token().text == "EXTERNPROTO") return parseExternProto();
      if (token().text == "EXPORT" && m_lexer.rules().looseStatements) return parseExport();
      return parseUnknownNode();
    case TokenKind::field:
      return parseNodeKeywordAsName();
    default:
      return false;
  }
}

// ---- node

// node : TYPE '{' — the elements and the closing brace follow, with the node on the parse stack.
bool Grammar::parseNode() {
  if (m_parser.openNodes() == kOpenNodeLimit || m_parser.isFull()) return limit();
  const NodeType type = token().nodeType();
  const bool isInline = type == nodeType("Inline");
  advance();
  if (!at(TokenKind::openBrace)) return false;
  std::unique_ptr<Node> node(createNode(type));
  if (m_parser.hasPendingDefName()) node->setName(Parser::takePendingDefName());
  if (isInline) m_parser.markPlace(*node);
  m_parser.addNode(node.get());
  m_parser.pushNode(*node.release());
  advance();
  return true;
}

// node : USE — the scanner has made the reference. A name that nothing bears adds nothing.
bool Grammar::parseUse() {
  if (std::unique_ptr<Node> reference(m_parser.takeUse()); reference) {
    if (m_parser.isFull()) return limit();
    m_parser.markPlace(*reference);
    m_parser.addNode(reference.get());
    static_cast<void>(reference.release());
  }
  advance();
  return true;
}

// ---- skipped

// unknownNode : NAME '{' anything '}'
bool Grammar::parseUnknownNode() {
  if (!m_parser.isVrml2() || !m_lexer.braceFollows()) return false;
  const int line = m_lexer.line();
  std::string type(token().text);
  const char* const name = Parser::takePendingDefName();
  m_parser.addNote({line, NoteKind::unknownNode, std::move(type), name ? name : "", {}});
  const bool closed = m_lexer.skipBraces();
  advance();
  return closed;
}

// By the wide rules a field keyword can be the name of a PROTO: what its instance stands for comes next then.
bool Grammar::expandFieldKeyword() {
  if (!at(TokenKind::field) || !m_lexer.rules().fieldKeywordNamesNode) return false;
  if (!m_lexer.expandInstance(token().text)) return false;
  if (at(TokenKind::field)) advance();  // the scanner leaves the keyword unless a limit or the end stopped it
  return true;
}

// By the wide rules a field keyword where a node is expected is the name of a PROTO, or of an unknown node.
bool Grammar::parseNodeKeywordAsName() {
  if (!m_lexer.rules().fieldKeywordNamesNode) return false;
  return expandFieldKeyword() || parseUnknownNode();
}

// externProto : 'EXTERNPROTO' NAME '[' anything ']' ( STRING | '[' { STRING } ']' )
bool Grammar::parseExternProto() {
  const int line = m_lexer.line();
  std::string name;
  const bool closed = m_lexer.skipExternProtoHeader(name);
  m_parser.addNote({line, NoteKind::externProto, std::move(name), {}, {}});
  advance();
  if (!closed) return false;
  if (at(TokenKind::string)) {
    advance();
    return true;
  }
  if (!at(TokenKind::openBracket)) return false;
  if (m_lexer.rules().looseStatements) {
    const bool listClosed = m_lexer.skipOpenBrackets();
    advance();
    return listClosed;
  }
  do advance();
  while (at(TokenKind::string));
  if (!at(TokenKind::closeBracket)) return false;
  advance();
  return true;
}

// skipped : 'EXPORT' NAME
bool Grammar::parseExport() {
  const int line = m_lexer.line();
  m_parser.addNote({line, NoteKind::exportStatement, {}, {}, m_lexer.readWord()});
  advance();
  return true;
}

// ---- element

bool Grammar::parseElement(ParserNode& open) {
  Node& node = *open.node;
  switch (token().kind) {
    case TokenKind::closeBrace:
      m_parser.popNode();
      advance();
      return true;
    case TokenKind::field:
      return parseField(open);
    case TokenKind::script:
      return node.isType(nodeType("Script")) && parseScriptItem(static_cast<ScriptNode&>(node));
    case TokenKind::identifier:
      if (token().text == "EXTERNPROTO") return parseExternProto();
      if (token().text == "EXPORT" && m_lexer.rules().looseStatements) return parseExport();
      if (token().text == "exposedField" && m_lexer.rules().scriptExtensions && node.isType(nodeType("Script")))
        return parseDeclaration(static_cast<ScriptNode&>(node), FieldList::field);
      return parseExpandedEvent(node);
    default:
      return false;
  }
}

// element : FIELD value | FIELD nodeValue
bool Grammar::parseField(ParserNode& open) {
  const FieldKey key = token().fieldKey();
  const NodeClass& nodeClass = open.node->getClass();
  if (const FieldDecl* const decl = nodeClass.findField(key)) {
    advance();
    Field& field = open.node->fieldOf(*decl);
    return key == fieldKey("family") ? m_values.readFirstString(field) : m_values.readValue(field);
  }
  if (const NodeMember* const member = nodeClass.findMember(key)) return parseNodeValue(open, *member);
  return parseExpandedEvent(*open.node);
}

// nodeValue : NULL | node | unknownNode | '[' — a list stays open on the parse stack, a node is on top of it.
bool Grammar::parseNodeValue(ParserNode& open, const NodeMember& member) {
  open.field = member.key;
  advance();
  while (at(TokenKind::identifier) && token().text == "EXTERNPROTO")
    if (!parseExternProto()) return false;
  if (member.many && at(TokenKind::openBracket)) {
    open.inList = true;
    advance();
    return true;
  }
  expandFieldKeyword();
  if (!at(TokenKind::null)) return parseStatement();
  advance();
  return true;
}

bool Grammar::parseListItem(ParserNode& open) {
  if (at(TokenKind::closeBracket)) {
    open.inList = false;
  } else if (!at(TokenKind::null)) {
    return parseStatement();
  }
  advance();
  return true;
}

// By the wide rules: an event of the open node, which an IS in a PROTO's body has left behind, with its value if it has
// one.
bool Grammar::parseExpandedEvent(Node& node) {
  if (!m_lexer.rules().dropsExpandedEvents || !m_lexer.inExpansion()) return false;
  const std::string name(token().text);
  const bool isChildrenEvent = name == "addChildren" || name == "removeChildren";
  const bool isEvent = (isChildrenEvent && node.getClass().findMember(fieldKey("children"))) || node.getEventIn(name) ||
                       node.getEventOut(name) || node.getExposedField(name);
  if (!isEvent) return false;
  advance();
  return skipValue();
}

// A value of any type, or none.
bool Grammar::skipValue() {
  switch (token().kind) {
    case TokenKind::integer:
    case TokenKind::real:
      while (token().isNumber()) advance();
      return true;
    case TokenKind::string:
    case TokenKind::null:
      advance();
      return true;
    case TokenKind::use:
      delete m_parser.takeUse();
      advance();
      return true;
    case TokenKind::openBracket: {
      const bool closed = m_lexer.skipOpenBrackets();
      advance();
      return closed;
    }
    case TokenKind::node: {
      const bool closed = m_lexer.skipBraces();
      Parser::takePendingDefName();
      advance();
      return closed;
    }
    default:
      return true;
  }
}

// ---- scriptItem

bool Grammar::parseScriptItem(ScriptNode& script) {
  const ScriptWord word = token().scriptWord();
  if (word == scriptWord("field")) return parseDeclaration(script, FieldList::field);
  if (word == scriptWord("eventIn")) return parseDeclaration(script, FieldList::eventIn);
  if (word == scriptWord("eventOut")) return parseDeclaration(script, FieldList::eventOut);
  // The script's own fields are words of their own there; the type words begin no item.
  for (const FieldDecl& decl : script.getClass().fields)
    if (token().text == decl.name) {
      advance();
      return m_values.readValue(script.fieldOf(decl));
    }
  return false;
}

// scriptItem : 'field' type NAME value | 'eventIn' type NAME [value] | 'eventOut' type NAME [value]
bool Grammar::parseDeclaration(ScriptNode& script, FieldList list) {
  advance();
  if (!at(TokenKind::script)) return false;
  const ScriptWord type = token().scriptWord();
  advance();
  if (!at(TokenKind::identifier)) return false;
  Field* const field = script.declare(list, type, token().text);
  if (!field) return false;
  advance();
  const bool isEvent = list == FieldList::eventIn || list == FieldList::eventOut;
  if (!isEvent) return parseDeclaredValue(type, *field);
  // The value of an event is read over. It begins with a token that no item begins with.
  const bool hasValue = token().isNumber() || at(TokenKind::string) || at(TokenKind::openBracket) ||
                        at(TokenKind::null) || at(TokenKind::use);
  if (!hasValue) return true;
  const std::unique_ptr<Field> dropped = makeField(field->getType());
  return parseDeclaredValue(type, *dropped);
}

// A type without a class of its own, and one that holds nodes, is declared as a text.
bool Grammar::parseDeclaredValue(ScriptWord type, Field& field) {
  if (field.getType() == fieldTypeOf(scriptWordName(type))) return m_values.readValue(field);
  std::string text;
  if (!m_values.readText(type, m_lexer.rules().scriptExtensions, text)) return false;
  static_cast<SFString&>(field).setValue(std::string_view(text));
  return true;
}

}  // namespace

int yyparse() {
  Grammar grammar(*Parser::currentParser(), *activeLexer());
  if (grammar.parseFile()) return 0;
  return grammar.passedLimit() ? 2 : 1;
}

int yyerror(const char*) {
  Parser::currentParser()->setError(*activeLexer());
  return 0;
}

}  // namespace vrml
