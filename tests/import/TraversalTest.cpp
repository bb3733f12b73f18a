#include <VekSG/sglTransform.h>

#include <set>

#include "embedded/LoaderSettings.h"
#include "tests/import/ImportTest.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"

namespace {

using importtest::dump;
using importtest::Loaded;
using importtest::OpenLoader;
using importtest::triangleShape;

/// A hook that writes down what it hears, with the names of the host's nodes, and answers false to some texts.
struct Hook {
  std::string log;
  std::set<std::string> vetoes;

  static bool hear(sglNode* created, void* fileNode, const std::string& event, void* userData) {
    auto& hook = *static_cast<Hook*>(userData);
    hook.log += event + "(";
    hook.log += created == nullptr ? "-" : dump(created);
    hook.log += std::string(", ") + static_cast<vrml::Node*>(fileNode)->getTypeName() + ") ";
    return !hook.vetoes.contains(event);
  }

  void registerWithHost() { embedded::loaderSettings().hooks["wrl"] = {&Hook::hear, this}; }
};

class Traversal : public importtest::ImportTest {};

TEST_F(Traversal, turns_grouping_nodes_into_host_groups) {
  const std::string s = triangleShape();
  const struct {
    const char* name;
    std::string world;
    const char* scene;
  } rows[] = {
      {"a group has a geode in front", "Group { }", "Transform(Group(Geode{}))"},
      {"a named group names its geode", "DEF a Group { }", "Transform(Group:a(Geode:a{}))"},
      {"a group's shape", "Group { children " + s + " }", "Transform(Group(Geode{0 1 2}))"},
      {"a transform has a geode in front", "Transform { }", "Transform(Transform(Geode{}))"},
      {"a named transform names its parent, not its geode", "DEF a Transform { }", "Transform:a(Transform:a(Geode{}))"},
      {"an unnamed transform takes its parent's name", "DEF b Group { children Transform { } }",
       "Transform(Group:b(Geode:b{} Transform:b(Geode{})))"},
      {"a named transform in a named group renames it", "DEF B Group { children DEF A Transform { } }",
       "Transform(Group:A(Geode:B{} Transform:A(Geode{})))"},
      {"an unnamed top-level transform takes the root's name", "DEF a Transform { } Transform { }",
       "Transform:a(Transform:a(Geode{}) Transform:a(Geode{}))"},
      {"a named transform has its name back after its children",
       "DEF o Transform { children [ DEF i Transform { } Transform { } ] }",
       "Transform:o(Transform:o(Geode{} Transform:i(Geode{}) Transform:i(Geode{})))"},
      {"an unnamed transform takes its parent's name again after its children",
       "DEF p Group { children Transform { children DEF i Transform { } } }",
       "Transform(Group:p(Geode:p{} Transform:p(Geode{} Transform:i(Geode{}))))"},
      {"ranges frame a level of detail", "LOD { range [ 10, 25.5 ] level [ Group { } Group { } ] }",
       "Transform(LOD<0 10 25.5 1e+07>(Group(Geode{}) Group(Geode{})))"},
      {"a level of detail without ranges", "LOD { level Group { } }", "Transform(LOD<0 1e+07>(Group(Geode{})))"},
      {"a level of detail is named last", "DEF l LOD { level DEF t Transform { } }",
       "Transform(LOD:l<0 1e+07>(Transform:t(Geode{})))"},
      {"a transform below an unnamed level of detail names it", "LOD { level DEF t Transform { } }",
       "Transform(LOD:t<0 1e+07>(Transform:t(Geode{})))"},
      {"no choice", "Switch { choice [ Group { } ] }", "Transform(Switch<-2>(Group(Geode{})))"},
      {"a choice", "DEF s Switch { whichChoice 0 choice [ Group { } ] }", "Transform(Switch:s<0>(Group(Geode{})))"},
      {"a choice past the last", "Switch { whichChoice 5 choice [ Group { } Group { } Group { } ] }",
       "Transform(Switch<5>(Group(Geode{}) Group(Geode{}) Group(Geode{})))"},
      {"a negative choice that is not -1", "Switch { whichChoice -7 }", "Transform(Switch<-7>())"},
      {"the host's own number for none", "Switch { whichChoice -2 }", "Transform(Switch<-2>())"},
      {"a billboard", "DEF b Billboard { axisOfRotation 1 0 -2.5 }", "Transform(Billboard:b<1 0 -2.5 / 2>())"},
      {"a billboard's shape brings a geode along", "Billboard { children " + s + " }",
       "Transform(Billboard<0 1 0 / 2>(Geode{0 1 2}))"},
      {"a billboard is named last", "DEF b Billboard { children DEF t Transform { } }",
       "Transform(Billboard:b<0 1 0 / 2>(Transform:t(Geode{})))"},
      {"an anchor vanishes", "DEF g Group { children DEF a Anchor { children [ Group { } " + s + " ] } }",
       "Transform(Group:g(Geode:g{0 1 2} Group(Geode{})))"},
      {"a collision vanishes", "Group { children Collision { children [ Transform { } " + s + " ] } }",
       "Transform(Group(Geode{0 1 2} Transform(Geode{})))"},
      {"a collision's proxy is not converted", "Collision { proxy Group { } children Transform { } }",
       "Transform(Transform(Geode{}))"},
      {"a transform in an anchor names the group around it",
       "DEF g Group { children Anchor { children DEF t Transform { } } }",
       "Transform(Group:t(Geode:g{} Transform:t(Geode{})))"},
      {"anchors in anchors", "Anchor { children Anchor { children [ Group { } Anchor { } ] } }",
       "Transform(Group(Geode{}))"},
      {"nodes that are nothing to the host", "Viewpoint { } WorldInfo { } Group { } Fog { } TimeSensor { }",
       "Transform(Group(Geode{}))"},
      {"siblings keep their order", "Group { } LOD { } Transform { } Switch { } Billboard { }",
       "Transform(Group(Geode{}) LOD<0 1e+07>() Transform(Geode{}) Switch<-2>() Billboard<0 1 0 / 2>())"},
      {"shapes that are levels share the first one's geode", "LOD { level [ " + s + s + " ] }",
       "Transform(LOD<0 1e+07>(Geode{0 1 2, 0 1 2}))"},
      {"a used group", "DEF g Group { children " + s + " } USE g",
       "Transform(Group:g(Geode:g{0 1 2}) Group:g(Geode:g{0 1 2}))"},
      {"a used level of detail", "DEF l LOD { range 3 level Group { } } USE l",
       "Transform(LOD:l<0 3 1e+07>(Group(Geode{})) LOD:l<0 3 1e+07>(Group(Geode{})))"},
      {"a used switch", "DEF s Switch { whichChoice 0 choice Group { } } USE s",
       "Transform(Switch:s<0>(Group(Geode{})) Switch:s<0>(Group(Geode{})))"},
      {"a used billboard", "DEF b Billboard { axisOfRotation 0 0 1 } USE b",
       "Transform(Billboard:b<0 0 1 / 2>() Billboard:b<0 0 1 / 2>())"},
      {"a name that nothing bears", "USE nothing Group { }", "Transform(Group(Geode{}))"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.name) + ": " + row.world);
    const Loaded loaded = load(row.world);
    EXPECT_EQ(loaded.text(), row.scene);
    EXPECT_EQ(loaded.report(), "");
  }
}

