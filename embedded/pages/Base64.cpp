// Three bytes become four letters; a block of them at a time goes to the stream.

#include "embedded/pages/Base64.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace embedded {
namespace {

constexpr std::size_t kBlock = 3 * 16384;

void appendGroup(std::string_view bytes, std::string& text) {
  static constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 3; ++i)
    bits = bits << 8U | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
  for (std::size_t i = 0; i < 4; ++i) text += i > bytes.size() ? '=' : kLetters[bits >> (18U - 6U * i) & 63U];
}

}  // namespace

void writeBase64(std::string_view bytes, std::ostream& out) {
  std::string text;
  while (!bytes.empty()) {
    const std::string_view block = bytes.substr(0, kBlock);
    bytes.remove_prefix(block.size());
    text.clear();
    for (std::size_t at = 0; at < block.size(); at += 3) appendGroup(block.substr(at, 3), text);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
}

}  // namespace embedded
