// The process's message sink. Without one of the user's, messages go to standard error through the C library, so that
// they keep their place among what the reader writes there.

#include "embedded/MessageSink.h"

#include <cstdio>
#include <utility>

namespace embedded {
namespace {

MessageSink& currentSink() {
  static MessageSink sink;
  return sink;
}

void send(const MessageSink& sink, unsigned level, std::string_view text) {
  if (sink) {
    sink(level, text);
  } else {
    std::fwrite(text.data(), 1, text.size(), stderr);
  }
}

}  // namespace

void setMessageSink(MessageSink sink) { currentSink() = std::move(sink); }

void sendMessage(unsigned level, std::string_view text) noexcept {
  try {
    send(currentSink(), level, text);
  } catch (...) {
    // Without memory for it the message is lost, and nothing else.
  }
}

MessageRecorder::MessageRecorder(bool passOn) : m_previous(std::move(currentSink())) {
  currentSink() = [this, passOn](unsigned level, std::string_view text) {
    m_messages.push_back({level, std::string(text)});
    if (passOn) send(m_previous, level, text);
  };
}

MessageRecorder::~MessageRecorder() { currentSink() = std::move(m_previous); }

}  // namespace embedded
