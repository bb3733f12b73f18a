#pragma once

// Base of the drawables that are made of points.

#include <VekSG/sglDataPtr.h>
#include <VekSG/sglDrawable.h>
#include <VekSG/sglRef.h>

// Lists are shared: a setter takes a reference, and one list may serve many drawables. Any list may be null or shorter
// than the counts and indices say; whoever reads looks at getCount().
class VEK_API sglGeoSet : public sglDrawable {
 public:
  // The kind of primitive.
  enum PrimTypeEnum : unsigned {
    PRIM_OTHER = 0,                             // none of the triangle kinds below
    PRIM_TRIANGLE_SET = 3,                      // sglTriangleSet
    PRIM_INDEXED_TRIANGLE_SET = 12,             // sglIndexedTriangleSet
    PRIM_INDEXED_TRIANGLE_STRIP_SET = 14,       // sglIndexedTriangleStripSet
    PRIM_MONO_INDEXED_TRIANGLE_STRIP_SET = 23,  // sglMonoIndexedTriangleStripSet
  };

  // What one value of a list belongs to.
  enum BindingEnum : unsigned {
    BIND_OFF = 0,         // the list is not used
    BIND_OVERALL = 1,     // the whole drawable
    BIND_PER_PRIM = 2,    // a triangle or a strip
    BIND_PER_VERTEX = 3,  // a corner, through the index list where the kind has one
  };

  ~sglGeoSet() override;

  // The kind's code.
  [[nodiscard]] virtual PrimTypeEnum getPrimType() const = 0;

  // The number of primitives: triangles of a triangle set, strips of a strip set.
  void setNumPrims(unsigned count) { m_numPrims = count; }
  [[nodiscard]] unsigned getNumPrims() const { return m_numPrims; }

  // Positions, 3 floats each, tightly packed. Null takes the list away.
  void setCoordList(sglDataPtr* list) { m_coords = list; }
  [[nodiscard]] sglDataPtr* getCoordList() const { return m_coords.get(); }

  // Normals, 3 floats each, and what each belongs to.
  void setNormalList(sglDataPtr* list, BindingEnum binding) {
    m_normals = list;
    m_normalBinding = binding;
  }
  [[nodiscard]] sglDataPtr* getNormalList() const { return m_normals.get(); }
  [[nodiscard]] BindingEnum getNormalBinding() const { return m_normalBinding; }

  // Colours, 4 floats red, green, blue, alpha each, 0 to 1, and what each belongs to.
  void setColorList(sglDataPtr* list, BindingEnum binding) {
    m_colors = list;
    m_colorBinding = binding;
  }
  [[nodiscard]] sglDataPtr* getColorList() const { return m_colors.get(); }
  [[nodiscard]] BindingEnum getColorBinding() const { return m_colorBinding; }

 protected:
  sglGeoSet() = default;

 private:
  sglRef<sglDataPtr> m_coords;
  sglRef<sglDataPtr> m_normals;
  sglRef<sglDataPtr> m_colors;
  unsigned m_numPrims = 0;
  BindingEnum m_normalBinding = BIND_OFF;
  BindingEnum m_colorBinding = BIND_OFF;
};
