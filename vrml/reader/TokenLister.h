#pragma once

// The scanner's view of a file as text, for people who want to know how it falls into tokens.

#include <iosfwd>
#include <string>

namespace vrml {

/// Writes the file's tokens, one a line: the line number after the token was taken, its class, its text, with a tab
/// between them; the last line has the class `end`. DEF, USE, PROTO and ROUTE are handled as in a load; there is no
/// grammar, so the list goes on where a load would stop. `wide` lists by the rules of the second reading.
///
/// False, with "Cannot open data file %s\n" on standard error, when the file cannot be opened.
bool listTokens(const std::string& path, bool wide, std::ostream& out);

}  // namespace vrml
