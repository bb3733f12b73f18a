#pragma once

// The names of the properties that stage documents hold, and how they are looked up.

#include <VekFoundations/CVekPropertySet.h>

namespace embedded {

inline constexpr const char* kMapPath = "Texture.Map.Path";                       // CVekPropPath
inline constexpr const char* kCameraLocation = "Navigator.Camera.Location";       // CVekPropLocation
inline constexpr const char* kCameraPerspective = "Navigator.Camera.Proj.Persp";  // CVekProp<bool>
inline constexpr const char* kCameraFov = "Navigator.Camera.Fov";                 // CVekPropNumerical<float>, radians

// The property of that name, null when it is missing or of another type, and when there is no set.
template <class Property>
[[nodiscard]] const Property* propertyOf(const CVekPropertySet* set, const char* name) {
  if (set == nullptr) return nullptr;
  return dynamic_cast<const Property*>(set->GetProperty(GetPropIDServer().GetID(name)));
}

}  // namespace embedded
