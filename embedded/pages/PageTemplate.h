#pragma once

// The page without a model, made from the sources in the folder viewer when the project is built.

#include <string_view>

namespace embedded {

// An HTML document with the marks {{title}}, {{content}} and {{model}}. "" in a build that came without a viewer.
[[nodiscard]] std::string_view pageTemplate();

}  // namespace embedded
