// What the wide rules accept that the exact ones refuse, difference by difference.

#include <gtest/gtest.h>

#include "ReaderTesting.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/RootNode.h"
#include "vrml/reader/Rules.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::loaded;
using readertest::loadText;
using readertest::verdict;
using readertest::written;

struct Row {
  const char* name;
  std::string text;
  std::string expected;
};

// Each text is refused by the exact rules, accepted by the wide ones, and what it is written as reads back.
void expectWide(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    const EchoCapture echo;
    SceneGraph scene;
    loadText(scene, row.text);
    EXPECT_EQ(verdict(scene), "ok") << row.name;
    EXPECT_TRUE(scene.readWide()) << row.name;
    ASSERT_FALSE(scene.notes().empty()) << row.name;
    EXPECT_EQ(scene.notes()[0].kind, NoteKind::secondReading) << row.name;
    EXPECT_EQ(written(scene), row.expected) << row.name;
    SceneGraph again;
    loadText(again, written(scene));
    EXPECT_EQ(written(again), row.expected) << row.name;
  }
}

TEST(SecondReading, counts_the_braces_of_instances) {
  expectWide({
      {"a node in an instance",
       "PROTO P [ field SFNode g NULL ] { Shape { geometry IS g } }\nP { g Sphere { radius 2 } }",
       "Shape {\n\tgeometry Sphere {\n\t\tradius 2\n\t}\n}\n"},
      {"a list of nodes", "PROTO P [ field MFNode c [ ] ] { Switch { choice IS c } }\nP { c [ Shape { } Shape { } ] }",
       "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t\tShape {\n\t\t}\n\t]\n}\n"},
      {"a node in the declaration", "PROTO P [ field SFNode g Sphere { } ] { Shape { geometry IS g } }\nP { }",
       "Shape {\n\tgeometry Sphere {\n\t\tradius 1\n\t}\n}\n"},
      {"a reference",
       "Shape { geometry DEF s Sphere { } }\nPROTO P [ field SFNode g NULL ] { Shape { geometry IS g } }\nP { g USE s "
       "}",
       "Shape {\n\tgeometry DEF s Sphere {\n\t\tradius 1\n\t}\n}\nShape {\n\tgeometry USE s\n}\n"},
      {"an instance in an instance",
       "PROTO J [ field MFNode c [ ] ] { Switch { choice IS c } }\nDEF a J { c [ J { } DEF b J { c J { } } ] }",
       "DEF a Switch {\n\twhichChoice -1\n\tchoice [\n\t\tSwitch {\n\t\t\twhichChoice -1\n\t\t}\n\t\tDEF b Switch "
       "{\n\t\t\twhichChoice -1\n"
       "\t\t\tchoice [\n\t\t\t\tSwitch {\n\t\t\t\t\twhichChoice -1\n\t\t\t\t}\n\t\t\t]\n\t\t}\n\t]\n}\n"},
  });
}

TEST(SecondReading, knows_escapes_in_strings) {
  expectWide({
      {"a quote", "WorldInfo { title \"say \\\"hi\\\" }\" }", "WorldInfo {\n\ttitle \"say \\\"hi\\\" }\"\n}\n"},
      {"a backslash", "WorldInfo { title \"\\\"\" info \"a\\\\b\" }",
       "WorldInfo {\n\ttitle \"\\\"\"\n\tinfo [\n\t\t\"a\\\\b\"\n\t]\n}\n"},
      {"other backslashes", "WorldInfo { title \"\\\"\" info \"c\\d\" }",
       "WorldInfo {\n\ttitle \"\\\"\"\n\tinfo [\n\t\t\"c\\\\d\"\n\t]\n}\n"},
      {"in a PROTO",
       "PROTO W [ field SFString s \"\\\"}\\\"\" ] { WorldInfo { title IS s } }\nW { }\nWorldInfo { title \"x\\\"y\" }",
       "WorldInfo {\n\ttitle \"\\\"}\\\"\"\n}\nWorldInfo {\n\ttitle \"x\\\"y\"\n}\n"},
      {"in an unknown node", "Foo { \"\\\"}\" } Shape { }", "Shape {\n}\n"},
  });
}

