#pragma once

// What the check of one file found, and its two forms: lines for people, and one line of JSON.

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "tools/wrl/ImportAudit.h"

namespace vrml {
class SceneGraph;
}

namespace wrl {

/// Something that the reading passed over, or that an import drops.
struct CheckNote {
  std::string text;        // one line of English, without the place
  int line = 0;            // 0 when no line can be named
  std::string inlineFile;  // the inlined file that the line is of; "" for the file that is checked
  std::string nodeType;    // "" when it is about no node
  std::string defName;     // "" for nodes without one
};

struct CheckReport {
  enum class State : std::uint8_t {
    ok,          // the file was read
    error,       // it has a syntax error
    unreadable,  // it cannot be opened
  };

  [[nodiscard]] bool isRead() const { return state == State::ok; }

  std::string file;
  State state = State::ok;
  std::string reason;            // of an input that is not there at all, the whole line; "" when the file is to blame
  int line = 0;                  // of the error
  std::string token;             // where it was found
  std::string lineText;          // the line it stands in
  std::vector<CheckNote> notes;  // of a file that was read
  std::string kind;              // what a file that was not read is instead, see foreignKind
};

/// Takes over how a reading ended.
void describeReading(CheckReport& report, const vrml::SceneGraph& scene);

/// Appends the reader's notes, in their order, and then the audit's.
void describeNotes(CheckReport& report, const vrml::SceneGraph& scene, const AuditOptions& options);

/// Writes a line for the file, unless it is read and `wantsOk` is false, and one for each note, if wanted.
void writeText(std::ostream& out, const CheckReport& report, bool wantsOk, bool wantsNotes);

/// Writes one JSON document and a line end.
void writeJson(std::ostream& out, const CheckReport& report);

}  // namespace wrl
