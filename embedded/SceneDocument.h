#pragma once

// The scene document: a host scene and the messages of its load, as JSON.

#include <VekSG/sglNode.h>

#include <ostream>
#include <span>

#include "embedded/MessageSink.h"

namespace embedded {

// Writes `{ "scene": NODE or null, "messages": [...] }`, one line a node at most. Numbers have the fewest digits that
// give the same 32-bit float back, infinities and not-a-number are null, bytes that are not UTF-8 become U+FFFD.
// `scene` may be null. Whether everything could be written is to be asked of the stream.
void writeSceneDocument(std::ostream& out, const sglNode* scene, std::span<const Message> messages);

}  // namespace embedded
