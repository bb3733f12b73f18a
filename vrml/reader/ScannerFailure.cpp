#include "vrml/reader/ScannerFailure.h"

// The texts, in the order of the failures.

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace vrml {
namespace {

constexpr std::array<const char*, static_cast<std::size_t>(ScannerFailure::scanBytes) + 1> kTexts = {
    "fatal flex scanner internal error--no action found",
    "fatal flex scanner internal error--end of buffer missed",
    "flex scanner push-back overflow",
    "out of dynamic memory in yy_create_buffer()",
    "out of dynamic memory in yy_scan_buffer()",
    "out of dynamic memory in yy_scan_bytes()"};

}  // namespace

const char* failureText(ScannerFailure failure) noexcept { return kTexts[static_cast<std::size_t>(failure)]; }

void failScanner(ScannerFailure failure) noexcept {
  std::fprintf(stderr, "%s\n", failureText(failure));
  std::exit(2);
}

}  // namespace vrml
