// Numbers are made finite here, so that looks can be ordered and nothing strange reaches the renderer.

#include "embedded/pictures/Look.h"

#include <VekSG/sglFrontFace.h>
#include <VekSG/sglGeoSet.h>
#include <VekSG/sglLighting.h>
#include <VekSG/sglTransparency.h>

#include <algorithm>
#include <cmath>

#include "embedded/TriangleReader.h"

namespace embedded {
namespace {

float within(float value, float most) { return std::isnan(value) ? 0.0F : std::clamp(value, 0.0F, most); }

Rgb colorOf(const sglVec3<float>& color) {
  return {within(color.x, 1.0F), within(color.y, 1.0F), within(color.z, 1.0F)};
}

// An exponent of 0 would lay the highlight over the whole surface.
SurfaceLook surfaceOf(const sglVec3<float>& diffuse, const sglVec3<float>& ambient, const sglVec3<float>& specular,
                      float shininess, float alpha) {
  const float exponent = within(shininess, 128.0F);
  return {colorOf(diffuse), colorOf(ambient), exponent > 0.0F ? colorOf(specular) : Rgb{}, exponent,
          within(alpha, 1.0F)};
}

void setMaterial(const sglMaterial& material, Look& look) {
  look.front = surfaceOf(material.getFrontDiffuse(), material.getFrontAmbient(), material.getFrontSpecular(),
                         material.getFrontShininess(), material.getFrontAlpha());
  look.back = surfaceOf(material.getBackDiffuse(), material.getBackAmbient(), material.getBackSpecular(),
                        material.getBackShininess(), material.getBackAlpha());
  if (!material.isColorMaterial()) return;
  look.colorSide = material.getColorMaterialSide();
  look.colorMode = material.getColorMaterialMode();
}

// The colours of a drawable that are used, null without any.
const sglDataPtr* colorsOf(const sglDrawable& drawable) {
  const auto* geoSet = dynamic_cast<const sglGeoSet*>(&drawable);
  if (geoSet == nullptr || geoSet->getColorBinding() == sglGeoSet::BIND_OFF) return nullptr;
  const sglDataPtr* colors = geoSet->getColorList();
  return colors != nullptr && colors->getFloats() != nullptr && colors->getCount() >= 4 ? colors : nullptr;
}

bool hasAlphaBelowOne(const sglDataPtr& colors) {
  for (std::size_t at = 3; at < colors.getCount(); at += 4) {
    if (colors.getFloats()[at] < 1.0F) return true;
  }
  return false;
}

bool hasAlpha(const sglTexture2D& texture) {
  return texture.getImageFormat() == sglTexture::FORMAT_RGBA ||
         texture.getImageFormat() == sglTexture::FORMAT_LUMINANCE_ALPHA;
}

// Gathers a drawable's states.
class StateReader {
 public:
  explicit StateReader(Look& look) : m_look(look) {}

  void read(const sglStatelet& statelet) {
    if (const auto* lighting = dynamic_cast<const sglLighting*>(&statelet)) {
      m_look.isLit = lighting->isOn();
    } else if (const auto* material = dynamic_cast<const sglMaterial*>(&statelet)) {
      setMaterial(*material, m_look);
    } else if (const auto* texture = dynamic_cast<const sglTexture2D*>(&statelet)) {
      if (texture->getWidth() > 0) m_look.texture = texture;
    } else if (const auto* environment = dynamic_cast<const sglTexEnv*>(&statelet)) {
      m_look.environment = environment->getMode();
    } else if (const auto* transparency = dynamic_cast<const sglTransparency*>(&statelet)) {
      m_isBlendingSaid = true;
      m_look.isBlended = transparency->isOn();
    } else if (const auto* test = dynamic_cast<const sglAlphaTest*>(&statelet)) {
      m_look.alphaFunc = test->getFunc();
      m_look.alphaReference = within(test->getReference(), 1.0F);
    } else if (const auto* cull = dynamic_cast<const sglCullMode*>(&statelet)) {
      m_look.cullMode = cull->getMode();
    } else if (const auto* front = dynamic_cast<const sglFrontFace*>(&statelet)) {
      m_look.isClockwise = front->getMode() == sglFrontFace::CLOCKWISE;
    }
  }

  [[nodiscard]] bool isBlendingSaid() const { return m_isBlendingSaid; }

 private:
  Look& m_look;
  bool m_isBlendingSaid = false;
};

bool looksTransparent(const Look& look, const sglDataPtr* colors) {
  if (look.front.alpha < 1.0F || look.back.alpha < 1.0F) return true;
  if (colors != nullptr && hasAlphaBelowOne(*colors)) return true;
  return look.texture != nullptr && hasAlpha(*look.texture) && look.alphaFunc == sglAlphaTest::ALWAYS;
}

}  // namespace

Look lookOf(const sglDrawable& drawable, const sglTexture2D* actorTexture) {
  Look look;
  StateReader reader(look);
  if (const StateElement* state = drawable.getState(0)) {
    for (const sglRef<sglStatelet>& statelet : state->getStatelets()) reader.read(*statelet);
  }
  if (look.texture == nullptr && actorTexture != nullptr && actorTexture->getWidth() > 0) look.texture = actorTexture;
  if (texCoordList(drawable) == nullptr) look.texture = nullptr;
  const sglDataPtr* colors = colorsOf(drawable);
  look.hasColors = colors != nullptr;
  if (!reader.isBlendingSaid()) look.isBlended = looksTransparent(look, colors);
  return look;
}

}  // namespace embedded
