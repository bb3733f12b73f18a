// The camera depends on the box, the box on how billboards turn, and that on the camera. So billboards first turn to an
// eye that is far away, which gives the camera, and then to that camera's eye.

#include "embedded/pictures/PictureTaking.h"

#include <glm/gtc/constants.hpp>
#include <glm/gtc/matrix_transform.hpp>

#include "embedded/pictures/SavedViews.h"

namespace embedded {
namespace {

EyeAxes axesOfView(const PictureView& view) {
  if (const auto* direction = std::get_if<ViewDirection>(&view)) return axesOf(*direction);
  return axesOf(*std::get<const CVekView*>(view));
}

PictureCamera cameraOfView(const PictureView& view, const PictureBox& box, double aspect) {
  if (const auto* direction = std::get_if<ViewDirection>(&view)) return fitCamera(*direction, box, aspect);
  return cameraOf(*std::get<const CVekView*>(view), box, aspect);
}

void fill(DrawList& list, const PictureSubject& subject) {
  // Takes the turn back by which a scene's loader set the y axis upright.
  const glm::dmat4 unturned = glm::rotate(glm::dmat4(1.0), -glm::half_pi<double>(), glm::dvec3(1.0, 0.0, 0.0));
  list.addScene(subject.scene, subject.sceneUp == UpAxis::Y ? glm::dmat4(1.0) : unturned);
  list.addAssembly(subject.assembly);
}

}  // namespace

PictureResult takePicture(const PictureSubject& subject, const PictureView& view, const PictureFormat& format,
                          bool readsImages) {
  PictureResult result;
  const EyeAxes axes = axesOfView(view);
  DrawList list({glm::dvec4(axes.back, 0.0), axes.up}, readsImages);
  fill(list, subject);
  const PictureBox box = list.bounds();
  result.isEmpty = box.isEmpty();
  const PictureCamera camera = cameraOfView(view, box, format.aspect());
  if (!list.hasBillboards()) {
    result.error = drawPicture(list, box, camera, format, result.raster);
    return result;
  }
  DrawList turned({viewpointOf(camera), camera.axes.up}, readsImages);
  fill(turned, subject);
  result.error = drawPicture(turned, turned.bounds(), camera, format, result.raster);
  return result;
}

}  // namespace embedded
