#pragma once

// Base of what a geode draws.

#include <VekSG/StateElement.h>
#include <VekSG/sglObject.h>
#include <VekSG/sglStatelet.h>
#include <VekSG/sglTexCoords.h>

#include <memory>
#include <vector>

// Owned by its geode; one that is in no geode belongs to whoever made it.
class VEK_API sglDrawable : public sglObject {
 public:
  ~sglDrawable() override;

  // Gives the drawable its state of that number, in place of an older one; null entries of the list are left out. It
  // takes a reference on every statelet, so one list serves many drawables. Only numbers 0 to 7 exist; others change
  // nothing.
  void setState(unsigned index, const sglStateletList& statelets);

  // The same, with the coordinates of the first texture.
  void setState(unsigned index, const sglStateletList& statelets, const sglTexCoords& texCoords);

  // The state of that number; null when it was never set. It stays the drawable's.
  [[nodiscard]] const StateElement* getState(unsigned index) const {
    return index < m_states.size() ? m_states[index].get() : nullptr;
  }

  // Lets the host keep the drawable compiled. Off at first.
  void enableDisplayList(bool enable) { m_displayList = enable; }
  [[nodiscard]] bool isDisplayListEnabled() const { return m_displayList; }

 protected:
  sglDrawable() = default;

 private:
  std::vector<std::unique_ptr<StateElement>> m_states;  // by number, may hold null
  bool m_displayList = false;
};
