// An image is written in rows of 33 integers, whatever its width.

#include "vrml/fields/SFImage.h"

#include <ostream>

#include "vrml/fields/NumberText.h"

namespace vrml {

void SFImage::write(std::ostream& out, const char* indent) const {
  constexpr std::size_t kRowLength = 33;
  std::string text = indent;
  std::size_t written = 0;
  for (const std::int32_t value : values()) {
    appendD(text, value);
    text += ' ';
    if (++written % kRowLength != 0) continue;
    text += '\n';
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    text = indent;
  }
  text += '\n';
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void SFImage::appendVrml(std::string& out, bool) const {
  const std::span<const std::int32_t> integers = values();
  if (integers.empty()) out += "[]";
  for (std::size_t i = 0; i < integers.size(); ++i) {
    if (i > 0) out += ' ';
    appendD(out, integers[i]);
  }
}

}  // namespace vrml
