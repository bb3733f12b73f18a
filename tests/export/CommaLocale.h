#pragma once

// A process locale that writes a comma for the decimal point, made on the spot: a bare machine has none installed.

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "tests/TempFolder.h"

namespace exporter_test {

/// Sets the locale for its lifetime.
class CommaLocale {
 public:
  CommaLocale() {
    // A compiled LC_NUMERIC as the C library reads it: magic number, count of fields, their offsets, their values.
    static constexpr unsigned char kNumeric[] = {
        0x14, 0x11, 0x03, 0x20, 6, 0, 0,   0,    0x20, 0,   0,   0,   0x22, 0,   0,   0,   0x24, 0,   0,   0,   0x28,
        0,    0,    0,    0x2c, 0, 0, 0,   0x30, 0,    0,   0,   ',', 0,    '.', 0,   3,   3,    0,   0,   ',', 0,
        0,    0,    '.',  0,    0, 0, 'A', 'N',  'S',  'I', '_', 'X', '3',  '.', '4', '-', '1',  '9', '6', '8', 0};
    const std::string folder = m_folder.path("comma");
    std::filesystem::create_directory(folder);
    std::ofstream file(folder + "/LC_NUMERIC", std::ios::binary);
    for (const unsigned char byte : kNumeric) file.put(static_cast<char>(byte));
    file.close();
    setenv("LOCPATH", m_folder.path("").c_str(), 1);
    m_isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() {
    std::setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
  }

  /// Whether the locale took effect.
  [[nodiscard]] bool isSet() const { return m_isSet && std::strcmp(std::localeconv()->decimal_point, ",") == 0; }

 private:
  fixtures::TempFolder m_folder;
  bool m_isSet = false;
};

}  // namespace exporter_test
