// Texture sizes are estimates: three bytes a texel with three components and four for any other, a third more with
// mipmaps, and eight or sixteen bytes for each block of sixteen texels when compressed.

#include <array>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include "import/Messages.h"
#include "import/sglLoadFile_wrl.h"
#include "vrml/fields/Numbers.h"

namespace {

using importer::warn;

constexpr double kMegabytesPerByte = 9.5367431640625e-07;

/// The text of "%g": what a stream makes of a number by default, whatever the host set its streams or the process to.
class NumberText {
 public:
  explicit NumberText(double value) : m_length(vrml::printG(m_text.data(), value) - m_text.data()) {}
  friend std::ostream& operator<<(std::ostream& out, const NumberText& number) {
    return out.write(number.m_text.data(), number.m_length);
  }

 private:
  std::array<char, vrml::kNumberTextSize> m_text;
  std::ptrdiff_t m_length;
};

void printCount(std::string_view label, std::int32_t count) { warn(label, std::to_string(count), '\n'); }

void printTextureSizes(std::int64_t texelsRGB, std::int64_t texelsOther) {
  const auto bytes = static_cast<double>(texelsRGB * 3 + texelsOther * 4);
  const double megabytes = static_cast<float>(bytes * kMegabytesPerByte);
  warn("   Texture Size MB: ", NumberText(megabytes), " (32bpp) ", NumberText(megabytes * 0.5), " (16bpp) ", '\n');
  warn("    Mipped        : ", NumberText(megabytes * 1.333), " (32bpp) ", NumberText(megabytes * 0.5 * 1.333),
       " (16bpp) ", '\n');
  const auto compressed = static_cast<float>(texelsRGB / 16 * 8 + texelsOther / 16 * 16);
  warn("   S3TC Cmp+Mipped: ", NumberText(static_cast<double>(compressed) * 1.3333 * kMegabytesPerByte), '\n');
}

}  // namespace

void sglLoadFile_wrl::printStatistics(const std::string& path) const {
  warn("-- Statistics for: ", path, " ---", '\n');
  printCount("   Num S.Tris     : ", m_numSTris);
  printCount("   Num S.Quads    : ", m_numSQuads);
  printCount("   Num S.Polygons : ", m_numSPolygons);
  warn("   ---------------- ", '\n');
  printCount("   Num Indep Tris : ", m_numIndepTris);
  printCount("   Num Strips     : ", m_numStrips);
  if (m_numStrips != 0) {
    warn("    Length Stats  : ", "Min: ", std::to_string(m_minStripLength), " Max: ", std::to_string(m_maxStripLength),
         " Avg: ", std::to_string(m_sumStripLength / m_numStrips), '\n');
  }
  printCount("   Num Materials  : ", m_numMaterials);
  printCount("   Num Textures   : ", m_numTextures);
  printTextureSizes(m_texelsRGB, m_texelsOther);
}
