#pragma once

// The limits of one load. Each stands between a small file and unbounded work: a file of a few kilobytes can ask for
// more nodes than any machine has memory for. Passing one ends the load like a syntax error, with the three error
// values set, and is final: the second reading is not tried.

#include <cstddef>

namespace vrml {

/// Nodes whose bodies are open at once.
inline constexpr std::size_t kOpenNodeLimit = 4096;

/// Bytes of text that the PROTO expansions of one load may produce, all together.
inline constexpr std::size_t kExpansionTextLimit = std::size_t{64} << 20;

/// PROTO expansions inside one another. A PROTO that contains itself ends here.
inline constexpr int kExpansionDepthLimit = 64;

/// Nodes of one loaded tree, those that a USE copies and those of inlined files included.
inline constexpr std::size_t kTreeNodeLimit = 4'000'000;

/// Inline files inside one another.
inline constexpr int kInlineDepthLimit = 16;

/// Inline files of one load, all together.
inline constexpr int kInlineCountLimit = 4096;

/// Bytes of text that the Inline files of one load may hold, all together: one file may be asked for many times.
inline constexpr std::size_t kInlineTextLimit = std::size_t{1} << 30;

/// Bytes of the buffer that keeps the current line for the error report: a longer line is reported cut off.
inline constexpr std::size_t kLineBufferSize = 65'536;

/// Characters of each of the two words of a DEF header; the rest of a longer one is dropped.
inline constexpr std::size_t kHeaderWordLimit = 255;

/// Bytes of the buffer that `takePendingDefName` answers from.
inline constexpr std::size_t kPendingNameSize = 512;

}  // namespace vrml
