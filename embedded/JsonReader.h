#pragma once

// Reading of JSON text piece by piece, with no tree behind it.

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace embedded {

// What is wrong with a JSON text, and in which line; the text names the key or the place in the document.
class JsonError : public std::runtime_error {
 public:
  JsonError(std::size_t line, const std::string& text) : std::runtime_error(text), m_line(line) {}

  // From 1.
  [[nodiscard]] std::size_t line() const { return m_line; }

 private:
  std::size_t m_line;
};

// Walks through a text from the front: the caller asks what comes next, enters objects and lists, and takes values.
// Anything that is no JSON, and a value of another kind than the one that is taken, throws a JsonError. Nesting costs
// no stack, and may be as deep as the text is long. Untrusted text is allowed. The text must outlive the reader.
class JsonReader {
 public:
  // The kind of a value.
  enum class Kind { Object, List, Text, Number, Boolean, Null };

  explicit JsonReader(std::string_view text);

  // The kind of the value that comes next.
  [[nodiscard]] Kind kind();

  // Enters an object; then nextKey() gives one key after the other, each to be followed by taking its value. At the
  // object's end it leaves the object and answers false. Keys may come twice: that is the caller's matter.
  void enterObject();
  bool nextKey(std::string& key);

  // Enters a list; nextItem() says whether a value follows, and leaves the list when none does.
  void enterList();
  bool nextItem();

  // Take one value. Text may hold any code point but half surrogate pairs.
  [[nodiscard]] std::string takeText();
  [[nodiscard]] bool takeBoolean();
  void takeNull();

  // Numbers: the nearest float or double, infinite when too large. Null is taken as not-a-number.
  [[nodiscard]] float takeFloat();
  [[nodiscard]] double takeDouble();

  // A whole number within bounds; 3.0 and 1e2 are whole numbers.
  [[nodiscard]] std::int64_t takeInteger(std::int64_t least, std::int64_t most);

  // Checks that nothing but blanks is left.
  void finish();

  // The line that the reader has come to, from 1.
  [[nodiscard]] std::size_t line() const;

  // Where the reader is in the document, as in "/assembly/children/3/name"; of deep places the end.
  [[nodiscard]] std::string place() const;

  // Throws a JsonError: the place, and what is wrong there.
  [[noreturn]] void fail(const std::string& what) const;

 private:
  // An object or list that was entered.
  struct Level {
    std::string_view key;   // the open member's, as it is written
    std::size_t count = 0;  // of members or items so far
    bool isObject = false;
  };

  void skipBlanks();
  [[nodiscard]] char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
  void expect(Kind wanted);
  bool nextMember(char close);
  void takeWord(std::string_view word);
  std::string takeQuoted();
  void takeEscape(std::string& value);
  unsigned takeHex();
  std::string_view takeNumberText();
  std::size_t takeDigits();

  std::string_view m_text;
  std::size_t m_at = 0;
  std::vector<Level> m_levels;
};

}  // namespace embedded
