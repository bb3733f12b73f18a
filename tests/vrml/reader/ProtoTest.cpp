// PROTO interfaces, and what an instance expands to.

#include "vrml/reader/Proto.h"

#include <gtest/gtest.h>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::loaded;
using readertest::tokens;

// The expansion with every run of white space as one blank.
std::string expanded(std::string_view interface, std::string_view body, std::string_view instance, bool wide = false) {
  Proto proto("P", body, interface, wide ? Rules::wide() : Rules::exact());
  std::string text;
  EXPECT_TRUE(proto.expand(instance, 100'000, text));
  std::string result;
  for (const char c : text)
    if (c != ' ' && c != '\n')
      result += c;
    else if (!result.empty() && result.back() != ' ')
      result += ' ';
  return result;
}

TEST(Proto, reads_its_interface) {
  const Proto proto("P", "",
                    "field SFFloat a 1.5 exposedField MFInt32 b [ 1 2 ] eventIn SFTime c eventOut SFBool d "
                    "field SFImage e 1 1 1 0 # comment ]\n field SFString url \"x\"",
                    Rules::exact());
  ASSERT_EQ(proto.declarations().size(), 6u);
  struct Row {
    InterfaceKind kind;
    FieldType type;
    const char* name;
    const char* value;
  };
  const Row rows[] = {{InterfaceKind::field, FieldType::SFFloat, "a", "1.5"},
                      {InterfaceKind::exposedField, FieldType::MFInt32, "b", "1, 2"},
                      {InterfaceKind::eventIn, FieldType::SFTime, "c", "-1.000000"},
                      {InterfaceKind::eventOut, FieldType::SFBool, "d", "TRUE"},
                      {InterfaceKind::field, FieldType::SFImage, "e", "1, 1, 1, 0"},
                      {InterfaceKind::field, FieldType::SFString, "url", "x"}};
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const Proto::Declaration& declaration = proto.declarations()[i];
    EXPECT_EQ(declaration.kind, rows[i].kind) << i;
    EXPECT_EQ(declaration.value->getType(), rows[i].type) << i;
    EXPECT_STREQ(declaration.value->getName(), rows[i].name) << i;
    std::string text;
    static_cast<const Field&>(*declaration.value).appendText(text);
    EXPECT_EQ(text, rows[i].value) << i;
  }
}

TEST(Proto, stops_reading_at_what_it_does_not_understand) {
  const auto count = [](std::string_view interface) {
    return Proto("P", "", interface, Rules::exact()).declarations().size();
  };
  EXPECT_EQ(count("field SFFloat a 1 field SFFloat b field SFFloat c 2"), 1u);
  EXPECT_EQ(count("field SFFloat a 1 field SFStrange b 2 field SFFloat c 2"), 1u);
  EXPECT_EQ(count("field SFFloat a 1 } field SFFloat c 2"), 1u);
  EXPECT_EQ(count("field SFFloat"), 0u);
  EXPECT_EQ(count("field"), 0u);
  EXPECT_EQ(count("x"), 0u);
  EXPECT_EQ(count(""), 0u);
}

TEST(Proto, replaces_IS_by_values) {
  struct Row {
    const char* name;
    const char* interface;
    const char* body;
    const char* instance;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"the declared value", "field SFFloat r 3.5", "Sphere { radius IS r }", "", "Sphere { radius 3.5 } "},
           {"the instance's value", "field SFFloat r 3.5", "Sphere { radius IS r }", "r 2", "Sphere { radius 2 } "},
           {"the instance's value stands for one instance", "field SFFloat r 3.5", "Sphere { radius IS r }", "q 2",
            "Sphere { radius 3.5 } "},
           {"the last of two values", "field SFFloat r 3.5", "Sphere { radius IS r }", "r 1 r 2",
            "Sphere { radius 2 } "},
           {"the first of two declarations", "field SFFloat r 1 field SFFloat r 2", "S { a IS r }", "", "S { a 1 } "},
           {"an unknown name takes the field with it", "field SFFloat r 1", "Cone { height IS h bottomRadius IS r }",
            "", "Cone { bottomRadius 1 } "},
           {"an event takes the field with it", "eventOut SFTime hit field SFBool on FALSE",
            "TouchSensor { touchTime IS hit enabled IS on }", "", "TouchSensor { enabled FALSE } "},
           {"a declared name stays", "eventIn SFTime go", "Script { eventIn SFTime now IS go url \"x\" }", "",
            "Script { eventIn SFTime now url \"x\" } "},
           {"a declared field stays, without a value", "", "Script { field SFTime now IS go url \"x\" }", "",
            "Script { field SFTime now url \"x\" } "},
           {"only name characters go", "", "A { } IS x B { }", "", "A { } B { } "},
           {"line ends between the words", "field SFFloat r 1", "S {\n a\n IS\n r\n b IS\n q }", "", "S { a 1 } "},
           {"nothing in front of it", "field SFFloat r 1", "IS r IS q", "", "1 "},
           {"words that only begin like it", "field SFFloat r 1", "S { ISA r IS r IS }", "", "S { ISA r 1 } "},
           {"commas and brackets", "field SFFloat r 1", "S { a [IS r,IS r] }", "", "S { a [ 1 , 1 ] } "},
       })
    EXPECT_EQ(expanded(row.interface, row.body, row.instance), row.expected) << row.name;
}

