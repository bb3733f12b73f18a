// The message stream: text is gathered in the object and goes to the process's message sink as one piece.

#include <VekSG/sglOStream.h>

#include <locale>

#include "embedded/MessageSink.h"

sglOStream::sglOStream(PrintLevelEnum level) : m_level(level) { m_text.imbue(std::locale::classic()); }

sglOStream::~sglOStream() { embedded::sendMessage(m_level, m_text.view()); }
