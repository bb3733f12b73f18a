// An image that is too large is thinned out by whole numbers, a row or a column out of each few.

#include "embedded/pictures/TextureStore.h"

#include <algorithm>
#include <vector>

#include "embedded/VekSG/TexelBytes.h"
#include "embedded/pictures/OpenGL.h"

namespace embedded {
namespace {

bool usesMipmaps(sglTexture::FilterEnum filter) {
  return filter != sglTexture::NEAREST && filter != sglTexture::LINEAR;
}

GLint wrapOf(sglTexture2D::WrapEnum wrap) { return wrap == sglTexture2D::WRAP_CLAMP ? GL_CLAMP_TO_EDGE : GL_REPEAT; }

void setParameters(const sglTexture2D& texture) {
  sglTexture2D::WrapEnum wrapS{};
  sglTexture2D::WrapEnum wrapT{};
  texture.getWrapMode(wrapS, wrapT);
  const bool hasMipmaps = texture.getAutoMipmapFlag();
  const sglTexture::FilterEnum minFilter =
      usesMipmaps(texture.getMinFilter()) && !hasMipmaps ? sglTexture::LINEAR : texture.getMinFilter();
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrapOf(wrapS));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrapOf(wrapT));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, static_cast<GLint>(minFilter));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, static_cast<GLint>(texture.getMagFilter()));
  glTexParameteri(GL_TEXTURE_2D, GL_GENERATE_MIPMAP, usesMipmaps(minFilter) ? GL_TRUE : GL_FALSE);
}

// Every `step`th texel of every `step`th row.
std::vector<std::uint8_t> thinnedOut(const sglTexture2D& texture, unsigned step, unsigned width, unsigned height) {
  const std::size_t size = texelBytes(texture.getImageFormat());
  std::vector<std::uint8_t> bytes(std::size_t{width} * height * size);
  std::uint8_t* to = bytes.data();
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x, to += size) {
      const std::size_t texel = y * step * texture.getWidth() + x * step;
      std::copy_n(texture.getImage().data() + texel * size, size, to);
    }
  }
  return bytes;
}

void setImage(const sglTexture2D& texture) {
  GLint most = 0;
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
  const unsigned largest = std::max(texture.getWidth(), texture.getHeight());
  const auto limit = static_cast<unsigned>(std::max(most, 1));
  const unsigned step = (largest + limit - 1) / limit;
  const unsigned width = (texture.getWidth() + step - 1) / step;
  const unsigned height = (texture.getHeight() + step - 1) / step;
  const std::vector<std::uint8_t> thinned =
      step > 1 ? thinnedOut(texture, step, width, height) : std::vector<std::uint8_t>();
  const GLenum format = texture.getImageFormat();
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), static_cast<GLsizei>(width), static_cast<GLsizei>(height),
               0, format, GL_UNSIGNED_BYTE, step > 1 ? thinned.data() : texture.getImage().data());
}

}  // namespace

TextureStore::~TextureStore() {
  for (const auto& [texture, name] : m_names) glDeleteTextures(1, &name);
}

void TextureStore::bind(const sglTexture2D& texture) {
  const auto [entry, isNew] = m_names.try_emplace(&texture, 0U);
  if (isNew) glGenTextures(1, &entry->second);
  glBindTexture(GL_TEXTURE_2D, entry->second);
  if (!isNew) return;
  setParameters(texture);
  setImage(texture);
}

}  // namespace embedded
