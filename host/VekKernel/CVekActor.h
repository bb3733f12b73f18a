#pragma once

// A leaf of the assembly tree: something that shows.

#include <VekKernel/CVekAssyNode.h>
#include <VekKernel/CVekDraw.h>
#include <VekKernel/CVekTexture.h>

#include <memory>
#include <vector>

class sglNode;

class VEK_API CVekActor : public CVekAssyNode, public CVekDraw {
 public:
  CVekActor();
  ~CVekActor() override;

  // The scene graph node that shows the actor, null when there is none. It stays the actor's.
  [[nodiscard]] sglNode* GetPresentable() const { return m_presentable; }

  // Takes a node over and destroys the one it had. Null takes it away.
  void SetPresentable(sglNode* presentable);

  // The texture in a slot from 0, null when the slot is empty. It stays the actor's.
  [[nodiscard]] CVekTexture* GetTexture(unsigned slot) const {
    return slot < m_textures.size() ? m_textures[slot].get() : nullptr;
  }

  // Whether any slot holds a texture.
  [[nodiscard]] bool HasTexture() const;

  // Puts a texture into a slot from 0 to 7; null empties it. Other slots do not exist: nothing changes.
  void SetTexture(unsigned slot, std::unique_ptr<CVekTexture> texture);

 private:
  sglNode* m_presentable = nullptr;
  std::vector<std::unique_ptr<CVekTexture>> m_textures;  // by slot, may hold null
};
