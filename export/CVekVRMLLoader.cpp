// The frame of the file and the walk over the assembly tree. The walk keeps a stack of its own, so that a tree may be
// of any depth: a group puts its children on the stack, in reverse, above a mark that closes it. What a node looks like
// as text is written by the functions beside this file, into one buffer for the whole walk.

#include "export/CVekVRMLLoader.h"

#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekAssyRoot.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglTriangleSet.h>
#include <VekSGdb/sglModelLoader.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <span>
#include <vector>

#include "export/CameraModel.h"
#include "export/FaceSetText.h"
#include "export/GroupTransform.h"
#include "export/SceneViews.h"
#include "export/ShapeAppearance.h"
#include "export/ShapeGeometry.h"
#include "export/TextWriter.h"
#include "export/VRMLName.h"

namespace {

using exporter::TextWriter;

/// An output file that is closed whatever happens, and the first reason why its text did not reach the disk.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path) : m_file(std::fopen(path.c_str(), "w")) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() { close(); }

  [[nodiscard]] std::FILE* get() const { return m_file; }

  /// Keeps the reason of a write that has just failed.
  void check() {
    if (m_error == 0 && std::ferror(m_file) != 0) m_error = errno != 0 ? errno : EIO;
  }

  /// Closes the file. Returns 0 when all of it was written, else the error number.
  int close() {
    if (m_file == nullptr) return m_error;
    check();
    if (std::fclose(m_file) != 0 && m_error == 0) m_error = errno != 0 ? errno : EIO;
    m_file = nullptr;
    return m_error;
  }

 private:
  std::FILE* m_file;
  int m_error = 0;
};

void reportProgress(float fraction, const char* text) {
  if (const sglModelLoader::CallbackProgressFn callback = sglModelLoader::GetCallbackProgress()) {
    callback(fraction, text);
  }
}

/// The number of actors below a node, which itself does not count.
std::uint32_t countActors(const CVekAssyNode* root) {
  std::uint32_t count = 0;
  std::vector<const CVekAssyNode*> open = {root};
  while (!open.empty()) {
    const auto* group = dynamic_cast<const CVekAssyGroup*>(open.back());
    open.pop_back();
    if (group == nullptr) continue;
    for (const CVekAssyNode* child : group->GetChilds()) {
      if (dynamic_cast<const CVekActor*>(child) != nullptr) ++count;
      open.push_back(child);
    }
  }
  return count;
}

/// Only meshes that show are exported.
bool isExported(const CVekActor& actor) {
  return dynamic_cast<const CVekActorMesh*>(&actor) != nullptr && actor.IsDisplayed();
}

void openTransform(TextWriter& out, const CVekKAssyGroup& group) {
  std::string name = group.GetName();
  exporter::makeVRMLName(name);
  const auto& [rotation, scale, translation] = exporter::decompose(group.GetMatLocalToParent());
  out.print("DEF ", name, " Transform {\ncenter 0.0 0.0 0.0 rotation ", rotation.axis[0], " ", rotation.axis[1], " ",
            rotation.axis[2], " ", rotation.angleRadians, " scale ", scale[0], " ", scale[1], " ", scale[2],
            " translation ", translation[0], " ", translation[1], " ", translation[2], " \nchildren[\n");
}

void closeTransform(TextWriter& out) { out.put("]}\n"); }

template <class Set>
void writeShape(TextWriter& out, exporter::TextureFolder& textures, const CVekActor& actor, const sglGeoSet& set) {
  exporter::writeAppearance(out, actor, set, textures);
  if (const auto* triangles = dynamic_cast<const Set*>(&set)) exporter::writeGeometry(out, actor, *triangles);
}

/// Writes the Shape of a geo-set; nothing when it has no primitives or is of a kind that is not exported.
void writeGeoSet(TextWriter& out, exporter::TextureFolder& textures, const CVekActor& actor, const sglGeoSet& set) {
  if (set.getNumPrims() == 0) return;
  switch (set.getPrimType()) {
    case sglGeoSet::PRIM_TRIANGLE_SET:
      return writeShape<sglTriangleSet>(out, textures, actor, set);
    case sglGeoSet::PRIM_MONO_INDEXED_TRIANGLE_STRIP_SET:
      return writeShape<sglMonoIndexedTriangleStripSet>(out, textures, actor, set);
    case sglGeoSet::PRIM_INDEXED_TRIANGLE_STRIP_SET:
      return writeShape<sglIndexedTriangleStripSet>(out, textures, actor, set);
    case sglGeoSet::PRIM_INDEXED_TRIANGLE_SET:
      return writeShape<sglIndexedTriangleSet>(out, textures, actor, set);
    case sglGeoSet::PRIM_OTHER:
      return;
  }
}

