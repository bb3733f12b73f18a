#pragma once

// Whether the drawable is blended with what is behind it.

#include <VekSG/sglStatelet.h>

class VEK_API sglTransparency : public sglStatelet {
 public:
  enum ModeEnum : unsigned {
    BLEND = 0,        // by alpha
    SCREEN_DOOR = 1,  // by leaving pixels out
    MULTISAMPLE = 2,  // by leaving samples out
  };

  sglTransparency(bool on, ModeEnum mode);

  [[nodiscard]] bool isOn() const { return m_on; }
  [[nodiscard]] ModeEnum getMode() const { return m_mode; }

 protected:
  ~sglTransparency() override;

 private:
  bool m_on;
  ModeEnum m_mode;
};
