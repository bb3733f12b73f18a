#pragma once

// GIF files. The image is the first frame; frames behind it are read as far as the reader comes.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "image/FileImage.h"

namespace image {

class ByteReader;

/// The logical screen of a GIF file, in the file's order. None of it is tested.
struct GIFScreen {
  std::uint8_t signature[3] = {};  // "GIF" in most files
  std::uint8_t version[3] = {};
  std::uint16_t width = 0;
  std::uint16_t height = 0;
  std::uint8_t flags = 0;  // bit 7: there is a global colour table; bits 0 to 2: its size
  std::uint8_t backgroundIndex = 0;
  std::uint8_t pixelAspect = 0;
};

/// One image of a GIF file.
struct GIFFrame {
  std::uint16_t left = 0;
  std::uint16_t top = 0;
  std::uint16_t width = 0;
  std::uint16_t height = 0;
  std::uint8_t flags = 0;                     // bit 7: there is a local colour table; bit 6: interlaced
  std::vector<std::uint8_t> localColorTable;  // 3 bytes an entry; empty when there is none
  PixelArray pixels;                          // 3 bytes a pixel, row by row; null without a pixel
  std::uint32_t writeCursor = 0;              // pixels decoded; those behind them are black
  bool hasTransparency = false;
  std::uint32_t transparentIndex = 0;
};

class FileGIF89a final : public FileImage {
 public:
  /// How many frames are kept, and how many pixels in all of them together is kMaxPixels. The one that would be too
  /// much ends the reading.
  static constexpr std::size_t kMaxFrames = 65536;

  /// Reads a file. The reader is empty when that is not there, or when its first frame cannot be read.
  explicit FileGIF89a(const std::string& path) noexcept;

  /// Reads the bytes of a file, which may be anything. They are not needed any more afterwards.
  explicit FileGIF89a(std::span<const std::uint8_t> bytes) noexcept;

  /// The frames that were read whole, in the file's order. A later one of a usual file is seldom what it was meant to
  /// be: the reader expects a frame right behind another, without the byte that introduces it.
  [[nodiscard]] const std::vector<GIFFrame>& getFrames() const noexcept { return m_frames; }
  [[nodiscard]] const GIFScreen& getScreen() const noexcept { return m_screen; }

  [[nodiscard]] ImageFileType getFileType() const noexcept override { return kGIFFile; }
  [[nodiscard]] int getWidth() const noexcept override { return m_frames.empty() ? 0 : m_frames[0].width; }
  [[nodiscard]] int getHeight() const noexcept override { return m_frames.empty() ? 0 : m_frames[0].height; }
  using FileImage::getImage;
  [[nodiscard]] const std::uint8_t* getImage() const noexcept override;
  [[nodiscard]] bool hasTransparencyColor() const noexcept override;
  void getTransparencyColor(std::span<std::uint8_t, 3> rgb) const noexcept override;

 private:
  // What the last graphic control extension said. It holds for all images behind it.
  struct Control {
    bool hasTransparency = false;
    std::uint8_t transparentIndex = 0;
  };

  // These answer whether all was there; what they have read stays whatever they answer.
  bool read(ByteReader& reader);
  bool readScreen(ByteReader& reader);
  bool readBlocks(ByteReader& reader);
  bool readExtension(ByteReader& reader);
  bool readFrame(ByteReader& reader);

  [[nodiscard]] bool decodeFrame(GIFFrame& frame, unsigned rootBits, std::span<const std::uint8_t> data);
  [[nodiscard]] std::span<const std::uint8_t> colorsOf(const GIFFrame& frame) const noexcept;

  GIFScreen m_screen;
  std::vector<std::uint8_t> m_globalColorTable;
  std::vector<GIFFrame> m_frames;
  Control m_control;
  std::uint64_t m_pixelCount = 0;  // in all frames
};

}  // namespace image