TEST(Proto, writes_values_that_read_back) {
  struct Row {
    const char* type;
    const char* value;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{{"SFBool", "FALSE", "FALSE"},
                                         {"SFFloat", "0.1234567", "0.1234567"},
                                         {"SFInt32", "-7", "-7"},
                                         {"SFVec2f", "1 2.5", "1 2.5"},
                                         {"SFVec3f", "1 2 3", "1 2 3"},
                                         {"SFColor", ".5 0 1", "0.5 0 1"},
                                         {"SFRotation", "0 0 1 .5", "0 0 1 0.5"},
                                         {"SFTime", "2.5", "2.5"},
                                         {"SFString", "\"a {b}\"", "\"a {b}\""},
                                         {"SFImage", "1 1 1 255", "1 1 1 255"},
                                         {"MFFloat", "[ 1, 2 ]", "[ 1, 2 ]"},
                                         {"MFFloat", "[ ]", "[ ]"},
                                         {"MFFloat", "7", "[ 7 ]"},
                                         {"MFInt32", "[ 1 -1 ]", "[ 1, -1 ]"},
                                         {"MFVec2f", "[ 1 2 3 4 ]", "[ 1 2, 3 4 ]"},
                                         {"MFVec3f", "1 2 3", "[ 1 2 3 ]"},
                                         {"MFColor", "[ 1 0 0 ]", "[ 1 0 0 ]"},
                                         {"MFRotation", "[ 0 1 0 2 ]", "[ 0 1 0 2 ]"},
                                         {"MFTime", "[ 1 2.5 ]", "[ 1, 2.5 ]"},
                                         {"MFString", "[ \"a\" \"\" ]", "[ \"a\", \"\" ]"},
                                         {"MFBool", "[ TRUE FALSE ]", "[ TRUE FALSE ]"},
                                         {"SFNode", "NULL", "NULL"},
                                         {"MFNode", "[ ]", "[ ]"}}) {
    const std::string interface = std::string("field ") + row.type + " v " + row.value;
    const std::string expected = std::string(row.expected) + " ";
    EXPECT_EQ(tokens(expanded(interface, "IS v", "")), tokens(expected)) << row.type << ' ' << row.value;
    EXPECT_EQ(tokens(expanded(std::string("field ") + row.type + " v " + row.value + " field SFBool b TRUE",
                              "IS v IS b", std::string("v ") + row.value)),
              tokens(expected + "TRUE"))
        << row.type << ' ' << row.value;
  }
}

