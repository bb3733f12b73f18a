// One pass from the front: the screen, then blocks until the first image, then images until something is not there. An
// image's data is put together before it is decoded, so that a frame is made only when the file holds all of it. Rows
// that come interlaced are put in order afterwards.

#include "image/FileGIF89a.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "image/ByteReader.h"
#include "image/FileBytes.h"
#include "image/LzwDecoder.h"

namespace image {

namespace {

constexpr std::size_t kColorBytes = 3;

constexpr unsigned kHasColorTable = 0x80;  // in the flags of a screen or a frame
constexpr unsigned kIsInterlaced = 0x40;   // in the flags of a frame

// The byte in front of a block.
constexpr std::uint8_t kTrailer = ';';
constexpr std::uint8_t kExtension = '!';
constexpr std::uint8_t kImage = ',';

// The byte behind an extension's.
constexpr std::uint8_t kGraphicControl = 0xF9;
constexpr std::uint8_t kPlainText = 0x01;
constexpr std::uint8_t kApplication = 0xFF;

// The rows of an interlaced image in the order in which they come.
constexpr struct {
  std::size_t first;
  std::size_t step;
} kPasses[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};

template <std::size_t count>
void readInto(ByteReader& reader, std::uint8_t (&bytes)[count]) noexcept {
  for (std::uint8_t& byte : bytes) byte = reader.byte();
}

// The table that the flags announce; empty when they announce none.
std::vector<std::uint8_t> readColorTable(ByteReader& reader, unsigned flags) {
  if (!(flags & kHasColorTable)) return {};
  const std::span<const std::uint8_t> colors = reader.bytes(kColorBytes << ((flags & 7) + 1));
  return {colors.begin(), colors.end()};
}

// The data of sub-blocks, up to the one without any.
std::vector<std::uint8_t> readSubBlocks(ByteReader& reader) {
  std::vector<std::uint8_t> data;
  while (const std::uint8_t length = reader.byte()) {
    const std::span<const std::uint8_t> block = reader.bytes(length);
    data.insert(data.end(), block.begin(), block.end());
  }
  return data;
}

// Puts the decoded rows of an interlaced frame in order. Rows that were not reached are zero here as there.
bool deinterlace(GIFFrame& frame) noexcept {
  PixelArray ordered = makePixels(frame.width, frame.height, kColorBytes);
  if (!ordered) return false;
  const std::size_t rowBytes = std::size_t{frame.width} * kColorBytes;
  const std::uint8_t* const end = frame.pixels.get() + std::size_t{frame.writeCursor} * kColorBytes;
  const std::uint8_t* next = frame.pixels.get();
  for (const auto& pass : kPasses) {
    for (std::size_t row = pass.first; row < frame.height && next < end; row += pass.step, next += rowBytes)
      std::memcpy(ordered.get() + row * rowBytes, next, rowBytes);
  }
  frame.pixels = std::move(ordered);
  return true;
}

}  // namespace

FileGIF89a::FileGIF89a(const std::string& path) noexcept : FileGIF89a(readFileBytes(path)) {}

FileGIF89a::FileGIF89a(std::span<const std::uint8_t> bytes) noexcept {
  try {
    ByteReader reader(bytes);
    read(reader);
  } catch (const std::bad_alloc&) {
    // The frames that were read stay.
  }
}

const std::uint8_t* FileGIF89a::getImage() const noexcept {
  return m_frames.empty() ? nullptr : m_frames[0].pixels.get();
}

bool FileGIF89a::hasTransparencyColor() const noexcept { return !m_frames.empty() && m_frames[0].hasTransparency; }

void FileGIF89a::getTransparencyColor(std::span<std::uint8_t, 3> rgb) const noexcept {
  if (!hasTransparencyColor()) return;
  const std::span<const std::uint8_t> colors = colorsOf(m_frames[0]);
  const std::size_t at = m_frames[0].transparentIndex * kColorBytes;
  if (at + kColorBytes <= colors.size())
    std::copy_n(colors.begin() + static_cast<std::ptrdiff_t>(at), kColorBytes, rgb.begin());
  else
    std::fill(rgb.begin(), rgb.end(), std::uint8_t{0});
}

std::span<const std::uint8_t> FileGIF89a::colorsOf(const GIFFrame& frame) const noexcept {
  return frame.localColorTable.empty() ? m_globalColorTable : frame.localColorTable;
}

bool FileGIF89a::read(ByteReader& reader) { return readScreen(reader) && readBlocks(reader); }

bool FileGIF89a::readScreen(ByteReader& reader) {
  readInto(reader, m_screen.signature);
  readInto(reader, m_screen.version);
  m_screen.width = reader.word();
  m_screen.height = reader.word();
  m_screen.flags = reader.byte();
  m_screen.backgroundIndex = reader.byte();
  m_screen.pixelAspect = reader.byte();
  m_globalColorTable = readColorTable(reader, m_screen.flags);
  return reader.isOk();
}

bool FileGIF89a::readBlocks(ByteReader& reader) {
  while (reader.left() != 0) {
    switch (reader.byte()) {
      case kTrailer:
        return true;
      case kExtension:
        if (!readExtension(reader)) return false;
        break;
      case kImage:
        // Behind an image comes the next one, with no byte to introduce it. In a file of one image that is the trailer,
        // where the reading ends for want of an image.
        while (readFrame(reader)) {
        }
        return false;
      default:
        break;
    }
  }
  return true;
}

// The data behind an extension's first block ends, for this reader, with the first zero byte, be it a length or not.
bool FileGIF89a::readExtension(ByteReader& reader) {
  const std::uint8_t label = reader.byte();
  if (label == kGraphicControl || label == kPlainText || label == kApplication) {
    const std::span<const std::uint8_t> block = reader.bytes(reader.byte());
    if (label == kGraphicControl) {
      m_control.hasTransparency = !block.empty() && (block[0] & 1);
      m_control.transparentIndex = block.size() < 4 ? std::uint8_t{0} : block[3];
    }
  }
  while (reader.byte() != 0) {
  }
  return reader.isOk();
}

bool FileGIF89a::readFrame(ByteReader& reader) {
  GIFFrame frame;
  frame.hasTransparency = m_control.hasTransparency;
  frame.transparentIndex = m_control.transparentIndex;
  frame.left = reader.word();
  frame.top = reader.word();
  frame.width = reader.word();
  frame.height = reader.word();
  frame.flags = reader.byte();
  frame.localColorTable = readColorTable(reader, frame.flags);
  const unsigned rootBits = reader.byte();
  const std::vector<std::uint8_t> data = readSubBlocks(reader);
  if (!reader.isOk() || data.empty() || rootBits > LzwDecoder::kMaxRootBits) return false;
  if (m_frames.size() == kMaxFrames || !decodeFrame(frame, rootBits, data)) return false;
  m_frames.push_back(std::move(frame));
  return true;
}

// A frame without pixels is a frame; it takes no array.
bool FileGIF89a::decodeFrame(GIFFrame& frame, unsigned rootBits, std::span<const std::uint8_t> data) {
  const std::uint64_t pixelCount = std::uint64_t{frame.width} * frame.height;
  if (pixelCount > kMaxPixels - m_pixelCount) return false;
  m_pixelCount += pixelCount;
  if (pixelCount == 0) return true;
  frame.pixels = makePixels(frame.width, frame.height, kColorBytes);
  if (!frame.pixels) return false;
  const std::span pixels(frame.pixels.get(), static_cast<std::size_t>(pixelCount) * kColorBytes);
  frame.writeCursor = LzwDecoder(data, rootBits, colorsOf(frame), pixels).decode();
  return !(frame.flags & kIsInterlaced) || deinterlace(frame);
}

}  // namespace image
