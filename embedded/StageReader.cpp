// Reading stage documents. Only the assembly nests as deep as it likes: the objects that are open in it lie on a list,
// and one is made into a host node when it ends. Children end before their parents and in their own order, so that
// identities, which order them, rise as the document wants. Everything else nests a few levels and is read by plain
// functions.

#include <VekFoundations/CVekPropNumerical.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekGeometry/CVekPropLocation.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglTexture2D.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

#include "embedded/AssemblyBuilder.h"
#include "embedded/AssemblyWalk.h"
#include "embedded/DrawableReader.h"
#include "embedded/Paths.h"
#include "embedded/StageDocument.h"
#include "embedded/StageProperties.h"

namespace embedded {
namespace {

using Kind = JsonReader::Kind;
using OwnedNode = std::unique_ptr<CVekAssyNode>;

bool takeIfNull(JsonReader& json) {
  if (json.kind() != Kind::Null) return false;
  json.takeNull();
  return true;
}

void setProperty(CVekPropertySet& set, const char* name, std::unique_ptr<CVekProperty> property) {
  set.SetProperty(GetPropIDServer().GetID(name), std::move(property));
}

// What an assembly node's object may hold.
struct NodeRecord {
  std::string type;
  std::vector<std::string> keys;
  std::string name;
  sglMat4<float> matrix;
  std::vector<OwnedNode> children;
  bool visible = true;
  std::unique_ptr<sglGeode> geode;
  std::optional<std::string> mapPath;
  std::unique_ptr<CVekTexture> texture;
};

class AssemblyReader {
 public:
  AssemblyReader(JsonReader& json, const std::string& folder) : m_json(json), m_folder(folder) {}

  // Takes a node and what is under it.
  OwnedNode take() {
    open();
    for (;;) {
      if (m_isInChildren.back()) {
        if (!m_json.nextItem()) {
          m_isInChildren.back() = false;
        } else if (takeIfNull(m_json)) {
          m_records.back().children.push_back(nullptr);
        } else {
          open();
        }
        continue;
      }
      if (takeKey()) continue;
      OwnedNode node = close();
      if (m_records.empty()) return node;
      m_records.back().children.push_back(std::move(node));
    }
  }

 private:
  void open() {
    m_json.enterObject();
    m_records.emplace_back();
    m_isInChildren.push_back(false);
  }

  // Takes the open object's next key, and its value unless that is a list of children; false at the object's end.
  bool takeKey() {
    std::string key;
    if (!m_json.nextKey(key)) return false;
    NodeRecord& record = m_records.back();
    if (std::find(record.keys.begin(), record.keys.end(), key) != record.keys.end()) {
      m_json.fail("the key \"" + key + "\" comes twice");
    }
    record.keys.push_back(key);
    if (key == "children") {
      m_json.enterList();
      m_isInChildren.back() = true;
    } else if (!takeValue(key, record)) {
      m_json.fail("unknown key \"" + key + "\"");
    }
    return true;
  }

  bool takeValue(const std::string& key, NodeRecord& record) {
    if (key == "type") {
      record.type = m_json.takeText();
    } else if (key == "name") {
      record.name = m_json.takeText();
    } else if (key == "matrix") {
      record.matrix = takeMatrix(m_json);
    } else if (key == "visible") {
      record.visible = m_json.takeBoolean();
    } else if (key == "geode") {
      record.geode = takeGeode();
    } else if (key == "mapPath") {
      record.mapPath = takePath();
    } else if (key == "texture") {
      record.texture = takeTexture();
    } else {
      return false;
    }
    return true;
  }

  std::string takePath() {
    std::string path = m_json.takeText();
    // The disk would take it for the name of another file.
    if (path.find('\0') != std::string::npos) m_json.fail("a path without a zero character is expected");
    return path;
  }

  std::unique_ptr<sglGeode> takeGeode() {
    if (takeIfNull(m_json)) return nullptr;
    auto geode = std::make_unique<sglGeode>();
    takeObject(m_json, [&](std::string_view key) {
      if (key != "geometries") return false;
      m_json.enterList();
      while (m_json.nextItem()) geode->addGeometry(takeDrawable(m_json).release());
      return true;
    });
    return geode;
  }

