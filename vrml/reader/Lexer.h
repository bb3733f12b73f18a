#pragma once

// The scanner: VRML97 text in, tokens out. It matches the longest rule over a text in memory, and it handles four
// constructs by itself, reading raw characters past the matched word: DEF headers, USE references, PROTO declarations
// with their instances, and ROUTEs. What these put back (a header's type and brace, an instance's expansion) is scanned
// ahead of the rest of the file. Nothing is allocated for a token.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vrml/reader/CharClass.h"
#include "vrml/reader/FileText.h"
#include "vrml/reader/NumberMatch.h"
#include "vrml/reader/Rules.h"
#include "vrml/reader/Token.h"

namespace vrml {

class Parser;
using Progress = void (*)(int count, void* data);

/// Where characters go that no rule matches. The default writes them to the standard output.
using EchoSink = void (*)(const char* text, std::size_t size);

/// Replaces the sink of the whole process and returns the one it replaces. Null brings the default back.
EchoSink setEchoSink(EchoSink sink) noexcept;

/// Scans one text. The text, with `kScanPadding` zero bytes behind it, must outlive the scanner.
class Lexer {
 public:
  /// How far an earlier reading of the same file came: what it echoed and reported is not echoed and reported again.
  struct Reach {
    std::size_t echoed = 0;  // offset in the text up to which characters were echoed
    int line = 1;            // the last line that was reported
  };

  /// A scanner of a file's text, for a parser that is told of names, references, PROTOs and routes. The expansions of
  /// PROTOs may produce `expansionRoom` bytes of text, all together.
  Lexer(std::string_view text, const Rules& rules, Parser& parser, std::size_t expansionRoom);
  /// A scanner of values alone, in the words of a Script's interface: nothing is special, nothing is echoed.
  Lexer(std::string_view text, const Rules& rules);
  ~Lexer();
  Lexer(const Lexer&) = delete;
  Lexer& operator=(const Lexer&) = delete;

  /// Reports the line number to the callback each time a line is counted. Null reports nothing.
  void setProgress(Progress progress, void* data) noexcept;
  /// Goes on from where an earlier reading of the same text was.
  void setReach(const Reach& reach) noexcept { m_reach = reach; }
  [[nodiscard]] const Reach& reach() const noexcept { return m_reach; }

  /// Takes the next token. The one it returns is valid until the next call of anything that moves the scanner.
  const Token& next();
  /// The token taken last.
  [[nodiscard]] const Token& token() const noexcept { return m_token; }

  /// The text becomes the next input, ahead of what is left. `depth` is the number of PROTO expansions that it stands
  /// in.
  void pushBack(std::string text, int depth);

  /// The number of the line being scanned, 1-based.
  [[nodiscard]] int line() const noexcept { return static_cast<int>(m_line); }
  /// Where the line begins that stands behind the last counted line end, as an offset in the text.
  [[nodiscard]] std::size_t lineOffset() const noexcept { return static_cast<std::size_t>(m_lineStart - m_begin); }

  [[nodiscard]] const Rules& rules() const noexcept { return m_rules; }
  /// Whether the last token came out of the expansion of a PROTO.
  [[nodiscard]] bool inExpansion() const noexcept { return m_tokenDepth > 0; }
  /// Bytes of text that expansions may still produce.
  [[nodiscard]] std::size_t expansionRoom() const noexcept { return m_expansionRoom; }
  /// Whether the expansion of PROTOs passed a limit; the last token is a `limit` then.
  [[nodiscard]] bool passedLimit() const noexcept { return m_passedLimit; }

  // ---- for the grammar: what follows the token taken last, read raw

  /// Whether an opening brace comes next, behind white space, commas and comments. Takes nothing.
  [[nodiscard]] bool braceFollows() const;
  /// Passes over everything up to and including the brace that closes the next one. Strings and comments are respected.
  /// False when the input ends first.
  bool skipBraces();
  /// The same up to the bracket that closes the one taken last.
  bool skipOpenBrackets();
  /// Appends everything up to and including the brace that closes the next one, without the comments.
  bool copyBraces(std::string& out);
  /// Reads the name of an EXTERNPROTO and passes over its interface in brackets. False when the input ends first.
  bool skipExternProtoHeader(std::string& name);
  /// Reads one word, behind blanks and line ends, up to the next of these or to one of `stops`.
  [[nodiscard]] std::string readWord(std::string_view stops = {});
  /// When `name` is a PROTO's, expands the instance that follows and returns true. The name may view the token.
  bool expandInstance(std::string_view name);

  /// Calls `add` with each number that follows in an open list, as long as nothing but numbers of the kind, commas,
  /// white space and comments come. Whatever else comes is the next token. The result is that of taking token by token.
  template <class Add>
  void scanFloats(Add&& add) {
    scanNumbers<true>(add);
  }
  template <class Add>
  void scanIntegers(Add&& add) {
    scanNumbers<false>(add);
  }

 private:
  // A text that was put back, and where scanning goes on when it is used up.
  struct Pushed {
    std::string text;
    const char* resumeAt;
    const char* resumeEnd;
    int resumeDepth;
  };

