#pragma once

// How a picture is taken, as options of a subcommand.

#include <VekKernel/CVekStager.h>

#include <CLI/App.hpp>
#include <optional>
#include <string>

#include "embedded/pictures/PictureTaking.h"

namespace wrl {

struct PictureOptions {
  embedded::PictureFormat format;  // --size, --samples, --background
  std::string view;                // --view: a direction, or a saved view's name or number; "" for the usual direction
  double azimuthDegrees = 0.0;     // --azimuth: the eye goes to the right around the model
  double elevationDegrees = 0.0;   // --elevation: and up over it
};

/// Declares the options in a group of their own.
void addPictureOptions(CLI::App& app, PictureOptions& options);

/// What `--view` and the two angles ask for. A saved view of the stager, which may be null, goes before a direction of
/// the same name, a name before a number. Nothing, and the reason as one line in `error`, when there is no such view;
/// it names those that there are.
[[nodiscard]] std::optional<embedded::PictureView> chooseView(const PictureOptions& options, const CVekStager* stager,
                                                              std::string& error);

}  // namespace wrl
