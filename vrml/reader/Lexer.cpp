#include "vrml/reader/Lexer.h"

// The scanner proper. `next` looks the next character's class up and goes to the one rule that can match there; a run
// of characters (digits, a name, a string) is then followed to its end, where the zero byte behind the text stops every
// loop. That is the longest match: no two rules of different classes begin with the same character, except that a name
// can begin like an exponent ("e5"), which is compared by length.
//
// Texts that are put back stand on a stack above the file's text. Scanning always goes over one piece of memory: when a
// text above is used up, the one below goes on. Only the file's own line ends are counted.

#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include "vrml/reader/FileText.h"
#include "vrml/reader/KeywordHash.h"
#include "vrml/reader/Limits.h"
#include "vrml/reader/ScannerFailure.h"

namespace vrml {
namespace {

void echoToStandardOutput(const char* text, std::size_t size) { std::fwrite(text, 1, size, stdout); }

EchoSink g_echoSink = &echoToStandardOutput;
Lexer* g_activeLexer = nullptr;

// Echoed characters are handed to the sink in pieces of about this size.
constexpr std::size_t kEchoPiece = std::size_t{1} << 16;

std::size_t nameLength(const char* at) noexcept {
  const char* end = at + 1;
  while (isNameChar(*end)) ++end;
  return static_cast<std::size_t>(end - at);
}

}  // namespace

EchoSink setEchoSink(EchoSink sink) noexcept { return std::exchange(g_echoSink, sink ? sink : &echoToStandardOutput); }

float Token::integerAsFloat() const noexcept {
  const bool isDecimal = (isDigit(text[0]) || text[0] == '-') && !text.starts_with("0x");
  return isDecimal ? parseFloat(text.data(), text.data() + text.size()) : static_cast<float>(integer);
}

Lexer::Lexer(std::string_view text, const Rules& rules, Parser& parser, std::size_t expansionRoom)
    : Lexer(text, rules) {
  m_inScript = false;
  m_parser = &parser;
  m_expansionRoom = expansionRoom;
}

Lexer::Lexer(std::string_view text, const Rules& rules)
    : m_at(text.data()),
      m_end(text.data() + text.size()),
      m_lineStart(text.data()),
      m_inScript(true),
      m_rules(rules),
      m_begin(text.data()),
      m_unclosedFrom(text.data() + text.size() + 1) {
  if (text.find('\n') == std::string_view::npos) m_lineEnd = '\r';
}

Lexer::~Lexer() { flushEcho(); }

void Lexer::setProgress(Progress progress, void* data) noexcept {
  m_progress = progress;
  m_progressData = data;
}

void Lexer::reportLine() {
  if (line() <= m_reach.line) return;
  m_reach.line = line();
  m_progress(m_reach.line, m_progressData);
}

const Token& Lexer::next() {
  for (;;) {
    const char* const at = m_at;
    switch (classOf(*at)) {
      case CharClass::blank:
        ++m_at;
        continue;
      case CharClass::letter:
        if (scanWord(at)) return m_token;
        continue;
      case CharClass::digit:
      case CharClass::minus:
      case CharClass::point:
        scanNumber(at);
        return m_token;
      case CharClass::punct:
        scanPunct(at);
        return m_token;
      case CharClass::comma:
        setToken(TokenKind::comma, at, 1);
        return m_token;
      case CharClass::lineEnd:
        ++m_at;
        if (inFile()) countLine(m_at);
        continue;
      case CharClass::hash:
        skipComment();
        continue;
      case CharClass::quote:
        scanString(at);
        return m_token;
      case CharClass::zero:
        if (at == m_end) {
          if (!leaveText()) return endOfInput();
          continue;
        }
        [[fallthrough]];
      case CharClass::other:
        skipOther(at);
        continue;
    }
    failScanner(ScannerFailure::noAction);
  }
}

const Token& Lexer::endOfInput() noexcept {
  setToken(TokenKind::end, m_end, 0);
  return m_token;
}

// False at the end of the file's own text.
bool Lexer::leaveText() {
  if (m_at > m_end) failScanner(ScannerFailure::bufferEnd);
  if (m_pushed.empty()) return false;
  m_spent = std::move(m_pushed.back());
  m_pushed.pop_back();
  m_at = m_spent->resumeAt;
  m_end = m_spent->resumeEnd;
  m_depth = m_spent->resumeDepth;
  return true;
}

void Lexer::pushBack(std::string text, int depth) {
  // What is used up goes first, so that a chain of texts each of which ends in the next one does not pile up. The depth
  // of expansions is limited, and each can have one header put back above it.
  while (m_at == m_end && leaveText()) {
  }
  if (m_pushed.size() > 4 * kExpansionDepthLimit) failScanner(ScannerFailure::pushBack);
  try {
    const std::size_t size = text.size();
    text.append(kScanPadding, '\0');
    m_pushed.push_back(std::make_unique<Pushed>(Pushed{std::move(text), m_at, m_end, m_depth}));
    m_at = m_pushed.back()->text.data();
    m_end = m_at + size;
    m_depth = depth;
  } catch (const std::bad_alloc&) {
    failScanner(ScannerFailure::scanBytes);
  }
}

// ---- numbers

void Lexer::setInteger(const char* at, std::size_t length, std::int32_t value) noexcept {
  setToken(TokenKind::integer, at, length);
  m_token.integer = value;
}

void Lexer::scanNumber(const char* at) {
  std::int32_t integer;
  if (const char* const end = readPlainInt32(at, integer))
    return setInteger(at, static_cast<std::size_t>(end - at), integer);
  scanMatchedNumber(at, matchNumber(at));
}

void Lexer::scanMatchedNumber(const char* at, const NumberMatch& match) {
  const auto length = static_cast<std::size_t>(match.end - at);
  if (match.form != NumberForm::real) return setInteger(at, length, integerOf(at, match));
  setToken(TokenKind::real, at, length);
  m_token.real = floatOf(at, match);
}

// ---- words

// False when the word was handled here and gives no token.
bool Lexer::scanWord(const char* at) {
  const std::size_t length = nameLength(at);
  if ((*at | 0x20) == 'e' && scanExponent(at, length)) return true;
  if (m_inScript) {
    scanScriptWord(at, length);
    return true;
  }
  const Keyword* const keyword = findKeyword(at, length);
  if (!keyword) return scanName(at, length);
  switch (keyword->kind) {
    case KeywordKind::field:
      setKeyword(TokenKind::field, at, length, keyword->index);
      return true;
    case KeywordKind::nodeType:
      setKeyword(TokenKind::node, at, length, keyword->index);
      if (m_token.nodeType() == nodeType("Script")) {
        m_inScript = true;
        m_scriptBraces = 0;
      }
      return true;
    case KeywordKind::trueValue:
      setInteger(at, length, 1);
      return true;
    case KeywordKind::falseValue:
      setInteger(at, length, 0);
      return true;
    case KeywordKind::null:
      setToken(TokenKind::null, at, length);
      return true;
    case KeywordKind::use:
      setToken(TokenKind::use, at, length);
      readUse();
      return true;
    case KeywordKind::def:
      m_at = at + length;
      readDefHeader();
      return false;
    case KeywordKind::proto:
      m_at = at + length;
      readProto();
      return false;
    case KeywordKind::route:
      m_at = at + length;
      readRoute();
      return false;
    case KeywordKind::none:  // a word of a Script's interface, a name here
      return scanName(at, length);
  }
  failScanner(ScannerFailure::noAction);
}

void Lexer::setKeyword(TokenKind kind, const char* at, std::size_t length, std::uint8_t word) noexcept {
  setToken(kind, at, length);
  m_token.word = word;
}

// A name can begin like a real number whose digits are all in the exponent: of equal length, the number wins. A lone
// "e" is both: a name that counts as the number 0 where a number is wanted.
bool Lexer::scanExponent(const char* at, std::size_t wordLength) {
  if (wordLength == 1) return false;
  const NumberMatch match = matchNumber(at);
  if (static_cast<std::size_t>(match.end - at) < wordLength) return false;
  scanMatchedNumber(at, match);
  return true;
}

// False when the name is a PROTO's: its instance is expanded, and the expansion comes next.
bool Lexer::scanName(const char* at, std::size_t length) {
  setToken(TokenKind::identifier, at, length);
  if (!expandInstance(m_token.text)) return true;
  return m_token.kind == TokenKind::limit || m_token.kind == TokenKind::unfinished;
}

void Lexer::scanScriptWord(const char* at, std::size_t length) {
  const Keyword* const keyword = findKeyword(at, length);
  if (keyword && keyword->scriptWord != ScriptWord::none)
    return setKeyword(TokenKind::script, at, length, static_cast<std::uint8_t>(keyword->scriptWord));
  if (!keyword || !keyword->valueInScript) return setToken(TokenKind::identifier, at, length);
  if (keyword->kind == KeywordKind::null) return setToken(TokenKind::null, at, length);
  if (keyword->kind == KeywordKind::use) return setToken(TokenKind::use, at, length);
  setInteger(at, length, keyword->kind == KeywordKind::trueValue ? 1 : 0);
}

// ---- strings

// The closing quote of a string whose inside begins at `at`, in a text that ends at `end`; null when it has none. That
// the file's text has none is remembered, so that a file full of quotes that close nothing is not searched once for
// each.
const char* Lexer::findClosingQuote(const char* at, const char* end, bool inFileText) noexcept {
  if (inFileText && at >= m_unclosedFrom) return nullptr;
  const char* from = at;
  while (const void* const found = std::memchr(from, '"', static_cast<std::size_t>(end - from))) {
    const char* const quote = static_cast<const char*>(found);
    const char* backslash = quote;
    while (backslash > at && backslash[-1] == '\\') --backslash;
    if (!m_rules.stringEscapes || (quote - backslash) % 2 == 0) return quote;
    from = quote + 1;
  }
  if (inFileText) m_unclosedFrom = at;
  return nullptr;
}

// A quote that nothing closes is a character that no rule matches. It becomes a token all the same, so that a file that
// breaks off in a string is refused.
void Lexer::scanString(const char* at) {
  const char* const quote = findClosingQuote(at + 1, m_end, inFile());
  if (quote) {
    setToken(TokenKind::string, at, static_cast<std::size_t>(quote + 1 - at));
    setStringValue();
  } else if (!scanStringAcross(at)) {
    echo(at);
    setToken(TokenKind::openQuote, at, 1);
  }
}

// A string that begins in a text that was put back and ends in one below it.
bool Lexer::scanStringAcross(const char* at) {
  std::size_t level = m_pushed.size();
  const char* quote = nullptr;
  while (level > 0 && !quote) {
    --level;
    quote = findClosingQuote(m_pushed[level]->resumeAt, m_pushed[level]->resumeEnd, level == 0);
  }
  if (!quote) return false;
  m_scratch.assign(at, m_end);
  while (m_pushed.size() > level + 1) {
    leaveText();
    m_scratch.append(m_at, m_end);
  }
  leaveText();
  m_scratch.append(m_at, quote + 1);
  setToken(TokenKind::string, m_scratch.data(), m_scratch.size());
  m_at = quote + 1;
  setStringValue();
  return true;
}

void Lexer::setStringValue() {
  m_token.value = m_token.text.substr(1, m_token.text.size() - 2);
  if (!m_rules.stringEscapes || m_token.value.find('\\') == std::string_view::npos) return;
  m_value.clear();
  for (std::size_t i = 0; i < m_token.value.size(); ++i) {
    const std::string_view rest = m_token.value.substr(i);
    if (rest.starts_with("\\\"") || rest.starts_with("\\\\")) ++i;
    m_value += m_token.value[i];
  }
  m_token.value = m_value;
}

// ---- what is no token

void Lexer::scanPunct(const char* at) {
  TokenKind kind = TokenKind::openBracket;
  switch (*at) {
    case '{':
      kind = TokenKind::openBrace;
      ++m_scriptBraces;
      break;
    case '}':
      kind = TokenKind::closeBrace;
      --m_scriptBraces;
      // Exact: the first brace that closes anything ends the words of the Script, however deep it stands.
      if (m_parser && (!m_rules.scriptExtensions || m_scriptBraces <= 0)) m_inScript = false;
      break;
    case ']':
      kind = TokenKind::closeBracket;
      break;
    default:
      break;
  }
  setToken(kind, at, 1);
}

// The end of the input ends a comment too, without counting a line.
void Lexer::skipComment() {
  do {
    const char lineEnd = inFile() ? m_lineEnd : '\n';
    const void* const found = std::memchr(m_at, lineEnd, static_cast<std::size_t>(m_end - m_at));
    if (found) {
      m_at = static_cast<const char*>(found) + 1;
      if (inFile()) countLine(m_at);
      return;
    }
    m_at = m_end;
  } while (leaveText());
}

void Lexer::skipOther(const char* at) {
  m_at = at + 1;
  if (*at != '\r' || m_lineEnd != '\r') return echo(at);
  if (inFile()) countLine(m_at);
}

void Lexer::echo(const char* at) {
  if (!m_parser) return;
  const bool fromFile = inFile();
  const auto offset = static_cast<std::size_t>((fromFile ? at : m_pushed.front()->resumeAt) - m_begin);
  if (offset < m_reach.echoed) return;
  if (fromFile) m_reach.echoed = offset + 1;
  m_echo += *at;
  if (m_echo.size() >= kEchoPiece) flushEcho();
}

void Lexer::flushEcho() {
  if (m_echo.empty()) return;
  g_echoSink(m_echo.data(), m_echo.size());
  m_echo.clear();
}

std::string_view lineTextAt(std::string_view text, std::size_t offset) noexcept {
  const bool hasLineFeeds = text.find('\n') != std::string_view::npos;
  std::string_view line = text.substr(offset);
  line = line.substr(0, line.find(hasLineFeeds ? '\n' : '\r'));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line.substr(0, kLineBufferSize - 1);
}

Lexer* activeLexer() noexcept { return g_activeLexer; }

Lexer* yyrestart(Lexer* lexer) noexcept { return std::exchange(g_activeLexer, lexer); }

ActiveLexer::ActiveLexer(Lexer& lexer) noexcept : m_found(yyrestart(&lexer)) {}
ActiveLexer::~ActiveLexer() { yyrestart(m_found); }

int yylex() { return g_activeLexer ? static_cast<int>(g_activeLexer->next().kind) : 0; }

}  // namespace vrml
