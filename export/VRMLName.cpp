// Names are changed byte for byte, so that a name keeps its length unless it is empty or reserved.

#include "export/VRMLName.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace exporter {
namespace {

constexpr std::array<std::string_view, 14> kReservedWords = {"DEF",     "EXTERNPROTO", "FALSE",        "IS",   "NULL",
                                                             "PROTO",   "ROUTE",       "TO",           "TRUE", "USE",
                                                             "eventIn", "eventOut",    "exposedField", "field"};

// The number sign and the delete character are no part of this: names keep them.
constexpr std::string_view kReplaced = "'\"+-\\{}`.;:,[]";

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isReplaced(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte <= 0x20 || (byte < 0x80 && kReplaced.find(c) != std::string_view::npos);
}

}  // namespace

void makeVRMLName(std::string& name) {
  if (name.empty()) {
    name = "no_name";
    return;
  }
  if (std::find(kReservedWords.begin(), kReservedWords.end(), name) != kReservedWords.end()) {
    name.insert(name.begin(), '_');
    return;
  }
  if (isDigit(name.front())) name.front() = '_';
  std::replace_if(name.begin(), name.end(), isReplaced, '_');
}

}  // namespace exporter