TEST(Proto, holds_nodes_as_text_by_the_wide_rules) {
  struct Row {
    const char* interface;
    const char* instance;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"field SFNode n NULL", "", "NULL "},
           {"field SFNode n Shape { }", "", "Shape { } "},
           {"field SFNode n NULL", "n DEF a Shape { geometry Box { } }", "DEF a Shape { geometry Box { } } "},
           {"field SFNode n NULL", "n USE a.b", "USE a.b "},
           {"field MFNode n [ ]", "n [ Shape { } USE a, NULL ]", "[ Shape { } USE a NULL ] "},
           {"field MFNode n Group { children [ Shape { } ] }", "", "Group { children [ Shape { } ] } "},
           {"field MFNode n [ ] field SFFloat f 1", "n [ Shape { # }\n } ] f 2", "[ Shape { } ] "}})
    EXPECT_EQ(expanded(row.interface, "IS n", row.instance, true), row.expected)
        << row.interface << " | " << row.instance;
}

TEST(Proto, has_no_text_for_nodes_by_the_exact_rules) {
  EXPECT_EQ(expanded("field SFNode n Shape { } field SFFloat f 2", "IS n IS f", ""), "2 ");
  EXPECT_EQ(expanded("field MFNode n [ USE a ]", "a IS n b", ""), "a b ");
}

TEST(Proto, drops_whole_declarations_without_a_value_by_the_wide_rules) {
  EXPECT_EQ(expanded("", "Script { field SFTime now IS go url \"x\" }", "", true), "Script { url \"x\" } ");
  EXPECT_EQ(expanded("", "Script { exposedField SFTime now IS go url \"x\" }", "", true), "Script { url \"x\" } ");
  EXPECT_EQ(expanded("", "Script { eventIn SFTime now IS go url \"x\" }", "", true),
            "Script { eventIn SFTime now url \"x\" } ");
}

TEST(Proto, stops_at_the_room_that_is_left) {
  Proto proto("P", "Group { a IS v b IS v }", "field MFInt32 v [ 1 2 3 4 5 6 7 8 ]", Rules::exact());
  std::string text;
  EXPECT_TRUE(proto.expand("", 1000, text));
  const std::size_t length = text.size();
  std::string again;
  EXPECT_TRUE(proto.expand("", length, again));
  EXPECT_EQ(again, text);
  EXPECT_FALSE(proto.expand("", length - 1, again));
}

// ---- in files

TEST(Proto, stands_for_its_body) {
  EXPECT_EQ(loaded("PROTO C [ field SFInt32 n 3 ] { Switch { whichChoice IS n } }\nC { n 1 } C { } DEF c C { n 0 }"),
            "Switch {\n\twhichChoice 1\n}\nSwitch {\n\twhichChoice 3\n}\nDEF c Switch {\n\twhichChoice 0\n}\n");
}

