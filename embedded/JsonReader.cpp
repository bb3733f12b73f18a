// JSON, read by a cursor over the whole text. Which brackets are open is kept on a list, which also says where the
// cursor is when something is wrong. Lines are counted only then.

#include "embedded/JsonReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "embedded/Utf8.h"

namespace embedded {
namespace {

constexpr std::size_t kShownLevels = 12;

constexpr std::string_view kKindNames[] = {"an object", "a list", "a text", "a number", "true or false", "null"};

std::string_view nameOf(JsonReader::Kind kind) { return kKindNames[static_cast<std::size_t>(kind)]; }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The number that a text of JSON's grammar stands for; infinite or 0 where it does not fit.
template <class T>
T numberOf(std::string_view text) {
  T value{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  const std::size_t exponent = text.find_first_of("eE");
  const bool isTiny = exponent == text.npos ? text.find("0.") < 2 : text[exponent + 1] == '-';
  const T magnitude = isTiny ? T{0} : std::numeric_limits<T>::infinity();
  return text.front() == '-' ? -magnitude : magnitude;
}

}  // namespace

JsonReader::JsonReader(std::string_view text) : m_text(text) {
  if (m_text.starts_with("\xEF\xBB\xBF")) m_at = 3;
}

std::size_t JsonReader::line() const {
  return 1 +
         static_cast<std::size_t>(std::count(m_text.begin(), m_text.begin() + static_cast<std::ptrdiff_t>(m_at), '\n'));
}

std::string JsonReader::place() const {
  std::string text;
  const std::size_t first = m_levels.size() > kShownLevels ? m_levels.size() - kShownLevels : 0;
  if (first > 0) text = "...";
  for (std::size_t i = first; i < m_levels.size(); ++i) {
    const Level& level = m_levels[i];
    if (level.count == 0) break;
    text += '/';
    text += level.isObject ? std::string(level.key) : std::to_string(level.count - 1);
  }
  return text.empty() ? "/" : text;
}

void JsonReader::fail(const std::string& what) const { throw JsonError(line(), place() + ": " + what); }

void JsonReader::skipBlanks() {
  while (m_at < m_text.size()) {
    const char c = m_text[m_at];
    if (c != ' ' && c != '\n' && c != '\t' && c != '\r') return;
    ++m_at;
  }
}

JsonReader::Kind JsonReader::kind() {
  skipBlanks();
  const char c = peek();
  if (c == '-' || isDigit(c)) return Kind::Number;
  switch (c) {
    case '{':
      return Kind::Object;
    case '[':
      return Kind::List;
    case '"':
      return Kind::Text;
    case 't':
    case 'f':
      return Kind::Boolean;
    case 'n':
      return Kind::Null;
    default:
      break;
  }
  fail(m_at < m_text.size() ? "a value is expected" : "the text ends where a value is expected");
}

void JsonReader::expect(Kind wanted) {
  const Kind found = kind();
  if (found != wanted) fail(std::string(nameOf(wanted)) + " is expected, not " + std::string(nameOf(found)));
}

void JsonReader::enterObject() {
  expect(Kind::Object);
  ++m_at;
  m_levels.push_back({{}, 0, true});
}

void JsonReader::enterList() {
  expect(Kind::List);
  ++m_at;
  m_levels.push_back({});
}

bool JsonReader::nextMember(char close) {
  skipBlanks();
  Level& level = m_levels.back();
  if (peek() == close) {
    ++m_at;
    m_levels.pop_back();
    return false;
  }
  if (level.count > 0) {
    if (peek() != ',') fail(std::string("a comma or ") + close + " is expected");
    ++m_at;
    skipBlanks();
  }
  return true;
}

bool JsonReader::nextKey(std::string& key) {
  if (!nextMember('}')) return false;
  if (peek() != '"') fail("a key in quotes is expected");
  const std::size_t begin = m_at + 1;
  key = takeQuoted();
  Level& level = m_levels.back();
  level.key = m_text.substr(begin, m_at - begin - 1);
  ++level.count;
  skipBlanks();
  if (peek() != ':') fail("a colon is expected");
  ++m_at;
  return true;
}

bool JsonReader::nextItem() {
  if (!nextMember(']')) return false;
  ++m_levels.back().count;
  return true;
}

void JsonReader::takeWord(std::string_view word) {
  if (m_text.substr(m_at, word.size()) != word) fail("a value is expected");
  m_at += word.size();
}

bool JsonReader::takeBoolean() {
  expect(Kind::Boolean);
  const bool value = peek() == 't';
  takeWord(value ? "true" : "false");
  return value;
}

void JsonReader::takeNull() {
  expect(Kind::Null);
  takeWord("null");
}

std::string JsonReader::takeText() {
  expect(Kind::Text);
  return takeQuoted();
}

std::string JsonReader::takeQuoted() {
  std::string value;
  ++m_at;
  for (;;) {
    const std::size_t length = utf8SequenceLength(m_text, m_at);
    if (length == 0) fail(m_at < m_text.size() ? "the text is not UTF-8" : "the text ends inside quotes");
    const char c = m_text[m_at];
    if (length == 1 && static_cast<unsigned char>(c) < 0x20) fail("a control character stands inside quotes");
    if (c == '\\') {
      takeEscape(value);
      continue;
    }
    if (c != '"') value.append(m_text, m_at, length);
    m_at += length;
    if (c == '"') return value;
  }
}

unsigned JsonReader::takeHex() {
  unsigned value = 0;
  const std::string_view digits = m_text.substr(m_at, 4);
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (digits.size() < 4 || result.ptr != digits.data() + 4) fail("four hexadecimal digits are expected");
  m_at += 4;
  return value;
}

void JsonReader::takeEscape(std::string& value) {
  constexpr std::string_view kNames = "\"\\/bfnrt";
  constexpr std::string_view kValues = "\"\\/\b\f\n\r\t";
  ++m_at;
  const char name = peek();
  const std::size_t known = kNames.find(name);
  if (known != kNames.npos && m_at < m_text.size()) {
    value += kValues[known];
    ++m_at;
    return;
  }
  if (name != 'u') fail("an unknown escape");
  ++m_at;
  unsigned codePoint = takeHex();
  if (codePoint >= 0xD800 && codePoint < 0xDC00 && m_text.substr(m_at, 2) == "\\u") {
    m_at += 2;
    const unsigned low = takeHex();
    if (low < 0xDC00 || low > 0xDFFF) fail("half a surrogate pair");
    codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
  }
  if (codePoint >= 0xD800 && codePoint <= 0xDFFF) fail("half a surrogate pair");
  appendUtf8(value, codePoint);
}

std::size_t JsonReader::takeDigits() {
  const std::size_t begin = m_at;
  while (isDigit(peek())) ++m_at;
  if (m_at == begin) fail("a digit is expected");
  return m_at - begin;
}

std::string_view JsonReader::takeNumberText() {
  expect(Kind::Number);
  const std::size_t begin = m_at;
  if (peek() == '-') ++m_at;
  const bool startsWithZero = peek() == '0';
  if (takeDigits() > 1 && startsWithZero) fail("a number begins with 0");
  if (peek() == '.') {
    ++m_at;
    takeDigits();
  }
  if (peek() == 'e' || peek() == 'E') {
    ++m_at;
    if (peek() == '+' || peek() == '-') ++m_at;
    takeDigits();
  }
  return m_text.substr(begin, m_at - begin);
}

float JsonReader::takeFloat() {
  if (kind() != Kind::Null) return numberOf<float>(takeNumberText());
  takeNull();
  return std::numeric_limits<float>::quiet_NaN();
}

double JsonReader::takeDouble() {
  if (kind() != Kind::Null) return numberOf<double>(takeNumberText());
  takeNull();
  return std::numeric_limits<double>::quiet_NaN();
}

std::int64_t JsonReader::takeInteger(std::int64_t least, std::int64_t most) {
  const std::string_view text = takeNumberText();
  std::int64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
  if (!isWhole && result.ec == std::errc()) {
    const double number = numberOf<double>(text);
    isWhole = std::abs(number) < 1e15 && std::trunc(number) == number;
    if (isWhole) value = static_cast<std::int64_t>(number);
  }
  if (!isWhole || value < least || value > most) {
    fail("a whole number from " + std::to_string(least) + " to " + std::to_string(most) + " is expected");
  }
  return value;
}

void JsonReader::finish() {
  skipBlanks();
  if (m_at < m_text.size()) fail("something stands behind the document");
}

}  // namespace embedded
