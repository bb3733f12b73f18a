#pragma once

// Reading bytes from the front of a buffer. What is not there reads as 0 or as nothing and is remembered, so that a
// whole record is read first and then checked once.

#include <cstddef>
#include <cstdint>
#include <span>

namespace image {

/// The bytes must outlive the reader.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) noexcept : m_rest(bytes) {}

  [[nodiscard]] std::uint8_t byte() noexcept {
    const std::span<const std::uint8_t> taken = bytes(1);
    return taken.empty() ? std::uint8_t{0} : taken[0];
  }

  /// Two bytes, the low one first.
  [[nodiscard]] std::uint16_t word() noexcept {
    const unsigned low = byte();
    return static_cast<std::uint16_t>(low | static_cast<unsigned>(byte()) << 8);
  }

  /// The next bytes; none of them when there are fewer.
  [[nodiscard]] std::span<const std::uint8_t> bytes(std::size_t count) noexcept {
    if (count > m_rest.size()) {
      m_isShort = true;
      m_rest = {};
    }
    const std::span<const std::uint8_t> taken = m_rest.first(count > m_rest.size() ? 0 : count);
    m_rest = m_rest.subspan(taken.size());
    return taken;
  }

  void skip(std::size_t count) noexcept { static_cast<void>(bytes(count)); }

  [[nodiscard]] std::size_t left() const noexcept { return m_rest.size(); }

  /// False once anything was asked for that was not there. Nothing more is read then.
  [[nodiscard]] bool isOk() const noexcept { return !m_isShort; }

 private:
  std::span<const std::uint8_t> m_rest;
  bool m_isShort = false;
};

}  // namespace image