TEST(Proto, is_delimited_by_its_own_brackets_and_braces) {
  struct Row {
    const char* name;
    const char* text;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"only the first node counts", "PROTO P [] { Shape { } Switch { } ROUTE a.b TO c.d }\nP { }",
            "node Shape | punct { | punct }"},
           {"an empty body is nothing", "PROTO P [] { }\nP { } Group", "node Group"},
           {"a body without a node", "PROTO P [] { USE a } P { } Group", "node Group"},
           {"brackets in the interface", "PROTO P [ field MFInt32 a [ 1 [ 2 ] ] ] { Shape { } } P { }",
            "node Shape | punct { | punct }"},
           {"strings in the interface", "PROTO P [ field SFString s \"]{\" ] { Text { string IS s } } P { }",
            "node Text | punct { | field string | string \"]{\" | punct }"},
           {"strings in the body", "PROTO P [] { Text { string \"} # x\" } } P { }",
            "node Text | punct { | field string | string \"} # x\" | punct }"},
           {"strings in an instance", "PROTO P [ field SFString s \"\" ] { Text { string IS s } } P { s \"a } b\" }",
            "node Text | punct { | field string | string \"a } b\" | punct }"},
           {"comments everywhere",
            "PROTO # [ {\nP # x\n[ # ]\n] # {\n{ # }\n Shape # {\n { # }\n } # }\n } P # {\n { # }\n } Group",
            "node Shape | punct { | punct } | node Group"},
           {"of two of one name the first holds", "PROTO P [] { Shape { } } PROTO P [] { Box { } } P { }",
            "node Shape | punct { | punct }"},
           {"no name", "PROTO [ ] { Group { } } Box", "node Box"},
           {"names are case-sensitive", "PROTO P [] { Shape { } } p", "identifier p"},
           {"a keyword stays a keyword", "PROTO Box [] { Shape { } } Box", "node Box"},
           {"an instance ends at its first brace", "PROTO P [ ] { Shape { } } P { x { } } Group",
            "node Shape | punct { | punct } | punct } | node Group"},
           {"a PROTO in front of the first node",
            "PROTO P [] { PROTO Q [ field SFFloat r 1 ] { Sphere { radius IS r } } Q { r 2 } } P { }",
            "node Sphere | punct { | field radius | integer 2 | punct }"},
           {"a DEF in the body", "PROTO P [] { DEF a Shape { } } P { }", "node Shape | punct { | punct }"},
       })
    EXPECT_EQ(tokens(row.text), row.expected) << row.name;
}

TEST(Proto, counts_the_braces_of_its_instances_by_the_wide_rules) {
  EXPECT_EQ(
      tokens("PROTO P [ field SFNode n NULL ] { Shape { geometry IS n } } P { n Text { string \"}\" } } Group", true),
      "node Shape | punct { | field geometry | node Text | punct { | field string | string \"}\" | punct } | punct } | "
      "node Group");
}

TEST(Proto, hands_values_on_to_a_PROTO_in_its_body) {
  EXPECT_EQ(loaded("PROTO In [ field SFInt32 a 1 ] { Switch { whichChoice IS a } }\n"
                   "PROTO Out [ field SFInt32 b 2 ] { Group { children [ In { a IS b } In { } ] } }\nOut { b 9 }"),
            "Group {\n\tchildren [\n\t\tSwitch {\n\t\t\twhichChoice 9\n\t\t}\n\t\tSwitch {\n\t\t\twhichChoice "
            "1\n\t\t}\n\t]\n}\n");
}

TEST(Proto, that_the_end_cuts_off_is_dropped_and_noted) {
  for (const char* const text :
       {"PROTO", "PROTO P", "PROTO P [", "PROTO P [ ]", "PROTO P [ ] {", "PROTO P [ ] { Group {",
        "PROTO P [ ] { Group { }", "PROTO P [ \"", "PROTO P [ ] { Group { \"", "PROTO P [ #"}) {
    SceneGraph scene;
    readertest::loadText(scene, std::string("Shape { }\n") + text);
    EXPECT_EQ(readertest::verdict(scene), "ok") << text;
    EXPECT_EQ(scene.getNodeCount(), 1) << text;
    ASSERT_EQ(scene.notes().size(), 1u) << text;
    EXPECT_EQ(scene.notes()[0].kind, NoteKind::protoCutOff) << text;
    EXPECT_EQ(scene.notes()[0].line, 3) << text;
    EXPECT_EQ(scene.notes()[0].nodeType, std::string(text).size() > 6 ? "P" : "") << text;
  }
}

TEST(Proto, lends_its_instance_the_name_of_the_last_header) {
  EXPECT_EQ(loaded("PROTO P [] { DEF inner Shape { } }\nDEF outer P { }"), "DEF inner Shape {\n}\n");
}

}  // namespace
}  // namespace vrml
