#pragma once

// Where something stands.

#include <VekFoundations/VekExport.h>
#include <VekGeometry/CVekFrame.h>

class VEK_API CVekLocation {
 public:
  CVekLocation() = default;
  explicit CVekLocation(const CVekFrame& frame) : m_frame(frame) {}

  [[nodiscard]] const CVekFrame& GetFrame() const { return m_frame; }
  void SetFrame(const CVekFrame& frame) { m_frame = frame; }

 private:
  CVekFrame m_frame;
};
