#pragma once

// Making image files byte by byte, and reading them from buffers of exactly their size.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "image/FileGIF89a.h"
#include "image/FileTarga.h"
#include "tests/TempFolder.h"

namespace imagetest {

using Bytes = std::vector<std::uint8_t>;

inline Bytes operator+(Bytes front, const Bytes& back) {
  front.insert(front.end(), back.begin(), back.end());
  return front;
}

/// 16-bit numbers, the low byte first.
inline Bytes words(std::initializer_list<unsigned> values) {
  Bytes bytes;
  for (const unsigned value : values) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
  }
  return bytes;
}

/// A copy in a heap block of exactly its size, so that the sanitizer sees every byte read beyond it.
class ExactBuffer {
 public:
  explicit ExactBuffer(std::span<const std::uint8_t> bytes)
      : m_bytes(std::make_unique<std::uint8_t[]>(bytes.size())), m_size(bytes.size()) {
    std::copy(bytes.begin(), bytes.end(), m_bytes.get());
  }
  [[nodiscard]] std::span<const std::uint8_t> span() const { return {m_bytes.get(), m_size}; }

 private:
  std::unique_ptr<std::uint8_t[]> m_bytes;
  std::size_t m_size;
};

/// Calls `read` with every proper beginning of the bytes, the empty one first.
template <typename Read>
void forEveryCutOff(std::span<const std::uint8_t> bytes, Read read) {
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    SCOPED_TRACE("cut off after " + std::to_string(length) + " bytes");
    const ExactBuffer cut(bytes.first(length));
    read(cut.span());
  }
}

inline void writeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

inline Bytes contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The pixels of a frame or reader as bytes of their own; none when there are none.
inline Bytes bytesOf(const std::uint8_t* pixels, std::size_t count) {
  return pixels == nullptr ? Bytes{} : Bytes(pixels, pixels + count);
}

inline Bytes pixelsOf(const image::FileImage& reader) {
  return bytesOf(reader.getImage(),
                 3 * static_cast<std::size_t>(reader.getWidth()) * static_cast<std::size_t>(reader.getHeight()));
}

/// The memory that this process has in use now, in KiB. What tests before this one took and gave back does not count.
inline long residentKiB() {
  long totalPages = 0;
  long residentPages = 0;
  std::ifstream("/proc/self/statm") >> totalPages >> residentPages;
  if (residentPages == 0) throw std::runtime_error("no memory figures");
  return residentPages * (sysconf(_SC_PAGESIZE) / 1024);
}

/// Codes packed from the lowest bit up.
class CodePacker {
 public:
  void put(unsigned code, unsigned width) {
    for (unsigned bit = 0; bit < width; ++bit, ++m_bitCount) {
      if (m_bitCount % 8 == 0) m_bytes.push_back(0);
      m_bytes.back() = static_cast<std::uint8_t>(m_bytes.back() | ((code >> bit & 1U) << m_bitCount % 8));
    }
  }
  [[nodiscard]] const Bytes& bytes() const { return m_bytes; }

 private:
  Bytes m_bytes;
  std::size_t m_bitCount = 0;
};

/// Codes of one width.
inline Bytes packCodes(std::initializer_list<unsigned> codes, unsigned width) {
  CodePacker packer;
  for (const unsigned code : codes) packer.put(code, width);
  return packer.bytes();
}

/// Data for colour indices that makes no use of the dictionary: a clear code before every index keeps the width.
inline Bytes literalData(unsigned rootBits, const std::vector<unsigned>& indices) {
  CodePacker packer;
  for (const unsigned index : indices) {
    packer.put(1U << rootBits, rootBits + 1);
    packer.put(index, rootBits + 1);
  }
  packer.put((1U << rootBits) + 1, rootBits + 1);
  return packer.bytes();
}

/// Data in sub-blocks of 255 bytes at most, with the closing zero.
inline Bytes subBlocks(const Bytes& data) {
  Bytes blocks;
  for (std::size_t at = 0; at < data.size(); at += 255) {
    const std::size_t length = std::min<std::size_t>(255, data.size() - at);
    blocks.push_back(static_cast<std::uint8_t>(length));
    blocks.insert(blocks.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
                  data.begin() + static_cast<std::ptrdiff_t>(at + length));
  }
  blocks.push_back(0);
  return blocks;
}

/// Red, green, blue, and a pale fourth colour.
inline Bytes fourColors() { return {255, 0, 0, 0, 255, 0, 0, 0, 255, 250, 240, 230}; }

/// The pixels of these colours.
inline Bytes colored(const Bytes& table, std::initializer_list<unsigned> indices) {
  Bytes pixels;
  for (const unsigned index : indices)
    for (std::size_t i = 0; i < 3; ++i) pixels.push_back(table.at(index * std::size_t{3} + i));
  return pixels;
}

/// The screen with a global table of four colours.
inline Bytes gifScreen() {
  return Bytes{'G', 'I', 'F', '8', '9', 'a'} + words({3, 2}) + Bytes{0x81, 0, 0} + fourColors();
}

/// An image descriptor without its comma.
inline Bytes gifDescriptor(unsigned width, unsigned height, std::uint8_t flags = 0) {
  return words({0, 0, width, height}) + Bytes{flags};
}

/// A whole image of the four colours, without its comma.
inline Bytes gifImage(unsigned width, unsigned height, const std::vector<unsigned>& indices, std::uint8_t flags = 0) {
  return gifDescriptor(width, height, flags) + Bytes{2} + subBlocks(literalData(2, indices));
}

/// A graphic control extension, introducer and all.
inline Bytes gifControl(bool hasTransparency, std::uint8_t index) {
  return {'!', 0xF9, 4, static_cast<std::uint8_t>(hasTransparency ? 1 : 0), 0, 0, index, 0};
}

}  // namespace imagetest
