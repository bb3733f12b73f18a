// The yardstick: bare loops that convert numbers and do nothing else. What the product takes is given as a multiple of
// what these take on the same machine in the same run, so that a slow or busy machine does not move the figures.
//
//   yardstick read FILE    maps the file and runs std::from_chars over every number of it, into one vector of floats
//   yardstick split FILE   the same, integers into a vector of their own: what a reader has to keep
//   yardstick scan FILE    only looks at every byte
//   yardstick write FILE   prints the grid mesh with std::to_chars: points and normals with six decimals, the indices
//   twice yardstick print FILE   prints the same with std::fprintf

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bench/GridMesh.h"
#include "bench/StageTimer.h"

namespace {

bool isNumberByte(char c) { return (c >= '0' && c <= '9') || c == '-' || c == '.'; }
bool isLetter(char c) { return (c | 32) >= 'a' && (c | 32) <= 'z'; }

struct Numbers {
  std::vector<float> floats;
  std::vector<std::int32_t> integers;  // stays empty unless the two are told apart
};

// Digits inside a word are no number: a word is passed over whole.
template <bool kSplitsIntegers>
Numbers convertNumbers(std::string_view text) {
  Numbers numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    if (!isNumberByte(*at)) {
      if (isLetter(*at)) {
        while (at < end && (isLetter(*at) || isNumberByte(*at))) ++at;
      } else {
        ++at;
      }
      continue;
    }
    if constexpr (kSplitsIntegers) {
      std::int32_t integer = 0;
      const auto [next, error] = std::from_chars(at, end, integer);
      if (error == std::errc() && next < end && *next != '.' && (*next | 32) != 'e') {
        numbers.integers.push_back(integer);
        at = next;
        continue;
      }
    }
    float value = 0;
    const auto [next, error] = std::from_chars(at, end, value);
    if (error != std::errc()) {
      ++at;
      continue;
    }
    numbers.floats.push_back(value);
    at = next;
  }
  return numbers;
}

std::size_t countNumberBytes(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) count += isNumberByte(c) ? 1U : 0U;
  return count;
}

// Empty when there is no such file. The mapping lasts until the process ends.
std::string_view mapFile(const char* path) {
  const int file = open(path, O_RDONLY);
  struct stat status {};
  if (file < 0 || fstat(file, &status) != 0 || status.st_size == 0) return {};
  const std::size_t byteCount = static_cast<std::size_t>(status.st_size);
  void* const start = mmap(nullptr, byteCount, PROT_READ, MAP_PRIVATE, file, 0);
  return start == MAP_FAILED ? std::string_view() : std::string_view(static_cast<const char*>(start), byteCount);
}

// Prints numbers into a buffer of 1 MiB that is written whenever it is nearly full.
class BufferedWriter {
 public:
  explicit BufferedWriter(FILE* file) : m_file(file) { std::setvbuf(file, nullptr, _IONBF, 0); }

  void writeTriple(const float* values) {
    for (int i = 0; i < 3; ++i) {
      m_at = std::to_chars(m_at, m_buffer + sizeof m_buffer, values[i], std::chars_format::fixed, 6).ptr;
      *m_at++ = i == 2 ? ',' : ' ';
    }
    *m_at++ = '\n';
    flushWhenFull();
  }

  void writeTriangle(const int* corners) {
    for (int i = 0; i < 3; ++i) {
      m_at = std::to_chars(m_at, m_buffer + sizeof m_buffer, corners[i]).ptr;
      *m_at++ = ' ';
    }
    std::memcpy(m_at, "-1,\n", 4);
    m_at += 4;
    flushWhenFull();
  }

  void flush() {
    std::fwrite(m_buffer, 1, static_cast<std::size_t>(m_at - m_buffer), m_file);
    m_at = m_buffer;
  }

 private:
  void flushWhenFull() {
    if (m_at > m_buffer + sizeof m_buffer - 128) flush();  // no line is longer than 128 bytes
  }

  static inline char m_buffer[1 << 20];
  char* m_at = m_buffer;
  FILE* m_file;
};

void writeMesh(const bench::GridMesh& mesh, FILE* file) {
  BufferedWriter writer(file);
  for (const std::vector<float>* list : {&mesh.points, &mesh.normals}) {
    for (std::size_t i = 0; i < list->size(); i += 3) writer.writeTriple(list->data() + i);
  }
  for (int round = 0; round < 2; ++round) {
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) writer.writeTriangle(mesh.indices.data() + i);
  }
  writer.flush();
}

void printMesh(const bench::GridMesh& mesh, FILE* file) {
  for (const std::vector<float>* list : {&mesh.points, &mesh.normals}) {
    for (std::size_t i = 0; i < list->size(); i += 3) {
      const float* const values = list->data() + i;
      std::fprintf(file, "%f %f %f,\n", static_cast<double>(values[0]), static_cast<double>(values[1]),
                   static_cast<double>(values[2]));
    }
  }
  for (int round = 0; round < 2; ++round) {
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
      const int* const corners = mesh.indices.data() + i;
      std::fprintf(file, "%d %d %d -1,\n", corners[0], corners[1], corners[2]);
    }
  }
}

// Ends without giving memory back: the product's figures stop at the same place.
[[noreturn]] void finish() {
  std::fflush(stdout);
  _exit(0);
}

void measureReading(std::string_view mode, const char* path) {
  bench::StageTimer timer;
  const std::string_view text = mapFile(path);
  if (mode == "scan") {
    std::printf("RESULT numberBytes=%zu of %zu\n", countNumberBytes(text), text.size());
    timer.endStage("read");
    finish();
  }
  const Numbers numbers = mode == "split" ? convertNumbers<true>(text) : convertNumbers<false>(text);
  std::printf("RESULT floats=%zu integers=%zu\n", numbers.floats.size(), numbers.integers.size());
  timer.endStage("read");
  finish();
}

bool measureWriting(std::string_view mode, const char* path) {
  bench::StageTimer timer;
  const bench::GridMesh mesh(bench::GridMesh::kColumns, bench::GridMesh::kRows);
  timer.endStage("mesh");
  FILE* const file = std::fopen(path, "wb");
  if (file == nullptr) return false;
  (mode == "write" ? writeMesh : printMesh)(mesh, file);
  const long byteCount = std::ftell(file);
  std::fclose(file);
  timer.endStage("write");
  std::printf("RESULT bytes=%ld\n", byteCount);
  finish();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const std::string_view mode = argumentCount == 3 ? arguments[1] : "";
  if (mode == "read" || mode == "split" || mode == "scan") measureReading(mode, arguments[2]);
  if (mode == "write" || mode == "print") return measureWriting(mode, arguments[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
  std::fputs("usage: yardstick read|split|scan|write|print FILE\n", stderr);
  return 2;
}
