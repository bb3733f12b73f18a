#pragma once

// Where the host's messages go: one place for the whole process, behind sglOStream.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace embedded {

// One message as it was written to one stream object.
struct Message {
  unsigned level = 0;  // the print level: 1 error, 2 warning
  std::string text;    // unchanged, line ends included
};

// Receives every message: its level and its text, which holds only for the call. A message during which it throws is
// lost.
using MessageSink = std::function<void(unsigned level, std::string_view text)>;

// Sends messages to `sink` from now on; an empty one restores the default, standard error, text exactly as written.
void setMessageSink(MessageSink sink);

// Hands one message to the sink.
void sendMessage(unsigned level, std::string_view text) noexcept;

// Gathers messages for as long as it lives, instead of the sink that was set before, which it then restores. Objects of
// this kind must end in the reverse order of their beginning.
class MessageRecorder {
 public:
  // With `passOn` every message also goes to the sink that was set before.
  explicit MessageRecorder(bool passOn);
  MessageRecorder(const MessageRecorder&) = delete;
  MessageRecorder& operator=(const MessageRecorder&) = delete;
  ~MessageRecorder();

  // What has been gathered so far, in order.
  [[nodiscard]] const std::vector<Message>& messages() const { return m_messages; }

 private:
  std::vector<Message> m_messages;
  MessageSink m_previous;
};

}  // namespace embedded
