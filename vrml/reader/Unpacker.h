#pragma once

// How the reader comes to read compressed files: it unpacks none itself, but lets whoever it works for do so.

#include <string>
#include <string_view>

namespace vrml {

/// Unpacks the bytes of a compressed file. False when they cannot be unpacked.
using Unpacker = bool (*)(std::string_view packed, std::string& plain);

/// Sets what unpacks the files that begin as gzip files do, inlined ones too, and returns what did before. Null, as at
/// the start, for nobody: such a file is then read as it stands, and refused; so is one that cannot be unpacked.
Unpacker setUnpacker(Unpacker unpacker) noexcept;

}  // namespace vrml
