#pragma once

// A camera. It looks along the negative z axis of its frame, whose y axis is up.

#include <VekKernel/CVekDraw.h>

class VEK_API CVekCamera : public CVekDraw {
 public:
  // A perspective camera at the origin with a field of view of a quarter pi.
  CVekCamera();
  ~CVekCamera() override;

  // False for an orthographic camera.
  [[nodiscard]] bool IsPerspective() const { return m_perspective; }
  void SetPerspective(bool perspective) { m_perspective = perspective; }

  // The field of view across the paper, in radians.
  [[nodiscard]] double GetFOVPaper() const { return m_fovPaper; }
  void SetFOVPaper(double fovRadians) { m_fovPaper = fovRadians; }

 private:
  bool m_perspective = true;
  double m_fovPaper = 0.78539816339744831;
};
