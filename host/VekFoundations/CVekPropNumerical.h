#pragma once

// A property of one number. The unit is that of the property's name ("Navigator.Camera.Fov" is in radians).

#include <VekFoundations/CVekProp.h>

template <class T>
class VEK_API CVekPropNumerical : public CVekProp<T> {
 public:
  explicit CVekPropNumerical(T value) : CVekProp<T>(value) {}
  ~CVekPropNumerical() override;
};

extern template class VEK_API CVekPropNumerical<float>;
