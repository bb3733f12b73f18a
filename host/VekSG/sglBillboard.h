#pragma once

// A group that turns about an axis towards the eye.

#include <VekSG/sglGroup.h>
#include <VekSG/sglVec3.h>

class VEK_API sglBillboard : public sglGroup {
 public:
  // How it turns.
  enum ModeEnum : unsigned {
    POINT_EYE = 0,    // about its origin, upright to the axis
    POINT_WORLD = 1,  // about its origin, upright to the world
    AXIAL = 2,        // about its axis
  };

  // About (0, 1, 0), mode AXIAL.
  sglBillboard();
  ~sglBillboard() override;

  // Any vector; it is kept as given.
  void setAxis(const sglVec3<double>& axis) { m_axis = axis; }
  [[nodiscard]] const sglVec3<double>& getAxis() const { return m_axis; }

  void setMode(ModeEnum mode) { m_mode = mode; }
  [[nodiscard]] ModeEnum getMode() const { return m_mode; }

 private:
  sglVec3<double> m_axis{0.0, 1.0, 0.0};
  ModeEnum m_mode = AXIAL;
};
