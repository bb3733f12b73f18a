#pragma once

// Which order of corners makes the front of a face.

#include <VekSG/sglStatelet.h>

class VEK_API sglFrontFace : public sglStatelet {
 public:
  // OpenGL numbers.
  enum FrontFaceEnum : unsigned {
    CLOCKWISE = 0x900,         // clockwise
    COUNTERCLOCKWISE = 0x901,  // counterclockwise, as without this state
  };

  explicit sglFrontFace(FrontFaceEnum mode);

  [[nodiscard]] FrontFaceEnum getMode() const { return m_mode; }

 protected:
  ~sglFrontFace() override;

 private:
  FrontFaceEnum m_mode;
};
