#pragma once

// The intrusive circular doubly linked list that strings together every collection of the reading front end. An element
// carries its own links, so that putting it into a list, or taking it out of one, allocates nothing and cannot fail.
// A list is a head (LinkedListHead) whose neighbours are its last and its first element.

namespace vrml {

template <class T>
class LinkedListHead;

/// Base of everything that stands in a list of T. A fresh element is linked to itself alone.
template <class T>
class LinkedListNode {
 public:
  LinkedListNode() noexcept = default;
  virtual ~LinkedListNode() { unlink(); }
  LinkedListNode(const LinkedListNode&) = delete;
  LinkedListNode& operator=(const LinkedListNode&) = delete;

  /// Takes this element out of its list: its neighbours are joined and it is linked to itself. Harmless when it stands
  /// alone.
  void unlink() noexcept {
    m_previous->m_next = m_next;
    m_next->m_previous = m_previous;
    m_previous = m_next = this;
  }

  /// Puts this element in front of `place`, taking it out of the list it stands in. In front of a head is the end of
  /// its list.
  void insertBefore(LinkedListNode& place) noexcept {
    if (&place == this) return;
    unlink();
    m_previous = place.m_previous;
    m_next = &place;
    m_previous->m_next = this;
    place.m_previous = this;
  }

  /// The element behind this one; null at the last one and for an element that stands alone.
  [[nodiscard]] T* next() const noexcept { return elementAt(m_next); }
  /// The element in front of this one; null at the first one and for an element that stands alone.
  [[nodiscard]] T* previous() const noexcept { return elementAt(m_previous); }

  /// True for the head of a list, false for an element.
  [[nodiscard]] bool isHead() const noexcept { return m_isHead; }
  /// True when this element stands in a list with at least one other member, the head counted.
  [[nodiscard]] bool isLinked() const noexcept { return m_next != this; }

 protected:
  /// The member behind this one as it is linked, head or not.
  [[nodiscard]] LinkedListNode* rawNext() const noexcept { return m_next; }

 private:
  friend class LinkedListHead<T>;
  struct HeadTag {};
  explicit LinkedListNode(HeadTag) noexcept : m_isHead(true) {}

  [[nodiscard]] T* elementAt(LinkedListNode* place) const noexcept {
    return place == this || place->m_isHead ? nullptr : static_cast<T*>(place);
  }

  LinkedListNode* m_previous = this;
  LinkedListNode* m_next = this;
  bool m_isHead = false;  // last, so that a derived class can use the bytes behind it
};

/// The head of a list of T, which owns the list's elements.
template <class T>
class LinkedListHead final : public LinkedListNode<T> {
 public:
  LinkedListHead() noexcept : LinkedListNode<T>(typename LinkedListNode<T>::HeadTag{}) {}
  ~LinkedListHead() override { deleteElements(); }

  /// The first element; null when the list is empty.
  [[nodiscard]] T* first() const noexcept { return this->next(); }
  /// The last element; null when the list is empty.
  [[nodiscard]] T* last() const noexcept { return this->previous(); }
  [[nodiscard]] bool empty() const noexcept { return !this->isLinked(); }

  /// Puts `element` at the end; the list owns it from then on.
  void append(LinkedListNode<T>& element) noexcept { element.insertBefore(*this); }
  /// Puts `element` at the start; the list owns it from then on.
  void prepend(LinkedListNode<T>& element) noexcept { element.insertBefore(*this->rawNext()); }

  /// Deletes every element through its virtual destructor.
  void deleteElements() noexcept {
    while (T* element = first()) delete element;
  }
};

}  // namespace vrml
