#pragma once

// What a world says for its visitors, of which the scene that the module makes keeps nothing: its title, and where to
// look from.

#include <cstddef>
#include <string>
#include <vector>

#include "embedded/pages/Page.h"
#include "tools/wrl/HostOptions.h"
#include "vrml/nodes/Node.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

/// What a viewpoint is known by: its description, without one its DEF name, "" when it has neither.
[[nodiscard]] std::string viewpointName(const vrml::Node& viewpoint);

struct WorldViews {
  std::string title;  // of the first WorldInfo that has one
  std::vector<embedded::PageView> views;
};

/// The title of a world and its first `mostViews` viewpoints in the order of the file; where each stands by the
/// Transforms around it. `up` is the axis that is up in the world. A viewpoint without finite numbers is left out.
[[nodiscard]] WorldViews worldViewsOf(const vrml::SceneGraph& scene, embedded::UpAxis up, std::size_t mostViews);

/// The same of a file that the module has just loaded; "-" is standard input.
[[nodiscard]] WorldViews readWorldViews(const std::string& file, const HostOptions& options, std::size_t mostViews);

}  // namespace wrl
