// Gzip through zlib, block by block into a growing text, so that no more is unpacked than the limit allows whatever the
// file claims.

#include "embedded/Gzip.h"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <new>

namespace embedded {
namespace {

constexpr std::string_view kMark = "\x1F\x8B";
constexpr std::size_t kFirstBlock = 65536;
constexpr int kGzipWindow = 15 + 16;  // the largest window, and gzip's frame around the data

std::size_t limitFor(std::size_t packedBytes) {
  const std::size_t byRatio =
      packedBytes > kMaxUnpackedBytes / kMaxUnpackRatio ? kMaxUnpackedBytes : packedBytes * kMaxUnpackRatio;
  return std::clamp(byRatio, kMaxRepeatedBytes, kMaxUnpackedBytes);
}

// zlib's state over the packed bytes; releases it however unpacking ends.
class Inflater {
 public:
  explicit Inflater(std::string_view packed) : m_rest(packed) {
    m_isReady = inflateInit2(&m_stream, kGzipWindow) == Z_OK;
  }
  ~Inflater() {
    if (m_isReady) inflateEnd(&m_stream);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  [[nodiscard]] bool isReady() const { return m_isReady; }

  // Fills the room as far as the data go; the bytes written. `isAtEnd` and `isDamaged` tell what stopped it.
  std::size_t fill(char* room, std::size_t roomBytes) {
    constexpr std::size_t kMost = std::numeric_limits<uInt>::max();
    const auto offered = static_cast<uInt>(std::min(m_rest.size(), kMost));
    const auto wanted = static_cast<uInt>(std::min(roomBytes, kMost));
    m_stream.next_in = reinterpret_cast<const Bytef*>(m_rest.data());
    m_stream.avail_in = offered;
    m_stream.next_out = reinterpret_cast<Bytef*>(room);
    m_stream.avail_out = wanted;
    const int status = inflate(&m_stream, Z_NO_FLUSH);
    m_rest.remove_prefix(offered - m_stream.avail_in);
    if (status == Z_STREAM_END) {
      m_isAtEnd = !m_rest.starts_with(kMark) || inflateReset(&m_stream) != Z_OK;
    } else {
      // Without progress the data end early: there is always room.
      m_isDamaged = status != Z_OK;
    }
    return wanted - m_stream.avail_out;
  }

  [[nodiscard]] bool isAtEnd() const { return m_isAtEnd; }
  [[nodiscard]] bool isDamaged() const { return m_isDamaged; }

 private:
  z_stream m_stream{};
  std::string_view m_rest;  // not yet unpacked
  bool m_isReady = false;
  bool m_isAtEnd = false;
  bool m_isDamaged = false;
};

GzipResult unpackWithin(std::string_view packed, std::size_t limit, std::string& plain) {
  Inflater inflater(packed);
  if (!inflater.isReady()) return GzipResult::tooLarge;
  for (std::size_t size = 0;;) {
    // One byte beyond the limit tells that there is more.
    if (size == plain.size()) plain.resize(std::clamp(2 * size, kFirstBlock, limit + 1));
    size += inflater.fill(plain.data() + size, plain.size() - size);
    if (size > limit) return GzipResult::tooLarge;
    if (inflater.isDamaged()) return GzipResult::damaged;
    if (!inflater.isAtEnd()) continue;
    plain.resize(size);
    return GzipResult::unpacked;
  }
}

}  // namespace

bool isGzip(std::string_view bytes) { return bytes.starts_with(kMark); }

GzipResult unpackGzip(std::string_view packed, std::string& plain) {
  plain.clear();
  if (!isGzip(packed)) return GzipResult::notGzip;
  GzipResult result = GzipResult::tooLarge;
  try {
    result = unpackWithin(packed, limitFor(packed.size()), plain);
  } catch (const std::bad_alloc&) {
    // There is not the memory for it.
  }
  if (result != GzipResult::unpacked) std::string().swap(plain);
  return result;
}

bool unpackFile(std::string_view packed, std::string& plain) {
  return unpackGzip(packed, plain) == GzipResult::unpacked;
}

}  // namespace embedded
