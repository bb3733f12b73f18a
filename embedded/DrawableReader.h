#pragma once

// Drawables and their states from JSON, the way stage documents hold them. The writing side is DrawableText.h.

#include <VekSG/sglDrawable.h>
#include <VekSG/sglMat4.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/JsonReader.h"

namespace embedded {

// Takes an object, calling `take` with each key; `take` takes the key's value and answers whether it knows the key. An
// unknown key, and one that comes twice, throws a JsonError that names it.
void takeObject(JsonReader& json, const std::function<bool(std::string_view key)>& take);

// Throws when one of the keys that an object had is none of those that its type has.
void checkKeys(const JsonReader& json, const std::vector<std::string>& present, std::string_view type,
               const std::vector<std::string_view>& allowed);

// Takes 16 numbers, row by row.
[[nodiscard]] sglMat4<float> takeMatrix(JsonReader& json);

// Takes one drawable; null gives null. Throws a JsonError for unknown types and keys and for values of the wrong kind.
[[nodiscard]] std::unique_ptr<sglDrawable> takeDrawable(JsonReader& json);

}  // namespace embedded
