#pragma once

// What moves a viewport's camera.

#include <VekFoundations/VekExport.h>
#include <VekKernel/CVekCamera.h>

#include <memory>

class VEK_API CVekNavigator {
 public:
  CVekNavigator();
  CVekNavigator(const CVekNavigator&) = delete;
  CVekNavigator& operator=(const CVekNavigator&) = delete;
  virtual ~CVekNavigator();

  // The camera, null when there is none. It stays the navigator's.
  [[nodiscard]] CVekCamera* GetCamera() const { return m_camera.get(); }
  void SetCamera(std::unique_ptr<CVekCamera> camera);

 private:
  std::unique_ptr<CVekCamera> m_camera;
};
