#pragma once

// Drawables and their states as JSON, the way scene documents and stage documents hold them.

#include <VekSG/sglDrawable.h>
#include <VekSG/sglMat4.h>

#include "embedded/JsonWriter.h"

namespace embedded {

// When the `states` key of a drawable is written.
enum class StatesKey {
  Always,     // a drawable without state 0 has an empty list
  WithState,  // a drawable without state 0 has no such key
};

// Writes one drawable as an object; null as null.
void writeDrawable(JsonWriter& json, const sglDrawable* drawable, StatesKey statesKey);

// Writes 16 numbers, row by row.
void writeMatrix(JsonWriter& json, const sglMat4<float>& matrix);

}  // namespace embedded
