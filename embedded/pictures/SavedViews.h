#pragma once

// The application's saved views, as eyes of pictures.

#include <VekKernel/CVekStager.h>

#include <string>
#include <vector>

#include "embedded/pictures/PictureCamera.h"

namespace embedded {

struct SavedView {
  std::string name;
  const CVekView* view = nullptr;  // never null; it stays the stager's
};

// The views that say where they look from, in their order.
[[nodiscard]] std::vector<SavedView> savedViews(const CVekStager& stager);

// The axes of a view's eye; those of the default direction where the view's own are not three directions.
[[nodiscard]] EyeAxes axesOf(const CVekView& view);

// A view's camera. One that lacks a usable field of view has that of a new host camera. A parallel one, of which a view
// keeps no size, sees all of the box.
[[nodiscard]] PictureCamera cameraOf(const CVekView& view, const PictureBox& box, double aspect);

}  // namespace embedded
