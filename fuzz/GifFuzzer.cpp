// A GIF file is read from its bytes, and every form of its image is asked for.

#include "fuzz/Harness.h"
#include "image/FileGIF89a.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const image::FileGIF89a reader(std::span(data, size));
  std::uint8_t rgb[3] = {};
  reader.getTransparencyColor(rgb);
  if (reader.isOk() != (reader.getRGBAImage(3, 2) != nullptr)) fuzz::fail("an image without pixels, or pixels of none");
  if (reader.getWidth() * reader.getHeight() < 100'000) static_cast<void>(reader.getRGBAImage());
  return 0;
}
