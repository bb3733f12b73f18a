#pragma once

// The messages of the import on the host's message stream.

#include <VekSG/sglOStream.h>

namespace importer {

/// Writes one message of the warning level that is made of these texts, in order. Numbers arrive as text, so that no
/// setting of the stream or of the process changes how they look.
template <class... Texts>
void warn(const Texts&... texts) {
  sglOStream message(sglOStream::PRINT_WARNING);
  (message.getOStream() << ... << texts);
}

}  // namespace importer
