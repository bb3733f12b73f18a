// A file is told by its first bytes alone: what follows them may still be damaged.

#include "image/ImageFileType.h"

#include <string_view>

#include "image/FileBytes.h"

namespace image {

ImageFileType getImageFileType(const std::string& path) noexcept {
  constexpr std::size_t kMarkBytes = 4;
  const std::vector<std::uint8_t> bytes = readFileBytes(path, kMarkBytes);
  if (bytes.size() < kMarkBytes) return kUnknownFile;
  const std::string_view mark(reinterpret_cast<const char*>(bytes.data()), kMarkBytes);
  if (mark.substr(1) == "PNG") return kPNGFile;
  if (mark.starts_with("GIF")) return kGIFFile;
  if (mark.starts_with("\xFF\xD8")) return kJPEGFile;
  return kUnknownFile;
}

}  // namespace image
