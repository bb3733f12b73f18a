// The scene document. Nodes come from the walk, so that a scene of any depth is written without nesting calls: entering
// a group opens its object and its list of children, leaving it closes them.

#include "embedded/SceneDocument.h"

#include <VekSG/sglBillboard.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTransform.h>

#include "embedded/DrawableText.h"
#include "embedded/JsonWriter.h"
#include "embedded/SceneWalk.h"

namespace embedded {
namespace {

class NodeWriter : public SceneVisitor {
 public:
  explicit NodeWriter(JsonWriter& json) : m_json(json) {}

  bool enter(const sglNode& node, const glm::dmat4&) override {
    m_json.lineBreak();
    m_json.beginObject();
    m_json.key("type");
    const auto* geode = dynamic_cast<const sglGeode*>(&node);
    if (geode != nullptr) {
      writeGeode(*geode);
      return false;
    }
    writeGroup(node);
    m_json.key("children");
    m_json.beginList();
    return true;
  }

  void leave(const sglNode&) override {
    m_json.endList();
    m_json.endObject();
  }

 private:
  void writeName(const sglNode& node) {
    m_json.key("name");
    m_json.text(node.getName());
  }

  void writeGeode(const sglGeode& geode) {
    m_json.text("sglGeode");
    writeName(geode);
    m_json.key("geometries");
    m_json.beginList();
    for (unsigned i = 0; i < geode.getNumGeometries(); ++i) {
      writeDrawable(m_json, geode.getGeometry(i), StatesKey::Always);
    }
    m_json.endList();
    m_json.endObject();
  }

  void writeGroup(const sglNode& node) {
    if (const auto* transform = dynamic_cast<const sglTransform<float>*>(&node)) {
      m_json.text("sglTransform");
      writeName(node);
      m_json.key("matrix");
      writeMatrix(m_json, transform->getMatrix());
    } else if (const auto* lod = dynamic_cast<const sglLOD*>(&node)) {
      m_json.text("sglLOD");
      writeName(node);
      writeRanges(*lod);
    } else if (const auto* selector = dynamic_cast<const sglSwitch*>(&node)) {
      m_json.text("sglSwitch");
      writeName(node);
      m_json.key("selected");
      m_json.integer(selector->getSelectedChild());
    } else if (const auto* billboard = dynamic_cast<const sglBillboard*>(&node)) {
      m_json.text("sglBillboard");
      writeName(node);
      writeBillboard(*billboard);
    } else {
      m_json.text("sglGroup");
      writeName(node);
    }
  }

  void writeRanges(const sglLOD& lod) {
    m_json.key("ranges");
    m_json.beginList();
    for (unsigned i = 0; i < lod.getNumRanges(); ++i) m_json.number(lod.getRange(i));
    m_json.endList();
  }

  void writeBillboard(const sglBillboard& billboard) {
    const sglVec3<double>& axis = billboard.getAxis();
    const float values[] = {static_cast<float>(axis.x), static_cast<float>(axis.y), static_cast<float>(axis.z)};
    m_json.key("axis");
    m_json.numbers(values);
    m_json.key("mode");
    m_json.integer(billboard.getMode());
  }

  JsonWriter& m_json;
};

}  // namespace

void writeSceneDocument(std::ostream& out, const sglNode* scene, std::span<const Message> messages) {
  JsonWriter json(out);
  json.beginObject();
  json.key("scene");
  NodeWriter writer(json);
  if (scene == nullptr) json.null();
  walkScene(scene, SceneChoice::Everything, writer);
  json.lineBreak();
  json.key("messages");
  json.beginList();
  for (const Message& message : messages) {
    json.lineBreak();
    json.beginObject();
    json.key("level");
    json.integer(message.level);
    json.key("text");
    json.text(message.text);
    json.endObject();
  }
  json.endList();
  json.endObject();
  json.finish();
  out << '\n';
}

}  // namespace embedded
