// Exports whose file takes no more from some byte on, or fails one write and takes the next again: the error is
// reported, and what stands in the file is the beginning of the whole, without a gap.

#include <dlfcn.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "embedded/StageDocument.h"
#include "tests/attacks/Attack.h"

namespace {

// A file in memory one of whose writes fails.
struct BadFile {
  std::string name;  // the path that stands for it; "" for none
  long failsAt = 0;  // the write, from 1, that fails; 0 for none
  long writes = 0;
  std::string content;
};
BadFile g_bad;

ssize_t writeBad(void* /*cookie*/, const char* bytes, std::size_t size) {
  if (++g_bad.writes == g_bad.failsAt) {
    errno = ENOSPC;
    return 0;
  }
  g_bad.content.append(bytes, size);
  return static_cast<ssize_t>(size);
}

}  // namespace

// Stands in front of the C library's for the whole process, the module included.
extern "C" std::FILE* fopen(const char* path, const char* mode) {
  if (!g_bad.name.empty() && g_bad.name == path)
    return fopencookie(nullptr, mode, {nullptr, &writeBad, nullptr, nullptr});
  static const auto next = reinterpret_cast<std::FILE* (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "fopen"));
  return next(path, mode);
}

namespace {

// No file grows beyond a size while an object of this class lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit = {bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }

 private:
  rlimit m_before{};
  void (*m_handler)(int);
};

class WriteFailure : public attack::Attack {
 protected:
  ~WriteFailure() override { g_bad = {}; }

  // A stage with so many triangles that its text is written in many pieces.
  [[nodiscard]] std::unique_ptr<CVekStager> largeStage() const {
    std::string numbers = "0";
    for (int i = 1; i < 3 * 30'000; ++i) numbers += "," + std::to_string(i);
    embedded::StageError error;
    return embedded::readStageDocument(
        R"({ "assembly": { "type": "root", "children": [ { "type": "mesh", "geode": { "geometries": [
        { "type": "sglIndexedTriangleSet", "states": [ ], "numPrims": 30000, "coords": [)" +
            numbers + R"(], "coordIndex": [)" + attack::repeated("0,1,", 44'999) + "0,1] } ] } } ] } }",
        "", error);
  }
};

TEST_F(WriteFailure, at_any_byte_is_reported_and_leaves_the_beginning) {
  const auto stager = richStage();
  const std::string out = path("out.wrl");
  ASSERT_EQ(exportTo(out, *stager), 0);
  const std::string whole = fixtures::contentOf(out);
  ASSERT_GT(whole.size(), 1000U);
  const auto step = static_cast<std::size_t>(attack::isLong() ? 1 : 7);
  for (std::size_t bytes = 0; bytes < whole.size(); bytes += step) {
    int code = 0;
    {
      const FileSizeLimit limit(bytes);
      code = exportTo(out, *stager);
    }
    EXPECT_EQ(code, EFBIG) << bytes;
    EXPECT_EQ(fixtures::contentOf(out), whole.substr(0, bytes));
  }
}

TEST_F(WriteFailure, of_one_write_is_reported_and_leaves_no_gap) {
  const auto stager = largeStage();
  ASSERT_NE(stager, nullptr);
  const std::string out = path("bad.wrl");
  g_bad = {out, 0, 0, {}};
  ASSERT_EQ(exportTo(out, *stager), 0);
  const std::string whole = g_bad.content;
  const long writes = g_bad.writes;
  ASSERT_GT(writes, 4) << "the file whose writes fail is written here";
  for (long failsAt = 1; failsAt <= writes; ++failsAt) {
    g_bad = {out, failsAt, 0, {}};
    EXPECT_EQ(exportTo(out, *stager), ENOSPC) << failsAt;
    EXPECT_TRUE(whole.starts_with(g_bad.content)) << failsAt;
    EXPECT_LT(g_bad.content.size(), whole.size()) << failsAt;
  }
}

}  // namespace
