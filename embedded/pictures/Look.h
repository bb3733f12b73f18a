#pragma once

// How a drawable looks: its states, resolved into what a picture has to set up.

#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglDrawable.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTexture2D.h>

#include <array>
#include <compare>

namespace embedded {

using Rgb = std::array<float, 3>;

// One side of a surface. Every number is finite; alpha from 0 to 1, shininess from 0 to 128, and only what shines has a
// specular colour.
struct SurfaceLook {
  Rgb diffuse{0.8F, 0.8F, 0.8F};
  Rgb ambient{0.2F, 0.2F, 0.2F};
  Rgb specular{0.0F, 0.0F, 0.0F};
  float shininess = 0.0F;
  float alpha = 1.0F;

  friend auto operator<=>(const SurfaceLook&, const SurfaceLook&) = default;
};

// What a drawable without states looks like is the default of each member. Two drawables of equal looks can be drawn
// together.
struct Look {
  bool isLit = true;
  SurfaceLook front;
  SurfaceLook back;
  bool hasColors = false;  // the drawable's own colours replace some of the material's
  sglMaterial::SideEnum colorSide = sglMaterial::FRONT_AND_BACK;
  sglMaterial::ColorMaterialModeEnum colorMode = sglMaterial::DIFFUSE;
  const sglTexture2D* texture = nullptr;  // one with an image, for a drawable with texture coordinates; else null
  sglTexEnv::ModeEnum environment = sglTexEnv::MODULATE;
  bool isBlended = false;  // drawn behind everything that is not, the farthest first
  sglAlphaTest::AlphaFuncEnum alphaFunc = sglAlphaTest::ALWAYS;
  float alphaReference = 0.0F;
  sglCullMode::CullModeEnum cullMode = sglCullMode::CULL_BACK;
  bool isClockwise = false;  // the front of a face

  // Whether nothing of the drawable can be seen: worlds lay such shapes over others, for visitors to click on.
  [[nodiscard]] bool isInvisible() const {
    const bool isAlphaKept = texture == nullptr || environment == sglTexEnv::MODULATE;
    return isBlended && isAlphaKept && front.alpha == 0.0F && back.alpha == 0.0F;
  }

  friend auto operator<=>(const Look&, const Look&) = default;
};

// The look of a drawable by its state 0, of several states of one kind the last one. `actorTexture` lies on it when it
// has no texture of its own; it may be null. Colours of the drawable replace the material's diffuse colour unless its
// colour-material mode says otherwise. Without a state that says so, what has an alpha below 1 anywhere is blended,
// unless an alpha test decides. The textures must outlive the look.
[[nodiscard]] Look lookOf(const sglDrawable& drawable, const sglTexture2D* actorTexture);

}  // namespace embedded
