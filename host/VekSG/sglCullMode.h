#pragma once

// Which sides of the faces are left out.

#include <VekSG/sglStatelet.h>

class VEK_API sglCullMode : public sglStatelet {
 public:
  enum CullModeEnum : unsigned {
    CULL_BACK = 0,   // faces that turn away from the eye
    CULL_OFF = 1,    // none: both sides show
    CULL_FRONT = 2,  // faces that turn to the eye
  };

  explicit sglCullMode(CullModeEnum mode);

  [[nodiscard]] CullModeEnum getMode() const { return m_mode; }

 protected:
  ~sglCullMode() override;

 private:
  CullModeEnum m_mode;
};
