#pragma once

// Drops the pixels whose alpha fails a comparison.

#include <VekSG/sglStatelet.h>

class VEK_API sglAlphaTest : public sglStatelet {
 public:
  // What must hold between a pixel's alpha and the reference for the pixel to stay, OpenGL numbers.
  enum AlphaFuncEnum : unsigned {
    NEVER = 0x200,     // nothing stays
    LESS = 0x201,      // below
    EQUAL = 0x202,     // equal
    LEQUAL = 0x203,    // below or equal
    GREATER = 0x204,   // above
    NOTEQUAL = 0x205,  // not equal
    GEQUAL = 0x206,    // above or equal
    ALWAYS = 0x207,    // everything stays
  };

  // `reference` from 0 to 1.
  sglAlphaTest(AlphaFuncEnum func, float reference);

  [[nodiscard]] AlphaFuncEnum getFunc() const { return m_func; }
  [[nodiscard]] float getReference() const { return m_reference; }

 protected:
  ~sglAlphaTest() override;

 private:
  AlphaFuncEnum m_func;
  float m_reference;
};
