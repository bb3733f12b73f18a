#pragma once

// The settings of the host that runs the module, as options of every subcommand that loads a file.

#include <CLI/App.hpp>
#include <optional>
#include <string>
#include <vector>

#include "embedded/UpAxis.h"

namespace wrl {

/// What the options leave; the defaults are those of a host that nobody has set up.
struct HostOptions {
  float refinement = 1.0F;                 // --refinement: how finely primitives are cut
  bool merge = false;                      // --merge: the whole file into one object
  std::vector<std::string> searchFolders;  // --search: where files are looked for that do not lie where they should
  bool textures = false;                   // --textures, --no-textures: the module is offered an image reader
  bool showStatistics = true;              // --no-stats: whether the module's statistics block is shown
  std::vector<std::string> vetoes;         // --veto: event texts that the hook answers with false
  bool trace = false;                      // --trace: the hook's calls on standard error
  bool quiet = false;                      // -q: only a load that fails speaks on standard error
  bool verbose = false;                    // -v: what was read, and how long that took, on standard error
  std::optional<embedded::UpAxis> up;      // --up: the axis that is up in the file, if not what its format says

  // Not on the command line: the folder in which images inside a model are unpacked when they are to stay; "" where
  // they must be left out. Without one they are there for as long as what was loaded.
  std::optional<std::string> unpackFolder;
};

/// What becomes of the image files of textures when the command line says nothing of them.
enum class TextureDefault {
  ignored,  // the module is offered no reader: it keeps to what every host gets
  read,     // it is offered one: the command's result is a picture or a file, which textures belong to
};

/// Declares the options in a group of their own, and sets the default of those that depend on the command.
void addHostOptions(CLI::App& app, HostOptions& options, TextureDefault textures = TextureDefault::ignored);

/// Declares `--up`, for subcommands that make an assembly of what they load.
void addUpAxis(CLI::App& app, HostOptions& options);

}  // namespace wrl
