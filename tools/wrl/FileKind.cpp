// A table of beginnings, in the order in which they are tried. What is compressed is unpacked first and told by what it
// holds.

#include "tools/wrl/FileKind.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "embedded/Gzip.h"

namespace wrl {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kBeginning = 4096;  // bytes that are looked at

struct Beginning {
  std::string_view text;  // in small letters where the format is a text one, which are compared without regard to case
  const char* kind;
};

constexpr Beginning kTexts[] = {
    {"#vrml v1.0"sv, "a VRML 1.0 file"},
    {"#x3d "sv, "an X3D file in the classic encoding"},
    {"<!doctype html"sv, "an HTML page"},
    {"<html"sv, "an HTML page"},
    {"<!doctype x3d"sv, "an X3D file in the XML encoding"},
    {"<x3d"sv, "an X3D file in the XML encoding"},
    {"{"sv, "a JSON document"},
};

constexpr Beginning kBinaries[] = {
    {"\xFF\xFE"sv, "text in UTF-16"},
    {"\xFE\xFF"sv, "text in UTF-16"},
    {"#\0V\0R\0"sv, "text in UTF-16"},
    {"\0#\0V\0R"sv, "text in UTF-16"},
    {"PK\x03\x04"sv, "a ZIP archive"},
    {"BZh"sv, "a file compressed with bzip2"},
    {"\xFD"
     "7zXZ"sv,
     "a file compressed with xz"},
    {"\x28\xB5\x2F\xFD"sv, "a file compressed with zstd"},
    {"\x1F\x9D"sv, "a file compressed with compress"},
    {"\x89PNG"sv, "a PNG image"},
    {"\xFF\xD8\xFF"sv, "a JPEG image"},
    {"GIF8"sv, "a GIF image"},
    {"glTF"sv, "a binary glTF file"},
    {"%PDF"sv, "a PDF document"},
};

std::string readRegularFile(const std::string& path, std::size_t limit) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);  // fails for what is no regular file
  if (error) return {};
  std::ifstream file(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(std::min<std::uintmax_t>(size, limit)), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

std::string inSmallLetters(std::string_view text) {
  std::string small(text);
  for (char& letter : small) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return small;
}

// The text without what may stand before the first word of a text file.
std::string_view fromFirstWord(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  return text;
}

// What begins with an XML declaration or a comment is told by the first element that is known.
const char* kindOfMarkup(const std::string& small) {
  if (small.find("<x3d") != std::string::npos) return "an X3D file in the XML encoding";
  if (small.find("<html") != std::string::npos) return "an HTML page";
  return "an XML document";
}

// "" when it is VRML97 or cannot be told.
std::string_view kindOf(std::string_view bytes) {
  const std::string_view beginning = bytes.substr(0, kBeginning);
  for (const Beginning& row : kBinaries) {
    if (beginning.starts_with(row.text)) return row.kind;
  }
  const std::string small = inSmallLetters(fromFirstWord(beginning));
  if (small.starts_with("#vrml v2.0")) return {};
  for (const Beginning& row : kTexts) {
    if (small.starts_with(row.text)) return row.kind;
  }
  if (small.starts_with("<?xml") || small.starts_with("<!")) return kindOfMarkup(small);
  return beginning.find('\0') == std::string_view::npos ? ""sv : "a binary file"sv;
}

std::string tooLargeText() {
  return "compressed and unpacks to more than " + std::to_string(embedded::kMaxUnpackRatio) + " times its size or " +
         std::to_string(embedded::kMaxUnpackedBytes >> 20) + " MiB";
}

std::string notVrml(std::string_view kind, std::string_view packing) {
  return kind.empty() ? "" : std::string(kind) + std::string(packing) + ", not VRML97";
}

std::string kindOfCompressed(const std::string& path) {
  std::string plain;
  switch (embedded::unpackGzip(readRegularFile(path, std::string::npos), plain)) {
    case embedded::GzipResult::unpacked:
      return notVrml(kindOf(plain), ", compressed with gzip");
    case embedded::GzipResult::damaged:
      return "compressed with gzip, and its data are damaged or cut short";
    case embedded::GzipResult::tooLarge:
      return tooLargeText();
    case embedded::GzipResult::notGzip:
      break;
  }
  return {};
}

}  // namespace

std::string foreignKind(const std::string& path) {
  const std::string beginning = readRegularFile(path, kBeginning);
  return embedded::isGzip(beginning) ? kindOfCompressed(path) : notVrml(kindOf(beginning), "");
}

std::string foreignKindLine(const std::string& file, const std::string& path) {
  const std::string error = openingError(path);
  if (!error.empty()) return file + ": error: " + error + '\n';
  const std::string kind = foreignKind(path);
  return kind.empty() ? "" : file + ": error: this is " + kind + '\n';
}

std::string openingError(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // waits for nobody at a pipe
  int error = descriptor == -1 ? errno : 0;
  struct stat status {};
  if (error == 0 && ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode)) error = EISDIR;
  if (descriptor != -1) ::close(descriptor);
  return error == 0 || error == ENOENT ? "" : std::generic_category().message(error);
}

}  // namespace wrl