  // ---- tokens
  void scanNumber(const char* at);
  void scanMatchedNumber(const char* at, const NumberMatch& match);
  bool scanWord(const char* at);
  bool scanName(const char* at, std::size_t length);
  void scanScriptWord(const char* at, std::size_t length);
  bool scanExponent(const char* at, std::size_t wordLength);
  [[nodiscard]] const char* findClosingQuote(const char* at, const char* end, bool inFileText) noexcept;
  void scanString(const char* at);
  bool scanStringAcross(const char* at);
  void setStringValue();
  void scanPunct(const char* at);
  void setKeyword(TokenKind kind, const char* at, std::size_t length, std::uint8_t word) noexcept;
  void setInteger(const char* at, std::size_t length, std::int32_t value) noexcept;
  void setToken(TokenKind kind, const char* at, std::size_t length) noexcept {
    m_token.kind = kind;
    m_token.text = {at, length};
    m_tokenDepth = m_depth;
    m_at = at + length;
  }
  const Token& endOfInput() noexcept;
  bool leaveText();
  void skipOther(const char* at);
  void skipComment();
  void countLine(const char* behind) {
    m_lineStart = behind;
    ++m_line;
    if (m_progress) reportLine();
  }
  void reportLine();
  void echo(const char* at);
  void flushEcho();
  [[nodiscard]] bool inFile() const noexcept { return m_pushed.empty(); }

  template <bool wantFloats, class Add>
  void scanNumbers(Add& add);

  // ---- what is read raw
  [[nodiscard]] bool atEnd();
  int takeRaw();
  int takeUntil(std::string_view stops, std::string* out);
  bool takeInstance(std::string& values);
  bool takeNested(char open, char close, std::string* out);
  void takeRawString(std::string* out);
  void takeRawComment(std::string* out);
  void readDefHeader();
  bool readDefHeaderInPlace();
  void readUse();
  void prefetchNextUse() const noexcept;
  void readProto();
  bool readProtoBody(std::string& body);
  void readRoute();
  void readRouteWords();
  void setLimitToken(std::string_view text);

  const char* m_at;   // the next character of the text being scanned
  const char* m_end;  // its end; a zero byte stands there
  int m_depth = 0;    // PROTO expansions that it stands in
  std::int64_t m_line = 1;
  const char* m_lineStart;  // where the current line begins, in the file's text
  Progress m_progress = nullptr;
  void* m_progressData = nullptr;
  char m_lineEnd = '\n';  // '\r' in a file without a single line feed
  bool m_inScript = false;
  bool m_passedLimit = false;
  std::int64_t m_scriptBraces = 0;  // braces open in the Script, counted by the wide rules
  int m_tokenDepth = 0;             // m_depth where the token began
  Token m_token;
  Rules m_rules;
  const char* m_begin;         // the file's text
  const char* m_unclosedFrom;  // behind here the file's text has no quote that closes a string
  Parser* m_parser = nullptr;  // null for a scanner of values
  std::vector<std::unique_ptr<Pushed>> m_pushed;
  std::unique_ptr<Pushed> m_spent;  // the text left last: the token may view it
  std::string m_scratch;            // a token that is not one piece of the text
  std::string m_value;              // a string's value that is not one
  std::string m_echo;               // echoed characters on their way to the sink
  Reach m_reach;
  std::size_t m_expansionRoom = 0;
};

template <bool wantFloats, class Add>
void Lexer::scanNumbers(Add& add) {
  const char* at = m_at;
  for (;;) {
    switch (classOf(*at)) {
      case CharClass::blank:
      case CharClass::comma:
        ++at;
        continue;
      case CharClass::digit:
      case CharClass::minus:
      case CharClass::point: {
        const char* end;
        if constexpr (wantFloats) {
          float value;
          end = readPlainFloat(at, value);
          if (end) [[likely]]
            add(value);
        } else {
          std::int32_t value;
          end = readPlainInt32(at, value);
          if (end) [[likely]]
            add(value);
        }
        if (!end) [[unlikely]] {
          const NumberMatch match = matchNumber(at);
          end = match.end;
          if constexpr (wantFloats) {
            add(floatOf(at, match));
          } else {
            if (match.form == NumberForm::real) break;
            add(integerOf(at, match));
          }
        }
        at = end;
        continue;
      }
      case CharClass::lineEnd:
        ++at;
        if (inFile()) countLine(at);
        continue;
      case CharClass::hash:
        m_at = at;
        skipComment();
        at = m_at;
        continue;
      case CharClass::zero:
      case CharClass::other:
        if (at == m_end) break;
        m_at = at;
        skipOther(at);
        at = m_at;
        continue;
      case CharClass::letter:
      case CharClass::quote:
      case CharClass::punct:
        break;
    }
    break;
  }
  m_at = at;
}

/// What ends the name of a USE by the wide rules, beside blanks.
inline constexpr std::string_view kUseNameStops = ",[]{}\"#";

/// The text of the line that begins at an offset of a file's text, without its line end, cut off where the line buffer
/// ends.
[[nodiscard]] std::string_view lineTextAt(std::string_view text, std::size_t offset) noexcept;

/// The scanner of the load that runs, null when none does.
[[nodiscard]] Lexer* activeLexer() noexcept;

/// Begins scanning with another scanner, on the text that it was made for; null for none. Returns the one that was
/// active.
Lexer* yyrestart(Lexer* lexer) noexcept;

/// Makes a scanner the active one for as long as this object lives, and gives back what it found.
class ActiveLexer {
 public:
  explicit ActiveLexer(Lexer& lexer) noexcept;
  ~ActiveLexer();
  ActiveLexer(const ActiveLexer&) = delete;
  ActiveLexer& operator=(const ActiveLexer&) = delete;

 private:
  Lexer* m_found;
};

/// Takes the next token of the active scanner and returns its code, 0 at the end of the input.
int yylex();

}  // namespace vrml
