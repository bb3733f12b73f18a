// Image files: the whole file is read, its first bytes choose the reader.

#include "embedded/images/ImageFile.h"

#include <VekFoundations/CVekIO.h>
#include <VekSG/sglTexture2D.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <set>
#include <span>
#include <string>
#include <system_error>

#include "embedded/FileErrors.h"
#include "embedded/Paths.h"
#include "embedded/images/ImageCodecs.h"

namespace embedded {
namespace {

constexpr std::uint64_t kMaxFileBytes = 1'000'000'000;

using Bytes = std::vector<std::uint8_t>;

bool readFile(const std::string& path, Bytes& bytes) {
  std::ifstream file(nativePath(path), std::ios::binary | std::ios::ate);
  const std::streamoff size = file ? std::streamoff(file.tellg()) : -1;
  if (size < 0 || static_cast<std::uint64_t>(size) > kMaxFileBytes) return false;
  bytes.resize(static_cast<std::size_t>(size));
  file.seekg(0);
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return !bytes.empty() && file.gcount() == static_cast<std::streamsize>(bytes.size());
}

bool writeFile(const std::string& path, const Bytes& bytes) {
  errno = 0;
  std::ofstream file(nativePath(path), std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file.fail()) return true;
  reportFileError(nativePath(path), true, std::generic_category().message(errno != 0 ? errno : EIO));
  return false;
}

bool beginsWith(const Bytes& bytes, std::string_view sign) {
  return bytes.size() >= sign.size() && std::equal(sign.begin(), sign.end(), bytes.begin(), [](char a, std::uint8_t b) {
           return static_cast<std::uint8_t>(a) == b;
         });
}

bool decode(const Bytes& bytes, Raster& raster) {
  if (beginsWith(bytes, "\x89PNG")) return readPng(bytes, raster);
  if (beginsWith(bytes, "\xFF\xD8")) return readJpeg(bytes, raster);
  if (beginsWith(bytes, "GIF8")) return readGif(bytes, raster);
  return readPlainImage(bytes, raster);
}

std::string lowerExtension(const std::string& path) {
  std::string extension = CVekIO::GetFileExtension(path);
  for (char& c : extension) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return extension;
}

bool encode(const std::string& extension, const Raster& raster, Bytes& bytes) {
  if (extension == "png") return writePng(raster, bytes);
  return (extension == "jpg" || extension == "jpeg") && writeJpeg(raster, bytes);
}

// The rows in the opposite order.
Bytes upsideDown(const Raster& raster) {
  const std::size_t rowBytes = std::size_t{raster.width} * raster.channels;
  Bytes flipped(raster.bytes.size());
  for (std::size_t y = 0; y < raster.height; ++y) {
    const auto row = raster.bytes.begin() + static_cast<std::ptrdiff_t>(y * rowBytes);
    std::copy_n(row, rowBytes, flipped.end() - static_cast<std::ptrdiff_t>((y + 1) * rowBytes));
  }
  return flipped;
}

// Where a file lies in the end; "" when it is not there.
std::string placeOf(const std::string& path) {
  std::error_code error;
  const std::filesystem::path place = std::filesystem::canonical(nativePath(path), error);
  return error ? "" : place.string();
}

// Where the images of textures lie.
std::set<std::string>& placesRead() {
  static std::set<std::string> places;
  return places;
}

}  // namespace

bool readImageFile(const std::string& path, Raster& raster) {
  raster = {};
  Bytes bytes;
  if (CVekIO::IsFile(path) && readFile(path, bytes) && decode(bytes, raster)) return true;
  raster = {};
  return false;
}

bool writeImageFile(const std::string& path, const Raster& raster) {
  Bytes bytes;
  return encode(lowerExtension(path), raster, bytes) && writeFile(path, bytes);
}

bool readTextureImage(const std::string& path, sglTexture2D* texture) {
  constexpr sglTexture::FormatEnum kFormats[] = {sglTexture::FORMAT_UNKNOWN, sglTexture::FORMAT_LUMINANCE,
                                                 sglTexture::FORMAT_LUMINANCE_ALPHA, sglTexture::FORMAT_RGB,
                                                 sglTexture::FORMAT_RGBA};
  Raster raster;
  if (texture == nullptr || !readImageFile(path, raster)) return false;
  if (!texture->setImage(raster.width, raster.height, kFormats[raster.channels], upsideDown(raster))) return false;
  texture->setFileName(path);
  placesRead().insert(placeOf(path));
  return true;
}

bool wasReadAsTexture(const std::string& path) {
  const std::string place = placeOf(path);
  return !place.empty() && placesRead().contains(place);
}

}  // namespace embedded