TEST(SecondReading, knows_more_of_scripts) {
  const std::string head = "Script {\n\tdirectOutput FALSE\n\tmustEvaluate FALSE\n";
  expectWide({
      {"exposed fields", "Script { exposedField SFFloat x 1 }", head + "\tfield SFFloat x 1\n}\n"},
      {"nodes as values", "Script { field SFNode n Group { children [ Shape { } ] } eventIn SFBool go } Shape { }",
       head + "\tfield SFNode n Group { children [ Shape { } ] }\n\teventIn SFBool go\n}\nShape {\n}\n"},
      {"lists of nodes", "Script { field MFNode n [ DEF a Group { }, USE b ] url \"x\" }",
       head + "\turl [\n\t\t\"x\"\n\t]\n\tfield MFNode n [ DEF a Group { } USE b ]\n}\n"},
      {"zero bytes in a name", std::string("Script { field MFNode n [ USE a&\0b ] field SFNode m USE c&\0 }", 61),
       head + "\tfield MFNode n [ USE a&_b ]\n\tfield SFNode m USE c&_\n}\n"},
      {"fields without a value", "PROTO P [ ] { Script { field SFBool a IS b eventIn SFBool c IS d } }\nP { }",
       head + "\teventIn SFBool c\n}\n"},
  });
}

TEST(SecondReading, takes_field_keywords_for_names_of_nodes) {
  expectWide({
      {"of a PROTO", "PROTO level [ field SFFloat r 1 ] { Shape { geometry Sphere { radius IS r } } }\nlevel { r 3 }",
       "Shape {\n\tgeometry Sphere {\n\t\tradius 3\n\t}\n}\n"},
      {"of an unknown node", "Switch { choice [ size { 1 { } } Shape { } ] }",
       "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n"},
  });
}

TEST(SecondReading, passes_over_more_statements) {
  expectWide({
      {"a url list of anything", "EXTERNPROTO A [ ] [ \"x\" # ]\n foo 5 { [ ] } ]\nShape { }", "Shape {\n}\n"},
      {"EXPORT", "Shape { }\nEXPORT Handle\nShape { }", "Shape {\n}\nShape {\n}\n"},
      {"EXPORT in a list", "Switch { choice [ EXPORT a Shape { } ] EXPORT b }",
       "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n"},
  });
}

TEST(SecondReading, goes_on_behind_a_route) {
  const char* const expected =
      "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tDEF t TouchSensor {\n\t\t\tenabled TRUE\n\t\t}\n\t\tDEF u "
      "TouchSensor {\n\t\t\tenabled TRUE\n\t\t}\n"
      "\t]\n}\nShape {\n}\nROUTE t.isActive TO u.enabled\n";
  expectWide({
      {"on its line",
       "Switch { choice [ DEF t TouchSensor { } DEF u TouchSensor { } ] ROUTE t.isActive TO u.set_enabled } Shape { }",
       expected},
      {"without a blank",
       "Switch { choice [ DEF t TouchSensor { } DEF u TouchSensor { } ] ROUTE t.isActive TO u.set_enabled} Shape { }",
       expected},
      {"in the next line",
       "Switch { choice [ DEF t TouchSensor { } DEF u TouchSensor { } ] ROUTE t.isActive TO\nu.set_enabled }\nShape { "
       "}",
       expected},
  });
}

TEST(SecondReading, takes_more_characters_for_the_name_of_a_USE) {
  expectWide({{"a dot and a colon", "DEF part.3:a Shape { } USE part.3:a", "DEF part.3:a Shape {\n}\nUSE part.3:a\n"},
              {"up to a bracket", "Switch { choice [ DEF x.y Shape { } USE x.y] }",
               "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tDEF x.y Shape {\n\t\t}\n\t\tUSE x.y\n\t]\n}\n"}});
}

