#include "vrml/reader/NumberMatch.h"

// One pass over each part of a number in turn.

namespace vrml {
namespace {

const char* skipDigits(const char* at) noexcept {
  while (isDigit(*at)) ++at;
  return at;
}

int hexDigit(char c) noexcept {
  if (isDigit(c)) return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The text behind "0x" as a 32-bit pattern; of more than eight digits the last eight count.
std::int32_t parseHexadecimal(const char* first, const char* last) noexcept {
  std::uint32_t pattern = 0;
  for (; first < last; ++first) pattern = pattern << 4 | static_cast<std::uint32_t>(hexDigit(*first));
  return static_cast<std::int32_t>(pattern);
}

}  // namespace

NumberMatch matchNumber(const char* at) noexcept {
  if (at[0] == '0' && at[1] == 'x' && hexDigit(at[2]) >= 0) {
    at += 2;
    while (hexDigit(*at) >= 0) ++at;
    return {at, NumberForm::hexadecimal};
  }
  if (*at == '-') ++at;
  const char* const digits = at;
  at = skipDigits(at);
  NumberForm form = at > digits ? NumberForm::integer : NumberForm::real;
  if (*at == '.') {
    form = NumberForm::real;
    at = skipDigits(at + 1);
  }
  if ((*at | 0x20) == 'e') {
    form = NumberForm::real;
    ++at;
    if (*at == '+' || *at == '-') ++at;
    at = skipDigits(at);
  }
  return {at, form};
}

float floatOf(const char* at, const NumberMatch& match) noexcept {
  return match.form == NumberForm::hexadecimal ? static_cast<float>(integerOf(at, match)) : parseFloat(at, match.end);
}

std::int32_t integerOf(const char* at, const NumberMatch& match) noexcept {
  return match.form == NumberForm::hexadecimal ? parseHexadecimal(at + 2, match.end) : parseInt32(at, match.end);
}

}  // namespace vrml
