// A Targa file is read from its bytes; what is saved of it is read as the same image.

#include <cstring>

#include "fuzz/Harness.h"
#include "image/FileTarga.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const image::FileTarga reader(std::span(data, size));
  if (reader.isOk() != (reader.getRGBAImage(3, 2) != nullptr)) fuzz::fail("an image without pixels, or pixels of none");
  if (!reader.isOk()) return 0;
  const std::string file = fuzz::scratchFolder() + "/saved.tga";
  if (!reader.save(file)) fuzz::fail("not saved");
  const image::FileTarga again(file);
  const auto bytes = static_cast<std::size_t>(reader.getWidth()) * static_cast<std::size_t>(reader.getHeight()) * 3;
  if (again.getWidth() != reader.getWidth() || again.getHeight() != reader.getHeight() ||
      std::memcmp(again.getImage(), reader.getImage(), bytes) != 0)
    fuzz::fail("saved as another image");
  return 0;
}
