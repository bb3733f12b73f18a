// The intrusive list: order, moving elements about, and the end of elements and heads.

#include "vrml/nodes/LinkedListNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace vrml {
namespace {

struct Item : LinkedListNode<Item> {
  explicit Item(char itemName, int* itemCounter = nullptr) : name(itemName), counter(itemCounter) {}
  ~Item() override {
    if (counter) ++*counter;
  }
  char name;
  int* counter;
};

std::string order(const LinkedListHead<Item>& list) {
  std::string forward;
  for (const Item* item = list.first(); item; item = item->next()) forward += item->name;
  std::string backward;
  for (const Item* item = list.last(); item; item = item->previous()) backward.insert(0, 1, item->name);
  EXPECT_EQ(forward, backward);
  return forward;
}

TEST(LinkedListNode, AFreshElementStandsAlone) {
  Item a('a');
  EXPECT_FALSE(a.isHead());
  EXPECT_FALSE(a.isLinked());
  EXPECT_EQ(a.next(), nullptr);
  EXPECT_EQ(a.previous(), nullptr);
  a.unlink();
  EXPECT_FALSE(a.isLinked());
}

TEST(LinkedListNode, KeepsTheOrderOfAppending) {
  LinkedListHead<Item> list;
  EXPECT_TRUE(list.isHead());
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.first(), nullptr);
  for (const char name : {'a', 'b', 'c'}) list.append(*new Item(name));
  list.prepend(*new Item('z'));
  EXPECT_FALSE(list.empty());
  EXPECT_EQ(order(list), "zabc");
}

TEST(LinkedListNode, InsertingMovesAnElement) {
  LinkedListHead<Item> list;
  LinkedListHead<Item> other;
  auto* const a = new Item('a');
  auto* const b = new Item('b');
  auto* const c = new Item('c');
  for (Item* item : {a, b, c}) list.append(*item);
  c->insertBefore(*a);
  EXPECT_EQ(order(list), "cab");
  b->insertBefore(*b);
  EXPECT_EQ(order(list), "cab");
  a->insertBefore(*b);
  EXPECT_EQ(order(list), "cab");
  other.append(*a);
  EXPECT_EQ(order(list), "cb");
  EXPECT_EQ(order(other), "a");
}

TEST(LinkedListNode, AnElementLeavesItsListWhenItEnds) {
  LinkedListHead<Item> list;
  auto* const a = new Item('a');
  list.append(*a);
  list.append(*new Item('b'));
  delete a;
  EXPECT_EQ(order(list), "b");
}

TEST(LinkedListNode, AHeadDestroysItsElements) {
  int destroyed = 0;
  {
    LinkedListHead<Item> list;
    for (int i = 0; i < 3; ++i) list.append(*new Item('x', &destroyed));
    list.deleteElements();
    EXPECT_EQ(destroyed, 3);
    EXPECT_TRUE(list.empty());
    list.append(*new Item('y', &destroyed));
  }
  EXPECT_EQ(destroyed, 4);
}

}  // namespace
}  // namespace vrml