TEST(SecondReading, drops_events_of_the_open_node_in_expansions) {
  expectWide({
      {"exposed fields as events",
       "PROTO T [ exposedField SFVec3f t 1 2 3 ] { Transform { set_translation IS t translation_changed IS t "
       "translation IS t } }\nT { t 4 5 6 }",
       "Transform {\n\ttranslation 4 5 6\n\trotation 0 0 1 0\n\tscale 1 1 1\n\tscaleOrientation 0 0 1 0\n\tcenter 0 0 "
       "0\n}\n"},
      {"children as events",
       "PROTO G [ field MFNode c [ Shape { } ] ] { Group { addChildren IS c removeChildren IS c children IS c } }\nG { "
       "}",
       "Group {\n\tchildren [\n\t\tShape {\n\t\t}\n\t]\n}\n"},
      {"events of the node's own",
       "PROTO S [ field SFFloat f 0.5 field SFString s \"x\" ] { TimeSensor { fraction_changed IS f isActive IS s time "
       "IS f } }\nS { }",
       "TimeSensor {\n\tenabled TRUE\n\tloop FALSE\n\tcycleInterval 1.000000\n\tstartTime 0.000000\n\tstopTime "
       "0.000000\n}\n"},
  });
}

TEST(SecondReading, drops_values_of_any_kind_with_their_events) {
  for (const char* const value :
       {"1 2 3", "\"x\"", "NULL", "USE a", "USE nobody", "[ ]", "[ [ 1 ] \"]\" ]", "Shape { }",
        "[ Shape { geometry Box { } } USE a ]", "Switch { choice [ Shape { } ] }"}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(loaded("PROTO P [ field MFNode n [ ] ] { Group { addChildren " + std::string(value) +
                     " children IS n } }\nDEF a Shape { }\nP { n [ Box { } ] }"),
              "DEF a Shape {\n}\nGroup {\n\tchildren [\n\t\tBox {\n\t\t\tsize 2 2 2\n\t\t}\n\t]\n}\n");
  }
}

TEST(SecondReading, drops_nothing_of_the_kind_elsewhere) {
  for (const char* const text :
       {"Transform { translation_changed 1 2 3 }", "PROTO T [ field SFFloat f 1 ] { Group { nosuch IS f } }\nT { }",
        "PROTO T [ field SFFloat f 1 ] { Sphere { addChildren IS f } }\nT { }"}) {
    SceneGraph scene;
    loadText(scene, text);
    EXPECT_FALSE(scene.succeeded()) << text;
  }
}

TEST(SecondReading, leaves_alone_what_the_exact_rules_accept) {
  struct Accepted {
    const char* text;
    const char* expected;
  };
  for (const Accepted& row : std::vector<Accepted>{
           {"WorldInfo { title \"a\\\\b\" }", "WorldInfo {\n\ttitle \"a\\\\b\"\n}\n"},
           {"DEF a Shape { }\nROUTE a.b TO c.d } foo\n", "DEF a Shape {\n}\n"},
           {"DEF a.b Shape { } Group { children USE a\n}", "DEF a.b Shape {\n}\nGroup {\n}\n"},
       }) {
    SceneGraph scene;
    loadText(scene, row.text);
    EXPECT_EQ(verdict(scene), "ok") << row.text;
    EXPECT_FALSE(scene.readWide()) << row.text;
    EXPECT_EQ(written(scene), row.expected) << row.text;
  }
}

TEST(SecondReading, reports_the_error_of_the_first_when_both_refuse) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, "\nShape { }\nWorldInfo { title \"a\\\" b\" }\nShape { }\nBox { radius 1 }\n");
  EXPECT_EQ(verdict(scene), "4:b:WorldInfo { title \"a\\\" b\" }");
  EXPECT_FALSE(scene.readWide());
  EXPECT_EQ(scene.getNodeCount(), 2) << "and has the tree of the first";
}

TEST(SecondReading, is_not_tried_behind_a_limit) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, "PROTO P [ ] { P { } }\nP { }\n");
  EXPECT_EQ(verdict(scene), "3:P:P { }");
  EXPECT_FALSE(scene.readWide());
}

TEST(Rules, are_all_off_or_all_on) {
  const Rules exact = Rules::exact();
  const Rules wide = Rules::wide();
  for (const bool Rules::*const rule :
       {&Rules::nestedInstances, &Rules::stringEscapes, &Rules::scriptExtensions, &Rules::fieldKeywordNamesNode,
        &Rules::looseStatements, &Rules::routesShareLines, &Rules::wideUseNames, &Rules::dropsExpandedEvents}) {
    EXPECT_FALSE(exact.*rule);
    EXPECT_TRUE(wide.*rule);
  }
}

}  // namespace
}  // namespace vrml