  std::unique_ptr<CVekTexture> takeTexture() {
    bool repeatS = false;
    bool repeatT = false;
    bool hasImage = true;
    auto texture = std::make_unique<CVekTexture>();
    takeObject(m_json, [&](std::string_view key) {
      if (key == "repeatS") {
        repeatS = m_json.takeBoolean();
      } else if (key == "repeatT") {
        repeatT = m_json.takeBoolean();
      } else if (key == "matrix") {
        texture->SetTexMatrix(takeMatrix(m_json));
      } else if (key == "image") {
        hasImage = m_json.takeBoolean();
      } else {
        return false;
      }
      return true;
    });
    if (hasImage) {
      const sglRef<sglTexture2D> image(new sglTexture2D);
      image->setWrapMode(repeatS ? sglTexture2D::WRAP_REPEAT : sglTexture2D::WRAP_CLAMP,
                         repeatT ? sglTexture2D::WRAP_REPEAT : sglTexture2D::WRAP_CLAMP);
      texture->SetTexture(image.get());
    }
    return texture;
  }

  OwnedNode close() {
    NodeRecord record = std::move(m_records.back());
    m_records.pop_back();
    m_isInChildren.pop_back();
    if (record.type == "root") return makeGroup<CVekAssyRoot>(record);
    if (record.type == "group") return makeGroup<CVekKAssyGroup>(record);
    if (record.type == "plainGroup") return makePlainGroup(record);
    if (record.type == "mesh") return makeActor<CVekActorMesh>(record);
    if (record.type == "actor") return makeActor<CVekActor>(record);
    m_json.fail(record.type.empty() ? "the key \"type\" is missing" : "unknown type \"" + record.type + "\"");
  }

  static void addChildren(NodeRecord& record, CVekAssyGroup& group) {
    group.SetName(record.name);
    for (OwnedNode& child : record.children) group.AddChild(child.release());
  }

  template <class Group>
  OwnedNode makeGroup(NodeRecord& record) {
    checkKeys(m_json, record.keys, record.type, {"name", "matrix", "children"});
    auto group = std::make_unique<Group>();
    group->SetMatLocalToParent(record.matrix);
    addChildren(record, *group);
    return group;
  }

  OwnedNode makePlainGroup(NodeRecord& record) {
    checkKeys(m_json, record.keys, record.type, {"name", "children"});
    auto group = std::make_unique<CVekAssyGroup>();
    addChildren(record, *group);
    return group;
  }

  template <class Actor>
  OwnedNode makeActor(NodeRecord& record) {
    checkKeys(m_json, record.keys, record.type, {"name", "visible", "geode", "mapPath", "texture"});
    auto actor = std::make_unique<Actor>();
    actor->SetName(record.name);
    actor->SetDisplayed(record.visible);
    actor->SetPresentable(record.geode.release());
    actor->SetTexture(0, std::move(record.texture));
    if (record.mapPath) {
      setProperty(*actor->GetProperties(), kMapPath, std::make_unique<CVekPropPath>(resolved(*record.mapPath)));
    }
    return actor;
  }

  std::string resolved(const std::string& path) const {
    const bool isAsItStands = path.empty() || m_folder.empty() || isAbsolutePath(path);
    return isAsItStands ? path : m_folder + (m_folder.back() == '/' ? "" : "/") + path;
  }

  JsonReader& m_json;
  const std::string& m_folder;
  std::vector<NodeRecord> m_records;  // the open objects
  std::vector<bool> m_isInChildren;   // whether the reader is in the list of children of each
};

CVekFrame takeFrame(JsonReader& json) {
  CVekFrame frame;
  frame.SetMatLocalToGlobal(takeMatrix(json));
  return frame;
}

std::unique_ptr<CVekCamera> takeCamera(JsonReader& json) {
  if (takeIfNull(json)) return nullptr;
  auto camera = std::make_unique<CVekCamera>();
  camera->SetFOVPaper(0.0);
  takeObject(json, [&](std::string_view key) {
    if (key == "perspective") {
      camera->SetPerspective(json.takeBoolean());
    } else if (key == "fov") {
      camera->SetFOVPaper(json.takeDouble());
    } else if (key == "frame") {
      camera->SetMatLocalToParent(takeMatrix(json));
    } else {
      return false;
    }
    return true;
  });
  return camera;
}

std::unique_ptr<CVekView> takeView(JsonReader& json) {
  if (takeIfNull(json)) return nullptr;
  auto view = std::make_unique<CVekView>();
  auto properties = std::make_unique<CVekPropertySet>();
  bool hasProperties = true;
  takeObject(json, [&](std::string_view key) {
    if (key == "name") {
      view->SetName(json.takeText());
    } else if (key == "frame") {
      setProperty(*properties, kCameraLocation, std::make_unique<CVekPropLocation>(CVekLocation(takeFrame(json))));
    } else if (key == "perspective") {
      setProperty(*properties, kCameraPerspective, std::make_unique<CVekProp<bool>>(json.takeBoolean()));
    } else if (key == "fov") {
      setProperty(*properties, kCameraFov, std::make_unique<CVekPropNumerical<float>>(json.takeFloat()));
    } else if (key == "properties") {
      hasProperties = json.takeBoolean();
    } else {
      return false;
    }
    return true;
  });
  if (hasProperties) view->SetNavigatorProperties(std::move(properties));
  return view;
}

CVekColor takeColor(JsonReader& json) {
  CVekColor color;
  unsigned channel = 0;
  json.enterList();
  while (json.nextItem()) {
    const auto value = static_cast<std::uint8_t>(json.takeInteger(0, 255));
    if (channel < 3) color[channel] = value;
    ++channel;
  }
  if (channel != 3) json.fail("a list of 3 numbers is expected");
  return color;
}

class StageReader {
 public:
  StageReader(std::string_view text, const std::string& folder) : m_json(text), m_folder(folder) {}

