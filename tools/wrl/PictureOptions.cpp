// Numbers are read with std::from_chars: a comma locale must not turn 1.5 into 1.

#include "tools/wrl/PictureOptions.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>
#include <vector>

#include "embedded/pictures/SavedViews.h"
#include "tools/wrl/Arguments.h"
#include "tools/wrl/ColorText.h"

namespace wrl {

namespace {

constexpr const char* kGroup = "Picture";
constexpr unsigned kMaxSamples = 64;

template <class Number>
bool readWhole(std::string_view text, Number& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

bool readAngle(const std::string& text, double& degrees) { return readWhole(text, degrees) && std::isfinite(degrees); }

bool readSize(std::string_view text, embedded::PictureFormat& format) {
  const std::size_t cross = text.find_first_of("xX");
  if (cross == std::string_view::npos) return false;
  if (!readWhole(text.substr(0, cross), format.width) || !readWhole(text.substr(cross + 1), format.height))
    return false;
  return format.width >= 1 && format.height >= 1 && format.width <= embedded::kMaxPictureSide &&
         format.height <= embedded::kMaxPictureSide &&
         std::uint64_t{format.width} * format.height <= embedded::kMaxPicturePixels;
}

// Hands an option's text to `read`; what that refuses is wrong usage, with a word on what is wanted.
template <class Read>
CLI::Option* addOption(CLI::App& app, const std::string& name, const std::string& type, const std::string& description,
                       const std::string& wanted, Read read) {
  const CLI::callback_t take = [name, wanted, read](const CLI::results_t& results) {
    if (!read(results.front())) throw CLI::ValidationError(name, "\"" + results.front() + "\" is not " + wanted);
    return true;
  };
  return app.add_option(name, take, description)->type_name(type)->group(kGroup);
}

std::string listOf(const std::vector<embedded::SavedView>& saved) {
  std::string list;
  for (const embedded::NamedDirection& named : embedded::namedDirections()) {
    list += (list.empty() ? "" : ", ") + std::string(named.name);
  }
  for (std::size_t i = 0; i < saved.size(); ++i) list += ", " + std::to_string(i + 1) + " \"" + saved[i].name + "\"";
  return list;
}

// A view by its name, or else by its number from 1; null when there is none.
const CVekView* findSaved(const std::vector<embedded::SavedView>& saved, const std::string& asked) {
  for (const embedded::SavedView& view : saved) {
    if (view.name == asked) return view.view;
  }
  std::size_t number = 0;
  const bool isNumber = readWhole(std::string_view(asked), number) && number >= 1 && number <= saved.size();
  return isNumber ? saved[number - 1].view : nullptr;
}

const embedded::ViewDirection* findDirection(const std::string& asked) {
  for (const embedded::NamedDirection& named : embedded::namedDirections()) {
    if (named.name == asked) return &named.direction;
  }
  return nullptr;
}

}  // namespace

void addPictureOptions(CLI::App& app, PictureOptions& options) {
  embedded::PictureFormat& format = options.format;
  addOption(app, "--size", "WxH", "The picture's width and height in pixels; 1024x768 without this",
            "a size like 1024x768, no side above " + std::to_string(embedded::kMaxPictureSide) + ", no more than " +
                std::to_string(embedded::kMaxPicturePixels) + " pixels",
            [&format](const std::string& text) { return readSize(text, format); });
  addOption(app, "--view", "NAME-OR-NUMBER",
            "Look from front, back, left, right, top, bottom or iso, or through one of the document's views", "a view",
            [&options](const std::string& text) {
              options.view = text;
              return !text.empty();
            });
  addOption(app, "--azimuth", "DEGREES", "Go around the model to the right before looking", "a number",
            [&options](const std::string& text) { return readAngle(text, options.azimuthDegrees); });
  addOption(app, "--elevation", "DEGREES", "Go up over the model before looking", "a number",
            [&options](const std::string& text) { return readAngle(text, options.elevationDegrees); });
  addOption(app, "--background", "COLOR", "The colour behind the model, a name or #rrggbb",
            "a colour: #rrggbb or one of " + colorNames(), [&format](const std::string& text) {
              const auto color = readColor(text);
              if (color) format.background = *color;
              return color.has_value();
            });
  addOption(app, "--samples", "N", "Samples a pixel, which smooth edges; 4 without this, or as many as there can be",
            "a number from 1 to " + std::to_string(kMaxSamples), [&format](const std::string& text) {
              return readWhole(std::string_view(text), format.sampleCount) && format.sampleCount >= 1 &&
                     format.sampleCount <= kMaxSamples;
            });
}

std::optional<embedded::PictureView> chooseView(const PictureOptions& options, const CVekStager* stager,
                                                std::string& error) {
  std::vector<embedded::SavedView> saved;
  if (stager != nullptr) saved = embedded::savedViews(*stager);
  embedded::ViewDirection direction = embedded::defaultDirection();
  if (!options.view.empty()) {
    if (const CVekView* view = findSaved(saved, options.view)) {
      if (options.azimuthDegrees == 0.0 && options.elevationDegrees == 0.0) return view;
      error = "a saved view goes with neither --azimuth nor --elevation";
      return std::nullopt;
    }
    const embedded::ViewDirection* named = findDirection(options.view);
    if (named == nullptr) {
      error = "there is no view \"" + options.view + "\"; there are " + listOf(saved);
      return std::nullopt;
    }
    direction = *named;
  }
  direction.azimuthDegrees += options.azimuthDegrees;
  direction.elevationDegrees += options.elevationDegrees;
  return direction;
}

}  // namespace wrl
