// The node class stands above the values; a stand-in with a name is all that a reference needs.

#include "vrml/fields/SFNode.h"

#include <string>

#include <gtest/gtest.h>

namespace vrml {

class Node {
 public:
  explicit Node(const char* name) : m_name(name) {}
  [[nodiscard]] const char* getName() const { return m_name; }

 private:
  const char* m_name;
};

namespace {

class DerivedNode : public Node {
 public:
  using Node::Node;
};

TEST(SFNode, refers_to_a_node_and_prints_its_name) {
  Node named("lamp"), unnamed("");
  SFNode field;
  char buffer[16] = "rest";
  EXPECT_EQ(field.getValue(), nullptr);
  EXPECT_STREQ(field.getValue(buffer), "");
  field.setValue(&named);
  EXPECT_EQ(field.getValue(), &named);
  EXPECT_STREQ(field.getValue(buffer), "lamp");
  std::string vrml;
  field.appendVrml(vrml);
  EXPECT_EQ(vrml, "USE lamp");
  vrml.clear();
  SFNode(&unnamed).appendVrml(vrml);
  EXPECT_EQ(vrml, "NULL");
  field.setValue(static_cast<Node*>(nullptr));
  EXPECT_STREQ(field.getValue(buffer), "");
}

TEST(SFNode, ignores_texts) {
  Node named("lamp");
  SFNode field(&named);
  field.setValue("text");
  EXPECT_EQ(field.getValue(), &named);
}

TEST(SFNode, equals_a_reference_to_the_same_node) {
  DerivedNode one("same"), other("same");
  const SFNode field(&one), copy(field), different(&other), none;
  EXPECT_TRUE(field.equals(&copy));
  EXPECT_FALSE(field.equals(&different));
  EXPECT_FALSE(field.equals(&none));
  EXPECT_TRUE(none.equals(&none));
  EXPECT_EQ(field.getType(), FieldType::SFNode);
}

}  // namespace
}  // namespace vrml
