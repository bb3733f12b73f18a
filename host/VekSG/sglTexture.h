#pragma once

// Base of the textures: filters, mipmaps, compression and the format on the card.

#include <VekSG/sglStatelet.h>

class VEK_API sglTexture : public sglStatelet {
 public:
  // Filters, OpenGL numbers.
  enum FilterEnum : unsigned {
    NEAREST = 0x2600,                 // nearest texel
    LINEAR = 0x2601,                  // mean of the nearest texels
    NEAREST_MIPMAP_NEAREST = 0x2700,  // nearest texel of the nearest mipmap
    LINEAR_MIPMAP_NEAREST = 0x2701,   // mean of the texels of the nearest mipmap
    NEAREST_MIPMAP_LINEAR = 0x2702,   // mean of the nearest texels of two mipmaps
    LINEAR_MIPMAP_LINEAR = 0x2703,    // mean of the texels of two mipmaps
  };

  // Formats, OpenGL numbers.
  enum FormatEnum : unsigned {
    FORMAT_UNKNOWN = 0,               // not known yet: a fresh texture
    FORMAT_LUMINANCE = 0x1909,        // one byte a texel
    FORMAT_LUMINANCE_ALPHA = 0x190A,  // two
    FORMAT_RGB = 0x1907,              // three
    FORMAT_RGBA = 0x1908,             // four
  };

  // How hard a texture is compressed.
  enum CompressionLevelEnum : unsigned {
    COMPRESSION_NONE = 0,  // not at all
    COMPRESSION_LOW = 1,   // little loss
    COMPRESSION_MID = 2,   // in between
    COMPRESSION_HIGH = 3,  // smallest
  };

  void setAutoMipmapFlag(bool flag) { m_autoMipmap = flag; }
  [[nodiscard]] bool getAutoMipmapFlag() const { return m_autoMipmap; }

  void setMinFilter(FilterEnum filter) { m_minFilter = filter; }
  [[nodiscard]] FilterEnum getMinFilter() const { return m_minFilter; }

  void setMagFilter(FilterEnum filter) { m_magFilter = filter; }
  [[nodiscard]] FilterEnum getMagFilter() const { return m_magFilter; }

  void setCompressionLevel(CompressionLevelEnum level) {
    m_compressionLevel = level;
    m_hasCompressionLevel = true;
  }
  [[nodiscard]] CompressionLevelEnum getCompressionLevel() const { return m_compressionLevel; }

  // Whether setCompressionLevel was called.
  [[nodiscard]] bool hasCompressionLevel() const { return m_hasCompressionLevel; }

  void setInternalFormat(FormatEnum format) { m_internalFormat = format; }
  [[nodiscard]] FormatEnum getInternalFormat() const { return m_internalFormat; }

 protected:
  sglTexture() = default;
  ~sglTexture() override;

 private:
  FilterEnum m_minFilter = NEAREST_MIPMAP_LINEAR;
  FilterEnum m_magFilter = LINEAR;
  FormatEnum m_internalFormat = FORMAT_UNKNOWN;
  CompressionLevelEnum m_compressionLevel = COMPRESSION_NONE;
  bool m_hasCompressionLevel = false;
  bool m_autoMipmap = false;
};