template <class Set>
void writeGeometry(std::FILE* file, const CVekActor* actor, const Set* set) {
  if (file == nullptr || actor == nullptr || set == nullptr) return;
  TextWriter out(file);
  exporter::writeGeometry(out, *actor, *set);
}

}  // namespace

long CVekVRMLLoader::WriteSceneGraph(const std::string& path, CVekAssyNode* root) {
  if (root == nullptr) {
    errno = EINVAL;
    return 0;
  }
  OutputFile file(path);
  if (file.get() == nullptr) return 0;
  Head(file.get());
  m_totalActorCount = countActors(root);
  m_writtenActorCount = 0;
  reportProgress(0.0F, "");
  const long primitiveCount = WriteSceneGraph(file.get(), root);
  file.check();
  reportProgress(1.0F, "");
  End(file.get());
  AddViews(file.get());
  AddBackground(file.get());
  errno = file.close();
  return primitiveCount;
}

long CVekVRMLLoader::WriteSceneGraph(std::FILE* file, CVekAssyNode* node) {
  if (file == nullptr || node == nullptr) return 0;
  TextWriter out(file);
  exporter::TextureFolder textures(m_fileName);
  long primitiveCount = 0;
  // A null entry closes the innermost open Transform.
  std::vector<CVekAssyNode*> open = {node};
  while (!open.empty()) {
    CVekAssyNode* const current = open.back();
    open.pop_back();
    if (current == nullptr) {
      closeTransform(out);
      continue;
    }
    auto* actor = dynamic_cast<CVekActor*>(current);
    if (actor != nullptr && !isExported(*actor)) continue;
    const auto* placed = dynamic_cast<const CVekKAssyGroup*>(current);
    if (placed != nullptr && dynamic_cast<const CVekAssyRoot*>(current) == nullptr) {
      openTransform(out, *placed);
      open.push_back(nullptr);
    }
    if (actor != nullptr) primitiveCount += writeActor(out, textures, *actor);
    if (const auto* group = dynamic_cast<const CVekAssyGroup*>(current)) {
      // The entries on the stack are a copy of the host's set, which the host may change meanwhile.
      const CVekAssyNodeSet& children = group->GetChilds();
      for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (*child != nullptr) open.push_back(*child);
      }
    }
  }
  return primitiveCount;
}

/// Writes the shapes of a mesh and reports it. Returns the number of its primitives, those that are not written
/// included.
long CVekVRMLLoader::writeActor(TextWriter& out, exporter::TextureFolder& textures, CVekActor& actor) {
  const auto* geode = dynamic_cast<const sglGeode*>(actor.GetPresentable());
  if (geode == nullptr) return 0;
  long primitiveCount = 0;
  for (unsigned i = 0; i < geode->getNumGeometries(); ++i) {
    const auto* set = dynamic_cast<const sglGeoSet*>(geode->getGeometry(i));
    if (set == nullptr) continue;
    primitiveCount += static_cast<long>(set->getNumPrims());
    writeGeoSet(out, textures, actor, *set);
  }
  reportActor();
  return primitiveCount;
}

void CVekVRMLLoader::reportActor() {
  ++m_writtenActorCount;
  std::array<char, 2 * exporter::kMaxIntegerChars + 4> text{};
  char* end = exporter::printUnsigned(text.data(), m_writtenActorCount);
  std::memcpy(end, " / ", 3);
  *exporter::printUnsigned(end + 3, m_totalActorCount) = '\0';
  reportProgress(static_cast<float>(m_writtenActorCount) / static_cast<float>(m_totalActorCount), text.data());
}

void CVekVRMLLoader::Head(std::FILE* file) {
  if (file != nullptr) TextWriter(file).put("#VRML V2.0 utf8\nGroup{\nchildren[\n");
}

void CVekVRMLLoader::End(std::FILE* file) {
  if (file != nullptr) TextWriter(file).put("]}\n");
}

void CVekVRMLLoader::CreateVRMLName(std::string& name) { exporter::makeVRMLName(name); }

