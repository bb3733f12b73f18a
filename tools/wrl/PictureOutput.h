#pragma once

// Pictures as results of a subcommand.

#include <VekKernel/CVekStager.h>

#include <string>

#include "tools/wrl/Command.h"
#include "tools/wrl/Formats.h"
#include "tools/wrl/PictureOptions.h"

namespace wrl {

/// Why a picture is not written over an image that has been read.
inline constexpr const char* kImageOfModel = "is an image of a model that is shown";

/// What is taken a picture of, and what reports call it.
struct PictureSource {
  std::string name;
  embedded::PictureSubject subject;
  const CVekStager* stager = nullptr;  // has the views; may be null
  bool readsImages = true;             // whether image files that an assembly names are read
};

/// Takes a picture and writes it as a PNG file; "-" is standard output. What went wrong, and that there was nothing to
/// see, is said on standard error.
[[nodiscard]] ExitStatus deliverPicture(const PictureSource& source, const PictureOptions& options,
                                        const std::string& path);

/// Writes a picture of the assembly as pictures are when nothing is asked of them; why it could not, or "".
[[nodiscard]] std::string writePicture(const WriteJob& job);

}  // namespace wrl
