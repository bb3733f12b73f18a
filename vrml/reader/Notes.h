#pragma once

// What a reading passed over without refusing the file. A file must not be lost for one construct that this reader has
// no use for, and nothing of it may be dropped in silence either: so each of these is noted, with its line.

#include <cstddef>
#include <string>

namespace vrml {

enum class NoteKind {
  secondReading,         // the exact rules refuse the file here, the wide ones accept it; text is the token
  unknownNode,           // a node statement whose type is no known word; nodeType, defName
  externProto,           // an EXTERNPROTO declaration; nodeType is its name
  exportStatement,       // an EXPORT and its word; text is the word
  protoCutOff,           // a PROTO that the end of the input cuts off; nodeType is its name
  unresolvedUse,         // a USE of a name that no node before it bears; defName
  droppedRoute,          // a ROUTE that names no node or no event before it; text is the route
  routeToItself,         // a ROUTE from a node to itself; text is the route
  nodeWithoutCopy,       // a node inside a USEd subtree that has no copy and is left out there; nodeType, defName
  referenceWithoutCopy,  // a USE of a node that has no copy: it stays a bare reference; nodeType, defName
  inlineNotOpened,       // an Inline none of whose urls opens as a local file; defName; text is the first url
  inlineNotParsed,       // an Inline whose file opens but does not parse; defName; text is the file and the line
  inlineAlreadyLoading,  // an Inline of a file that is being loaded further up; defName; text is the file
  inlineLimit,           // an Inline that passes a limit, which ends the load; defName; text is the file
};

inline constexpr std::size_t kNoteKindCount = static_cast<std::size_t>(NoteKind::inlineLimit) + 1;

struct Note {
  int line = 0;  // 1-based, in the file that was loaded; 0 when no line can be named
  NoteKind kind = NoteKind::secondReading;
  std::string nodeType;
  std::string defName;
  std::string text;
  std::string file = {};  // the inlined file that the line is of; "" for the file that was loaded
};

/// The note as one line of English without the line number, "unknown node HUD passed over".
[[nodiscard]] std::string noteText(const Note& note);

}  // namespace vrml
