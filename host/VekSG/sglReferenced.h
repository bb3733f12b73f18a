#pragma once

// Shared lifetime for what several drawables hold together: render states, textures, arrays.

#include <VekFoundations/VekExport.h>

#include <cstdint>

// Counts its holders and destroys itself when the last one lets go. A new object has no holder yet: put it into a
// sglRef, or hand it to a host object that takes a reference, at once. Such objects live on the heap and are never
// deleted directly. Counts are not guarded: one thread at a time.
class VEK_API sglReferenced {
 public:
  sglReferenced() = default;
  sglReferenced(const sglReferenced&) = delete;
  sglReferenced& operator=(const sglReferenced&) = delete;

  void ref() const { ++m_refCount; }
  void unref() const {
    if (--m_refCount == 0) delete this;
  }
  [[nodiscard]] std::uint32_t getRefCount() const { return m_refCount; }

 protected:
  virtual ~sglReferenced();

 private:
  mutable std::uint32_t m_refCount = 0;
};
