#pragma once

// A scene as a loader gives it back.

#include <VekFoundations/VekExport.h>

class sglNode;

// Owns the scene. Whoever gets one from a loader deletes it, and the whole scene with it.
class VEK_API CVekDBRoot {
 public:
  CVekDBRoot();
  CVekDBRoot(const CVekDBRoot&) = delete;
  CVekDBRoot& operator=(const CVekDBRoot&) = delete;
  virtual ~CVekDBRoot();

  // Takes a scene over and destroys the one it had. Null is no scene. The node must stand in no group.
  void SetSglRoot(sglNode* root);

  // The scene, null when there is none. It stays this object's.
  [[nodiscard]] sglNode* GetSglRoot() const { return m_root; }

 private:
  sglNode* m_root = nullptr;
};
