#pragma once

// The binary part of a glTF file while it grows, and what points into it.

#include <tiny_gltf.h>

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "embedded/meshes/WeldedMesh.h"

namespace embedded {

// Numbers of accessors, -1 where a mesh has no such values.
struct GltfAttributes {
  int positions = -1;
  int normals = -1;
  int colors = -1;
  int texCoords = -1;
  int indices = -1;
};

// Takes the lists of meshes and the bytes of images. Equal lists are kept once, so that what an assembly shows many
// times is stored once. Numbers are stored little endian, as this machine has them.
class GltfBuffer {
 public:
  GltfBuffer() = default;
  GltfBuffer(const GltfBuffer&) = delete;
  GltfBuffer& operator=(const GltfBuffer&) = delete;

  // Accessors for a mesh's lists. It has at least one triangle.
  [[nodiscard]] GltfAttributes addMesh(const WeldedMesh& mesh);

  // Takes the bytes of an image; the result goes into the image's `bufferView`, which finish() sets right.
  [[nodiscard]] int addImage(std::vector<std::uint8_t> bytes);

  // How many bytes were taken so far.
  [[nodiscard]] std::uint64_t byteCount() const { return m_byteCount; }

  // Puts buffer, views and accessors into a model that has none. To be called once, at the end.
  void finish(tinygltf::Model& model);

 private:
  // What vertices and indices are kept in, one buffer view each; the images come behind them.
  enum StreamNumber : std::size_t { kPositions, kNormals, kColors, kTexCoords, kShortIndices, kIndices, kImages };

  int addList(StreamNumber stream, std::span<const std::uint8_t> bytes, tinygltf::Accessor accessor);
  int addVertices(StreamNumber stream, const std::vector<float>& values, int type, std::size_t components);
  int addIndices(const std::vector<std::uint32_t>& indices, std::size_t vertexCount);

  std::vector<std::vector<std::uint8_t>> m_streams = std::vector<std::vector<std::uint8_t>>(kImages);
  std::vector<tinygltf::Accessor> m_accessors;          // with the stream's number as `bufferView`
  std::unordered_multimap<std::uint64_t, int> m_known;  // accessors by the hash of their bytes
  std::uint64_t m_byteCount = 0;
};

}  // namespace embedded
