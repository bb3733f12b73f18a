#pragma once

// Zero-terminated texts that a field owns by a bare pointer: a field name or a string value must cost eight bytes in
// the field and may be absent. `copyText` and `freeText` are the only pair that makes and ends them.

#include <string_view>

namespace vrml {

/// A new zero-terminated copy of the text, up to its first zero byte. To be given back to `freeText`.
[[nodiscard]] char* copyText(std::string_view text);

/// A new copy of a zero-terminated text; null gives null.
[[nodiscard]] char* copyText(const char* text);

/// Frees what `copyText` made; null is allowed.
void freeText(const char* text) noexcept;

}  // namespace vrml
