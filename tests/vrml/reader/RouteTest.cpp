// Routes: which texts make one, that each is there once, and how it is written.

#include "vrml/reader/Route.h"

#include <gtest/gtest.h>

#include <sstream>

#include "ReaderTesting.h"
#include "vrml/fields/SFBool.h"
#include "vrml/nodes/Node.h"

namespace vrml {
namespace {

using readertest::loadText;

// The routes of a file with two sensors a and b, as they are written.
std::string routesOf(const std::string& routes) {
  SceneGraph scene;
  loadText(scene,
           "DEF a TouchSensor { }\nDEF b TouchSensor { }\nDEF t Transform { }\n"
           "DEF s Script { eventIn SFBool go eventOut SFBool done }\n" +
               routes);
  EXPECT_TRUE(scene.succeeded()) << routes;
  std::ostringstream out;
  for (const Route* route = scene.getFirstRoute(); route; route = route->next()) route->write(out);
  return out.str();
}

TEST(Route, is_made_from_the_line_behind_the_word) {
  struct Row {
    const char* name;
    const char* line;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"event to exposed field", "ROUTE a.isActive TO b.enabled", "ROUTE a.isActive TO b.enabled\n"},
           {"set_ is taken off", "ROUTE a.isActive TO b.set_enabled", "ROUTE a.isActive TO b.enabled\n"},
           {"_changed is taken off", "ROUTE a.enabled_changed TO b.enabled", "ROUTE a.enabled TO b.enabled\n"},
           {"from an exposed field", "ROUTE t.translation TO a.enabled", "ROUTE t.translation TO a.enabled\n"},
           {"blanks around the dots", "ROUTE\ta . isActive TO b .enabled", "ROUTE a.isActive TO b.enabled\n"},
           {"words behind it", "ROUTE a.isActive TO b.enabled and more # words", "ROUTE a.isActive TO b.enabled\n"},
           {"a carriage return", "ROUTE a.isActive TO b.enabled\r", "ROUTE a.isActive TO b.enabled\n"},
           {"the events of a script", "ROUTE a.isActive TO s.go\nROUTE s.done TO b.enabled",
            "ROUTE a.isActive TO s.go\nROUTE s.done TO b.enabled\n"},
           {"given twice", "ROUTE a.isActive TO b.enabled\nROUTE a.isActive TO b.set_enabled",
            "ROUTE a.isActive TO b.enabled\n"},
           {"from a node to itself", "ROUTE a.isActive TO a.enabled", ""},
           {"an unknown node", "ROUTE x.isActive TO b.enabled\nROUTE a.isActive TO x.enabled", ""},
           {"an unknown field", "ROUTE a.nosuch TO b.enabled\nROUTE a.isActive TO b.nosuch", ""},
           {"to an event that only goes out", "ROUTE a.isActive TO b.isActive", ""},
           {"from an event that only comes in", "ROUTE s.go TO b.enabled", ""},
           {"without TO", "ROUTE a.isActive b.enabled", ""},
           {"a part of it", "ROUTE\nROUTE a\nROUTE a.isActive\nROUTE a.isActive TO\nROUTE a.isActive TO b", ""},
       })
    EXPECT_EQ(routesOf(row.line), row.expected) << row.name;
}

TEST(Route, needs_its_nodes_in_front_of_it) {
  SceneGraph scene;
  loadText(scene, "ROUTE a.isActive TO b.enabled\nDEF a TouchSensor { }\nDEF b TouchSensor { }\n");
  EXPECT_TRUE(scene.succeeded());
  EXPECT_EQ(scene.getFirstRoute(), nullptr);
}

TEST(Route, leads_from_the_source_of_a_reference) {
  SceneGraph scene;
  loadText(scene, "DEF a TouchSensor { }\nDEF b TouchSensor { }\nUSE a\nROUTE a.isActive TO b.enabled\n");
  ASSERT_NE(scene.getFirstRoute(), nullptr);
  EXPECT_EQ(scene.getFirstRoute()->getFromNode(), scene.findNodeByName("a"));
}

TEST(Route, is_found_by_its_four_members) {
  SceneGraph scene;
  loadText(
      scene,
      "DEF a TouchSensor { }\nDEF b TouchSensor { }\nROUTE a.isActive TO b.enabled\nROUTE b.isActive TO a.enabled\n");
  Route* const first = scene.getFirstRoute();
  ASSERT_NE(first, nullptr);
  Route* const second = first->next();
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->next(), nullptr);
  EXPECT_FALSE(first->flag());
  EXPECT_EQ(scene.findRoute(first->getFromNode(), first->getFromField(), first->getToNode(), first->getToField()),
            first);
  EXPECT_EQ(scene.findRoute(second->getFromNode(), second->getFromField(), second->getToNode(), second->getToField()),
            second);
  EXPECT_EQ(scene.findRoute(first->getFromNode(), first->getFromField(), first->getToNode(), second->getToField()),
            nullptr);
  EXPECT_EQ(scene.findRoute(nullptr, nullptr, nullptr, nullptr), nullptr);
}

TEST(Route, has_its_flag_cleared_by_the_pass_behind_a_load) {
  SceneGraph scene;
  loadText(scene,
           "DEF a TouchSensor { }\nDEF b TouchSensor { }\nROUTE a.isActive TO b.enabled\nROUTE b.isActive TO "
           "a.enabled\n");
  ASSERT_NE(scene.getFirstRoute(), nullptr);
  for (Route* route = scene.getFirstRoute(); route; route = route->next()) route->setFlag(true);
  EXPECT_TRUE(scene.resolve());
  for (const Route* route = scene.getFirstRoute(); route; route = route->next()) EXPECT_FALSE(route->flag());
}

TEST(Route, writes_nothing_without_members) {
  std::ostringstream out;
  Route(nullptr, nullptr, nullptr, nullptr).write(out);
  EXPECT_EQ(out.str(), "");
  SFBool field;
  field.setName("f");
  Route(nullptr, &field, nullptr, nullptr).write(out);
  EXPECT_EQ(out.str(), "ROUTE .f TO .\n");
}

}  // namespace
}  // namespace vrml
