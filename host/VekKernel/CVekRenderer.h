#pragma once

// What draws a viewport.

#include <VekFoundations/CVekColor.h>
#include <VekFoundations/VekExport.h>

class VEK_API CVekRenderer {
 public:
  // Black over black.
  CVekRenderer();
  CVekRenderer(const CVekRenderer&) = delete;
  CVekRenderer& operator=(const CVekRenderer&) = delete;
  virtual ~CVekRenderer();

  // The background's colour.
  [[nodiscard]] const CVekColor& GetBkColor() const { return m_bkColor; }
  void SetBkColor(const CVekColor& color) { m_bkColor = color; }

  // The colour at the background's foot.
  [[nodiscard]] const CVekColor& GetBkFootColor() const { return m_bkFootColor; }
  void SetBkFootColor(const CVekColor& color) { m_bkFootColor = color; }

 private:
  CVekColor m_bkColor;
  CVekColor m_bkFootColor;
};
