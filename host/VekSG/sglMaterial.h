#pragma once

// How a surface answers to light.

#include <VekSG/sglStatelet.h>
#include <VekSG/sglVec3.h>

// Colours are red, green, blue from 0 to 1; shininess goes from 0 to 128; alpha 1 is opaque. The values of a side that
// were never set are those of a new material: all 0, alpha 1.
class VEK_API sglMaterial : public sglStatelet {
 public:
  // Sides of a surface, OpenGL numbers.
  enum SideEnum : unsigned {
    FRONT = 0x404,           // the side that faces the eye
    BACK = 0x405,            // the other side
    FRONT_AND_BACK = 0x408,  // both
  };

  // Which values the drawable's colours replace, OpenGL numbers.
  enum ColorMaterialModeEnum : unsigned {
    EMISSION = 0x1600,             // emission
    AMBIENT = 0x1200,              // ambient colour
    DIFFUSE = 0x1201,              // diffuse colour
    SPECULAR = 0x1202,             // specular colour
    AMBIENT_AND_DIFFUSE = 0x1602,  // both of these
  };

  sglMaterial();

  void setDiffuse(float r, float g, float b, SideEnum side);
  void setAmbient(float r, float g, float b, SideEnum side);
  void setSpecular(float r, float g, float b, SideEnum side);
  void setShininess(float shininess, SideEnum side);
  void setAlpha(float alpha, SideEnum side);

  // Switches colour-material mode on.
  void setColorMaterial(SideEnum side, ColorMaterialModeEnum mode);

  [[nodiscard]] const sglVec3<float>& getFrontDiffuse() const { return m_front.diffuse; }
  [[nodiscard]] const sglVec3<float>& getFrontAmbient() const { return m_front.ambient; }
  [[nodiscard]] const sglVec3<float>& getFrontSpecular() const { return m_front.specular; }
  [[nodiscard]] float getFrontShininess() const { return m_front.shininess; }
  [[nodiscard]] float getFrontAlpha() const { return m_front.alpha; }

  [[nodiscard]] const sglVec3<float>& getBackDiffuse() const { return m_back.diffuse; }
  [[nodiscard]] const sglVec3<float>& getBackAmbient() const { return m_back.ambient; }
  [[nodiscard]] const sglVec3<float>& getBackSpecular() const { return m_back.specular; }
  [[nodiscard]] float getBackShininess() const { return m_back.shininess; }
  [[nodiscard]] float getBackAlpha() const { return m_back.alpha; }

  // The side that the last of the five value setters named; FRONT_AND_BACK when none was called.
  [[nodiscard]] SideEnum getSide() const { return m_side; }

  // Whether setColorMaterial was called, and what it was given last.
  [[nodiscard]] bool isColorMaterial() const { return m_isColorMaterial; }
  [[nodiscard]] SideEnum getColorMaterialSide() const { return m_colorMaterialSide; }
  [[nodiscard]] ColorMaterialModeEnum getColorMaterialMode() const { return m_colorMaterialMode; }

 protected:
  ~sglMaterial() override;

 private:
  struct Surface {
    sglVec3<float> diffuse;
    sglVec3<float> ambient;
    sglVec3<float> specular;
    float shininess = 0.0F;
    float alpha = 1.0F;
  };

  // Applies `set` to the surfaces that `side` names and keeps the side.
  template <class Set>
  void setOn(SideEnum side, Set set);

  Surface m_front;
  Surface m_back;
  SideEnum m_side = FRONT_AND_BACK;
  bool m_isColorMaterial = false;
  SideEnum m_colorMaterialSide = FRONT_AND_BACK;
  ColorMaterialModeEnum m_colorMaterialMode = AMBIENT_AND_DIFFUSE;
};
