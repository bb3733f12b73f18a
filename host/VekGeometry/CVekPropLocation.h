#pragma once

// A property that holds a location.

#include <VekFoundations/CVekProperty.h>
#include <VekGeometry/CVekLocation.h>

class VEK_API CVekPropLocation : public CVekProperty {
 public:
  explicit CVekPropLocation(const CVekLocation& location) : m_location(location) {}
  ~CVekPropLocation() override;

  [[nodiscard]] const CVekLocation& GetValue() const { return m_location; }
  void SetValue(const CVekLocation& location) { m_location = location; }

 private:
  CVekLocation m_location;
};
