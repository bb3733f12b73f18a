// The decoder against a plain one that keeps every sequence, and code by code where that says more.

#include "image/LzwDecoder.h"

#include <random>

#include "tests/image/ImageTest.h"

namespace image {
namespace {

using imagetest::Bytes;
using imagetest::CodePacker;
using imagetest::operator+;

/// The dictionary as a list of whole sequences of colour indices. Takes code after code, whatever becomes of the
/// pixels.
class PlainDecoder {
 public:
  explicit PlainDecoder(unsigned rootBits) : m_rootBits(rootBits) { reset(); }

  [[nodiscard]] unsigned clearCode() const { return 1U << m_rootBits; }
  [[nodiscard]] unsigned next() const { return static_cast<unsigned>(m_table.size()); }
  [[nodiscard]] unsigned width() const { return m_width; }
  [[nodiscard]] bool isAtStart() const { return m_previous.empty(); }
  [[nodiscard]] const std::vector<unsigned>& indices() const { return m_indices; }

  /// False when the image ends with this code.
  bool take(unsigned code) {
    if (code == clearCode() + 1) return false;
    if (code == clearCode()) {
      reset();
      return true;
    }
    if (m_previous.empty()) {
      if (code >= clearCode()) return false;
      m_previous = m_table[code];
      put(m_previous);
      return true;
    }
    std::vector<unsigned> made = m_previous;
    const bool isKnown = code < next();
    const std::vector<unsigned> known = isKnown ? m_table[code] : m_previous;
    made.push_back(known.front());
    m_previous = isKnown ? known : made;
    put(m_previous);
    if (next() < 4095) {
      m_table.push_back(made);
      if (next() - 1 == (1U << m_width) - 1 && m_width != 12) ++m_width;
    }
    return true;
  }

 private:
  void reset() {
    m_table.assign(clearCode() + 2, {});
    for (unsigned index = 0; index < clearCode(); ++index) m_table[index] = {index};
    m_width = m_rootBits + 1;
    m_previous.clear();
  }
  void put(const std::vector<unsigned>& run) { m_indices.insert(m_indices.end(), run.begin(), run.end()); }

