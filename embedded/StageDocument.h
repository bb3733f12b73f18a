#pragma once

// The stage document: what the application holds, as JSON, written and read back.

#include <VekKernel/CVekStager.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace embedded {

// Writes the stager's assembly, camera, views and background. Numbers have the fewest digits that give the same number
// back, infinities and not-a-number are null, bytes that are not UTF-8 become U+FFFD. One line a node at most. Whether
// everything could be written is to be asked of the stream.
//
// `folder` is where the document will stand, "" for the current folder: the relative paths of textures, which are
// relative to the current one, are written so that they are found from there.
void writeStageDocument(std::ostream& out, const CVekStager& stager, const std::string& folder = "");

// What is wrong with a stage document.
struct StageError {
  std::size_t line = 0;  // from 1; 0 when no line is to blame
  std::string text;      // the key, its place, and what is wrong with it
};

// Reads a stage document; null and an error when it is not one, when it has unknown keys, or values of the wrong kind.
// What the document leaves out takes the defaults of makeStager() and of the host's classes. A relative path in the
// document is taken relative to `folder` ("" for the current one). Untrusted text is allowed; trees may be as deep as
// the text is long.
[[nodiscard]] std::unique_ptr<CVekStager> readStageDocument(std::string_view text, const std::string& folder,
                                                            StageError& error);

// Reads the document in a file; its folder is the one that paths are relative to. Null and an error of line 0 when the
// file cannot be read.
[[nodiscard]] std::unique_ptr<CVekStager> readStageFile(const std::string& path, StageError& error);

}  // namespace embedded
