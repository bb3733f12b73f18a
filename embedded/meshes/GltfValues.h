#pragma once

// The host's looks and those of glTF. glTF's colour factors are linear amounts of light, the host's colours are values
// as they are displayed (sRGB); glTF says how rough a surface is, the host how shiny.

namespace embedded {

// From a displayed value to an amount of light and back; both from 0 to 1, what lies outside counts as the nearer end.
[[nodiscard]] float linearOf(float displayed);
[[nodiscard]] float displayedOf(float linear);

// Between the exponent of a highlight, 0 to 128, and a roughness, 0 to 1: the roughness whose squared square is
// 2 / (shininess + 2), which gives a microfacet highlight the width of that exponent's.
[[nodiscard]] float roughnessOf(float shininess);
[[nodiscard]] float shininessOf(float roughness);

}  // namespace embedded