  unsigned m_rootBits;
  unsigned m_width = 0;
  std::vector<std::vector<unsigned>> m_table;
  std::vector<unsigned> m_previous;
  std::vector<unsigned> m_indices;
};

/// The colour indices that data stand for.
std::vector<unsigned> plainIndices(const Bytes& data, unsigned rootBits) {
  PlainDecoder plain(rootBits);
  std::size_t at = 0;
  unsigned code = 0;
  do {
    if (at + plain.width() > 8 * data.size()) break;
    code = 0;
    for (unsigned bit = 0; bit < plain.width(); ++bit, ++at)
      code |= static_cast<unsigned>(data[at / 8] >> at % 8 & 1) << bit;
  } while (plain.take(code));
  return plain.indices();
}

/// A table of so many different colours, none of them black.
Bytes colorTable(std::size_t count) {
  Bytes table;
  for (std::size_t i = 0; i < count; ++i)
    for (const std::size_t part : {i + 1, i * 7 + 3, i / 2 + 90}) table.push_back(static_cast<std::uint8_t>(part));
  return table;
}

/// What the decoder makes of these data. Pixels that it does not reach stay zero.
Bytes decode(const Bytes& data, unsigned rootBits, const Bytes& colors, std::size_t pixelCount, std::size_t& decoded) {
  const imagetest::ExactBuffer exactData(data);
  const imagetest::ExactBuffer exactColors(colors);
  const std::unique_ptr<std::uint8_t[]> pixels = std::make_unique<std::uint8_t[]>(3 * pixelCount);
  decoded =
      LzwDecoder(exactData.span(), rootBits, exactColors.span(), std::span(pixels.get(), 3 * pixelCount)).decode();
  return imagetest::bytesOf(pixels.get(), 3 * pixelCount);
}

/// The same pixels from colour indices.
Bytes expectedPixels(const std::vector<unsigned>& indices, const Bytes& colors, std::size_t pixelCount) {
  Bytes pixels(3 * pixelCount);
  for (std::size_t i = 0; i < std::min(pixelCount, indices.size()); ++i) {
    const std::size_t at = std::size_t{3} * indices[i];
    if (at + 3 <= colors.size()) std::memcpy(pixels.data() + 3 * i, colors.data() + at, 3);
  }
  return pixels;
}

void expectSame(const Bytes& data, unsigned rootBits, const std::vector<unsigned>& indices, std::size_t pixelCount) {
  for (const std::size_t colorCount : {std::size_t{0}, std::size_t{2}, std::size_t{256}}) {
    const Bytes colors = colorTable(colorCount);
    std::size_t decoded = 0;
    const Bytes pixels = decode(data, rootBits, colors, pixelCount, decoded);
    EXPECT_EQ(decoded, std::min(indices.size(), pixelCount));
    EXPECT_TRUE(pixels == expectedPixels(indices, colors, pixelCount)) << colorCount << " colours";
  }
}

struct Mix {
  const char* name;
  unsigned codes;
  unsigned clears;   // in 10,000 codes
  unsigned unknown;  // in 100 codes, those that stand for what is being made
  bool isFarOff;     // those may be any code beyond that, too
};

TEST(LzwDecoder, makes_what_whole_sequences_make) {
  const Mix mixes[] = {{"short", 40, 300, 20, false},
                       {"clears", 3000, 400, 10, false},
                       {"full dictionary", 9000, 1, 3, false},
                       {"runs", 3000, 5, 60, false},
                       {"far-off codes", 6000, 5, 20, true}};
  std::mt19937 random(20240229);
  const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random() % limit); };
  for (unsigned rootBits = 0; rootBits <= LzwDecoder::kMaxRootBits; ++rootBits) {
    for (const Mix& mix : mixes) {
      SCOPED_TRACE(std::string(mix.name) + ", root size " + std::to_string(rootBits));
      PlainDecoder plain(rootBits);
      CodePacker packer;
      for (unsigned i = 0; i < mix.codes && plain.indices().size() < 2'000'000; ++i) {
        const unsigned limit = 1U << plain.width();
        unsigned code = below(std::min(plain.isAtStart() ? plain.clearCode() : plain.next(), limit));
        if (!plain.isAtStart() && below(100) < mix.unknown && plain.next() < limit)
          code = mix.isFarOff ? plain.next() + below(limit - plain.next()) : plain.next();
        if (code == plain.clearCode() + 1) --code;
        if (code == plain.clearCode() && plain.next() > code + 2) code = 0;
        if (below(10000) < mix.clears) code = plain.clearCode();
        packer.put(code, plain.width());
        ASSERT_TRUE(plain.take(code));
      }
      packer.put(plain.clearCode() + 1, plain.width());
      const Bytes data = packer.bytes() + Bytes{0};
      const std::vector<unsigned> indices = plainIndices(data, rootBits);
      ASSERT_GE(indices.size(), plain.indices().size());
      for (const std::size_t pixelCount :
           {indices.size() + 10, indices.size(), indices.size() - 1, indices.size() / 2, std::size_t{1}})
        expectSame(data, rootBits, indices, pixelCount);
    }
  }
}

TEST(LzwDecoder, makes_what_whole_sequences_make_of_any_bytes) {
  std::mt19937 random(7);
  for (unsigned round = 0; round < 600; ++round) {
    SCOPED_TRACE(round);
    const unsigned rootBits = round % (LzwDecoder::kMaxRootBits + 1);
    Bytes data(random() % 3000);
    for (std::uint8_t& byte : data) byte = static_cast<std::uint8_t>(random());
    const std::vector<unsigned> indices = plainIndices(data, rootBits);
    expectSame(data, rootBits, indices, indices.size() + 3);
  }
}

