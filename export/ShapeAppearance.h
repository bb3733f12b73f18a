#pragma once

// The opening of a Shape and its Appearance: material, and texture with its image file beside the world.

#include <VekFoundations/CString.h>
#include <VekKernel/CVekActor.h>
#include <VekSG/sglGeoSet.h>

#include <map>

#include "export/TextWriter.h"

namespace exporter {

/// The folder "Textures" beside an exported file, and the image files that an export puts there. One lives as long as
/// one export, so that an image that many shapes share is converted once.
class TextureFolder {
 public:
  /// `outputFile` is the path of the exported file.
  explicit TextureFolder(const CString& outputFile);

  /// Puts a JPEG file of the image at `source` into the folder, which is made when it is missing: an existing copy of a
  /// ".jpg" is kept, anything else is converted. What fails leaves no file and is not reported.
  /// Returns the image's address as seen from the exported file.
  CString add(const CString& source);

 private:
  void convert(const CString& source, const CString& destination);

  CString m_path;                          // with a backslash at its end
  std::map<CString, CString> m_converted;  // source of each file made by conversion, by destination
};

/// Writes the opening of a Shape and its whole Appearance; the Shape stays open for the geometry. Writes nothing for a
/// geo-set without state 0.
void writeAppearance(TextWriter& out, const CVekActor& actor, const sglGeoSet& set, TextureFolder& textures);

/// Whether the texture in slot 0 repeats in S; false without one. T is not asked.
[[nodiscard]] bool hasTextureRepeated(const CVekActor& actor);

}  // namespace exporter
