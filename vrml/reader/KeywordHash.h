#pragma once

// The scanner's keywords in a perfect hash that the compiler makes: a word is looked up with one multiplication, two
// table reads and one comparison, whether it is a keyword or not. The words come from the tables of the node catalogue,
// so that a new node type or field is known here without a word more.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "vrml/nodes/Names.h"

namespace vrml {

/// What a keyword is in the initial state.
enum class KeywordKind : std::uint8_t {
  none,        // a name there
  nodeType,    // index is a NodeType
  field,       // index is a FieldKey
  trueValue,   // TRUE
  falseValue,  // FALSE
  null,        // NULL
  use,         // USE
  def,         // DEF
  proto,       // PROTO
  route,       // ROUTE
};

struct Keyword {
  const char* word = "";
  std::uint8_t length = 0;
  KeywordKind kind = KeywordKind::none;      // in the initial state
  std::uint8_t index = 0xff;                 // of the node type or the field
  ScriptWord scriptWord = ScriptWord::none;  // in a Script
  bool valueInScript = false;                // TRUE, FALSE, NULL and USE are keywords in a Script too
};

namespace keywordhash {

// The first and the last eight bytes of a word (of a short one: all of it, zeros behind) tell every keyword from every
// other.
struct Key {
  std::uint64_t head = 0;
  std::uint64_t tail = 0;
  [[nodiscard]] constexpr bool operator==(const Key&) const noexcept = default;
};

constexpr Key keyOf(std::string_view word) noexcept {
  Key key;
  for (std::size_t i = 0; i < 8 && i < word.size(); ++i)
    key.head |= std::uint64_t{static_cast<unsigned char>(word[i])} << (8 * i);
  if (word.size() <= 8) {
    key.tail = key.head;
    return key;
  }
  for (std::size_t i = 0; i < 8; ++i)
    key.tail |= std::uint64_t{static_cast<unsigned char>(word[word.size() - 8 + i])} << (8 * i);
  return key;
}

// The same from memory, in two loads where the byte order allows it.
inline Key loadKey(const char* text, std::size_t length) noexcept {
  if constexpr (std::endian::native != std::endian::little) return keyOf({text, length});
  Key key;
  std::memcpy(&key.head, text, 8);
  if (length < 8) {
    key.head &= (std::uint64_t{1} << (8 * length)) - 1;
    key.tail = key.head;
  } else {
    std::memcpy(&key.tail, text + length - 8, 8);
  }
  return key;
}

constexpr std::uint32_t mix(Key key) noexcept {
  const std::uint64_t product = (key.head ^ (key.tail * 0x9e3779b97f4a7c15u)) * 0xbf58476d1ce4e5b9u;
  return static_cast<std::uint32_t>(product >> 32);
}

inline constexpr std::size_t kWordCapacity = kNodeKeywordCount + kFieldKeyCount + kScriptWordCount + 8;
inline constexpr std::size_t kBucketCount = 128;
inline constexpr std::size_t kSlotCount = 512;

constexpr std::size_t bucketOf(std::uint32_t mixed) noexcept { return mixed % kBucketCount; }
constexpr std::size_t slotOf(std::uint32_t mixed, std::uint32_t displacement) noexcept {
  return ((mixed >> 7) + displacement * ((mixed >> 20) | 1u)) % kSlotCount;
}

struct Table {
  std::array<Keyword, kWordCapacity> words{};
  std::array<Key, kWordCapacity> keys{};
  std::size_t count = 0;
  std::array<std::uint16_t, kBucketCount> displacement{};
  std::array<std::uint8_t, kSlotCount> slots{};  // number of the word, counted from 1; 0 for none
};

constexpr Keyword& wordEntry(Table& table, const char* word) {
  const std::string_view text = word;
  for (std::size_t i = 0; i < table.count; ++i)
    if (text == table.words[i].word) return table.words[i];
  Keyword& entry = table.words[table.count++];
  entry.word = word;
  entry.length = static_cast<std::uint8_t>(text.size());
  return entry;
}

constexpr void collectWords(Table& table) {
  for (std::size_t i = 0; i < kNodeKeywordCount; ++i) {
    Keyword& entry = wordEntry(table, kNodeTypeNames[i]);
    entry.kind = KeywordKind::nodeType;
    entry.index = static_cast<std::uint8_t>(i);
  }
  for (std::size_t i = 0; i < kFieldKeyCount; ++i) {
    Keyword& entry = wordEntry(table, kFieldNames[i]);
    entry.kind = KeywordKind::field;
    entry.index = static_cast<std::uint8_t>(i);
  }
  for (std::size_t i = 0; i < kScriptWordCount; ++i)
    wordEntry(table, kScriptWords[i]).scriptWord = static_cast<ScriptWord>(i);
  struct Special {
    const char* word;
    KeywordKind kind;
    bool inScript;
  };
  constexpr Special kSpecials[] = {{"TRUE", KeywordKind::trueValue, true}, {"FALSE", KeywordKind::falseValue, true},
                                   {"NULL", KeywordKind::null, true},      {"USE", KeywordKind::use, true},
                                   {"DEF", KeywordKind::def, false},       {"PROTO", KeywordKind::proto, false},
                                   {"ROUTE", KeywordKind::route, false}};
  for (const Special& special : kSpecials) {
    Keyword& entry = wordEntry(table, special.word);
    entry.kind = special.kind;
    entry.valueInScript = special.inScript;
  }
}

// Places the buckets one after the other, the fullest first, each with the first displacement that puts all its words
// into free slots.
constexpr bool placeBucket(Table& table, const std::array<std::uint32_t, kWordCapacity>& mixed, std::size_t bucket) {
  for (std::uint32_t displacement = 0; displacement < 4096; ++displacement) {
    std::array<std::size_t, kWordCapacity> taken{};
    std::size_t count = 0;
    bool fits = true;
    for (std::size_t i = 0; i < table.count && fits; ++i) {
      if (bucketOf(mixed[i]) != bucket) continue;
      const std::size_t slot = slotOf(mixed[i], displacement);
      fits = table.slots[slot] == 0;
      if (fits) {
        table.slots[slot] = static_cast<std::uint8_t>(i + 1);
        taken[count++] = slot;
      }
    }
    if (fits) {
      table.displacement[bucket] = static_cast<std::uint16_t>(displacement);
      return true;
    }
    for (std::size_t i = 0; i < count; ++i) table.slots[taken[i]] = 0;
  }
  return false;
}

consteval Table makeTable() {
  Table table;
  collectWords(table);
  std::array<std::uint32_t, kWordCapacity> mixed{};
  std::array<std::size_t, kBucketCount> sizes{};
  std::size_t largest = 0;
  for (std::size_t i = 0; i < table.count; ++i) {
    table.keys[i] = keyOf(table.words[i].word);
    mixed[i] = mix(table.keys[i]);
    const std::size_t size = ++sizes[bucketOf(mixed[i])];
    if (size > largest) largest = size;
  }
  for (std::size_t size = largest; size > 0; --size)
    for (std::size_t bucket = 0; bucket < kBucketCount; ++bucket)
      if (sizes[bucket] == size && !placeBucket(table, mixed, bucket))
        throw "no perfect hash found: change the constants";
  return table;
}

inline constexpr Table kTable = makeTable();
static_assert(kTable.count < 256, "a slot numbers its word in one byte");

}  // namespace keywordhash

/// The keyword that `text`, `length` characters long, spells exactly, or null. At least eight bytes behind the word's
/// start must be readable, whatever its length.
[[nodiscard]] inline const Keyword* findKeyword(const char* text, std::size_t length) noexcept {
  using namespace keywordhash;
  constexpr std::size_t kInKey = 16;  // characters that the key tells apart
  const Key key = loadKey(text, length);
  const std::uint32_t mixed = mix(key);
  const std::uint8_t number = kTable.slots[slotOf(mixed, kTable.displacement[bucketOf(mixed)])];
  if (number == 0 || kTable.keys[number - 1u] != key) return nullptr;
  const Keyword& word = kTable.words[number - 1u];
  if (word.length != length) return nullptr;
  return length <= kInKey || std::memcmp(word.word, text, length) == 0 ? &word : nullptr;
}

}  // namespace vrml
