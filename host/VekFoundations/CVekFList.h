#pragma once

// The host's list of pointers, walked from head to end.

#include <cstddef>
#include <vector>

// Owns nothing: whoever hands out a list says who owns the items. An item may be null.
template <class T>
class CVekFList {
 public:
  using Iterator = typename std::vector<T*>::const_iterator;

  // From the head, in order. Changing the list ends the validity of both.
  [[nodiscard]] Iterator begin() const { return m_items.begin(); }
  [[nodiscard]] Iterator end() const { return m_items.end(); }

  // The number of items, null ones counted.
  [[nodiscard]] std::size_t GetCount() const { return m_items.size(); }

  // Puts an item, which may be null, at the end.
  void Append(T* item) { m_items.push_back(item); }

  // Empties the list; the items stay.
  void Clear() { m_items.clear(); }

 private:
  std::vector<T*> m_items;
};
