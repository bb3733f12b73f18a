#include "tools/wrl/PictureMark.h"

#include <zlib.h>

#include <array>
#include <cstddef>
#include <fstream>
#include <string_view>

namespace wrl {

namespace {

constexpr std::size_t kHeaderSize = 8 + 25;  // the signature and the chunk IHDR

// A chunk has its length in front of its type, and a checksum of type and data behind them, each of four bytes.
constexpr std::string_view kTypeAndData("tEXtSoftware\0wrl", 16);
constexpr std::size_t kTypeSize = 4;

std::array<char, 4> bigEndian(std::size_t number) {
  return {static_cast<char>(number >> 24U & 255U), static_cast<char>(number >> 16U & 255U),
          static_cast<char>(number >> 8U & 255U), static_cast<char>(number & 255U)};
}

std::string chunk() {
  const auto* const bytes = reinterpret_cast<const Bytef*>(kTypeAndData.data());
  const std::array<char, 4> length = bigEndian(kTypeAndData.size() - kTypeSize);
  const std::array<char, 4> check = bigEndian(crc32(0, bytes, static_cast<uInt>(kTypeAndData.size())));
  return std::string(length.begin(), length.end()).append(kTypeAndData).append(check.begin(), check.end());
}

}  // namespace

void markPicture(std::vector<std::uint8_t>& png) {
  if (png.size() < kHeaderSize) return;
  const std::string mark = chunk();
  png.insert(png.begin() + kHeaderSize, mark.begin(), mark.end());
}

bool isMarkedPicture(const std::string& path) {
  const std::string mark = chunk();
  std::string start(kHeaderSize + mark.size(), '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  return file && start.starts_with("\x89PNG") && start.ends_with(mark);
}

}  // namespace wrl
