// GIF through giflib: record by record up to the first image, which is put onto the screen that the file declares.
// Further images are never read, so that an animation costs no more than its first frame.

#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "embedded/images/ImageCodecs.h"

namespace embedded {
namespace {

struct Closer {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

using Gif = std::unique_ptr<GifFileType, Closer>;

int readBytes(GifFileType* gif, GifByteType* to, int wanted) {
  auto& rest = *static_cast<std::span<const std::uint8_t>*>(gif->UserData);
  const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(std::max(wanted, 0)));
  if (count > 0) std::memcpy(to, rest.data(), count);
  rest = rest.subspan(count);
  return static_cast<int>(count);
}

// Reads an extension; a graphic control tells which colour is transparent.
bool readExtension(GifFileType* gif, int& transparent) {
  int code = 0;
  GifByteType* block = nullptr;
  if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
  while (block != nullptr) {
    GraphicsControlBlock control{};
    if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
      transparent = control.TransparentColor;
    }
    if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
  }
  return true;
}

// Goes to the first image; false when the file ends before it.
bool findImage(GifFileType* gif, int& transparent) {
  for (;;) {
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    if (DGifGetRecordType(gif, &type) == GIF_ERROR) return false;
    if (type == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) == GIF_OK;
    if (type != EXTENSION_RECORD_TYPE || !readExtension(gif, transparent)) return false;
  }
}

// Puts one row of colour indices onto the screen.
void putRow(const std::vector<GifPixelType>& row, std::uint64_t y, const GifImageDesc& image,
            const ColorMapObject& colors, int transparent, Raster& raster) {
  if (y >= raster.height) return;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::uint64_t x = static_cast<std::uint64_t>(image.Left) + i;
    if (x >= raster.width) return;
    if (int{row[i]} == transparent || int{row[i]} >= colors.ColorCount) continue;
    const GifColorType& color = colors.Colors[row[i]];
    const std::uint8_t rgba[4] = {color.Red, color.Green, color.Blue, 255};
    std::memcpy(raster.bytes.data() + static_cast<std::size_t>(y * raster.width + x) * 4, rgba, 4);
  }
}

bool readRows(GifFileType* gif, int transparent, Raster& raster) {
  const GifImageDesc& image = gif->Image;
  const ColorMapObject* colors = image.ColorMap != nullptr ? image.ColorMap : gif->SColorMap;
  if (colors == nullptr || image.Left < 0 || image.Top < 0 || image.Width < 1 || image.Height < 1) return false;
  constexpr int kFirstRows[] = {0, 4, 2, 1};
  constexpr int kSteps[] = {8, 8, 4, 2};
  std::vector<GifPixelType> row(static_cast<std::size_t>(image.Width));
  for (int pass = 0; pass < (image.Interlace ? 4 : 1); ++pass) {
    const int step = image.Interlace ? kSteps[pass] : 1;
    for (int y = image.Interlace ? kFirstRows[pass] : 0; y < image.Height; y += step) {
      if (DGifGetLine(gif, row.data(), image.Width) == GIF_ERROR) return false;
      putRow(row, static_cast<std::uint64_t>(image.Top) + static_cast<std::uint64_t>(y), image, *colors, transparent,
             raster);
    }
  }
  return true;
}

}  // namespace

bool readGif(std::span<const std::uint8_t> file, Raster& raster) {
  const Gif gif(DGifOpen(&file, readBytes, nullptr));
  if (gif == nullptr) return false;
  int transparent = NO_TRANSPARENT_COLOR;
  if (!findImage(gif.get(), transparent)) return false;
  const auto width = static_cast<std::uint64_t>(std::max(gif->SWidth, 0));
  const auto height = static_cast<std::uint64_t>(std::max(gif->SHeight, 0));
  return makeRaster(width, height, 4, raster) && readRows(gif.get(), transparent, raster);
}

}  // namespace embedded
