#pragma once

// Images in the renderer's memory.

#include <VekSG/sglTexture2D.h>

#include <map>

namespace embedded {

// Hands each texture's image to OpenGL the first time that it is used. Belongs to the context in use.
class TextureStore {
 public:
  TextureStore() = default;
  TextureStore(const TextureStore&) = delete;
  TextureStore& operator=(const TextureStore&) = delete;
  ~TextureStore();

  // Binds a texture that has an image. An image with a side above what the renderer takes is used at the size that
  // fits.
  void bind(const sglTexture2D& texture);

 private:
  std::map<const sglTexture2D*, unsigned> m_names;  // OpenGL's
};

}  // namespace embedded
