// Of several states of one kind the last one counts, as when they are drawn.

#include "embedded/meshes/Surface.h"

#include <VekFoundations/CVekPropPath.h>
#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>

#include <algorithm>

#include "embedded/StageProperties.h"
#include "embedded/TriangleReader.h"

namespace embedded {
namespace {

// The last state of that kind, null without one.
template <class State>
const State* lastOf(const sglDrawable& drawable) {
  const StateElement* element = drawable.getState(0);
  if (element == nullptr) return nullptr;
  const State* last = nullptr;
  for (const sglRef<sglStatelet>& statelet : element->getStatelets()) {
    if (const auto* found = dynamic_cast<const State*>(statelet.get())) last = found;
  }
  return last;
}

// The nearest number from 0 to `greatest`; 0 for what is not a number.
float within(float value, float greatest) { return value > 0.0F ? std::min(value, greatest) : 0.0F; }

std::array<float, 3> colorOf(const sglVec3<float>& color) {
  return {within(color.x, 1.0F), within(color.y, 1.0F), within(color.z, 1.0F)};
}

void readMaterial(const sglDrawable& drawable, Surface& surface) {
  const auto* material = lastOf<sglMaterial>(drawable);
  if (material == nullptr) return;
  surface.diffuse = colorOf(material->getFrontDiffuse());
  surface.specular = colorOf(material->getFrontSpecular());
  surface.shininess = within(material->getFrontShininess(), 128.0F);
  surface.alpha = within(material->getFrontAlpha(), 1.0F);
}

void readAlphaMode(const sglDrawable& drawable, Surface& surface) {
  const auto* transparency = lastOf<sglTransparency>(drawable);
  const auto* test = lastOf<sglAlphaTest>(drawable);
  if (surface.alpha < 1.0F || (transparency != nullptr && transparency->isOn())) {
    surface.alphaMode = AlphaMode::Blend;
  } else if (test != nullptr && (test->getFunc() == sglAlphaTest::GREATER || test->getFunc() == sglAlphaTest::GEQUAL)) {
    surface.alphaMode = AlphaMode::Mask;
    surface.alphaCutoff = within(test->getReference(), 1.0F);
  }
}

const sglTexture2D* placedTexture(const CVekActor& actor) {
  const CVekTexture* placed = actor.GetTexture(0);
  return placed == nullptr ? nullptr : dynamic_cast<const sglTexture2D*>(placed->GetTexture());
}

void readTexture(const CVekActor& actor, const sglDrawable& drawable, Surface& surface) {
  if (texCoordList(drawable) == nullptr) return;
  const auto* texture = lastOf<sglTexture2D>(drawable);
  if (texture != nullptr) surface.texturePath = texture->getFileName();
  if (surface.texturePath.empty()) {
    const auto* path = propertyOf<CVekPropPath>(actor.GetProperties(), kMapPath);
    if (path == nullptr || path->GetValue().empty()) return;
    surface.texturePath = path->GetValue();
    texture = placedTexture(actor);
  }
  if (texture == nullptr) return;
  sglTexture2D::WrapEnum s = sglTexture2D::WRAP_REPEAT;
  sglTexture2D::WrapEnum t = sglTexture2D::WRAP_REPEAT;
  texture->getWrapMode(s, t);
  surface.repeatsS = s == sglTexture2D::WRAP_REPEAT;
  surface.repeatsT = t == sglTexture2D::WRAP_REPEAT;
}

}  // namespace

Surface surfaceOf(const CVekActor& actor, const sglDrawable& drawable) {
  Surface surface;
  readMaterial(drawable, surface);
  readAlphaMode(drawable, surface);
  readTexture(actor, drawable, surface);
  const auto* cull = lastOf<sglCullMode>(drawable);
  surface.isDoubleSided = cull != nullptr && cull->getMode() == sglCullMode::CULL_OFF;
  return surface;
}

bool isClockwise(const sglDrawable& drawable) {
  const auto* frontFace = lastOf<sglFrontFace>(drawable);
  return frontFace != nullptr && frontFace->getMode() == sglFrontFace::CLOCKWISE;
}

sglMat4<float> textureMatrixOf(const CVekActor& actor) {
  const CVekTexture* placed = actor.GetTexture(0);
  return placed == nullptr ? sglMat4<float>() : placed->GetTexMatrix();
}

}  // namespace embedded
