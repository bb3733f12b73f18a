#pragma once

// The compression of GIF images: codes of growing width that stand for sequences of colours.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace image {

/// Decodes the data of one image. Any data is allowed; it takes time in proportion to the data and the pixels, and no
/// memory beyond this object.
class LzwDecoder {
 public:
  /// The longest root size for which the codes of all colours, of clear and of end fit into twelve bits.
  static constexpr unsigned kMaxRootBits = 11;

  /// `rootBits` is the minimum code size of the image, kMaxRootBits at most. `colors` are the entries of its colour
  /// table, 3 bytes each; an index past them is black. `pixels` has 3 bytes for each pixel of the image, all zero.
  /// All of them must outlive the decoder.
  LzwDecoder(std::span<const std::uint8_t> data, unsigned rootBits, std::span<const std::uint8_t> colors,
             std::span<std::uint8_t> pixels) noexcept;

  /// Fills the pixels in order, until they are full, the data says that it ends, or there is none left. Pixels past the
  /// end are dropped. Returns how many were decoded.
  [[nodiscard]] std::uint32_t decode() noexcept;

 private:
  // A sequence of colours, by where it stands among the pixels.
  struct Run {
    std::uint32_t first = 0;
    std::uint32_t length = 0;
  };

  static constexpr unsigned kMaxWidth = 12;
  static constexpr unsigned kTableSize = 1U << kMaxWidth;

  void reset() noexcept;
  [[nodiscard]] bool nextCode(unsigned& code) noexcept;
  [[nodiscard]] Run putCode(unsigned code) noexcept;
  [[nodiscard]] Run putRoot(unsigned index) noexcept;
  [[nodiscard]] Run putRun(Run run) noexcept;
  void add(Run run) noexcept;

  std::span<const std::uint8_t> m_data;
  std::span<const std::uint8_t> m_colors;
  std::span<std::uint8_t> m_pixels;
  std::uint32_t m_pixelCount;   // that there is room for
  std::uint32_t m_decoded = 0;  // pixels

  std::size_t m_dataAt = 0;
  std::uint32_t m_bits = 0;  // taken from the data and not yet used, the next one lowest
  unsigned m_bitCount = 0;

  unsigned m_rootBits;
  unsigned m_clearCode;
  unsigned m_width = 0;                // of the next code, in bits
  unsigned m_next = 0;                 // the code that is free next
  std::array<Run, kTableSize> m_runs;  // by code; those from behind the end code up to m_next are set
};

}  // namespace image
