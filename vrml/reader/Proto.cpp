#include "vrml/reader/Proto.h"

// The body is cut once, at its IS words, into stretches of text that an expansion copies, so that an instance costs the
// length of what it expands to. For each stretch it is known beforehand how much of its end goes when the name behind
// the IS has no value: the field's name, or nothing, or a Script's whole declaration.

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "vrml/fields/FieldFactory.h"
#include "vrml/fields/SFString.h"
#include "vrml/reader/CharClass.h"
#include "vrml/reader/FileText.h"
#include "vrml/reader/ScannerFailure.h"
#include "vrml/reader/ValueReader.h"

namespace vrml {
namespace {

struct KindWord {
  std::string_view word;
  InterfaceKind kind;
};
constexpr std::array<KindWord, 4> kKindWords = {{{"field", InterfaceKind::field},
                                                 {"exposedField", InterfaceKind::exposedField},
                                                 {"eventIn", InterfaceKind::eventIn},
                                                 {"eventOut", InterfaceKind::eventOut}}};

const KindWord* findKindWord(std::string_view word) {
  const auto* const found =
      std::find_if(kKindWords.begin(), kKindWords.end(), [&](const KindWord& each) { return each.word == word; });
  return found == kKindWords.end() ? nullptr : found;
}

bool isEvent(InterfaceKind kind) { return kind == InterfaceKind::eventIn || kind == InterfaceKind::eventOut; }

// The types whose values have no class of their own here, or are nodes.
bool isTextType(ScriptWord type) {
  return type == scriptWord("SFNode") || type == scriptWord("MFNode") || type == scriptWord("MFBool") ||
         type == scriptWord("MFImage");
}

// A word that can be a name of an interface: any that begins like one, keywords included.
bool isNameToken(const Token& token) {
  return token.kind != TokenKind::string && !token.text.empty() && classOf(token.text[0]) == CharClass::letter;
}

// A copy that a scanner can run over.
std::string padded(std::string_view text) {
  try {
    std::string copy;
    copy.reserve(text.size() + kScanPadding);
    copy.append(text).append(kScanPadding, '\0');
    return copy;
  } catch (const std::bad_alloc&) {
    failScanner(ScannerFailure::scanBuffer);
  }
}

// ---- the words of a body

constexpr std::string_view kSingles = "{}[],\n";

// Takes the next word off the body: a bracket, a brace, a comma or a line end, a whole string, or what stands between
// these and blanks. "" at the end.
std::string_view takeBodyWord(std::string_view& body, bool escapes) {
  constexpr std::string_view kBlanks = " \t\r";
  constexpr std::string_view kEnds = " \t\r{}[],\n\"";
  body.remove_prefix(std::min(body.find_first_not_of(kBlanks), body.size()));
  if (body.empty()) return body;
  std::size_t length = 1;
  if (body[0] == '"') {
    while (length < body.size() && body[length] != '"') length += escapes && body[length] == '\\' ? 2u : 1u;
    length = std::min(length + 1, body.size());
  } else if (kSingles.find(body[0]) == std::string_view::npos) {
    length = std::min(body.find_first_of(kEnds), body.size());
  }
  const std::string_view word = body.substr(0, length);
  body.remove_prefix(length);
  return word;
}

// The word behind an IS, where it can be a name; "" elsewhere, with nothing taken.
std::string_view takeInterfaceName(std::string_view& body) {
  std::string_view rest = body;
  std::string_view word = takeBodyWord(rest, false);
  while (word == "\n") word = takeBodyWord(rest, false);
  if (word.empty() || word[0] == '"' || kSingles.find(word[0]) != std::string_view::npos) return {};
  body = rest;
  return word;
}

// Copies what stands between a pair of brackets or braces, these included, and all in front of it.
void copyNested(std::string_view& body, char open, char close, std::string& out, bool escapes) {
  std::size_t depth = 0;
  for (std::string_view word = takeBodyWord(body, escapes); !word.empty(); word = takeBodyWord(body, escapes)) {
    out.append(word).append(" ");
    if (word[0] == open) ++depth;
    if (word[0] == close && depth > 0 && --depth == 0) return;
  }
}

// The rest of a PROTO that a body declares: an IS in it is of its own interface.
void copyDeclaration(std::string_view& body, std::string& out, bool escapes) {
  copyNested(body, '[', ']', out, escapes);
  copyNested(body, '{', '}', out, escapes);
}

bool isTypeWord(std::string_view word) {
  return findScriptWord(word) != ScriptWord::none && (word.starts_with("SF") || word.starts_with("MF"));
}

}  // namespace

Proto::Proto(std::string_view name, std::string_view body, std::string_view interface, const Rules& rules)
    : m_name(name), m_body(body), m_rules(rules) {
  readInterface(interface);
}

Proto::~Proto() = default;

// ---- the interface and the instances

void Proto::readInterface(std::string_view text) {
  const std::string copy = padded(text);
  Lexer lexer({copy.data(), text.size()}, m_rules);
  ValueReader values(lexer);
  values.advance();
  while (readDeclaration(values)) {
  }
}

// declaration : kind TYPE name [value]
bool Proto::readDeclaration(ValueReader& values) {
  const KindWord* const kind = findKindWord(values.token().text);
  if (!kind) return false;
  values.advance();
  const ScriptWord type = findScriptWord(values.token().text);
  const bool isText = isTextType(type);
  std::unique_ptr<Field> value = isText ? std::make_unique<SFString>() : makeField(fieldTypeOf(values.token().text));
  if (!value) return false;
  values.advance();
  if (!isNameToken(values.token())) return false;
  value->setName(values.token().text);
  values.advance();
  Declaration declaration{kind->kind, isText ? type : ScriptWord::none, std::move(value), nullptr};
  if (!isEvent(kind->kind) && !readValue(values, declaration, *declaration.value)) return false;
  m_byName.try_emplace(declaration.value->getName(), m_declarations.size());
  m_declarations.push_back(std::move(declaration));
  return true;
}

// By the exact rules a field that holds nodes has no text, except that of no node at all. A body that asks for it is
// refused then, and read once more by the rules that know the text.
bool Proto::readValue(ValueReader& values, const Declaration& declaration, Field& value) const {
  if (declaration.textType == ScriptWord::none) return values.readValue(value);
  std::string text;
  if (!values.readText(declaration.textType, true, text)) return false;
  const bool ofNodes = declaration.textType == scriptWord("SFNode") || declaration.textType == scriptWord("MFNode");
  if (ofNodes && !m_rules.nestedInstances && text != "NULL" && text != "[ ]") text.clear();
  static_cast<SFString&>(value).setValue(std::string_view(text));
  return true;
}

// instance : { name value }
void Proto::readInstance(std::string_view text) {
  if (text.find_first_not_of(" \t\n\r,") == std::string_view::npos) return;
  const std::string copy = padded(text);
  Lexer lexer({copy.data(), text.size()}, m_rules);
  ValueReader values(lexer);
  for (values.advance(); isNameToken(values.token());) {
    Declaration* const declaration = findDeclaration(values.token().text);
    if (!declaration || isEvent(declaration->kind)) return;
    values.advance();
    const bool isText = declaration->textType != ScriptWord::none;
    std::unique_ptr<Field> value = isText ? std::make_unique<SFString>() : makeField(declaration->value->getType());
    if (!readValue(values, *declaration, *value)) return;
    declaration->instance = std::move(value);
    m_given.push_back(declaration);
  }
}

void Proto::forgetInstance() noexcept {
  for (Declaration* const declaration : m_given) declaration->instance.reset();
  m_given.clear();
}

// Of two declarations of one name the first holds.
Proto::Declaration* Proto::findDeclaration(std::string_view name) noexcept {
  const auto found = m_byName.find(name);
  return found == m_byName.end() ? nullptr : &m_declarations[found->second];
}

// ---- the body

void Proto::splitBody() {
  std::string_view rest = m_body;
  std::string text;
  std::vector<Word> words;
  for (std::string_view word = takeBodyWord(rest, m_rules.stringEscapes); !word.empty();
       word = takeBodyWord(rest, m_rules.stringEscapes)) {
    if (word == "IS") {
      m_pieces.push_back(cutPiece(std::move(text), words, takeInterfaceName(rest)));
      text.clear();
      words.clear();
      continue;
    }
    if (word != "\n" && word != ",") words.push_back({word, text.size()});
    text.append(word).append(" ");
    if (word == "PROTO") copyDeclaration(rest, text, m_rules.stringEscapes);
  }
  m_pieces.push_back({text, text.size(), text.size(), true, {}});
}

// The piece that ends at an IS. Where the name in front of it is being declared by a Script it stays; elsewhere it
// goes, as far as the last word written can be part of a name.
Proto::Piece Proto::cutPiece(std::string text, const std::vector<Word>& words, std::string_view interfaceName) {
  Piece piece{std::move(text), 0, 0, false, std::string(interfaceName)};
  piece.withoutField = piece.withoutDeclared = piece.text.size();
  const std::size_t count = words.size();
  const KindWord* const kind = count >= 3 ? findKindWord(words[count - 3].text) : nullptr;
  if (kind && isTypeWord(words[count - 2].text)) {
    if (!isEvent(kind->kind)) piece.withoutDeclared = words[count - 3].begin;
  } else if (count > 0) {
    const Word& last = words.back();
    std::size_t kept = last.text.size();
    while (kept > 0 && isNameChar(last.text[kept - 1])) --kept;
    if (kept < last.text.size()) piece.withoutField = piece.withoutDeclared = last.begin + kept;
  }
  return piece;
}

bool Proto::expand(std::string_view instance, std::size_t room, std::string& out) {
  if (m_pieces.empty()) splitBody();
  readInstance(instance);
  const std::size_t limit = out.size() + room;
  for (const Piece& piece : m_pieces) {
    const Declaration* const declaration = piece.isLast ? nullptr : findDeclaration(piece.interfaceName);
    // An event has no value, and neither has a name that is not declared.
    const bool hasValue = declaration && !isEvent(declaration->kind);
    const std::size_t rest = m_rules.scriptExtensions ? piece.withoutDeclared : piece.withoutField;
    out.append(piece.text, 0, hasValue || piece.isLast ? piece.text.size() : rest);
    if (hasValue) appendValue(*declaration, out);
    if (out.size() > limit) break;
  }
  forgetInstance();
  return out.size() <= limit;
}

void Proto::appendValue(const Declaration& declaration, std::string& out) const {
  const Field& value = declaration.instance ? *declaration.instance : *declaration.value;
  if (declaration.textType == ScriptWord::none)
    value.appendVrml(out, m_rules.stringEscapes);
  else
    value.appendText(out);
  out += ' ';
}

}  // namespace vrml
