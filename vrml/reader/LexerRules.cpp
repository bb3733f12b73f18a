#include "vrml/reader/Lexer.h"

// What the scanner reads raw, character by character, past a word that it matched. `takeRaw` gives the characters of
// all texts on the stack as one stream, in which a carriage return is a blank and every line end a line feed, and
// counts the file's line ends. Strings and comments are recognised wherever a bracket or a brace is looked for, so that
// what stands in them is text.

#include <algorithm>
#include <cstring>
#include <utility>

#include "vrml/nodes/Node.h"
#include "vrml/reader/Limits.h"
#include "vrml/reader/Parser.h"
#include "vrml/reader/Proto.h"

namespace vrml {
namespace {

constexpr int kEndOfInput = -1;
constexpr std::string_view kBlanks = " \t\n\r\v\f";

bool isBlank(int c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Takes the first word off a text, as "%s" reads it; "" when there is none.
std::string_view takeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

// Whether a text ends in the word PROTO and one more. The url of a declaration without a body may stand in front.
bool endsInProtoName(std::string_view text) {
  std::string_view beforeLast;
  std::string_view last = takeWord(text);
  for (std::string_view word = takeWord(text); !word.empty(); word = takeWord(text)) {
    beforeLast = last;
    last = word;
  }
  return beforeLast == "PROTO";
}

}  // namespace

// ---- the stream of characters

// Leaves the texts that are used up. True at the end of the input.
bool Lexer::atEnd() {
  while (m_at == m_end)
    if (!leaveText()) return true;
  return false;
}

int Lexer::takeRaw() {
  if (atEnd()) return kEndOfInput;
  const char c = *m_at++;
  const bool endsLine = c == '\n' || (c == '\r' && m_lineEnd == '\r');
  if (endsLine && inFile()) countLine(m_at);
  if (endsLine) return '\n';
  return c == '\r' ? ' ' : static_cast<unsigned char>(c);
}

// Behind the opening quote. Line ends in a string are part of it and are not counted.
void Lexer::takeRawString(std::string* out) {
  const auto put = [out](char c) {
    if (out) *out += c;
  };
  put('"');
  while (!atEnd()) {
    const char c = *m_at++;
    put(c);
    if (c == '"') return;
    if (c == '\\' && m_rules.stringEscapes && !atEnd()) put(*m_at++);
  }
}

// Behind the "#". Of a comment only its line end is left.
void Lexer::takeRawComment(std::string* out) {
  for (int c = takeRaw(); c != kEndOfInput; c = takeRaw())
    if (c == '\n') {
      if (out) *out += '\n';
      return;
    }
}

// Up to and including the first of `stops` outside of strings and comments, which is returned and not put out.
int Lexer::takeUntil(std::string_view stops, std::string* out) {
  for (int c = takeRaw(); c != kEndOfInput; c = takeRaw()) {
    if (c == '"')
      takeRawString(out);
    else if (c == '#')
      takeRawComment(out);
    else if (stops.find(static_cast<char>(c)) != std::string_view::npos)
      return c;
    else if (out)
      *out += static_cast<char>(c);
  }
  return kEndOfInput;
}

// Behind an opener: up to and including its own closer, which is not put out.
bool Lexer::takeNested(char open, char close, std::string* out) {
  const char stops[] = {open, close};
  for (std::size_t depth = 1;;) {
    const int c = takeUntil({stops, sizeof stops}, out);
    if (c == kEndOfInput) return false;
    depth = c == open ? depth + 1 : depth - 1;
    if (depth == 0) return true;
    if (out) *out += static_cast<char>(c);
  }
}

std::string Lexer::readWord(std::string_view stops) {
  while (!atEnd() && isBlank(*m_at)) takeRaw();
  std::string word;
  while (!atEnd() && !isBlank(*m_at) && stops.find(*m_at) == std::string_view::npos) word += *m_at++;
  return word;
}

// ---- DEF

// The name and the type of the header are all that counts of it; the grammar sees the type and the brace.
void Lexer::readDefHeader() {
  if (readDefHeaderInPlace()) return;
  const int depth = m_depth;
  std::string header;
  bool hasBrace = false;
  for (int c = takeRaw(); c != kEndOfInput && !hasBrace; c = hasBrace ? c : takeRaw()) {
    hasBrace = c == '{';
    if (!hasBrace) header += static_cast<char>(c);
  }
  std::string_view rest = header;
  const std::string_view name = takeWord(rest).substr(0, kHeaderWordLimit);
  const std::string_view type = takeWord(rest).substr(0, kHeaderWordLimit);
  Parser::setPendingDefName(name);
  // At the end of the input there is no brace that could be put back.
  pushBack(std::string(type) + (hasBrace ? " {" : ""), depth);
}

// The header as it nearly always is, name, type and brace on one line: the scanner goes on with the type where it
// stands, which gives the same tokens. False, with nothing taken, for any other header.
bool Lexer::readDefHeaderInPlace() {
  const auto skipBlanks = [](const char* at) {
    while (*at == ' ' || *at == '\t') ++at;
    return at;
  };
  const char* const name = skipBlanks(m_at);
  const char* nameEnd = name;
  while (static_cast<unsigned char>(*nameEnd) > ' ' && *nameEnd != '{') ++nameEnd;
  const char* const type = skipBlanks(nameEnd);
  const char* typeEnd = type;
  while (isNameChar(*typeEnd)) ++typeEnd;
  const auto nameLength = static_cast<std::size_t>(nameEnd - name);
  const auto typeLength = static_cast<std::size_t>(typeEnd - type);
  if (nameLength == 0 || nameLength > kHeaderWordLimit || typeLength == 0 || typeLength > kHeaderWordLimit)
    return false;
  if (type == nameEnd || *skipBlanks(typeEnd) != '{') return false;
  Parser::setPendingDefName({name, nameLength});
  m_at = type;
  return true;
}

// ---- USE

void Lexer::readUse() {
  // The name comes behind blanks and at most one line end.
  while (!atEnd() && isBlank(*m_at)) {
    const bool fromFile = inFile();
    if (takeRaw() == '\n' && fromFile) break;
  }
  const char* const name = m_at;
  if (m_rules.wideUseNames)
    while (m_at < m_end && !isBlank(*m_at) && kUseNameStops.find(*m_at) == std::string_view::npos) ++m_at;
  else
    while (isNameChar(*m_at)) ++m_at;
  m_parser->setUse({name, static_cast<std::size_t>(m_at - name)}, line());
  if (m_parser->hasManyNames()) prefetchNextUse();
}

// Says which name the next USE will ask for, when one stands near: its node comes while the text up to there is
// scanned. What only looks like a USE, in a string or a comment, makes a hint for nothing.
void Lexer::prefetchNextUse() const noexcept {
  constexpr std::string_view kUse = "USE";
  constexpr std::size_t kNear = 1024;
  const std::string_view ahead(m_at, std::min<std::size_t>(kNear, static_cast<std::size_t>(m_end - m_at)));
  const std::size_t word = ahead.find(kUse);
  if (word == std::string_view::npos) return;
  std::size_t name = word + kUse.size();
  while (name < ahead.size() && isBlank(ahead[name])) ++name;
  std::size_t end = name;
  while (end < ahead.size() && isNameChar(ahead[end])) ++end;
  m_parser->prefetchUse(ahead.substr(name, end - name));
}

// ---- ROUTE

void Lexer::readRoute() {
  if (m_rules.routesShareLines) return readRouteWords();
  const int line = this->line();
  std::string text;
  for (int c = takeRaw(); c != kEndOfInput && c != '\n'; c = takeRaw()) text += static_cast<char>(c);
  Parser::addRouteText(text, line);
}

// Four words with "TO" in their middle, or what the line has of them; a line that ends in "TO" goes on in the next one.
void Lexer::readRouteWords() {
  const int line = this->line();
  std::string text;
  std::string word;
  int words = 0;
  bool isRoute = true;
  const auto endWord = [&] {
    if (word.empty()) return;
    ++words;
    if (words == 3 && word != "TO") isRoute = false;
    text += word;
    text += ' ';
  };
  while (!atEnd()) {
    const bool inLastWord = isRoute && words == 4 && !word.empty();
    if (inLastWord && (isBlank(*m_at) || *m_at == '.' || kUseNameStops.find(*m_at) != std::string_view::npos)) break;
    const int c = takeRaw();
    if (!isBlank(c) && c != '.') {
      word += static_cast<char>(c);
      continue;
    }
    endWord();
    const bool goesOn = words == 3 && isRoute;
    word.clear();
    if (c == '\n' && !goesOn) break;
  }
  endWord();
  Parser::addRouteText(text, line);
}

// ---- PROTO

void Lexer::readProto() {
  const int line = this->line();
  std::string header;
  std::string interface;
  std::string body;
  const bool complete = takeUntil("[", &header) == '[' && takeNested('[', ']', &interface) &&
                        takeUntil("{", nullptr) == '{' && readProtoBody(body);
  std::string_view rest = header;
  const std::string_view name = takeWord(rest);
  if (complete)
    Parser::definePROTO(name, body, interface);
  else
    m_parser->addNote({line, NoteKind::protoCutOff, std::string(name), {}, {}});
}

// Behind the opening brace of a body: takes its first node, with the PROTO declarations in front of it, which it may
// need, and passes over the rest of the body. False when the input ends first.
bool Lexer::readProtoBody(std::string& body) {
  for (;;) {
    std::string statement;
    const int stop = takeUntil("{}[", &statement);
    if (stop == kEndOfInput) return false;
    if (stop == '}') {  // a body without a node
      body.clear();
      return true;
    }
    const bool isProto = endsInProtoName(statement);
    body += statement;
    body += static_cast<char>(stop);
    if (stop == '[') {
      if (!takeNested('[', ']', &body)) return false;
      body += ']';
      if (!isProto) continue;
      if (takeUntil("{", &body) != '{') return false;
      body += '{';
    }
    if (!takeNested('{', '}', &body)) return false;
    body += '}';
    if (!isProto) return takeNested('{', '}', nullptr);
  }
}

// The text between an instance's braces. False when the input ends first.
bool Lexer::takeInstance(std::string& values) {
  if (takeUntil("{", nullptr) != '{') return false;
  return m_rules.nestedInstances ? takeNested('{', '}', &values) : takeUntil("}", &values) == '}';
}

bool Lexer::expandInstance(std::string_view name) {
  Proto* const proto = m_parser ? Parser::findPROTO(name) : nullptr;
  if (!proto) return false;
  const int depth = m_tokenDepth + 1;
  if (depth > kExpansionDepthLimit) {
    setLimitToken(proto->name());
    return true;
  }
  std::string values;
  if (!takeInstance(values)) {
    m_token.kind = TokenKind::unfinished;
    m_token.text = {};
    return true;
  }
  std::string expansion;
  if (!proto->expand(values, m_expansionRoom, expansion)) {
    setLimitToken(proto->name());
    return true;
  }
  m_expansionRoom -= expansion.size();
  // The name of an instance that stands for no node goes with it, and not to the next node.
  if (expansion.find_first_not_of(kBlanks) == std::string::npos) Parser::takePendingDefName();
  pushBack(std::move(expansion), depth);
  return true;
}

void Lexer::setLimitToken(std::string_view text) {
  m_passedLimit = true;
  m_token.kind = TokenKind::limit;
  m_token.text = text;
}

// ---- for the grammar

bool Lexer::braceFollows() const {
  const char* at = m_at;
  const char* end = m_end;
  for (std::size_t level = m_pushed.size();;) {
    const char lineEnd = level == 0 ? m_lineEnd : '\n';
    for (; at < end; ++at) {
      const CharClass c = classOf(*at);
      if (c == CharClass::hash) {
        at = static_cast<const char*>(std::memchr(at, lineEnd, static_cast<std::size_t>(end - at)));
        if (!at) break;
        continue;
      }
      const bool passedOver = c == CharClass::blank || c == CharClass::comma || c == CharClass::lineEnd ||
                              c == CharClass::other || c == CharClass::zero;
      if (!passedOver) return *at == '{';
    }
    if (level == 0) return false;
    --level;
    at = m_pushed[level]->resumeAt;
    end = m_pushed[level]->resumeEnd;
  }
}

bool Lexer::skipBraces() {
  if (m_parser) m_inScript = false;  // the words of a Script end with it
  return takeUntil("{", nullptr) == '{' && takeNested('{', '}', nullptr);
}

bool Lexer::skipOpenBrackets() { return takeNested('[', ']', nullptr); }

bool Lexer::copyBraces(std::string& out) {
  if (takeUntil("{", &out) != '{') return false;
  out += '{';
  if (!takeNested('{', '}', &out)) return false;
  out += '}';
  return true;
}

bool Lexer::skipExternProtoHeader(std::string& name) {
  name = readWord("[{\"#");
  return takeUntil("[", nullptr) == '[' && takeNested('[', ']', nullptr);
}

}  // namespace vrml
