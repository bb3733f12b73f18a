// The sRGB transfer function of IEC 61966-2-1, and the Blinn-Phong exponent of a GGX surface.

#include "embedded/meshes/GltfValues.h"

#include <algorithm>
#include <cmath>

namespace embedded {
namespace {

constexpr double kGreatestShininess = 128.0;

// The nearest number from 0 to `greatest`; 0 for what is not a number.
double within(float value, double greatest) { return value > 0.0F ? std::min(double{value}, greatest) : 0.0; }

}  // namespace

float linearOf(float displayed) {
  const double value = within(displayed, 1.0);
  return static_cast<float>(value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4));
}

float displayedOf(float linear) {
  const double value = within(linear, 1.0);
  return static_cast<float>(value <= 0.0031308 ? value * 12.92 : 1.055 * std::pow(value, 1.0 / 2.4) - 0.055);
}

float roughnessOf(float shininess) {
  return static_cast<float>(std::sqrt(std::sqrt(2.0 / (within(shininess, kGreatestShininess) + 2.0))));
}

float shininessOf(float roughness) {
  const double squared = within(roughness, 1.0) * within(roughness, 1.0);
  const double exponent = squared > 0.0 ? 2.0 / (squared * squared) - 2.0 : kGreatestShininess;
  return static_cast<float>(std::min(exponent, kGreatestShininess));
}

}  // namespace embedded
