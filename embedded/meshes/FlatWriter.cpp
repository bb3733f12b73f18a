// The assembly becomes one of assimp's scenes: a node and a mesh for each drawable, right below the root, everything in
// the coordinates of the world. assimp's exporters then write the text.

#include "embedded/meshes/FlatWriter.h"

#include <VekKernel/CVekActorMesh.h>
#include <VekSG/sglGeode.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <assimp/Exporter.hpp>
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>

#include "embedded/AssemblyWalk.h"
#include "embedded/Matrix.h"
#include "embedded/Paths.h"
#include "embedded/Tessellation.h"
#include "embedded/meshes/MemoryFiles.h"
#include "embedded/meshes/Surface.h"
#include "embedded/meshes/UprightTurn.h"
#include "embedded/meshes/WeldedMesh.h"

namespace embedded {
namespace {

struct Format {
  std::string_view extension;
  const char* exporter;  // assimp's name for it
  bool hasYUp;
  bool hasMaterials;
  bool hasVertexColors;
  bool needsNormals;  // without any the exporter would make smooth ones
};

// The exporter's binary PLY announces colours of bytes and writes floats, so that PLY is text.
constexpr std::array kFormats = {
    Format{"obj", "obj", true, true, false, true},
    Format{"stl", "stlb", false, false, false, true},
    Format{"ply", "ply", false, false, true, false},
};

const Format* formatOf(std::string_view extension) {
  const auto* found = std::find_if(kFormats.begin(), kFormats.end(),
                                   [extension](const Format& format) { return format.extension == extension; });
  return found == kFormats.end() ? nullptr : found;
}

// The images that materials name, as files of the result.
class TextureFiles {
 public:
  explicit TextureFiles(MeshNotes& notes) : m_notes(notes) {}

  // The name of the file for an image, "" when it cannot be read.
  std::string nameOf(const std::string& path) {
    const auto [entry, isNew] = m_names.try_emplace(path);
    if (!isNew) return entry->second;
    std::ifstream file(nativePath(path), std::ios::binary);
    if (!file || file.peek() == std::ifstream::traits_type::eof()) {
      m_notes.add("the texture " + path + " cannot be read and is left out");
      return "";
    }
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    entry->second = freeName(std::string(fileNameOf(path)));
    files.push_back({entry->second, std::move(bytes)});
    return entry->second;
  }

  std::vector<MeshFile> files;

 private:
  // Two images of one name lie in two folders; the second gets a number.
  std::string freeName(const std::string& name) {
    const std::size_t stop = std::min(name.rfind('.'), name.size());
    std::string candidate = "Textures/" + name;
    for (int number = 2; !m_taken.insert(candidate).second; ++number) {
      candidate = "Textures/" + name.substr(0, stop) + "_" + std::to_string(number) + name.substr(stop);
    }
    return candidate;
  }

  MeshNotes& m_notes;
  std::map<std::string, std::string> m_names;  // by path
  std::set<std::string> m_taken;
};

template <class Vector>
Vector* vectorsOf(const std::vector<float>& floats, std::size_t count) {
  if (floats.empty()) return nullptr;
  const std::size_t components = floats.size() / count;
  auto* vectors = new Vector[count];
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = 0; j < components; ++j) vectors[i][static_cast<unsigned>(j)] = floats[i * components + j];
  }
  return vectors;
}

