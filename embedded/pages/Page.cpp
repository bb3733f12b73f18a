// The marks stand in the template in the order of the document, and each piece between them goes out as it is. Inside
// the page glTF's y is up.

#include "embedded/pages/Page.h"

#include <algorithm>
#include <array>
#include <glm/mat3x3.hpp>
#include <sstream>

#include "embedded/JsonWriter.h"
#include "embedded/Utf8.h"
#include "embedded/meshes/UprightTurn.h"
#include "embedded/pages/Base64.h"
#include "embedded/pictures/Picture.h"
#include "embedded/pictures/PictureCamera.h"
#include "embedded/pictures/SavedViews.h"

namespace embedded {
namespace {

// A text inside an element or a quoted attribute.
std::string escapedText(const std::string& text) {
  std::string escaped;
  for (const char c : wellFormedUtf8(text)) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&#39;";
        break;
      default:
        escaped += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  }
  return escaped;
}

void writeVector(JsonWriter& json, const glm::dvec3& vector) {
  for (int i = 0; i < 3; ++i) json.wideNumber(vector[i]);
}

void writeView(JsonWriter& json, const PageView& view) {
  const glm::dmat3 zToY(glm::transpose(kYToZ));
  json.beginObject();
  json.key("name");
  json.text(view.name);
  json.key("axes");
  json.beginList();
  for (const glm::dvec3& axis : {view.axes.right, view.axes.up, view.axes.back}) writeVector(json, zToY * axis);
  json.endList();
  json.key("eye");
  if (view.eye) {
    json.beginList();
    writeVector(json, zToY * *view.eye);
    json.endList();
  } else {
    json.null();
  }
  json.key("parallel");
  json.boolean(!view.isPerspective);
  json.key("fov");
  json.wideNumber(view.fovRadians);
  json.endObject();
}

std::string contentText(const PageContent& content) {
  std::ostringstream text;
  {
    JsonWriter json(text);
    json.beginObject();
    json.key("file");
    json.text(content.file);
    json.key("triangles");
    json.integer(static_cast<std::int64_t>(content.triangleCount));
    json.key("messages");
    json.beginList();
    for (const std::string& message : content.messages) json.text(message);
    json.endList();
    json.key("background");
    json.beginList();
    for (const std::uint8_t channel : PictureFormat().background) json.integer(channel);
    json.endList();
    json.key("views");
    json.beginList();
    for (const PageView& view : content.views) writeView(json, view);
    json.endList();
    json.endObject();
  }
  return std::move(text).str();
}

// JSON inside a script element, which a text in it must not end. Outside of texts JSON knows no such sign.
std::string escapedJson(const std::string& json) {
  std::string escaped;
  for (const char c : json) c == '<' ? escaped += "\\u003c" : escaped += c;
  return escaped;
}

double usualFov() { return fitCamera(defaultDirection(), PictureBox(), 1.0).fovRadians; }

PageView viewFrom(std::string name, const ViewDirection& direction) {
  PageView view{std::move(name), axesOf(direction), std::nullopt, true, usualFov()};
  if (!view.name.empty() && view.name[0] >= 'a' && view.name[0] <= 'z') view.name[0] -= 'a' - 'A';
  return view;
}

}  // namespace

std::vector<PageView> usualViews() {
  std::vector<PageView> views = {viewFrom("overview", defaultDirection())};
  for (const NamedDirection& named : namedDirections()) {
    views.push_back(viewFrom(std::string(named.name), named.direction));
  }
  return views;
}

std::vector<PageView> savedPageViews(const CVekStager& stager) {
  std::vector<PageView> views;
  for (const SavedView& saved : savedViews(stager)) {
    const PictureCamera camera = cameraOf(*saved.view, PictureBox(), 1.0);
    PageView view{saved.name, camera.axes, std::nullopt, camera.isPerspective, usualFov()};
    if (camera.isPerspective) {
      view.eye = camera.eye;
      view.fovRadians = camera.fovRadians;
    }
    views.push_back(std::move(view));
  }
  return views;
}

void writePage(std::string_view pageTemplate, const PageContent& content, std::string_view glb, std::ostream& out) {
  const std::string title = escapedText(content.title);
  while (true) {
    const std::size_t mark = pageTemplate.find("{{");
    out << pageTemplate.substr(0, mark);
    if (mark == std::string_view::npos) return;
    pageTemplate.remove_prefix(mark);
    const auto isMark = [&pageTemplate](std::string_view name) {
      const bool isHere = pageTemplate.starts_with(name);
      if (isHere) pageTemplate.remove_prefix(name.size());
      return isHere;
    };
    if (isMark("{{title}}")) {
      out << title;
    } else if (isMark("{{content}}")) {
      out << escapedJson(contentText(content));
    } else if (isMark("{{model}}")) {
      writeBase64(glb, out);
    } else {
      out << pageTemplate.substr(0, 1);
      pageTemplate.remove_prefix(1);
    }
  }
}

}  // namespace embedded
