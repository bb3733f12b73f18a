// The fatal messages, which no file leads to.

#include "vrml/reader/ScannerFailure.h"

#include <gtest/gtest.h>

#include <string>

#include "ReaderTesting.h"
#include "vrml/reader/Lexer.h"

namespace vrml {
namespace {

TEST(ScannerFailureDeathTest, ends_the_process_with_status_2) {
  struct Row {
    ScannerFailure failure;
    const char* text;
  };
  for (const Row& row : {Row{ScannerFailure::noAction, "fatal flex scanner internal error--no action found"},
                         Row{ScannerFailure::bufferEnd, "fatal flex scanner internal error--end of buffer missed"},
                         Row{ScannerFailure::pushBack, "flex scanner push-back overflow"},
                         Row{ScannerFailure::createBuffer, "out of dynamic memory in yy_create_buffer\\(\\)"},
                         Row{ScannerFailure::scanBuffer, "out of dynamic memory in yy_scan_buffer\\(\\)"},
                         Row{ScannerFailure::scanBytes, "out of dynamic memory in yy_scan_bytes\\(\\)"}})
    EXPECT_EXIT(failScanner(row.failure), ::testing::ExitedWithCode(2), "^" + std::string(row.text) + "\n$");
}

TEST(ScannerFailureDeathTest, comes_when_texts_are_put_back_without_end) {
  const auto putBackWithoutEnd = [] {
    Parser parser;
    const std::string text(kScanPadding + 1, '\0');
    Lexer lexer({text.data(), 1}, Rules::exact(), parser, 0);
    for (;;) lexer.pushBack("x", 0);
  };
  EXPECT_EXIT(putBackWithoutEnd(), ::testing::ExitedWithCode(2), "push-back overflow");
}

}  // namespace
}  // namespace vrml
