#pragma once

// Whether lights shade the drawable.

#include <VekSG/sglStatelet.h>

class VEK_API sglLighting : public sglStatelet {
 public:
  explicit sglLighting(bool on);

  [[nodiscard]] bool isOn() const { return m_on; }

 protected:
  ~sglLighting() override;

 private:
  bool m_on;
};
