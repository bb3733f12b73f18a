#pragma once

// A growable array of plain values in sixteen bytes, for fields that hold millions of numbers and for the many that
// hold four. It grows by `realloc`: a big block is remapped instead of copied, so that growing a list of 100 MB touches
// each of its pages once and its unused half costs no memory.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace vrml {

/// Not copyable, to keep copies of big lists visible: append the other's `span()` instead.
template <class T>
class PackedArray {
  static_assert(std::is_trivially_copyable_v<T>, "values are moved as bytes");
  static_assert(alignof(T) <= alignof(std::max_align_t));

 public:
  using value_type = T;

  PackedArray() noexcept = default;
  PackedArray(const PackedArray&) = delete;
  PackedArray& operator=(const PackedArray&) = delete;
  PackedArray(PackedArray&& other) noexcept { swap(other); }
  PackedArray& operator=(PackedArray&& other) noexcept {
    swap(other);
    return *this;
  }
  ~PackedArray() { std::free(m_data); }

  [[nodiscard]] T* data() noexcept { return m_data; }
  [[nodiscard]] const T* data() const noexcept { return m_data; }
  [[nodiscard]] std::uint32_t size() const noexcept { return m_size; }
  [[nodiscard]] std::uint32_t capacity() const noexcept { return m_capacity; }
  [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
  [[nodiscard]] T& operator[](std::size_t i) noexcept { return m_data[i]; }
  [[nodiscard]] const T& operator[](std::size_t i) const noexcept { return m_data[i]; }
  [[nodiscard]] T* begin() noexcept { return m_data; }
  [[nodiscard]] T* end() noexcept { return m_data + m_size; }
  [[nodiscard]] const T* begin() const noexcept { return m_data; }
  [[nodiscard]] const T* end() const noexcept { return m_data + m_size; }
  [[nodiscard]] std::span<const T> span() const noexcept { return {m_data, m_size}; }

  /// Appends one value. Throws `std::bad_alloc`, as everything here that makes room does, and changes nothing then.
  void push_back(T value) {
    if (m_size == m_capacity) [[unlikely]]
      enlarge(1);
    m_data[m_size++] = value;
  }

  /// Appends `count` values of unset content and returns where they begin.
  [[nodiscard]] T* grow(std::size_t count) {
    makeRoom(count);
    T* const place = m_data + m_size;
    m_size += static_cast<std::uint32_t>(count);
    return place;
  }

  /// The room behind the last value, at least `atLeast` values long. Fill it from the front, then `commit` what was
  /// filled. Any other call that changes the array ends its validity.
  [[nodiscard]] std::span<T> room(std::size_t atLeast) {
    makeRoom(atLeast);
    return {m_data + m_size, m_capacity - m_size};
  }

  /// Makes the first `count` values of the last `room` part of the array.
  void commit(std::size_t count) noexcept { m_size += static_cast<std::uint32_t>(count); }

  /// Makes room for `count` values behind the last one, with room to spare, so that appending them cannot throw.
  void makeRoom(std::size_t count) {
    if (count > m_capacity - m_size) [[unlikely]]
      enlarge(count);
  }

  /// Makes room for `total` values in all, to the exact number.
  void reserve(std::size_t total) {
    if (total > m_capacity) reallocate(checked(total));
  }

  /// Inserts before position `at`, which is at most `size()`.
  void insert(std::size_t at, T value) {
    makeRoom(1);
    std::memmove(static_cast<void*>(m_data + at + 1), m_data + at, (m_size - at) * sizeof(T));
    m_data[at] = value;
    ++m_size;
  }

  /// Forgets the values and keeps the room.
  void clear() noexcept { m_size = 0; }

  /// Gives back what is not used. Keeps the block when the allocator has no smaller one.
  void shrinkToFit() noexcept {
    if (m_size == m_capacity) return;
    if (m_size == 0) {
      PackedArray().swap(*this);
      return;
    }
    if (void* const block = std::realloc(m_data, m_size * sizeof(T))) {
      m_data = static_cast<T*>(block);
      m_capacity = m_size;
    }
  }

  void swap(PackedArray& other) noexcept {
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
  }

 private:
  // Counts are asked for as int all over, so a list ends where int does.
  static constexpr std::size_t kMaxSize = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
  static constexpr std::size_t kFirstCapacity = sizeof(T) >= 8 ? 4 : 32 / sizeof(T);

  static std::size_t checked(std::size_t total) {
    if (total > kMaxSize) throw std::bad_alloc();
    return total;
  }

  void enlarge(std::size_t count) {
    if (count > kMaxSize - m_size) throw std::bad_alloc();
    const std::size_t needed = m_size + count;
    std::size_t next = m_capacity == 0 ? kFirstCapacity : std::size_t{m_capacity} * 2;
    if (next > kMaxSize) next = kMaxSize;
    reallocate(next < needed ? needed : next);
  }

  void reallocate(std::size_t capacity) {
    void* const block = std::realloc(m_data, capacity * sizeof(T));
    if (!block) throw std::bad_alloc();
    m_data = static_cast<T*>(block);
    m_capacity = static_cast<std::uint32_t>(capacity);
  }

  T* m_data = nullptr;
  std::uint32_t m_size = 0;
  std::uint32_t m_capacity = 0;
};

static_assert(sizeof(PackedArray<float>) == 16);

}  // namespace vrml
