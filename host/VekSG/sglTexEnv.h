#pragma once

// How a texture meets the colour beneath it.

#include <VekSG/sglStatelet.h>

class VEK_API sglTexEnv : public sglStatelet {
 public:
  // OpenGL numbers.
  enum ModeEnum : unsigned {
    ADD = 0x104,        // sum
    BLEND = 0x0BE2,     // blend with the environment's colour
    REPLACE = 0x1E01,   // texture alone
    MODULATE = 0x2100,  // product
    DECAL = 0x2101,     // texture over the colour by its alpha
  };

  // Modulate.
  sglTexEnv();

  void setMode(ModeEnum mode) { m_mode = mode; }
  [[nodiscard]] ModeEnum getMode() const { return m_mode; }

 protected:
  ~sglTexEnv() override;

 private:
  ModeEnum m_mode = MODULATE;
};
