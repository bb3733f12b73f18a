#pragma once

// Appends numbers to texts, for the text forms of the field classes: "%g" as values print, and the digits that VRML
// text needs to scan back to the same value. Private to the folder.

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <span>
#include <string>

#include "vrml/fields/Numbers.h"

namespace vrml {

template <std::floating_point T>
void appendG(std::string& out, T value) {
  char text[kNumberTextSize];
  out.append(text, printG(text, value));
}

inline void appendD(std::string& out, std::int32_t value) {
  char text[kNumberTextSize];
  out.append(text, printD(text, value));
}

/// VRML has no word for infinities and for what is not a number: they are written as the largest values and as 0.
template <std::floating_point T>
void appendShortest(std::string& out, T value) {
  if (std::isnan(value)) value = 0;
  if (std::isinf(value)) value = std::copysign(std::numeric_limits<T>::max(), value);
  char text[kNumberTextSize];
  out.append(text, printShortest(text, value));
}

/// Several components, separated by one blank.
inline void appendG(std::string& out, std::span<const float> values) {
  const char* separator = "";
  for (const float value : values) {
    out += separator;
    appendG(out, value);
    separator = " ";
  }
}

inline void appendShortest(std::string& out, std::span<const float> values) {
  const char* separator = "";
  for (const float value : values) {
    out += separator;
    appendShortest(out, value);
    separator = " ";
  }
}

}  // namespace vrml
