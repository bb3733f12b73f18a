#pragma once

// The host's message stream.

#include <VekFoundations/VekExport.h>

#include <ostream>
#include <sstream>

// One message: everything that is written between construction and destruction, even when that is nothing. It reaches
// the host at destruction. Numbers are formatted in the C locale with the stream's default settings.
class VEK_API sglOStream {
 public:
  // How much a message matters.
  enum PrintLevelEnum : unsigned {
    PRINT_ALWAYS = 0,   // whatever the host's settings
    PRINT_ERROR = 1,    // something failed
    PRINT_WARNING = 2,  // something was left out, or is worth knowing
    PRINT_INFO = 3,     // progress and detail
  };

  explicit sglOStream(PrintLevelEnum level);
  sglOStream(const sglOStream&) = delete;
  sglOStream& operator=(const sglOStream&) = delete;
  ~sglOStream();

  // Where the message's text is written. Holds as long as this object.
  [[nodiscard]] std::ostream& getOStream() { return m_text; }

 private:
  PrintLevelEnum m_level;
  std::ostringstream m_text;
};
