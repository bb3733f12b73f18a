#pragma once

// The host application.

#include <VekFoundations/VekExport.h>
#include <VekKernel/CVekSceneManager.h>
#include <VekKernel/CVekViewportManager.h>

#include <memory>

class VEK_API CVekStager {
 public:
  // With both managers, and nothing in them.
  CVekStager();
  CVekStager(const CVekStager&) = delete;
  CVekStager& operator=(const CVekStager&) = delete;
  virtual ~CVekStager();

  // Never null. Both stay the stager's.
  [[nodiscard]] CVekSceneManager* GetSceneManager() const { return m_sceneManager.get(); }
  [[nodiscard]] CVekViewportManager* GetViewportManager() const { return m_viewportManager.get(); }

 private:
  std::unique_ptr<CVekSceneManager> m_sceneManager;
  std::unique_ptr<CVekViewportManager> m_viewportManager;
};
