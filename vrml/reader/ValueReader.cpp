#include "vrml/reader/ValueReader.h"

// The productions, with `number` for an integer or a real token:
//
//   SFBool, SFInt32         : integer
//   SFFloat, SFTime         : number
//   SFVec2f                 : number number
//   SFVec3f, SFColor        : number number number
//   SFRotation              : number number number number
//   SFString                : string
//   MF...                   : the single value | '[' { the single value } ']'
//   SFImage                 : integer { integer } | '[' { integer } ']'
//   SFNode as text          : NULL | USE name | node statement
//   MFNode as text          : the same | '[' { the same } ']'
//   MFBool, MFImage as text : integer | '[' { integer } ']'
//
// An open list of numbers is read by the scanner's loop over numbers, straight into the field's packed values; whatever
// that loop does not know goes through the token path, one token at a time, and back into the loop.

#include <algorithm>
#include <array>

#include "vrml/fields/Fields.h"

namespace vrml {

bool ValueReader::readValue(Field& field) {
  switch (field.getType()) {
    case FieldType::SFBool: {
      std::int32_t value = 0;
      if (!readInteger(value)) return false;
      static_cast<SFBool&>(field).setValue(value != 0);
      return true;
    }
    case FieldType::SFInt32: {
      std::int32_t value = 0;
      if (!readInteger(value)) return false;
      static_cast<SFInt32&>(field).setValue(value);
      return true;
    }
    case FieldType::SFFloat:
      return readFloats<1>([&](const auto& v) { static_cast<SFFloat&>(field).setValue(v[0]); });
    case FieldType::SFTime:
      return readFloats<1>([&](const auto& v) { static_cast<SFTime&>(field).setValue(static_cast<double>(v[0])); });
    case FieldType::SFVec2f:
      return readFloats<2>([&](const auto& v) { static_cast<SFVec2f&>(field).setValue(v[0], v[1]); });
    case FieldType::SFVec3f:
      return readFloats<3>([&](const auto& v) { static_cast<SFVec3f&>(field).setValue(v[0], v[1], v[2]); });
    case FieldType::SFColor:
      return readFloats<3>([&](const auto& v) { static_cast<SFColor&>(field).setValue(v[0], v[1], v[2]); });
    case FieldType::SFRotation:
      return readFloats<4>([&](const auto& v) { static_cast<SFRotation&>(field).setValue(v[0], v[1], v[2], v[3]); });
    case FieldType::SFString:
      if (!at(TokenKind::string)) return false;
      static_cast<SFString&>(field).setValue(token().value);
      advance();
      return true;
    case FieldType::MFFloat:
      return readFloatList<1>([&](const auto& v) { static_cast<MFFloat&>(field).packed().push_back(v[0]); });
    case FieldType::MFTime:
      return readFloatList<1>(
          [&](const auto& v) { static_cast<MFTime&>(field).packed().push_back(static_cast<double>(v[0])); });
    case FieldType::MFVec2f:
      return readFloatList<2>([&](const auto& v) { static_cast<MFVec2f&>(field).packed().push_back(v); });
    case FieldType::MFVec3f:
      return readFloatList<3>([&](const auto& v) { static_cast<MFVec3f&>(field).packed().push_back(v); });
    case FieldType::MFColor:
      return readFloatList<3>([&](const auto& v) { static_cast<MFColor&>(field).packed().push_back(v); });
    case FieldType::MFRotation:
      return readFloatList<4>(
          [&](const auto& v) { static_cast<MFRotation&>(field).packed().push_back(SFRotation::stored(v)); });
    case FieldType::MFInt32:
      return readIntegerList(static_cast<MFInt32&>(field));
    case FieldType::MFString:
      return readStringList(static_cast<MFString&>(field));
    case FieldType::SFImage:
      return readImage(static_cast<SFImage&>(field));
    case FieldType::none:
    case FieldType::SFNode:
      break;
  }
  return false;
}

template <std::size_t n, class Store>
bool ValueReader::readFloats(Store store) {
  std::array<float, n> value;
  for (float& component : value) {
    if (!token().isNumber()) return false;
    component = token().asFloat();
    advance();
  }
  store(value);
  return true;
}

template <std::size_t n, class Append>
bool ValueReader::readFloatList(Append append) {
  if (!at(TokenKind::openBracket)) return readFloats<n>(append);
  std::array<float, n> value;
  std::size_t filled = 0;
  const auto add = [&](float component) {
    value[filled] = component;
    if (++filled < n) return;
    append(value);
    filled = 0;
  };
  for (;;) {
    m_lexer.scanFloats(add);
    advance();
    if (!token().isNumber()) break;
    add(token().asFloat());
  }
  if (!at(TokenKind::closeBracket) || filled != 0) return false;
  advance();
  return true;
}

bool ValueReader::readInteger(std::int32_t& value) {
  if (!at(TokenKind::integer)) return false;
  value = token().integer;
  advance();
  return true;
}

template <class List>
bool ValueReader::readIntegerList(List& list) {
  const auto add = [&](std::int32_t value) { list.packed().push_back(value); };
  if (!at(TokenKind::openBracket)) {
    std::int32_t value = 0;
    if (!readInteger(value)) return false;
    add(value);
    return true;
  }
  do {
    if (at(TokenKind::integer)) add(token().integer);
    m_lexer.scanIntegers(add);
    advance();
  } while (at(TokenKind::integer));
  if (!at(TokenKind::closeBracket)) return false;
  advance();
  return true;
}

// Without brackets an image takes every integer that follows.
template <class List>
bool ValueReader::readImage(List& list) {
  if (at(TokenKind::openBracket)) return readIntegerList(list);
  if (!at(TokenKind::integer)) return false;
  while (at(TokenKind::integer)) {
    list.packed().push_back(token().integer);
    m_lexer.scanIntegers([&](std::int32_t value) { list.packed().push_back(value); });
    advance();
  }
  return true;
}

template <class List>
bool ValueReader::readStringList(List& list) {
  const bool bracketed = at(TokenKind::openBracket);
  if (bracketed) advance();
  if (!bracketed && !at(TokenKind::string)) return false;
  while (at(TokenKind::string)) {
    list.addValue(token().value);
    advance();
    if (!bracketed) return true;
  }
  if (!at(TokenKind::closeBracket)) return false;
  advance();
  return true;
}

bool ValueReader::readFirstString(Field& field) {
  if (!at(TokenKind::openBracket)) return readValue(field);
  advance();
  for (bool isFirst = true; at(TokenKind::string); isFirst = false) {
    if (isFirst) static_cast<SFString&>(field).setValue(token().value);
    advance();
  }
  if (!at(TokenKind::closeBracket)) return false;
  advance();
  return true;
}

// ---- values that are kept as text

bool ValueReader::readText(ScriptWord type, bool allowNodes, std::string& out) {
  const bool ofNodes = type == scriptWord("SFNode") || type == scriptWord("MFNode");
  const auto readOne = [&] {
    if (ofNodes) return readNodeText(allowNodes, out);
    if (!at(TokenKind::integer)) return false;
    out += token().text;
    advance();
    return true;
  };
  if (type == scriptWord("SFNode") || !at(TokenKind::openBracket)) return readOne();
  out += "[ ";
  for (advance(); !at(TokenKind::closeBracket);) {
    if (!readOne()) return false;
    out += ' ';
  }
  out += ']';
  advance();
  return true;
}

bool ValueReader::readNodeText(bool allowNodes, std::string& out) {
  switch (token().kind) {
    case TokenKind::null:
      out += "NULL";
      advance();
      return true;
    case TokenKind::use: {
      std::string name;
      if (m_lexer.rules().wideUseNames) {
        name = m_lexer.readWord(kUseNameStops);
        // A field's text ends at its first zero byte: the name has "_" for one, as a node's own name would.
        std::replace(name.begin(), name.end(), '\0', '_');
      } else {
        advance();
        if (at(TokenKind::identifier)) name = token().text;
      }
      if (name.empty()) return false;
      out.append("USE ").append(name);
      advance();
      return true;
    }
    case TokenKind::identifier: {
      const bool isNode = token().text == "DEF" || m_lexer.braceFollows();
      if (!allowNodes || !isNode) return false;
      out += token().text;
      const bool isWhole = m_lexer.copyBraces(out);
      // A field's text ends at its first zero byte, which would cut the node off.
      std::replace(out.begin(), out.end(), '\0', ' ');
      advance();
      if (!isWhole) return false;
      return true;
    }
    default:
      return false;
  }
}

}  // namespace vrml
