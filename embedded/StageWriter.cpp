// Writing stage documents. Nodes come from the walk: entering a group opens its object and its list of children,
// leaving it closes them.

#include <VekFoundations/CVekPropNumerical.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekGeometry/CVekPropLocation.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglTexture2D.h>

#include <filesystem>

#include "embedded/AssemblyWalk.h"
#include "embedded/DrawableText.h"
#include "embedded/JsonWriter.h"
#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "embedded/StageProperties.h"

namespace embedded {
namespace {

// A path as it is written in a document of that folder: relative if it leads to that folder or below, otherwise
// absolute, since the way up from a folder is not the way down to it where there are links.
std::string pathFrom(const std::string& folder, const std::string& path) {
  if (folder.empty() || path.empty() || isAbsolutePath(path)) return path;
  const auto whole = [](const std::string& name) {
    return std::filesystem::absolute(nativePath(name)).lexically_normal();
  };
  const std::filesystem::path relative = whole(path).lexically_relative(whole(folder + "/."));
  return relative.empty() || *relative.begin() == ".." ? whole(path).string() : relative.string();
}

class AssemblyWriter : public AssemblyVisitor {
 public:
  AssemblyWriter(JsonWriter& json, const std::string& folder) : m_json(json), m_folder(folder) {}

  bool enter(const CVekAssyNode* node, const glm::dmat4&) override {
    m_json.lineBreak();
    if (node == nullptr) {
      m_json.null();
      return false;
    }
    m_json.beginObject();
    m_json.key("type");
    m_json.text(typeOf(*node));
    m_json.key("name");
    m_json.text(node->GetName());
    if (const auto* actor = dynamic_cast<const CVekActor*>(node)) {
      writeActor(*actor);
      m_json.endObject();
      return false;
    }
    if (const auto* placed = dynamic_cast<const CVekKAssyGroup*>(node)) {
      m_json.key("matrix");
      writeMatrix(m_json, placed->GetMatLocalToParent());
    }
    m_json.key("children");
    m_json.beginList();
    return true;
  }

  void leave(const CVekAssyNode&) override {
    m_json.endList();
    m_json.endObject();
  }

 private:
  static std::string_view typeOf(const CVekAssyNode& node) {
    if (dynamic_cast<const CVekAssyRoot*>(&node) != nullptr) return "root";
    if (dynamic_cast<const CVekKAssyGroup*>(&node) != nullptr) return "group";
    if (dynamic_cast<const CVekActorMesh*>(&node) != nullptr) return "mesh";
    return dynamic_cast<const CVekActor*>(&node) != nullptr ? "actor" : "plainGroup";
  }

  void writeActor(const CVekActor& actor) {
    m_json.key("visible");
    m_json.boolean(actor.IsDisplayed());
    m_json.key("geode");
    writeGeode(dynamic_cast<const sglGeode*>(actor.GetPresentable()));
    if (const auto* path = propertyOf<CVekPropPath>(actor.GetProperties(), kMapPath)) {
      m_json.key("mapPath");
      m_json.text(pathFrom(m_folder, path->GetValue()));
    }
    if (const CVekTexture* texture = actor.GetTexture(0)) {
      m_json.key("texture");
      writeTexture(*texture);
    }
  }

  void writeGeode(const sglGeode* geode) {
    if (geode == nullptr) return m_json.null();
    m_json.beginObject();
    m_json.key("geometries");
    m_json.beginList();
    for (unsigned i = 0; i < geode->getNumGeometries(); ++i) {
      writeDrawable(m_json, geode->getGeometry(i), StatesKey::WithState);
    }
    m_json.endList();
    m_json.endObject();
  }

  void writeTexture(const CVekTexture& texture) {
    const auto* image = dynamic_cast<const sglTexture2D*>(texture.GetTexture());
    sglTexture2D::WrapEnum s = sglTexture2D::WRAP_CLAMP;
    sglTexture2D::WrapEnum t = sglTexture2D::WRAP_CLAMP;
    if (image != nullptr) image->getWrapMode(s, t);
    m_json.beginObject();
    m_json.key("repeatS");
    m_json.boolean(s == sglTexture2D::WRAP_REPEAT);
    m_json.key("repeatT");
    m_json.boolean(t == sglTexture2D::WRAP_REPEAT);
    m_json.key("matrix");
    writeMatrix(m_json, texture.GetTexMatrix());
    if (image == nullptr) {
      m_json.key("image");
      m_json.boolean(false);
    }
    m_json.endObject();
  }

  JsonWriter& m_json;
  const std::string& m_folder;
};

void writeCamera(JsonWriter& json, const CVekCamera* camera) {
  if (camera == nullptr) return json.null();
  json.beginObject();
  json.key("perspective");
  json.boolean(camera->IsPerspective());
  json.key("fov");
  json.wideNumber(camera->GetFOVPaper());
  json.key("frame");
  writeMatrix(json, camera->GetFrameInParent().GetMatLocalToGlobal());
  json.endObject();
}

void writeView(JsonWriter& json, const CVekView* view) {
  json.lineBreak();
  if (view == nullptr) return json.null();
  json.beginObject();
  json.key("name");
  json.text(view->GetName());
  const CVekPropertySet* properties = view->GetNavigatorProperties();
  if (properties == nullptr) {
    json.key("properties");
    json.boolean(false);
  }
  if (const auto* location = propertyOf<CVekPropLocation>(properties, kCameraLocation)) {
    json.key("frame");
    writeMatrix(json, location->GetValue().GetFrame().GetMatLocalToGlobal());
  }
  if (const auto* perspective = propertyOf<CVekProp<bool>>(properties, kCameraPerspective)) {
    json.key("perspective");
    json.boolean(perspective->GetValue());
  }
  if (const auto* fov = propertyOf<CVekPropNumerical<float>>(properties, kCameraFov)) {
    json.key("fov");
    json.number(fov->GetValue());
  }
  json.endObject();
}

void writeViews(JsonWriter& json, const CVekFList<CVekView>* views) {
  if (views == nullptr) return json.null();
  json.beginList();
  for (const CVekView* view : *views) writeView(json, view);
  json.endList();
}

void writeColor(JsonWriter& json, std::string_view key, const CVekColor& color) {
  json.key(key);
  json.beginList();
  for (unsigned channel = 0; channel < 3; ++channel) json.integer(color[channel]);
  json.endList();
}

void writeBackground(JsonWriter& json, const CVekRenderer& renderer) {
  json.key("background");
  json.beginObject();
  writeColor(json, "color", renderer.GetBkColor());
  writeColor(json, "floor", renderer.GetBkFootColor());
  json.endObject();
}

}  // namespace

void writeStageDocument(std::ostream& out, const CVekStager& stager, const std::string& folder) {
  JsonWriter json(out);
  const CVekAssyRoot* root = stager.GetSceneManager()->GetAssyRoot();
  const CVekViewport* viewport = stager.GetViewportManager()->GetViewportSelected();
  AssemblyWriter writer(json, folder);
  json.beginObject();
  json.key("assembly");
  if (root == nullptr) json.null();
  walkAssembly(root, writer);
  json.lineBreak();
  json.key("viewport");
  json.boolean(viewport != nullptr);
  if (viewport != nullptr) {
    json.lineBreak();
    json.key("camera");
    writeCamera(json, viewport->GetNavigator()->GetCamera());
  }
  json.lineBreak();
  json.key("views");
  writeViews(json, stager.GetViewportManager()->GetViews());
  json.lineBreak();
  if (viewport != nullptr) writeBackground(json, *viewport->GetRenderer());
  json.endObject();
  json.finish();
  out << '\n';
}

}  // namespace embedded
