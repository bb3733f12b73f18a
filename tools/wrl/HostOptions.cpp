// The refinement is read with std::from_chars: a comma locale must not turn 1.5 into 1.

#include "tools/wrl/HostOptions.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "tools/wrl/Arguments.h"

namespace wrl {

namespace {

constexpr const char* kGroup = "Host settings";

// True when the whole text is a finite number.
bool readNumber(const std::string& text, float& value) {
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, value);
  return error == std::errc() && end == last && std::isfinite(value);
}

// Every command takes both, so that whoever says what is wanted need not know which is the default. They act where they
// stand, so that the last one counts.
void addTextureFlags(CLI::App& app, HostOptions& options, bool areRead) {
  options.textures = areRead;
  const auto read = [&options](std::int64_t) { options.textures = true; };
  const auto leave = [&options](std::int64_t) { options.textures = false; };
  app.add_flag_function(
         "--textures", read,
         areRead ? "Read the image files of textures, as by default" : "Read the image files of textures")
      ->trigger_on_parse()
      ->group(kGroup);
  app.add_flag_function(
         "--no-textures", leave,
         areRead ? "Leave the image files of textures alone" : "Leave the image files of textures alone, as by default")
      ->trigger_on_parse()
      ->group(kGroup);
}

}  // namespace

void addHostOptions(CLI::App& app, HostOptions& options, TextureDefault textures) {
  const CLI::callback_t takeRefinement = [&options](const CLI::results_t& results) {
    return readNumber(results.front(), options.refinement);
  };
  app.add_option("--refinement", takeRefinement, "How finely primitives are cut; 1 is the usual measure")
      ->type_name("X")
      ->group(kGroup);
  app.add_flag("--merge", options.merge, "Merge the whole file into one object")->group(kGroup);
  addRepeatable(app, "--search", options.searchFolders, "Look for files in this folder too; may be given again")
      ->type_name("DIR")
      ->group(kGroup);
  addTextureFlags(app, options, textures == TextureDefault::read);
  const auto hideStatistics = [&options](std::int64_t) { options.showStatistics = false; };
  app.add_flag_function("--no-stats", hideStatistics, "Leave the statistics block out")->group(kGroup);
  addRepeatable(app, "--veto", options.vetoes,
                "Answer the event of this text (\"onParse:Group\", \"onCreate:sglGeode\") with no; may be given again")
      ->type_name("TEXT")
      ->group(kGroup);
  app.add_flag("--trace", options.trace, "List the hook's calls on standard error")->group(kGroup);
  app.add_flag("-q,--quiet", options.quiet, "Say nothing of what went well")->group(kGroup);
  app.add_flag("-v,--verbose", options.verbose, "Tell on standard error what is read, and how long that takes")
      ->group(kGroup);
}

void addUpAxis(CLI::App& app, HostOptions& options) {
  const CLI::callback_t take = [&options](const CLI::results_t& results) {
    const std::string& axis = results.front();
    if (axis != "y" && axis != "z") return false;
    options.up = axis == "y" ? embedded::UpAxis::Y : embedded::UpAxis::Z;
    return true;
  };
  app.add_option("--up", take, "The axis that points up in the file, y or z, where its format says otherwise")
      ->type_name("AXIS")
      ->group(kGroup);
}

}  // namespace wrl
