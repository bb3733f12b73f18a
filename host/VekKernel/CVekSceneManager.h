#pragma once

// The application's assembly.

#include <VekFoundations/VekExport.h>
#include <VekKernel/CVekAssyRoot.h>

#include <memory>

class VEK_API CVekSceneManager {
 public:
  CVekSceneManager();
  CVekSceneManager(const CVekSceneManager&) = delete;
  CVekSceneManager& operator=(const CVekSceneManager&) = delete;
  virtual ~CVekSceneManager();

  // The root of the assembly tree, null when there is none. It stays the manager's.
  [[nodiscard]] CVekAssyRoot* GetAssyRoot() const { return m_assyRoot.get(); }
  void SetAssyRoot(std::unique_ptr<CVekAssyRoot> root);

 private:
  std::unique_ptr<CVekAssyRoot> m_assyRoot;
};
