#pragma once

// From a scene or an assembly to a picture of it.

#include <VekKernel/CVekAssyNode.h>
#include <VekKernel/CVekView.h>
#include <VekSG/sglNode.h>

#include <string>
#include <variant>

#include "embedded/UpAxis.h"
#include "embedded/pictures/Picture.h"
#include "embedded/pictures/ViewDirection.h"

namespace embedded {

// What is in the picture; both may be null.
struct PictureSubject {
  const sglNode* scene = nullptr;
  UpAxis sceneUp = UpAxis::Y;  // the axis that points up in the scene's file, where the scene took that for Y
  const CVekAssyNode* assembly = nullptr;
};

// Where it is seen from: a direction from which all of it shows, or a saved view, which must say where it looks from.
using PictureView = std::variant<ViewDirection, const CVekView*>;

struct PictureResult {
  Raster raster;         // three channels
  bool isEmpty = false;  // there was nothing to draw but the background
  std::string error;     // why there is no picture, "" when there is one
};

// `readsImages`: whether the image files that an assembly names are read. One call at a time.
[[nodiscard]] PictureResult takePicture(const PictureSubject& subject, const PictureView& view,
                                        const PictureFormat& format, bool readsImages);

}  // namespace embedded
