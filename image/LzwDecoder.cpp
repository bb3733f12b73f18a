// Whatever a code stands for has been put out before: the sequence of the code before it and, right behind that, the
// first colour of what came then. So the pixels themselves are the dictionary's memory, and an entry says where its
// sequence begins and how long it is. Putting a code out is one copy from further up.

#include "image/LzwDecoder.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace image {

namespace {

constexpr std::size_t kColorBytes = 3;

}  // namespace

// The table stays as it is: no entry is used before it was set.
LzwDecoder::LzwDecoder(std::span<const std::uint8_t> data, unsigned rootBits, std::span<const std::uint8_t> colors,
                       std::span<std::uint8_t> pixels) noexcept
    : m_data(data),
      m_colors(colors),
      m_pixels(pixels),
      m_pixelCount(static_cast<std::uint32_t>(pixels.size() / kColorBytes)),
      m_rootBits(rootBits),
      m_clearCode(1U << rootBits) {
  assert(rootBits <= kMaxRootBits);
  reset();
}

void LzwDecoder::reset() noexcept {
  m_width = m_rootBits + 1;
  m_next = m_clearCode + 2;
}

std::uint32_t LzwDecoder::decode() noexcept {
  const unsigned endCode = m_clearCode + 1;
  Run previous;  // none at first and after a clear code
  unsigned code = 0;
  while (m_decoded < m_pixelCount && nextCode(code) && code != endCode) {
    if (code == m_clearCode) {
      reset();
      previous = {};
    } else if (previous.length == 0) {
      if (code > endCode) break;  // nothing can be said of an image that begins with what is not there yet
      previous = putRoot(code);
    } else if (code < m_next) {
      const Run run = putCode(code);
      add({previous.first, previous.length + 1});
      previous = run;
    } else {
      const Run run = putRun(previous);
      static_cast<void>(putRun({previous.first, 1}));
      previous = {run.first, run.length + 1};
      add(previous);
    }
  }
  return m_decoded;
}

// The lowest bits come first.
bool LzwDecoder::nextCode(unsigned& code) noexcept {
  for (; m_bitCount < m_width; m_bitCount += 8) {
    if (m_dataAt == m_data.size()) return false;
    m_bits |= std::uint32_t{m_data[m_dataAt++]} << m_bitCount;
  }
  code = m_bits & ((1U << m_width) - 1);
  m_bits >>= m_width;
  m_bitCount -= m_width;
  return true;
}

LzwDecoder::Run LzwDecoder::putCode(unsigned code) noexcept {
  return code < m_clearCode ? putRoot(code) : putRun(m_runs[code]);
}

// There is room for one pixel at least. One without a colour stays zero.
LzwDecoder::Run LzwDecoder::putRoot(unsigned index) noexcept {
  const std::size_t at = index * kColorBytes;
  if (at + kColorBytes <= m_colors.size())
    std::memcpy(m_pixels.data() + m_decoded * kColorBytes, m_colors.data() + at, kColorBytes);
  return {m_decoded++, 1};
}

// The run lies before the place where it is put. What has no room is dropped, and no later code is put out then.
LzwDecoder::Run LzwDecoder::putRun(Run run) noexcept {
  const std::uint32_t count = std::min(run.length, m_pixelCount - m_decoded);
  std::memcpy(m_pixels.data() + m_decoded * kColorBytes, m_pixels.data() + run.first * kColorBytes,
              count * kColorBytes);
  const std::uint32_t first = m_decoded;
  m_decoded += count;
  return {first, run.length};
}

// The last place of the table is never filled, so that the width never passes kMaxWidth. It grows when the code that
// has just been made is the last one of its width, and only then: with a root size of 1 the first new code is past
// that, and the width stays.
void LzwDecoder::add(Run run) noexcept {
  if (m_next >= kTableSize - 1) return;
  m_runs[m_next] = run;
  if (m_next == (1U << m_width) - 1) ++m_width;
  ++m_next;
}

}  // namespace image
