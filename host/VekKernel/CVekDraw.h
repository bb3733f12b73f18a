#pragma once

// The drawing part of document objects: where they stand in their parent, and whether they show.

#include <VekFoundations/VekExport.h>
#include <VekGeometry/CVekFrame.h>
#include <VekSG/sglMat4.h>

class VEK_API CVekDraw {
 public:
  CVekDraw(const CVekDraw&) = delete;
  CVekDraw& operator=(const CVekDraw&) = delete;
  virtual ~CVekDraw();

  // From this object's coordinates to its parent's, row-vector convention.
  [[nodiscard]] const sglMat4<float>& GetMatLocalToParent() const { return m_frame.GetMatLocalToGlobal(); }
  void SetMatLocalToParent(const sglMat4<float>& matrix) { m_frame.SetMatLocalToGlobal(matrix); }

  // The same as a frame.
  [[nodiscard]] const CVekFrame& GetFrameInParent() const { return m_frame; }

  // Whether the object shows. True at first.
  [[nodiscard]] virtual bool IsDisplayed() const;
  void SetDisplayed(bool displayed) { m_displayed = displayed; }

 protected:
  CVekDraw() = default;

 private:
  CVekFrame m_frame;
  bool m_displayed = true;
};