std::unique_ptr<aiMesh> exporterMesh(const WeldedMesh& welded) {
  const std::size_t count = welded.positions.size() / 3;
  auto mesh = std::make_unique<aiMesh>();
  mesh->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
  mesh->mNumVertices = static_cast<unsigned>(count);
  mesh->mVertices = vectorsOf<aiVector3D>(welded.positions, count);
  mesh->mNormals = vectorsOf<aiVector3D>(welded.normals, count);
  mesh->mColors[0] = vectorsOf<aiColor4D>(welded.colors, count);
  mesh->mTextureCoords[0] = vectorsOf<aiVector3D>(welded.texCoords, count);
  if (mesh->mTextureCoords[0] != nullptr) mesh->mNumUVComponents[0] = 2;
  mesh->mNumFaces = static_cast<unsigned>(welded.indices.size() / 3);
  mesh->mFaces = new aiFace[mesh->mNumFaces];
  for (std::size_t i = 0; i < mesh->mNumFaces; ++i) {
    aiFace& face = mesh->mFaces[i];
    face.mNumIndices = 3;
    face.mIndices = new unsigned[3];
    std::copy_n(welded.indices.begin() + static_cast<std::ptrdiff_t>(i * 3), 3, face.mIndices);
  }
  return mesh;
}

// A list of owned objects as assimp's scenes hold it.
template <class T>
T** release(std::vector<std::unique_ptr<T>>& objects) {
  auto** list = new T*[objects.size()];
  for (std::size_t i = 0; i < objects.size(); ++i) list[i] = objects[i].release();
  return list;
}

class SceneBuilder : public AssemblyVisitor {
 public:
  SceneBuilder(const Format& format, MeshNotes& notes) : m_format(format), m_notes(notes), m_textures(notes) {}

  bool enter(const CVekAssyNode* node, const glm::dmat4& world) override {
    const auto* actor = dynamic_cast<const CVekActor*>(node);
    if (actor == nullptr) return true;
    const auto* geode = dynamic_cast<const sglGeode*>(actor->GetPresentable());
    if (geode == nullptr || !actor->IsDisplayed() || dynamic_cast<const CVekActorMesh*>(actor) == nullptr) return false;
    for (unsigned i = 0; i < geode->getNumGeometries(); ++i) addDrawable(*actor, geode->getGeometry(i), world);
    return false;
  }

  [[nodiscard]] bool isEmpty() const { return m_meshes.empty(); }

  std::unique_ptr<aiScene> finish() {
    auto scene = std::make_unique<aiScene>();
    scene->mNumMaterials = static_cast<unsigned>(m_materials.size());
    scene->mMaterials = release(m_materials);
    scene->mRootNode = new aiNode;
    scene->mRootNode->mNumChildren = static_cast<unsigned>(m_nodes.size());
    for (const std::unique_ptr<aiNode>& node : m_nodes) node->mParent = scene->mRootNode;
    scene->mRootNode->mChildren = release(m_nodes);
    scene->mNumMeshes = static_cast<unsigned>(m_meshes.size());
    scene->mMeshes = release(m_meshes);
    return scene;
  }

  std::vector<MeshFile>& textureFiles() { return m_textures.files; }

 private:
  void addDrawable(const CVekActor& actor, const sglDrawable* drawable, const glm::dmat4& world) {
    const std::unique_ptr<sglIndexedTriangleSet> set = m_tessellator.triangleSetOf(drawable);
    if (set == nullptr) return;
    WeldOptions options;
    options.placement = m_format.hasYUp ? innerThenOuter(world, glm::transpose(kYToZ)) : world;
    options.textureMatrix = textureMatrixOf(actor);
    options.isClockwise = isClockwise(*set);
    options.wantsNormals = m_format.needsNormals;
    WeldedMesh welded = weldedMesh(*set, options);
    if (welded.endlessCount > 0) m_notes.add("triangles without finite positions are left out");
    if (welded.indices.empty()) return;
    const Surface surface = surfaceOf(actor, *set);
    if (!m_format.hasVertexColors) {
      welded.colors.clear();
    } else if (welded.colors.empty()) {
      paint(welded, surface);
    }
    for (float& value : welded.colors) value = roundedUp(value);
    addMesh(actor.GetName(), welded, materialOf(surface));
  }

  // A value that the exporter, which cuts fractions of bytes off, makes the nearest byte of.
  static float roundedUp(float value) { return (std::round(value * 255.0F) + 0.5F) / 255.0F; }

