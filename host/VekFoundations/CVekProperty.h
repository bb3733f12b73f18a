#pragma once

// Base of the property values that hang on host objects.

#include <VekFoundations/VekExport.h>

// A property is told apart by its run-time type: CVekPropPath, CVekPropLocation, CVekProp<T>, CVekPropNumerical<T>.
class VEK_API CVekProperty {
 public:
  CVekProperty() = default;
  CVekProperty(const CVekProperty&) = delete;
  CVekProperty& operator=(const CVekProperty&) = delete;
  virtual ~CVekProperty();
};
