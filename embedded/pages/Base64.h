#pragma once

// Bytes as text of letters, digits and two signs.

#include <ostream>
#include <string_view>

namespace embedded {

// Writes bytes in base64, padded, without line ends.
void writeBase64(std::string_view bytes, std::ostream& out);

}  // namespace embedded
