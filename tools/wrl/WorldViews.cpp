// The axes of a viewpoint's eye go through the matrices of the Transforms like directions, and are set upright again
// behind a scale that bent them.

#include "tools/wrl/WorldViews.h"

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <numbers>
#include <optional>

#include "embedded/meshes/UprightTurn.h"
#include "tools/wrl/FileReading.h"
#include "tools/wrl/Input.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/nodes/TransformNode.h"
#include "vrml/nodes/ViewpointNode.h"
#include "vrml/nodes/WorldInfoNode.h"

namespace wrl {

namespace {

// From the coordinates of a node to those of the file.
glm::dmat4 placementOf(const vrml::Node& node) {
  glm::dmat4 placement(1.0);
  for (const vrml::Node* outer = node.getParent(); outer != nullptr; outer = outer->getParent()) {
    const auto* transform = dynamic_cast<const vrml::TransformNode*>(outer);
    if (transform == nullptr) continue;
    // Row by row for row vectors is column by column for column vectors.
    double matrix[16];
    transform->getMatrix(matrix);
    placement = glm::make_mat4(matrix) * placement;
  }
  return placement;
}

bool isFinite(const glm::dvec3& vector) {
  return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

glm::dmat4 turnOf(const vrml::ViewpointNode& viewpoint) {
  const auto& orientation = viewpoint.getOrientation().getValue();
  const glm::dvec3 axis(orientation[0], orientation[1], orientation[2]);
  const double length = glm::length(axis);
  if (!(length > 0.0)) return glm::dmat4(1.0);
  return glm::rotate(glm::dmat4(1.0), static_cast<double>(orientation[3]), axis / length);
}

double fovOf(const vrml::ViewpointNode& viewpoint) {
  constexpr double kUsual = std::numbers::pi / 4.0;
  const auto fov = static_cast<double>(viewpoint.getFieldOfView());
  return fov > 0.0 && fov < std::numbers::pi * 0.99 ? fov : kUsual;
}

std::optional<embedded::PageView> viewOf(const vrml::ViewpointNode& viewpoint, const glm::dmat4& turn) {
  const auto& position = viewpoint.getPosition().getValue();
  const glm::dmat4 placement = turn * placementOf(viewpoint);
  const glm::dmat4 axes = placement * turnOf(viewpoint);
  embedded::PageView view;
  view.eye = glm::dvec3(placement * glm::dvec4(position[0], position[1], position[2], 1.0));
  view.axes.back = glm::normalize(glm::dvec3(axes[2]));
  view.axes.right = glm::normalize(glm::cross(glm::dvec3(axes[1]), view.axes.back));
  view.axes.up = glm::cross(view.axes.back, view.axes.right);
  view.fovRadians = fovOf(viewpoint);
  if (!isFinite(*view.eye) || !isFinite(view.axes.back) || !isFinite(view.axes.right)) return std::nullopt;
  return view;
}

}  // namespace

std::string viewpointName(const vrml::Node& viewpoint) {
  std::string description;
  viewpoint.peekField(*viewpoint.getClass().findField(vrml::fieldKey("description"))).appendText(description);
  return description.empty() ? viewpoint.getName() : description;
}

WorldViews worldViewsOf(const vrml::SceneGraph& scene, embedded::UpAxis up, std::size_t mostViews) {
  const glm::dmat4 turn = up == embedded::UpAxis::Y ? embedded::kYToZ : glm::dmat4(1.0);
  WorldViews world;
  std::size_t number = 0;
  const vrml::Node* const root = scene.getRoot();
  for (const vrml::Node* node = root->nextInDocument(root); node != nullptr; node = node->nextInDocument(root)) {
    if (const auto* info = dynamic_cast<const vrml::WorldInfoNode*>(node)) {
      if (world.title.empty()) world.title = info->getTitle();
    } else if (const auto* viewpoint = dynamic_cast<const vrml::ViewpointNode*>(node)) {
      if (++number > mostViews) continue;
      std::optional<embedded::PageView> view = viewOf(*viewpoint, turn);
      if (!view) continue;
      view->name = viewpointName(*viewpoint);
      if (view->name.empty()) view->name = "Viewpoint " + std::to_string(number);
      world.views.push_back(std::move(*view));
    }
  }
  return world;
}

WorldViews readWorldViews(const std::string& file, const HostOptions& options, std::size_t mostViews) {
  vrml::SceneGraph scene;
  readAgain(scene, inputPath(file).path, options);
  return worldViewsOf(scene, options.up.value_or(embedded::UpAxis::Y), mostViews);
}

}  // namespace wrl
