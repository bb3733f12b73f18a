#pragma once

// What a drawable looks like, gathered from its states and its actor, for formats that have materials.

#include <VekKernel/CVekActor.h>
#include <VekSG/sglDrawable.h>
#include <VekSG/sglMat4.h>
#include <VekSG/sglVec3.h>

#include <array>
#include <compare>
#include <string>

namespace embedded {

// How alpha, the surface's own and that of its texture, takes effect.
enum class AlphaMode {
  Opaque,  // not at all
  Mask,    // what is below the cutoff is left out
  Blend,   // what is behind shines through
};

// The defaults are those of a drawable without states. Colours are as displayed, 0 to 1.
struct Surface {
  std::array<float, 3> diffuse{1.0F, 1.0F, 1.0F};
  std::array<float, 3> specular{};
  float shininess = 0.0F;  // 0 to 128
  float alpha = 1.0F;
  AlphaMode alphaMode = AlphaMode::Opaque;
  float alphaCutoff = 0.5F;
  bool isDoubleSided = false;  // nothing is left out for facing away
  std::string texturePath;     // "" without a texture in a file
  bool repeatsS = true;
  bool repeatsT = true;

  friend auto operator<=>(const Surface&, const Surface&) = default;
};

// The surface of a drawable of that actor. Its texture is the drawable's or, when that has none in a file, the actor's;
// a drawable without texture coordinates has none.
[[nodiscard]] Surface surfaceOf(const CVekActor& actor, const sglDrawable& drawable);

// Whether the corners of the drawable's front faces go clockwise.
[[nodiscard]] bool isClockwise(const sglDrawable& drawable);

// What is applied to the actor's texture coordinates.
[[nodiscard]] sglMat4<float> textureMatrixOf(const CVekActor& actor);

}  // namespace embedded
