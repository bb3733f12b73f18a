#pragma once

// HTML pages that show a model: everything is in the one file, so that it can be opened where there is no network.

#include <VekKernel/CVekStager.h>

#include <cstdint>
#include <glm/vec3.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/pictures/ViewDirection.h"

namespace embedded {

// A way to look at the model, in the coordinates of the assembly, which has z up.
struct PageView {
  std::string name;  // on its button
  EyeAxes axes{};
  std::optional<glm::dvec3> eye;  // absent: as near as it can be and still see all of the model
  bool isPerspective = true;      // a parallel view has no eye
  double fovRadians = 0.0;        // across the smaller side of the picture, above 0 and below pi
};

// What a page says of its model. Texts need not be UTF-8; none of them is taken as HTML.
struct PageContent {
  std::string title;
  std::string file;  // the name of the file that the model came from
  std::uint64_t triangleCount = 0;
  std::vector<std::string> messages;  // of the reader and of the writers
  std::vector<PageView> views;        // the page begins with the first one
};

// The views that every model has: the one that pictures are taken from when nothing is asked of them, and those of the
// named directions.
[[nodiscard]] std::vector<PageView> usualViews();

// The views that the application saved.
[[nodiscard]] std::vector<PageView> savedPageViews(const CVekStager& stager);

// A model as binary glTF that a browser can still hold as one text.
inline constexpr std::uint64_t kMostPageModelBytes = 256U << 20U;

// Writes a page: the template with what belongs in the place of its marks. `glb` is the model as binary glTF. Whether
// all of it could be written is to be asked of the stream.
void writePage(std::string_view pageTemplate, const PageContent& content, std::string_view glb, std::ostream& out);

}  // namespace embedded
