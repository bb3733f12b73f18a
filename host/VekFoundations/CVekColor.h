#pragma once

// A colour of the document model: bytes red, green, blue, 0 to 255 each.

#include <array>
#include <cstdint>

class CVekColor {
 public:
  // Black.
  CVekColor() = default;
  CVekColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) : m_channels{red, green, blue} {}

  // Channel 0 red, 1 green, 2 blue. No other index is allowed.
  std::uint8_t operator[](unsigned channel) const { return m_channels[channel]; }
  std::uint8_t& operator[](unsigned channel) { return m_channels[channel]; }

 private:
  std::array<std::uint8_t, 3> m_channels{};
};
