#pragma once

// A window onto the scene.

#include <VekFoundations/VekExport.h>
#include <VekKernel/CVekNavigator.h>
#include <VekKernel/CVekRenderer.h>

#include <memory>

class VEK_API CVekViewport {
 public:
  // With a navigator without camera, and a renderer.
  CVekViewport();
  CVekViewport(const CVekViewport&) = delete;
  CVekViewport& operator=(const CVekViewport&) = delete;
  virtual ~CVekViewport();

  // Null when there is none. Both stay the viewport's.
  [[nodiscard]] CVekNavigator* GetNavigator() const { return m_navigator.get(); }
  [[nodiscard]] CVekRenderer* GetRenderer() const { return m_renderer.get(); }

 private:
  std::unique_ptr<CVekNavigator> m_navigator;
  std::unique_ptr<CVekRenderer> m_renderer;
};
