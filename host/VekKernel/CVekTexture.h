#pragma once

// A texture as the document knows it: the scene graph's texture and its placement.

#include <VekFoundations/VekExport.h>
#include <VekSG/sglMat4.h>
#include <VekSG/sglRef.h>
#include <VekSG/sglTexture.h>

class VEK_API CVekTexture {
 public:
  CVekTexture();
  CVekTexture(const CVekTexture&) = delete;
  CVekTexture& operator=(const CVekTexture&) = delete;
  virtual ~CVekTexture();

  // The scene graph's texture, null when there is none. SetTexture takes a reference.
  [[nodiscard]] sglTexture* GetTexture() const { return m_texture.get(); }
  void SetTexture(sglTexture* texture) { m_texture = texture; }

  // What is applied to texture coordinates (u, v, 0), row-vector convention.
  [[nodiscard]] const sglMat4<float>& GetTexMatrix() const { return m_matrix; }
  void SetTexMatrix(const sglMat4<float>& matrix) { m_matrix = matrix; }

 private:
  sglRef<sglTexture> m_texture;
  sglMat4<float> m_matrix;
};
