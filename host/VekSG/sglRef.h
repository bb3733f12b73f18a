#pragma once

// A holder of a counted object (sglReferenced).

#include <cstddef>
#include <type_traits>
#include <utility>

// Takes a reference when it is given an object and releases it at its end. May be null.
template <class T>
class sglRef {
 public:
  sglRef() = default;
  sglRef(std::nullptr_t) {}
  sglRef(T* object) : m_object(object) { take(); }
  sglRef(const sglRef& other) : m_object(other.m_object) { take(); }
  sglRef(sglRef&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> sglRef(const sglRef<U>& other) : m_object(other.get()) { take(); }
  ~sglRef() {
    if (m_object != nullptr) m_object->unref();
  }
  sglRef& operator=(sglRef other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }

  [[nodiscard]] T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  T& operator*() const { return *m_object; }
  explicit operator bool() const { return m_object != nullptr; }

 private:
  void take() {
    if (m_object != nullptr) m_object->ref();
  }

  T* m_object = nullptr;
};
