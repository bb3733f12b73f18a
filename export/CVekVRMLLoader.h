#pragma once

// The export writer: the host's assembly tree as one VRML97 text file.

#include <VekFoundations/CString.h>
#include <VekSG/sglVec3.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

class CVekActor;
class CVekAssyNode;
class CVekStager;
class sglGeoSet;
class sglIndexedTriangleSet;
class sglIndexedTriangleStripSet;
class sglMonoIndexedTriangleStripSet;
class sglTriangleSet;

namespace exporter {
class TextureFolder;
class TextWriter;
}  // namespace exporter

/// Writes one assembly tree to one file. Copies are independent. The stager and everything under it belongs to the host
/// and is never changed.
///
/// Every operation that takes a stream writes nothing when the stream, or an object it needs, is null, and leaves what
/// it wrote in the stream's buffer. One that cannot write leaves the stream's error indicator set and the reason in
/// `errno`. Numbers are printed as `%f` and `%d` print them in the C locale.
class CVekVRMLLoader {
 public:
  CVekVRMLLoader() = default;

  /// Sets whose cameras, views and colours are written. May be null; then there are none.
  void SetStager(CVekStager* stager) { m_stager = stager; }

  /// Sets the path beside which texture images are put.
  void SetFileName(const std::string& fileName) { m_fileName = fileName; }

  /// Writes the file at `path`: header, tree, views and background, with progress to the host's callback.
  /// Returns the number of primitives in the tree, those of kinds that are not written included; 0, and no file, when
  /// `root` is null or the file cannot be opened. Afterwards `errno` is 0 when the file was written whole, else it says
  /// why not.
  long WriteSceneGraph(const std::string& path, CVekAssyNode* root);

  /// Writes the header and opens the top group.
  void Head(std::FILE* file);

  /// Closes the top group.
  void End(std::FILE* file);

  /// Turns a host object's name into a node name, in place.
  static void CreateVRMLName(std::string& name);

  /// Opens a Shape and writes its Appearance; nothing for a geo-set without state 0. The name is not used.
  void WriteAttributes(std::FILE* file, CVekActor* actor, sglGeoSet* set, const std::string& name);

  /// Whether the actor's texture repeats, which its S direction decides. False for null.
  static bool HasTextureRepeated(CVekActor* actor);

  /// Each writes a whole face set and closes its Shape; nothing for a set without primitives.
  void WriteSglTriangleSet(std::FILE* file, CVekActor* actor, sglTriangleSet* set);
  void WriteSglIndexedTriangleSet(std::FILE* file, CVekActor* actor, sglIndexedTriangleSet* set);
  void WriteSglIndexedTriangleStripSet(std::FILE* file, CVekActor* actor, sglIndexedTriangleStripSet* set);
  void WriteSglMonoIndexedTriangleStripSet(std::FILE* file, CVekActor* actor, sglMonoIndexedTriangleStripSet* set);

  /// Writes a list of 3-vectors. `data` holds `count` of them and at least one, which is written whatever the count.
  void WriteData(std::FILE* file, const char* name, const float* data, std::size_t count);

  /// Writes a list of 2-vectors through the actor's texture matrix; otherwise as WriteData. Without an actor there is
  /// no matrix.
  void WriteTextureData(std::FILE* file, CVekActor* actor, const char* name, const float* data, std::size_t count);

  /// Finds the texture coordinates of a textured actor's geo-set, 2 floats each; leaves `data` as it is when there are
  /// none. What it finds stays the host's.
  static void GetTexCoordArray(CVekActor* actor, sglGeoSet* set, const float*& data);

  /// Writes triangles; `indices` holds three for each and for at least one, which is written whatever the count.
  void WriteIndexIndexed(std::FILE* file, const std::uint32_t* indices, std::size_t triangleCount);

  /// Writes strips, unrolled into triangles of one winding.
  void WriteIndexIndexedStrip(std::FILE* file, const std::uint32_t* indices, const std::uint32_t* lengths,
                              std::size_t stripCount);

  /// Writes the triangles 0 1 2, 3 4 5 and so on.
  void WriteIndexNonIndexed(std::FILE* file, std::size_t vertexCount);

  /// Writes the group of viewpoints: the selected viewport's camera, then the saved views.
  void AddViews(std::FILE* file);

  /// Writes the selected viewport's background.
  void AddBackground(std::FILE* file);

  /// Writes one viewpoint of a camera that looks along minus `viewAxis`; the field of view, in radians, is left out
  /// unless it is between 0 and a right angle.
  void WriteView(std::FILE* file, const sglVec3<float>& position, const sglVec3<float>& viewAxis,
                 const sglVec3<float>& up, const std::string& description, const float& fovRadians);

  /// Computes the rotation, as axis and angle in radians, that takes a camera looking along -z with +y up to one that
  /// looks from `position` to `target`.
  static void ConvertCameraModel(const sglVec3<double>& position, const sglVec3<double>& target,
                                 const sglVec3<double>& up, sglVec3<float>& axis, float& angleRadians);

 private:
  long WriteSceneGraph(std::FILE* file, CVekAssyNode* node);
  long writeActor(exporter::TextWriter& out, exporter::TextureFolder& textures, CVekActor& actor);
  void reportActor();

  std::uint32_t m_totalActorCount = 0;    // below the root
  std::uint32_t m_writtenActorCount = 0;  // whose geometry was gone through
  CVekStager* m_stager = nullptr;         // not owned
  std::string m_fileName;
};
