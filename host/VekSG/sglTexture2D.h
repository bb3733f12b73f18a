#pragma once

// A texture of width and height.

#include <VekSG/sglTexture.h>

#include <cstdint>
#include <string>
#include <vector>

class VEK_API sglTexture2D : public sglTexture {
 public:
  // What happens outside 0 to 1.
  enum WrapEnum : unsigned {
    WRAP_REPEAT = 0,  // the image repeats
    WRAP_CLAMP = 1,   // its edge goes on
  };

  // Repeats both ways and holds no image.
  sglTexture2D();

  void setWrapMode(WrapEnum s, WrapEnum t) {
    m_wrapS = s;
    m_wrapT = t;
  }
  void getWrapMode(WrapEnum& s, WrapEnum& t) const {
    s = m_wrapS;
    t = m_wrapT;
  }

  // Gives the texture its image: rows from the bottom, tightly packed, bytes a texel as the format says. It also sets
  // the internal format. False, and nothing changed, when the number of bytes is not width * height * bytes a texel.
  bool setImage(unsigned width, unsigned height, FormatEnum format, std::vector<std::uint8_t> bytes);

  // The size of the image, 0 by 0 when the texture holds none.
  [[nodiscard]] unsigned getWidth() const { return m_width; }
  [[nodiscard]] unsigned getHeight() const { return m_height; }

  // The format of the image's bytes.
  [[nodiscard]] FormatEnum getImageFormat() const { return m_imageFormat; }

  // The file that the image was read from, "" when it was read from none.
  void setFileName(const std::string& fileName) { m_fileName = fileName; }
  [[nodiscard]] const std::string& getFileName() const { return m_fileName; }

  // The image's bytes as setImage was given them.
  [[nodiscard]] const std::vector<std::uint8_t>& getImage() const { return m_bytes; }

 protected:
  ~sglTexture2D() override;

 private:
  std::string m_fileName;
  WrapEnum m_wrapS = WRAP_REPEAT;
  WrapEnum m_wrapT = WRAP_REPEAT;
  unsigned m_width = 0;
  unsigned m_height = 0;
  FormatEnum m_imageFormat = FORMAT_UNKNOWN;
  std::vector<std::uint8_t> m_bytes;
};
