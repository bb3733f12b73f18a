// JPEG through libjpeg. The library reports errors by a function that must not return; it jumps back to the one place
// in each direction that set the mark. Nothing with a destructor lives between the two.

#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include "embedded/images/ImageCodecs.h"

namespace embedded {
namespace {

constexpr int kQuality = 90;

struct ErrorManager {
  jpeg_error_mgr base;  // first, so that the library's pointer is a pointer to this
  std::jmp_buf mark;
};

[[noreturn]] void jumpBack(j_common_ptr info) { std::longjmp(reinterpret_cast<ErrorManager*>(info->err)->mark, 1); }

// Warnings of a file that is not quite right are nobody's concern: its pixels are taken as they come.
void keepQuiet(j_common_ptr) {}

jpeg_error_mgr* prepare(ErrorManager& errors) {
  jpeg_std_error(&errors.base);
  errors.base.error_exit = jumpBack;
  errors.base.output_message = keepQuiet;
  return &errors.base;
}

// Four channels to three. Files of four inks hold them inverted.
void inksToRgb(Raster& raster) {
  std::size_t to = 0;
  for (std::size_t from = 0; from < raster.bytes.size(); from += 4) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
      const unsigned product = unsigned{raster.bytes[from + channel]} * raster.bytes[from + 3];
      raster.bytes[to++] = static_cast<std::uint8_t>(product / 255);
    }
  }
  raster.bytes.resize(to);
  raster.channels = 3;
}

bool decode(jpeg_decompress_struct& info, std::span<const std::uint8_t> file, Raster& raster) {
  jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
  jpeg_read_header(&info, TRUE);
  const bool hasInks = info.num_components == 4;
  const bool isGrey = info.num_components == 1;
  info.out_color_space = hasInks ? JCS_CMYK : isGrey ? JCS_GRAYSCALE : JCS_RGB;
  if (!makeRaster(info.image_width, info.image_height, hasInks ? 4 : isGrey ? 1 : 3, raster)) return false;
  jpeg_start_decompress(&info);
  const std::size_t rowBytes = std::size_t{raster.width} * raster.channels;
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = raster.bytes.data() + info.output_scanline * rowBytes;
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  return true;
}

void encode(jpeg_compress_struct& info, const Raster& raster, std::uint8_t* rowBuffer) {
  const bool isGrey = raster.channels < 3;
  info.image_width = raster.width;
  info.image_height = raster.height;
  info.input_components = isGrey ? 1 : 3;
  info.in_color_space = isGrey ? JCS_GRAYSCALE : JCS_RGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, kQuality, TRUE);
  jpeg_start_compress(&info, TRUE);
  const unsigned kept = isGrey ? 1 : 3;
  const std::uint8_t* pixel = raster.bytes.data();
  while (info.next_scanline < info.image_height) {
    std::uint8_t* to = rowBuffer;
    for (unsigned x = 0; x < raster.width; ++x, pixel += raster.channels) {
      for (unsigned channel = 0; channel < kept; ++channel) *to++ = pixel[channel];
    }
    JSAMPROW row = rowBuffer;
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
}

// The marks are set in functions whose callers own everything that changes behind them: after a jump the values of a
// marked function's own variables would be unknown.

bool tryDecode(jpeg_decompress_struct& info, ErrorManager& errors, std::span<const std::uint8_t> file, Raster& raster) {
  if (setjmp(errors.mark) != 0) return false;
  jpeg_create_decompress(&info);
  return decode(info, file, raster);
}

// The bytes that the library makes, and frees if nobody else does.
struct Output {
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() { std::free(bytes); }

  unsigned char* bytes = nullptr;
  unsigned long byteCount = 0;
};

bool tryEncode(jpeg_compress_struct& info, ErrorManager& errors, const Raster& raster, std::uint8_t* rowBuffer,
               Output& output) {
  if (setjmp(errors.mark) != 0) return false;
  jpeg_create_compress(&info);
  jpeg_mem_dest(&info, &output.bytes, &output.byteCount);
  encode(info, raster, rowBuffer);
  return true;
}

}  // namespace

bool readJpeg(std::span<const std::uint8_t> file, Raster& raster) {
  jpeg_decompress_struct info{};
  ErrorManager errors{};
  info.err = prepare(errors);
  const bool isRead = tryDecode(info, errors, file, raster);
  jpeg_destroy_decompress(&info);
  if (isRead && raster.channels == 4) inksToRgb(raster);
  return isRead;
}

bool writeJpeg(const Raster& raster, std::vector<std::uint8_t>& file) {
  if (!isAllowedSize(raster.width, raster.height) || raster.channels < 1 || raster.channels > 4) return false;
  std::vector<std::uint8_t> rowBuffer(std::size_t{raster.width} * 3);
  jpeg_compress_struct info{};
  ErrorManager errors{};
  Output output;
  info.err = prepare(errors);
  const bool isWritten = tryEncode(info, errors, raster, rowBuffer.data(), output);
  jpeg_destroy_compress(&info);
  if (isWritten) file.assign(output.bytes, output.bytes + output.byteCount);
  return isWritten;
}

}  // namespace embedded
