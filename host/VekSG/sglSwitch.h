#pragma once

// A group that shows one chosen child, all, or none.

#include <VekSG/sglGroup.h>

#include <cstdint>

class VEK_API sglSwitch : public sglGroup {
 public:
  // Values of the selected child that are no child's place.
  enum : std::int32_t {
    SELECT_ALL = -1,   // every child shows
    SELECT_NONE = -2,  // no child shows
  };

  // Shows all.
  sglSwitch();
  ~sglSwitch() override;

  // The place of the child that shows, from 0, or one of the values above. Any other value shows nothing and is kept.
  void setSelectedChild(std::int32_t selected) { m_selectedChild = selected; }
  [[nodiscard]] std::int32_t getSelectedChild() const { return m_selectedChild; }

 private:
  std::int32_t m_selectedChild = SELECT_ALL;
};
