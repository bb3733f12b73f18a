#pragma once

// Texts that are emitted as a format string without arguments.

#include <string>
#include <string_view>

namespace exporter {

/// The text that a format string gives when it has no argument to read: `%%` gives one `%`, every other complete
/// conversion gives nothing, and a `%` that begins none stands as it is. Any bytes are allowed.
[[nodiscard]] std::string expandFormat(std::string_view format);

}  // namespace exporter