  static void paint(WeldedMesh& welded, const Surface& surface) {
    for (std::size_t i = 0; i < welded.positions.size(); i += 3) {
      welded.colors.insert(welded.colors.end(), surface.diffuse.begin(), surface.diffuse.end());
      welded.colors.push_back(surface.alpha);
    }
  }

  void addMesh(const std::string& name, const WeldedMesh& welded, unsigned material) {
    std::unique_ptr<aiMesh> mesh = exporterMesh(welded);
    mesh->mMaterialIndex = material;
    mesh->mName.Set(name);
    auto node = std::make_unique<aiNode>();
    node->mName.Set(name);
    node->mNumMeshes = 1;
    node->mMeshes = new unsigned[1]{static_cast<unsigned>(m_meshes.size())};
    m_nodes.push_back(std::move(node));
    m_meshes.push_back(std::move(mesh));
  }

  unsigned materialOf(const Surface& surface) {
    const Surface key = m_format.hasMaterials ? surface : Surface();
    const auto [entry, isNew] = m_known.try_emplace(key, static_cast<unsigned>(m_materials.size()));
    if (!isNew) return entry->second;
    auto material = std::make_unique<aiMaterial>();
    const aiString name("material_" + std::to_string(entry->second));
    const aiColor3D diffuse(key.diffuse[0], key.diffuse[1], key.diffuse[2]);
    const aiColor3D specular(key.specular[0], key.specular[1], key.specular[2]);
    material->AddProperty(&name, AI_MATKEY_NAME);
    material->AddProperty(&diffuse, 1, AI_MATKEY_COLOR_DIFFUSE);
    material->AddProperty(&specular, 1, AI_MATKEY_COLOR_SPECULAR);
    material->AddProperty(&key.shininess, 1, AI_MATKEY_SHININESS);
    material->AddProperty(&key.alpha, 1, AI_MATKEY_OPACITY);
    if (!key.texturePath.empty()) {
      const aiString texture(m_textures.nameOf(key.texturePath));
      if (texture.length > 0) material->AddProperty(&texture, AI_MATKEY_TEXTURE_DIFFUSE(0));
    }
    m_materials.push_back(std::move(material));
    return entry->second;
  }

  const Format& m_format;
  MeshNotes& m_notes;
  TextureFiles m_textures;
  Tessellator m_tessellator;
  std::vector<std::unique_ptr<aiNode>> m_nodes;
  std::vector<std::unique_ptr<aiMesh>> m_meshes;
  std::vector<std::unique_ptr<aiMaterial>> m_materials;
  std::map<Surface, unsigned> m_known;  // materials by their looks
};

}  // namespace

bool isFlatMesh(std::string_view extension) { return formatOf(extension) != nullptr; }

bool writeFlatMesh(const CVekAssyRoot& root, std::string_view extension, const std::string& name,
                   std::vector<MeshFile>& files, MeshNotes& notes, std::string& error) {
  const Format* format = formatOf(extension);
  if (format == nullptr) {
    error = "no such format";
    return false;
  }
  SceneBuilder builder(*format, notes);
  walkAssembly(&root, builder);
  if (builder.isEmpty()) {
    error = "there are no triangles to write";
    return false;
  }
  const std::unique_ptr<aiScene> scene = builder.finish();
  Assimp::Exporter exporter;
  auto* memory = new MemoryFiles;
  exporter.SetIOHandler(memory);  // which takes it over
  if (exporter.Export(scene.get(), format->exporter, name) != aiReturn_SUCCESS) {
    error = exporter.GetErrorString();
    return false;
  }
  for (auto& [fileName, text] : memory->files) files.push_back({fileName, std::move(*text)});
  // An OBJ's materials are written first.
  std::stable_partition(files.begin(), files.end(), [&](const MeshFile& file) { return file.name == name; });
  std::move(builder.textureFiles().begin(), builder.textureFiles().end(), std::back_inserter(files));
  return true;
}

}  // namespace embedded
