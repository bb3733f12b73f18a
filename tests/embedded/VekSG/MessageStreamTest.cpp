// One message per stream object, in the C locale, to one sink.

#include <VekSG/sglOStream.h>
#include <gtest/gtest.h>

#include <locale>
#include <new>

#include "embedded/MessageSink.h"

namespace {

// A locale that groups digits and has a decimal comma.
class CommaPunctuation : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(MessageStream, EveryObjectIsOneMessage) {
  const embedded::MessageRecorder recorder(false);
  { sglOStream(sglOStream::PRINT_WARNING).getOStream() << "two " << 2 << "\n"; }
  {
    sglOStream outer(sglOStream::PRINT_ERROR);
    outer.getOStream() << "outer";
    { sglOStream(sglOStream::PRINT_WARNING).getOStream() << "inner"; }
  }
  { const sglOStream empty(sglOStream::PRINT_WARNING); }
  ASSERT_EQ(recorder.messages().size(), 4U);
  EXPECT_EQ(recorder.messages()[0].text, "two 2\n");
  EXPECT_EQ(recorder.messages()[0].level, 2U);
  EXPECT_EQ(recorder.messages()[1].text, "inner");
  EXPECT_EQ(recorder.messages()[2].text, "outer");
  EXPECT_EQ(recorder.messages()[2].level, 1U);
  EXPECT_EQ(recorder.messages()[3].text, "");
}

TEST(MessageStream, NumbersAreFormattedAlikeInEveryLocale) {
  const embedded::MessageRecorder recorder(false);
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
  {
    sglOStream(sglOStream::PRINT_WARNING).getOStream()
        << 1234567 << ' ' << 0.5 << ' ' << 5.72205e-06F << ' ' << 1.0F / 3;
  }
  std::locale::global(before);
  ASSERT_EQ(recorder.messages().size(), 1U);
  EXPECT_EQ(recorder.messages()[0].text, "1234567 0.5 5.72205e-06 0.333333");
}

TEST(MessageStream, WithoutASinkTheTextGoesToStandardErrorAsItStands) {
  embedded::setMessageSink({});
  testing::internal::CaptureStderr();
  { sglOStream(sglOStream::PRINT_WARNING).getOStream() << "100 % \n\tdone"; }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "100 % \n\tdone");
}

TEST(MessageStream, ARecorderPassesOnWhenAskedAndRestoresTheSink) {
  std::string seen;
  embedded::setMessageSink([&seen](unsigned level, std::string_view text) {
    seen += std::to_string(level);
    seen += text;
  });
  {
    const embedded::MessageRecorder recorder(true);
    { sglOStream(sglOStream::PRINT_ERROR).getOStream() << "a"; }
    const embedded::MessageRecorder silent(false);
    { sglOStream(sglOStream::PRINT_ERROR).getOStream() << "b"; }
    EXPECT_EQ(recorder.messages().size(), 1U);
    EXPECT_EQ(silent.messages().size(), 1U);
  }
  { sglOStream(sglOStream::PRINT_WARNING).getOStream() << "c"; }
  embedded::setMessageSink({});
  EXPECT_EQ(seen, "1a2c");
}

TEST(MessageStream, ASinkThatThrowsLosesItsMessageAndNothingElse) {
  int calls = 0;
  embedded::setMessageSink([&calls](unsigned, std::string_view) {
    ++calls;
    throw std::bad_alloc();
  });
  { sglOStream(sglOStream::PRINT_WARNING).getOStream() << "lost"; }
  embedded::setMessageSink({});
  EXPECT_EQ(calls, 1);
}

}  // namespace