TEST_F(Traversal, gives_a_transform_its_matrix_also_where_it_is_used) {
  const Loaded loaded = load("DEF t Transform { translation 1 2 3 rotation 0 0 1 1.5707963 scale 2 1 1 } USE t");
  ASSERT_EQ(loaded.scene()->getNumChildren(), 2U);
  for (unsigned i = 0; i < 2; ++i) {
    const auto& transform = dynamic_cast<const sglTransform<float>&>(*loaded.scene()->getChild(i));
    constexpr float kWanted[16] = {0, 2, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1};
    for (unsigned place = 0; place < 16; ++place) EXPECT_NEAR(transform.getMatrix()[place], kWanted[place], 1e-6F);
  }
}

TEST_F(Traversal, an_inlined_file_stands_in_the_group_around_it) {
  writeWorld(triangleShape() + "DEF p Transform { }", "part.wrl");
  const Loaded loaded = load("DEF g Group { children Inline { url \"part.wrl\" } }");
  EXPECT_EQ(loaded.text(), "Transform(Group:p(Geode:g{0 1 2} Transform:p(Geode{})))");
}

TEST_F(Traversal, tells_the_hook_of_every_node_in_order) {
  Hook hook;
  hook.registerWithHost();
  const struct {
    const char* name;
    std::string world;
    const char* calls;
  } rows[] = {
      {"a group", "Group { }", "onParse:Group(-, Group) onCreate:sglGroup(Group(Geode{}), Group) "},
      {"a transform", "DEF t Transform { }",
       "onParse:Transform(-, Transform) onCreate:sglTransform(Transform:t(Geode{}), Transform) "},
      {"a level of detail", "LOD { }", "onParse:LOD(-, LOD) onCreate:sglLOD(LOD<0 1e+07>(), LOD) "},
      {"a switch", "Switch { }", "onParse:Switch(-, Switch) onCreate:sglSwitch(Switch<-2>(), Switch) "},
      {"a billboard", "Billboard { }",
       "onParse:Billboard(-, Billboard) onCreate:sglBillboard(Billboard<0 1 0 / 2>(), Billboard) "},
      {"a shape", triangleShape(), "onParse:Shape(-, Shape) onCreate:sglGeode(Geode{0 1 2}, Shape) "},
      {"a shape of text", "Shape { geometry Text { } }", "onParse:Shape(-, Shape) onCreate:sglGeode(Geode{}, Shape) "},
      {"a shape without geometry", "Shape { appearance Appearance { } }", "onParse:Shape(-, Shape) "},
      {"a face set without coordinates", "Shape { geometry IndexedFaceSet { } }", "onParse:Shape(-, Shape) "},
      {"a node that is nothing to the host", "Viewpoint { }", "onParse:Viewpoint(-, Viewpoint) "},
      {"a whole subtree before its top", "Group { children [ Anchor { children LOD { } } " + triangleShape() + " ] }",
       "onParse:Group(-, Group) onParse:Anchor(-, Anchor) onParse:LOD(-, LOD) onCreate:sglLOD(LOD<0 1e+07>(), LOD) "
       "onParse:Shape(-, Shape) onCreate:sglGeode(Geode{0 1 2}, Shape) "
       "onCreate:sglGroup(Group(Geode{0 1 2} LOD<0 1e+07>()), Group) "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    hook.log.clear();
    load(row.world);
    EXPECT_EQ(hook.log, row.calls);
  }
}

TEST_F(Traversal, drops_what_the_hook_vetoes) {
  const std::string s = triangleShape();
  Hook hook;
  hook.registerWithHost();
  const struct {
    const char* name;
    std::set<std::string> vetoes;
    std::string world;
    const char* scene;
  } rows[] = {
      {"a group and all below it",
       {"onParse:Group"},
       "Group { children [ Transform { } " + s + " ] } LOD { }",
       "Transform(LOD<0 1e+07>())"},
      {"a group that is built already",
       {"onCreate:sglGroup"},
       "Group { children [ Transform { } " + s + " ] } LOD { }",
       "Transform(LOD<0 1e+07>())"},
      {"an anchor with its children",
       {"onParse:Anchor"},
       "Anchor { children Group { } } Switch { }",
       "Transform(Switch<-2>())"},
      {"shapes only",
       {"onParse:Shape"},
       "Group { children [ " + s + " Transform { } ] }",
       "Transform(Group(Geode{} Transform(Geode{})))"},
      {"transforms, though they have named their parent",
       {"onCreate:sglTransform"},
       "DEF g Group { children DEF t Transform { } }",
       "Transform(Group:t(Geode:g{}))"},
      {"transforms before they can name anything",
       {"onParse:Transform"},
       "DEF g Group { children DEF t Transform { } }",
       "Transform(Group:g(Geode:g{}))"},
      {"levels of detail", {"onCreate:sglLOD"}, "LOD { level Group { } } Group { }", "Transform(Group(Geode{}))"},
      {"switches", {"onCreate:sglSwitch"}, "Switch { choice Group { } } Group { }", "Transform(Group(Geode{}))"},
      {"billboards",
       {"onCreate:sglBillboard"},
       "Billboard { children Group { } } Group { }",
       "Transform(Group(Geode{}))"},
      {"inner and outer",
       {"onCreate:sglGroup", "onCreate:sglLOD"},
       "Group { children LOD { level Group { children " + s + " } } } Switch { }",
       "Transform(Switch<-2>())"},
      {"a new geode", {"onCreate:sglGeode"}, s + "Switch { }", "Transform(Switch<-2>())"},
      {"a primitive's geode and its transform",
       {"onCreate:sglGeode"},
       "Shape { geometry Box { } } Switch { }",
       "Transform(Switch<-2>())"},
      {"a shared geode",
       {"onCreate:sglGeode"},
       "Group { children [ " + s + " Transform { } ] }",
       "Transform(Group(Transform(Geode{})))"},
      {"a shared geode with its group",
       {"onCreate:sglGeode", "onCreate:sglGroup"},
       "Group { children [ " + s + " Transform { } ] } Switch { }",
       "Transform(Switch<-2>())"},
      {"a shared geode of a primitive",
       {"onCreate:sglGeode"},
       "Group { children Shape { geometry Sphere { } } }",
       "Transform(Group())"},
      {"everything", {"onParse:Group", "onParse:Shape"}, s + "Group { }", "none"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    hook.vetoes = row.vetoes;
    EXPECT_EQ(load(row.world).text(), row.scene);
  }
}

/// A hook that answers false to the geode of the shape of this number, from 1.
struct NthGeode {
  int number;
  int seen = 0;

  static bool hear(sglNode* /*created*/, void* /*fileNode*/, const std::string& event, void* userData) {
    auto& hook = *static_cast<NthGeode*>(userData);
    return event != "onCreate:sglGeode" || ++hook.seen != hook.number;
  }
};

TEST_F(Traversal, a_vetoed_shape_takes_the_shared_geode_and_its_shapes_along) {
  const struct {
    int vetoed;
    const char* scene;
  } rows[] = {
      // The next shape finds no geode in front, makes one, and appends it.
      {1, "Transform(Group(Transform(Geode{}) Geode{0 1 2} Geode{0 1 2}))"},
      {2, "Transform(Group(Transform(Geode{}) Geode{0 1 2}))"},
      {3, "Transform(Group(Transform(Geode{})))"},
      {4, "Transform(Group(Geode{0 1 2, 0 1 2, 0 1 2} Transform(Geode{})))"},
  };
  const std::string s = triangleShape();
  const std::string world = "Group { children [ Transform { } " + s + s + s + " ] }";
  for (const auto& row : rows) {
    SCOPED_TRACE(row.vetoed);
    NthGeode hook{row.vetoed};
    embedded::loaderSettings().hooks["wrl"] = {&NthGeode::hear, &hook};
    EXPECT_EQ(load(world).text(), row.scene);
    EXPECT_EQ(hook.seen, 3);
  }
}

TEST_F(Traversal, without_a_hook_everything_is_wanted) {
  OpenLoader loader;
  EXPECT_EQ(loader.m_callback, nullptr);
  EXPECT_TRUE(loader.doCallback(nullptr, nullptr, "onParse:", "Group"));
}

TEST_F(Traversal, hands_the_hook_its_own_data_back) {
  Hook hook;
  hook.registerWithHost();
  load("", {}, [&hook](const OpenLoader& loader) {
    EXPECT_EQ(loader.m_callback, &Hook::hear);
    EXPECT_EQ(loader.m_callbackData, &hook);
  });
}

/// A chain of nodes of one type, as deep as it is told, with a shape at the end; unnamed, or named at the top.
std::unique_ptr<vrml::Node> chain(vrml::NodeType type, std::size_t depth) {
  std::unique_ptr<vrml::Node> top(vrml::createNode(type));
  vrml::Node* innermost = top.get();
  for (std::size_t i = 1; i < depth; ++i) {
    vrml::Node* const child = vrml::createNode(type);
    innermost->addChildNode(child);
    innermost = child;
  }
  return top;
}

TEST_F(Traversal, goes_down_as_far_as_a_tree_is_deep) {
  constexpr std::size_t kDepth = 100000;
  const struct {
    vrml::NodeType type;
    std::size_t hostDepth;
  } rows[] = {{vrml::nodeType("Transform"), kDepth},
              {vrml::nodeType("Group"), kDepth},
              {vrml::nodeType("Anchor"), 0},
              {vrml::nodeType("Billboard"), kDepth}};
  for (const auto& row : rows) {
    SCOPED_TRACE(vrml::nodeTypeName(row.type));
    const std::unique_ptr<vrml::Node> top = chain(row.type, kDepth);
    OpenLoader loader;
    sglGroup root;
    loader.travNode(&root, top.get());
    std::size_t depth = 0;
    for (const sglGroup* group = &root; group != nullptr && group->getNumChildren() != 0; ++depth)
      group = dynamic_cast<const sglGroup*>(group->getChild(group->getNumChildren() - 1));
    EXPECT_EQ(depth, row.type == vrml::nodeType("Billboard") || row.hostDepth == 0 ? row.hostDepth : row.hostDepth + 1);
  }
}

}  // namespace
