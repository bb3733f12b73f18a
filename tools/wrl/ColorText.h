#pragma once

// Colours as words of the command line.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wrl {

/// The red, green and blue of a colour: one of the sixteen names of HTML 4 in any case, or "#rrggbb". Nothing for any
/// other text.
[[nodiscard]] std::optional<std::array<std::uint8_t, 3>> readColor(std::string_view text);

/// The names, for a message.
[[nodiscard]] std::string colorNames();

}  // namespace wrl
