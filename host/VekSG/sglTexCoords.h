#pragma once

// Texture coordinates of a drawable's state.

#include <VekSG/sglDataPtr.h>
#include <VekSG/sglRef.h>

// A value: copies share the array.
class VEK_API sglTexCoords {
 public:
  // The kind of number in the array, an OpenGL number.
  enum TypeEnum : unsigned {
    FLOAT = 0x1406,  // 32-bit floats
  };

  // No coordinates.
  sglTexCoords() = default;

  // Takes a reference on `data`, which may be null. `components` numbers of the type make one coordinate; `stride` is
  // the distance in bytes from one to the next, 0 when they are tightly packed.
  sglTexCoords(sglDataPtr* data, TypeEnum type, unsigned components, unsigned stride = 0)
      : m_data(data), m_type(type), m_components(components), m_stride(stride) {}

  // Whether there are coordinates of two tightly packed floats each to be read.
  [[nodiscard]] bool isValid() const {
    return m_data && m_data->getFloats() != nullptr && m_type == FLOAT && m_components == 2 && m_stride == 0;
  }

  // The array, null when there is none.
  [[nodiscard]] sglDataPtr* getDataPtr() const { return m_data.get(); }

  [[nodiscard]] TypeEnum getType() const { return m_type; }
  [[nodiscard]] unsigned getNumComponents() const { return m_components; }

 private:
  sglRef<sglDataPtr> m_data;
  TypeEnum m_type = FLOAT;
  unsigned m_components = 0;
  unsigned m_stride = 0;
};
