// The header is read field by field and written from the same fields in the same order. The number of pixels that it
// claims is held against the bytes that are there before anything is allocated.

#include "image/FileTarga.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <utility>

#include "image/ByteReader.h"
#include "image/FileBytes.h"

namespace image {

namespace {

constexpr std::size_t kHeaderBytes = 18;
constexpr std::size_t kPixelBytes = 3;
constexpr std::uint8_t kPixelDepth = 24;

// The longest file that holds an image of the largest size is read whole.
static_assert(kHeaderBytes + 255 + kMaxPixels * kPixelBytes <= kMaxFileBytes);

// Must match writeHeader.
TargaHeader readHeader(ByteReader& reader) noexcept {
  TargaHeader header;
  header.idLength = reader.byte();
  header.colorMapType = reader.byte();
  header.imageType = reader.byte();
  header.colorMapOrigin = reader.word();
  header.colorMapLength = reader.word();
  header.colorMapDepth = reader.byte();
  header.xOrigin = reader.word();
  header.yOrigin = reader.word();
  header.width = reader.word();
  header.height = reader.word();
  header.pixelDepth = reader.byte();
  header.imageDescriptor = reader.byte();
  return header;
}

constexpr std::uint8_t low(std::uint16_t word) { return static_cast<std::uint8_t>(word & 0xFF); }
constexpr std::uint8_t high(std::uint16_t word) { return static_cast<std::uint8_t>(word >> 8); }

// Must match readHeader. There is no ID field in what is written.
std::array<std::uint8_t, kHeaderBytes> writeHeader(const TargaHeader& header) noexcept {
  return {0,
          header.colorMapType,
          header.imageType,
          low(header.colorMapOrigin),
          high(header.colorMapOrigin),
          low(header.colorMapLength),
          high(header.colorMapLength),
          header.colorMapDepth,
          low(header.xOrigin),
          high(header.xOrigin),
          low(header.yOrigin),
          high(header.yOrigin),
          low(header.width),
          high(header.width),
          low(header.height),
          high(header.height),
          header.pixelDepth,
          header.imageDescriptor};
}

std::size_t pixelBytes(const TargaHeader& header) noexcept {
  return std::size_t{header.width} * header.height * kPixelBytes;
}

bool write(std::FILE* file, std::span<const std::uint8_t> bytes) noexcept {
  return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

}  // namespace

FileTarga::FileTarga(const std::string& path) noexcept { read(readFileBytes(path)); }

FileTarga::FileTarga(std::span<const std::uint8_t> bytes) noexcept { read(bytes); }

FileTarga::FileTarga(std::uint16_t width, std::uint16_t height, PixelArray pixels) noexcept
    : m_pixels(std::move(pixels)) {
  m_header.width = width;
  m_header.height = height;
  m_header.pixelDepth = kPixelDepth;
}

void FileTarga::read(std::span<const std::uint8_t> bytes) noexcept {
  ByteReader reader(bytes);
  const TargaHeader header = readHeader(reader);
  if (!reader.isOk() || header.pixelDepth != kPixelDepth) return;
  reader.skip(header.idLength);
  const std::span<const std::uint8_t> stored = reader.bytes(pixelBytes(header));
  if (!reader.isOk()) return;
  PixelArray pixels = makePixels(header.width, header.height, kPixelBytes);
  if (!pixels) return;
  std::memcpy(pixels.get(), stored.data(), stored.size());
  m_header = header;
  m_pixels = std::move(pixels);
}

bool FileTarga::save(const std::string& path) const noexcept {
  if (!isOk()) return false;
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const bool isWritten = write(file, writeHeader(m_header)) && write(file, {m_pixels.get(), pixelBytes(m_header)});
  // What is left in the file's buffer may fail as well.
  return std::fclose(file) == 0 && isWritten;
}

}  // namespace image
