#pragma once

// A saved view: a name, and the navigator's properties at that time.

#include <VekFoundations/CVekPropertySet.h>
#include <VekKernel/CVekModifiable.h>

#include <memory>

class VEK_API CVekView : public CVekModifiable {
 public:
  // Without navigator properties.
  CVekView();
  ~CVekView() override;

  // "Navigator.Camera.Location" (CVekPropLocation), "Navigator.Camera.Proj.Persp" (CVekProp<bool>) and
  // "Navigator.Camera.Fov" (CVekPropNumerical<float>, radians), each of which may be missing. Null when the view has no
  // navigator properties. They stay the view's.
  [[nodiscard]] CVekPropertySet* GetNavigatorProperties() const { return m_navigatorProperties.get(); }
  void SetNavigatorProperties(std::unique_ptr<CVekPropertySet> properties);

 private:
  std::unique_ptr<CVekPropertySet> m_navigatorProperties;
};