void CVekVRMLLoader::WriteAttributes(std::FILE* file, CVekActor* actor, sglGeoSet* set, const std::string& /*name*/) {
  if (file == nullptr || actor == nullptr || set == nullptr) return;
  TextWriter out(file);
  exporter::TextureFolder textures(m_fileName);
  exporter::writeAppearance(out, *actor, *set, textures);
}

bool CVekVRMLLoader::HasTextureRepeated(CVekActor* actor) {
  return actor != nullptr && exporter::hasTextureRepeated(*actor);
}

void CVekVRMLLoader::WriteSglTriangleSet(std::FILE* file, CVekActor* actor, sglTriangleSet* set) {
  writeGeometry(file, actor, set);
}

void CVekVRMLLoader::WriteSglIndexedTriangleSet(std::FILE* file, CVekActor* actor, sglIndexedTriangleSet* set) {
  writeGeometry(file, actor, set);
}

void CVekVRMLLoader::WriteSglIndexedTriangleStripSet(std::FILE* file, CVekActor* actor,
                                                     sglIndexedTriangleStripSet* set) {
  writeGeometry(file, actor, set);
}

void CVekVRMLLoader::WriteSglMonoIndexedTriangleStripSet(std::FILE* file, CVekActor* actor,
                                                         sglMonoIndexedTriangleStripSet* set) {
  writeGeometry(file, actor, set);
}

void CVekVRMLLoader::WriteData(std::FILE* file, const char* name, const float* data, std::size_t count) {
  if (file == nullptr || name == nullptr || data == nullptr) return;
  TextWriter out(file);
  exporter::writeVectors(out, name, data, count);
}

void CVekVRMLLoader::WriteTextureData(std::FILE* file, CVekActor* actor, const char* name, const float* data,
                                      std::size_t count) {
  if (file == nullptr || name == nullptr || data == nullptr) return;
  TextWriter out(file);
  exporter::writeTextureCoordinates(out, actor, name, data, count);
}

void CVekVRMLLoader::GetTexCoordArray(CVekActor* actor, sglGeoSet* set, const float*& data) {
  if (actor == nullptr || set == nullptr) return;
  const std::span<const float> found = exporter::textureCoordinates(*actor, *set);
  if (!found.empty()) data = found.data();
}

void CVekVRMLLoader::WriteIndexIndexed(std::FILE* file, const std::uint32_t* indices, std::size_t triangleCount) {
  if (file == nullptr || indices == nullptr) return;
  TextWriter out(file);
  exporter::writeTriangles(out, indices, triangleCount);
}

void CVekVRMLLoader::WriteIndexIndexedStrip(std::FILE* file, const std::uint32_t* indices, const std::uint32_t* lengths,
                                            std::size_t stripCount) {
  if (file == nullptr || indices == nullptr || lengths == nullptr) return;
  TextWriter out(file);
  exporter::writeStrips(out, indices, {lengths, stripCount});
}

void CVekVRMLLoader::WriteIndexNonIndexed(std::FILE* file, std::size_t vertexCount) {
  if (file == nullptr) return;
  TextWriter out(file);
  exporter::writeConsecutiveTriangles(out, vertexCount);
}

void CVekVRMLLoader::AddViews(std::FILE* file) {
  if (file == nullptr || m_stager == nullptr) return;
  TextWriter out(file);
  exporter::writeViews(out, *m_stager);
}

void CVekVRMLLoader::AddBackground(std::FILE* file) {
  if (file == nullptr || m_stager == nullptr) return;
  TextWriter out(file);
  exporter::writeBackground(out, *m_stager);
}

void CVekVRMLLoader::WriteView(std::FILE* file, const sglVec3<float>& position, const sglVec3<float>& viewAxis,
                               const sglVec3<float>& up, const std::string& description, const float& fovRadians) {
  if (file == nullptr) return;
  TextWriter out(file);
  exporter::writeView(out, position, viewAxis, up, description, fovRadians);
}

void CVekVRMLLoader::ConvertCameraModel(const sglVec3<double>& position, const sglVec3<double>& target,
                                        const sglVec3<double>& up, sglVec3<float>& axis, float& angleRadians) {
  const exporter::Orientation orientation = exporter::orientationOf(position, target, up);
  axis = {static_cast<float>(orientation.axis.x), static_cast<float>(orientation.axis.y),
          static_cast<float>(orientation.axis.z)};
  angleRadians = static_cast<float>(orientation.angleRadians);
}