  std::unique_ptr<CVekStager> read() {
    takeObject(m_json, [this](std::string_view key) { return takeValue(key); });
    m_json.finish();
    m_stager->GetSceneManager()->SetAssyRoot(std::move(m_assembly));
    if (m_hasViewport) addViewport();
    return std::move(m_stager);
  }

 private:
  bool takeValue(std::string_view key) {
    if (key == "assembly") {
      takeAssembly();
    } else if (key == "viewport") {
      m_hasViewport = m_json.takeBoolean();
    } else if (key == "camera") {
      m_hasCamera = true;
      m_camera = takeCamera(m_json);
    } else if (key == "views") {
      takeViews();
    } else if (key == "background") {
      takeBackground();
    } else {
      return false;
    }
    return true;
  }

  void takeAssembly() {
    if (takeIfNull(m_json)) return;
    OwnedNode node = AssemblyReader(m_json, m_folder).take();
    auto* root = dynamic_cast<CVekAssyRoot*>(node.get());
    if (root == nullptr) m_json.fail("the assembly's type is not \"root\"");
    static_cast<void>(node.release());
    m_assembly.reset(root);
  }

  void takeViews() {
    CVekViewportManager& manager = *m_stager->GetViewportManager();
    if (takeIfNull(m_json)) return manager.RemoveViewList();
    m_json.enterList();
    while (m_json.nextItem()) manager.AddView(takeView(m_json));
  }

  void takeBackground() {
    takeObject(m_json, [this](std::string_view key) {
      if (key == "color") {
        m_color = takeColor(m_json);
      } else if (key == "floor") {
        m_floor = takeColor(m_json);
      } else {
        return false;
      }
      return true;
    });
  }

  void addViewport() {
    auto viewport = std::make_unique<CVekViewport>();
    if (!m_hasCamera) m_camera = cameraForBox(assemblyBounds(m_stager->GetSceneManager()->GetAssyRoot()));
    viewport->GetNavigator()->SetCamera(std::move(m_camera));
    viewport->GetRenderer()->SetBkColor(m_color);
    viewport->GetRenderer()->SetBkFootColor(m_floor);
    m_stager->GetViewportManager()->SetViewportSelected(std::move(viewport));
  }

  JsonReader m_json;
  const std::string& m_folder;
  std::unique_ptr<CVekStager> m_stager = std::make_unique<CVekStager>();
  std::unique_ptr<CVekAssyRoot> m_assembly;
  std::unique_ptr<CVekCamera> m_camera;
  bool m_hasCamera = false;
  bool m_hasViewport = true;
  CVekColor m_color;
  CVekColor m_floor;
};

}  // namespace

std::unique_ptr<CVekStager> readStageDocument(std::string_view text, const std::string& folder, StageError& error) {
  try {
    return StageReader(text, folder).read();
  } catch (const JsonError& problem) {
    error = {problem.line(), problem.what()};
    return nullptr;
  }
}

std::unique_ptr<CVekStager> readStageFile(const std::string& path, StageError& error) {
  std::ifstream file(path, std::ios::binary);
  std::string text;
  if (file && file.peek() != std::ifstream::traits_type::eof()) {
    text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  if (!file.is_open() || file.bad()) {
    error = {0, "the file cannot be read"};
    return nullptr;
  }
  return readStageDocument(text, folderOf(path), error);
}

}  // namespace embedded