TEST(LzwDecoder, follows_the_codes_one_by_one) {
  // Root size 2: 4 clears, 5 ends, 6 is the first that is made.
  const struct {
    const char* name;
    std::vector<std::pair<unsigned, unsigned>> codes;  // with their widths
    unsigned rootBits;
    std::vector<unsigned> expected;
  } rows[] = {
      {"no data", {}, 2, {}},
      {"the end at once", {{5, 3}, {1, 3}}, 2, {}},
      {"the end behind a clear", {{4, 3}, {1, 3}, {4, 3}, {5, 3}, {2, 3}}, 2, {1}},
      {"several clears", {{4, 3}, {4, 3}, {4, 3}, {1, 3}, {4, 3}, {4, 3}, {2, 3}, {5, 3}}, 2, {1, 2}},
      {"no clear", {{3, 3}, {2, 3}, {5, 3}}, 2, {3, 2}},
      {"no end, where what fills the last byte is a code", {{4, 3}, {3, 3}, {1, 3}, {7, 3}}, 2, {3, 1, 1, 1, 0}},
      {"bits that are no whole code", {{4, 3}, {3, 3}, {3, 2}}, 2, {3}},
      {"a first code that stands for nothing", {{4, 3}, {6, 3}, {1, 3}}, 2, {}},
      {"one behind a clear", {{1, 3}, {4, 3}, {7, 3}, {1, 3}}, 2, {1}},
      {"the entry being made", {{4, 3}, {1, 3}, {6, 3}, {7, 3}, {5, 4}}, 2, {1, 1, 1, 1, 1, 1}},
      // 7 stands for 1 1 although 6 is what was made; 6 is 1 1 and 7 is 1 1 2.
      {"a code beyond the entry being made", {{1, 3}, {7, 3}, {2, 3}, {7, 4}, {5, 4}}, 2, {1, 1, 1, 2, 1, 1, 2}},
      {"a wider code behind entry 7", {{4, 3}, {0, 3}, {1, 3}, {2, 3}, {7, 4}, {5, 4}}, 2, {0, 1, 2, 1, 2}},
      {"the width again behind a clear", {{4, 3}, {0, 3}, {1, 3}, {2, 3}, {4, 4}, {3, 3}, {5, 3}}, 2, {0, 1, 2, 3}},
      // 2 clears, 3 ends: the first entry is 4, which is no two-bit code, and the width stays.
      {"a root size of 1", {{2, 2}, {0, 2}, {1, 2}, {1, 2}, {0, 2}, {1, 2}, {3, 2}, {1, 2}}, 1, {0, 1, 1, 0, 1}},
      // 1 clears; 2 ends, and is no one-bit code.
      {"a root size of 0", {{0, 1}, {0, 1}, {1, 1}, {0, 1}, {1, 1}, {1, 1}, {1, 1}, {0, 1}}, 0, {0, 0, 0, 0}},
      {"a root size of 11", {{2048, 12}, {2047, 12}, {2050, 12}, {2049, 12}}, 11, {2047, 2047, 2047}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    CodePacker packer;
    for (const auto& [code, width] : row.codes) packer.put(code, width);
    expectSame(packer.bytes(), row.rootBits, row.expected, 20);
  }
}

// The codes of the widest kind begin behind entry 2047, and entry 4095 is never made.
TEST(LzwDecoder, keeps_the_last_place_of_the_dictionary_free) {
  CodePacker packer;
  PlainDecoder plain(8);
  const auto put = [&](unsigned code) {
    packer.put(code, plain.width());
    ASSERT_TRUE(plain.take(code));
  };
  put(256);
  for (unsigned i = 0; i < 6000; ++i) put(i * 7919 % 256);
  EXPECT_EQ(plain.next(), 4095u);
  EXPECT_EQ(plain.width(), 12u);
  // With the dictionary full, 4095 stands for ever longer sequences.
  for (unsigned i = 0; i < 5; ++i) put(4095);
  put(4094);
  put(4095);
  expectSame(packer.bytes(), 8, plain.indices(), plain.indices().size() + 1);
}

// 7 KB that stand for twelve million pixels, after eight million that a decoder which keeps whole sequences has in its
// dictionary.
TEST(LzwDecoder, needs_no_memory_for_long_sequences) {
  constexpr unsigned kNewEntries = 4000;
  CodePacker packer;
  packer.put(4, 3);
  packer.put(1, 3);
  unsigned width = 3;
  for (unsigned code = 6; code < 6 + kNewEntries; ++code) {
    packer.put(code, width);
    if (code == (1U << width) - 1) ++width;
  }
  // A code that is beyond the one being made, again and again: each sequence is one longer than the one before.
  for (unsigned i = 0; i < 1000; ++i) packer.put(4095, 12);
  const Bytes colors = colorTable(4);
  Bytes pixels(std::size_t{3} * 12'000'000);
  const long before = imagetest::residentKiB();
  LzwDecoder decoder(packer.bytes(), 2, colors, pixels);
  EXPECT_EQ(decoder.decode(), 12'000'000u);
  // The table is a few ten KiB; the sequences written out would be as large as the pixels. Between them lies what the
  // process touches for the first time meanwhile.
  EXPECT_LT(imagetest::residentKiB() - before, 4 * 1024);
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), colors[3]), 12'000'000);
}

}  // namespace
}  // namespace image
