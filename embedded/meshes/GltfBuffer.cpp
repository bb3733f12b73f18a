// Values of one kind lie behind one another in one stream; at the end the streams are put behind one another, each
// beginning at a multiple of four bytes, as all of glTF's numbers want it.

#include "embedded/meshes/GltfBuffer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace embedded {
namespace {

constexpr std::size_t kAlignment = 4;
// The greatest vertex number of two bytes, 65535, means something else to glTF.
constexpr std::size_t kMostShortVertices = 65535;

template <class T>
std::span<const std::uint8_t> bytesOf(const std::vector<T>& values) {
  return {reinterpret_cast<const std::uint8_t*>(values.data()), values.size() * sizeof(T)};
}

std::uint64_t hashOf(std::span<const std::uint8_t> bytes) {
  return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

void pad(std::vector<std::uint8_t>& bytes) {
  bytes.resize((bytes.size() + kAlignment - 1) / kAlignment * kAlignment, std::uint8_t{0});
}

// The corners of the box around positions, which viewers need before they read any.
void setBounds(const std::vector<float>& positions, tinygltf::Accessor& accessor) {
  accessor.minValues.assign(positions.begin(), positions.begin() + 3);
  accessor.maxValues = accessor.minValues;
  for (std::size_t i = 0; i < positions.size(); ++i) {
    double& least = accessor.minValues[i % 3];
    double& greatest = accessor.maxValues[i % 3];
    least = std::min(least, double{positions[i]});
    greatest = std::max(greatest, double{positions[i]});
  }
}

}  // namespace

int GltfBuffer::addList(StreamNumber stream, std::span<const std::uint8_t> bytes, tinygltf::Accessor accessor) {
  const std::uint64_t hash = hashOf(bytes) ^ stream;
  std::vector<std::uint8_t>& kept = m_streams[stream];
  const auto [first, last] = m_known.equal_range(hash);
  for (auto known = first; known != last; ++known) {
    const tinygltf::Accessor& other = m_accessors[static_cast<std::size_t>(known->second)];
    if (other.bufferView != static_cast<int>(stream) || other.count != accessor.count) continue;
    if (std::memcmp(kept.data() + other.byteOffset, bytes.data(), bytes.size()) == 0) return known->second;
  }
  accessor.bufferView = static_cast<int>(stream);
  accessor.byteOffset = kept.size();
  kept.insert(kept.end(), bytes.begin(), bytes.end());
  m_byteCount += bytes.size();
  const int number = static_cast<int>(m_accessors.size());
  m_accessors.push_back(std::move(accessor));
  m_known.emplace(hash, number);
  return number;
}

int GltfBuffer::addVertices(StreamNumber stream, const std::vector<float>& values, int type, std::size_t components) {
  if (values.empty()) return -1;
  tinygltf::Accessor accessor;
  accessor.componentType = TINYGLTF_COMPONENT_TYPE_FLOAT;
  accessor.type = type;
  accessor.count = values.size() / components;
  if (stream == kPositions) setBounds(values, accessor);
  return addList(stream, bytesOf(values), std::move(accessor));
}

int GltfBuffer::addIndices(const std::vector<std::uint32_t>& indices, std::size_t vertexCount) {
  tinygltf::Accessor accessor;
  accessor.type = TINYGLTF_TYPE_SCALAR;
  accessor.count = indices.size();
  if (vertexCount <= kMostShortVertices) {
    const std::vector<std::uint16_t> shorts(indices.begin(), indices.end());
    accessor.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT;
    return addList(kShortIndices, bytesOf(shorts), std::move(accessor));
  }
  accessor.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT;
  return addList(kIndices, bytesOf(indices), std::move(accessor));
}

GltfAttributes GltfBuffer::addMesh(const WeldedMesh& mesh) {
  GltfAttributes attributes;
  attributes.positions = addVertices(kPositions, mesh.positions, TINYGLTF_TYPE_VEC3, 3);
  attributes.normals = addVertices(kNormals, mesh.normals, TINYGLTF_TYPE_VEC3, 3);
  attributes.colors = addVertices(kColors, mesh.colors, TINYGLTF_TYPE_VEC4, 4);
  attributes.texCoords = addVertices(kTexCoords, mesh.texCoords, TINYGLTF_TYPE_VEC2, 2);
  attributes.indices = addIndices(mesh.indices, mesh.positions.size() / 3);
  return attributes;
}

int GltfBuffer::addImage(std::vector<std::uint8_t> bytes) {
  m_byteCount += bytes.size();
  m_streams.push_back(std::move(bytes));
  return static_cast<int>(m_streams.size() - 1);
}

void GltfBuffer::finish(tinygltf::Model& model) {
  constexpr std::array<std::size_t, kImages> kStrides{12, 12, 16, 8, 0, 0};  // 0: no vertices
  std::vector<int> viewOfStream(m_streams.size(), -1);
  tinygltf::Buffer buffer;
  for (std::size_t number = 0; number < m_streams.size(); ++number) {
    std::vector<std::uint8_t>& stream = m_streams[number];
    if (stream.empty()) continue;
    tinygltf::BufferView view;
    view.buffer = 0;
    view.byteOffset = buffer.data.size();
    view.byteLength = stream.size();
    if (number < kImages) {
      view.byteStride = kStrides[number];
      view.target = view.byteStride != 0 ? TINYGLTF_TARGET_ARRAY_BUFFER : TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER;
    }
    buffer.data.insert(buffer.data.end(), stream.begin(), stream.end());
    pad(buffer.data);
    stream = {};
    viewOfStream[number] = static_cast<int>(model.bufferViews.size());
    model.bufferViews.push_back(std::move(view));
  }
  for (tinygltf::Accessor& accessor : m_accessors) {
    accessor.bufferView = viewOfStream[static_cast<std::size_t>(accessor.bufferView)];
    model.accessors.push_back(std::move(accessor));
  }
  for (tinygltf::Image& image : model.images)
    image.bufferView = viewOfStream[static_cast<std::size_t>(image.bufferView)];
  if (!buffer.data.empty()) model.buffers.push_back(std::move(buffer));
}

}  // namespace embedded
