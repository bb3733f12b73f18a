#pragma once

// The grammar: reads the tokens of the active scanner and builds the tree of the current parser from them.

namespace vrml {

/// Parses the whole input of the active scanner into the current parser. 0 when it was accepted, 1 after a syntax
/// error, 2 when a limit was passed. Either way the nodes built so far stay, and after an error the parser has its
/// three error values. There must be an active scanner and a current parser.
[[nodiscard]] int yyparse();

/// Records an error at the scanner's last token in the current parser; returns 0. The message is of no further use: it
/// is always "parse error".
int yyerror(const char* message);

}  // namespace vrml
