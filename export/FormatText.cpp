// A conversion is a `%`, flags, a width, a precision, length letters and one letter that names it, in this order; all
// but the first and the last may be missing. What a user's file name or view name holds of them must reach no argument
// list.

#include "export/FormatText.h"

#include <algorithm>
#include <cstddef>

namespace exporter {
namespace {

constexpr std::string_view kFlags = "-+ #0";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kLengths = "hlLjzt";
constexpr std::string_view kConversions = "diouxXeEfFgGaAcspn";

std::size_t skipAny(std::string_view text, std::size_t at, std::string_view set) {
  const std::size_t end = text.find_first_not_of(set, at);
  return end == std::string_view::npos ? text.size() : end;
}

std::size_t skipNumberOrStar(std::string_view text, std::size_t at) {
  return at < text.size() && text[at] == '*' ? at + 1 : skipAny(text, at, kDigits);
}

/// The end of the conversion whose `%` stands at `at`, or `at` when none begins there.
std::size_t conversionEnd(std::string_view text, std::size_t at) {
  std::size_t end = skipAny(text, at + 1, kFlags);
  end = skipNumberOrStar(text, end);
  if (end < text.size() && text[end] == '.') end = skipNumberOrStar(text, end + 1);
  end = skipAny(text, end, kLengths);
  return end < text.size() && kConversions.find(text[end]) != std::string_view::npos ? end + 1 : at;
}

}  // namespace

std::string expandFormat(std::string_view format) {
  std::string text;
  text.reserve(format.size());
  for (std::size_t at = 0; at < format.size();) {
    const std::size_t percent = std::min(format.find('%', at), format.size());
    text.append(format, at, percent - at);
    if (percent == format.size()) break;
    if (format.substr(percent, 2) == "%%") {
      text += '%';
      at = percent + 2;
      continue;
    }
    at = conversionEnd(format, percent);
    if (at == percent) text += format[at++];
  }
  return text;
}

}  // namespace exporter
