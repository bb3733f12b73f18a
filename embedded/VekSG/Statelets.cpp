// The counted objects: render states, textures and arrays.

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglDataPtr.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglReferenced.h>
#include <VekSG/sglStatelet.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>

#include "embedded/VekSG/TexelBytes.h"

sglReferenced::~sglReferenced() = default;

sglDataPtr::sglDataPtr(std::vector<float> values) : m_floats(std::move(values)) {}

sglDataPtr::sglDataPtr(std::vector<std::uint32_t> values) : m_unsigneds(std::move(values)) {}

sglDataPtr::~sglDataPtr() = default;

sglStatelet::~sglStatelet() = default;

sglLighting::sglLighting(bool on) : m_on(on) {}

sglLighting::~sglLighting() = default;

sglMaterial::sglMaterial() = default;

sglMaterial::~sglMaterial() = default;

template <class Set>
void sglMaterial::setOn(SideEnum side, Set set) {
  m_side = side;
  if (side != BACK) set(m_front);
  if (side != FRONT) set(m_back);
}

void sglMaterial::setDiffuse(float r, float g, float b, SideEnum side) {
  setOn(side, [&](Surface& surface) { surface.diffuse = {r, g, b}; });
}

void sglMaterial::setAmbient(float r, float g, float b, SideEnum side) {
  setOn(side, [&](Surface& surface) { surface.ambient = {r, g, b}; });
}

void sglMaterial::setSpecular(float r, float g, float b, SideEnum side) {
  setOn(side, [&](Surface& surface) { surface.specular = {r, g, b}; });
}

void sglMaterial::setShininess(float shininess, SideEnum side) {
  setOn(side, [&](Surface& surface) { surface.shininess = shininess; });
}

void sglMaterial::setAlpha(float alpha, SideEnum side) {
  setOn(side, [&](Surface& surface) { surface.alpha = alpha; });
}

void sglMaterial::setColorMaterial(SideEnum side, ColorMaterialModeEnum mode) {
  m_isColorMaterial = true;
  m_colorMaterialSide = side;
  m_colorMaterialMode = mode;
}

sglTexture::~sglTexture() = default;

sglTexture2D::sglTexture2D() = default;

sglTexture2D::~sglTexture2D() = default;

bool sglTexture2D::setImage(unsigned width, unsigned height, FormatEnum format, std::vector<std::uint8_t> bytes) {
  const std::uint64_t texels = std::uint64_t{width} * height;
  const unsigned perTexel = embedded::texelBytes(format);
  if (perTexel == 0 || bytes.size() % perTexel != 0 || bytes.size() / perTexel != texels) return false;
  m_width = width;
  m_height = height;
  m_imageFormat = format;
  m_bytes = std::move(bytes);
  setInternalFormat(format);
  return true;
}

sglTexEnv::sglTexEnv() = default;

sglTexEnv::~sglTexEnv() = default;

sglTransparency::sglTransparency(bool on, ModeEnum mode) : m_on(on), m_mode(mode) {}

sglTransparency::~sglTransparency() = default;

sglAlphaTest::sglAlphaTest(AlphaFuncEnum func, float reference) : m_func(func), m_reference(reference) {}

sglAlphaTest::~sglAlphaTest() = default;

sglCullMode::sglCullMode(CullModeEnum mode) : m_mode(mode) {}

sglCullMode::~sglCullMode() = default;

sglFrontFace::sglFrontFace(FrontFaceEnum mode) : m_mode(mode) {}

sglFrontFace::~sglFrontFace() = default;
