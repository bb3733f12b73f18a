// The productions: each kind of value, node-valued fields, scripts, what is passed over, and where errors are found.

#include "vrml/reader/Grammar.h"

#include <gtest/gtest.h>

#include "ReaderTesting.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/RootNode.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::loaded;
using readertest::loadText;
using readertest::verdict;

// Loads "TYPE { FIELD }" and returns the written line of the field, or the error.
std::string fieldLine(const std::string& type, const std::string& field) {
  const std::string text = loaded(type + " { " + field + " }");
  const std::string name = "\t" + field.substr(0, field.find(' '));
  const std::size_t at = text.find(name + " ");
  if (at == std::string::npos) return text;
  const std::size_t end = text.find(text[at + name.size() + 1] == '[' ? "\t]\n" : "\n", at);
  std::string line = text.substr(at, end - at);
  std::string result;
  for (const char c : line)
    if (c != '\t' && c != '\n')
      result += c;
    else if (!result.empty() && result.back() != ' ')
      result += ' ';
  return result;
}

struct ValueRow {
  const char* type;
  const char* field;
  const char* expected;
};

void expectValues(const std::vector<ValueRow>& rows) {
  for (const ValueRow& row : rows)
    EXPECT_EQ(fieldLine(row.type, row.field), row.expected) << row.type << ' ' << row.field;
}

TEST(Grammar, reads_single_values) {
  expectValues({
      {"TouchSensor", "enabled FALSE", "enabled FALSE"},
      {"TouchSensor", "enabled 0", "enabled FALSE"},
      {"TouchSensor", "enabled 7", "enabled TRUE"},
      {"TouchSensor", "enabled 1.0", "2:1.0:TouchSensor { enabled 1.0 }"},
      {"Switch", "whichChoice 3", "whichChoice 3"},
      {"Switch", "whichChoice TRUE", "whichChoice 1"},
      {"Switch", "whichChoice 0x10", "whichChoice 16"},
      {"Sphere", "radius 2", "radius 2"},
      {"Sphere", "radius 2.5", "radius 2.5"},
      {"Sphere", "radius -0", "radius -0"},
      {"Sphere", "radius 0xFF", "radius 255"},
      {"Sphere", "radius e", "radius 0"},
      {"Sphere", "radius 16777217", "radius 1.67772e+07"},
      {"Sphere", "radius 99999999999", "radius 1e+11"},
      {"Sphere", "radius TRUE", "radius 1"},
      {"TextureTransform", "scale 1 2.5", "scale 1 2.5"},
      {"Box", "size 1 2.5 -3", "size 1 2.5 -3"},
      {"Box", "size 1, 2, 3,", "size 1 2 3"},
      {"Material", "diffuseColor 1 .5 0", "diffuseColor 1 0.5 0"},
      {"Viewpoint", "orientation 0 0 2 1.5", "orientation 0 0 1 1.5"},
      {"TimeSensor", "cycleInterval 2.5", "cycleInterval 2.500000"},
      {"TimeSensor", "cycleInterval 1234567.891", "cycleInterval 1234567.875000"},
      {"WorldInfo", "title \"a b\"", "title \"a b\""},
      {"FontStyle", "family \"SANS\"", "family \"SANS\""},
      {"FontStyle", "family [ \"SANS\" \"SERIF\" ]", "family \"SANS\""},
      {"FontStyle", "family [ ]", "family \"SERIF\""},
      {"FontStyle", "style [ \"BOLD\" ]", "2:[:FontStyle { style [ \"BOLD\" ] }"},
  });
}

TEST(Grammar, reads_lists) {
  expectValues({
      {"LOD", "range [ 1, 2.5 -3e2 ]", "range [ 1, 2.5, -300 "},
      {"LOD", "range 7", "range [ 7 "},
      {"IndexedFaceSet", "coordIndex [ 0 1 2 -1 ]", "coordIndex [ 0, 1, 2, -1 "},
      {"IndexedFaceSet", "coordIndex 0x10", "coordIndex [ 16 "},
      {"IndexedFaceSet", "coordIndex [ TRUE FALSE ]", "coordIndex [ 1, 0 "},
      {"TextureCoordinate", "point [ 1 2, 3 4 ]", "point [ 1 2, 3 4 "},
      {"Coordinate", "point [ 1 2 3 4 5 6 ]", "point [ 1 2 3, 4 5 6 "},
      {"Coordinate", "point 1 2 3", "point [ 1 2 3 "},
      {"Color", "color [ 1 0 0, 0 1 0 ]", "color [ 1 0 0, 0 1 0 "},
      {"OrientationInterpolator", "keyValue [ 0 0 2 1 ]", "keyValue [ 0 0 1 1 "},
      {"WorldInfo", "info [ \"a\", \"\" ]", "info [ \"a\", \"\" "},
      {"WorldInfo", "info \"a\"", "info [ \"a\" "},
      {"LOD", "range [ 1 ] range [ 2 ]", "range [ 1, 2 "},
      {"Coordinate", "point 1 2 3 point [ 4 5 6 ]", "point [ 1 2 3, 4 5 6 "},
      {"LOD", "range [ 1 # ]\n 2 e ]", "range [ 1, 2, 0 "},
  });
  EXPECT_EQ(loaded("LOD { range [ ] }"), "LOD {\n\tcenter 0 0 0\n}\n");
}

TEST(Grammar, reads_images) {
  const auto image = [](const std::string& value) {
    const std::string text = loaded("PixelTexture { image " + value + " repeatS FALSE }");
    const std::size_t at = text.find("\timage\n\t\t");
    return at == std::string::npos ? text : text.substr(at + 9, text.find('\n', at + 9) - at - 9);
  };
  EXPECT_EQ(image("2 1 1 0xFF 1"), "2 1 1 255 1 ");
  EXPECT_EQ(image("[ 2 1 1 0xFF 1 ]"), "2 1 1 255 1 ");
  EXPECT_EQ(image("0 0 0"), "0 0 0 ");
  EXPECT_EQ(image("1"), "1 ");
  EXPECT_EQ(image("1 1 1 5 # comment\n 6"), "1 1 1 5 6 ");
  EXPECT_EQ(image("").substr(0, 10), "2:repeatS:");
  EXPECT_EQ(image("1 2.5").substr(0, 6), "2:2.5:");
}

TEST(Grammar, reads_every_field_of_every_node) {
  // A value of each type, as text.
  const auto valueOf = [](FieldType type) -> std::string {
    switch (type) {
      case FieldType::SFBool:
        return "FALSE";
      case FieldType::SFFloat:
      case FieldType::SFTime:
        return "0.5";
      case FieldType::SFInt32:
        return "7";
      case FieldType::SFVec2f:
        return "1 2";
      case FieldType::SFVec3f:
      case FieldType::SFColor:
        return "1 2 3";
      case FieldType::SFRotation:
        return "0 1 0 2";
      case FieldType::SFString:
        return "\"text\"";
      case FieldType::SFImage:
        return "1 1 1 255";
      case FieldType::MFFloat:
      case FieldType::MFTime:
        return "[ 0.5 1 ]";
      case FieldType::MFInt32:
        return "[ 1 -1 ]";
      case FieldType::MFVec2f:
        return "[ 1 2 ]";
      case FieldType::MFVec3f:
      case FieldType::MFColor:
        return "[ 1 2 3 ]";
      case FieldType::MFRotation:
        return "[ 0 1 0 2 ]";
      case FieldType::MFString:
        return "[ \"text\" ]";
      case FieldType::none:
      case FieldType::SFNode:
        break;
    }
    return "";
  };
  for (std::size_t i = 0; i < kNodeKeywordCount; ++i) {
    const NodeClass& nodeClass = *findNodeClass(static_cast<NodeType>(i));
    std::string text = std::string(nodeClass.typeName) + " {\n";
    for (const FieldDecl& decl : nodeClass.fields)
      if (decl.key != FieldKey::none) text += std::string(fieldName(decl.key)) + " " + valueOf(decl.type) + "\n";
    for (const NodeMember& member : nodeClass.members) text += std::string(fieldName(member.key)) + " Group { }\n";
    text += "}\n";
    const EchoCapture echo;
    SceneGraph scene;
    loadText(scene, text);
    ASSERT_EQ(verdict(scene), "ok") << text;
    Node* const node = scene.getRoot()->getChildNodes();
    ASSERT_NE(node, nullptr);
    EXPECT_STREQ(node->getTypeName(), nodeClass.typeName);
    for (const FieldDecl& decl : nodeClass.fields) {
      if (decl.key == FieldKey::none) continue;
      std::string value;
      node->peekField(decl).appendVrml(value);
      const std::string expected = valueOf(decl.type);
      EXPECT_EQ(readertest::tokens(value), readertest::tokens(expected == "[ 0.5 1 ]"  ? "[ 0.5, 1 ]"
                                                              : expected == "[ 1 -1 ]" ? "[ 1, -1 ]"
                                                                                       : expected))
          << nodeClass.typeName << '.' << decl.name;
    }
    for (const NodeMember& member : nodeClass.members)
      EXPECT_NE(node->getFirstChildInRole(member.key), nullptr) << nodeClass.typeName << '.' << fieldName(member.key);
  }
}

TEST(Grammar, refuses_every_field_that_a_node_lacks) {
  for (std::size_t i = 0; i < kNodeKeywordCount; ++i) {
    const NodeClass& nodeClass = *findNodeClass(static_cast<NodeType>(i));
    if (nodeClass.type == nodeType("Script")) continue;
    for (std::size_t key = 0; key < kFieldKeyCount; ++key) {
      const FieldKey field = static_cast<FieldKey>(key);
      if (nodeClass.findField(field) || nodeClass.findMember(field)) continue;
      const std::string text = std::string(nodeClass.typeName) + " { " + kFieldNames[key] + " 1 }";
      SceneGraph scene;
      loadText(scene, text, false);
      ASSERT_EQ(verdict(scene), "2:" + std::string(kFieldNames[key]) + ":" + text);
    }
  }
}

TEST(Grammar, reads_node_valued_fields) {
  struct Row {
    const char* name;
    const char* text;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"a node", "Shape { geometry Sphere { } }", "Shape {\n\tgeometry Sphere {\n\t\tradius 1\n\t}\n}\n"},
           {"NULL", "Shape { appearance NULL geometry NULL }", "Shape {\n}\n"},
           {"USE", "DEF s Shape { } Switch { choice USE s }",
            "DEF s Shape {\n}\nSwitch {\n\twhichChoice -1\n\tchoice [\n\t\tUSE s\n\t]\n}\n"},
           {"a list", "Switch { choice [ Shape { } NULL, Shape { } ] }",
            "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t\tShape {\n\t\t}\n\t]\n}\n"},
           {"an empty list", "Switch { choice [ ] }", "Switch {\n\twhichChoice -1\n}\n"},
           {"a list without brackets", "Switch { choice Shape { } }",
            "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n"},
           {"a list that is NULL", "Switch { choice NULL }", "Switch {\n\twhichChoice -1\n}\n"},
           {"given twice", "Switch { choice Shape { } choice [ Shape { } ] }",
            "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t\tShape {\n\t\t}\n\t]\n}\n"},
           {"an unknown node", "Shape { geometry Foo { } appearance Bar { x { } } }", "Shape {\n}\n"},
           {"an unknown name", "Shape { geometry USE nobody }", "Shape {\n}\n"},
           {"any type of node", "Shape { geometry Shape { } }", "Shape {\n\tgeometry Shape {\n\t}\n}\n"},
           {"a DEF", "Shape { geometry DEF g Shape { } }", "Shape {\n\tgeometry DEF g Shape {\n\t}\n}\n"},
           {"an EXTERNPROTO in front of the node", "Shape { geometry EXTERNPROTO X [ ] \"x\" Shape { } }",
            "Shape {\n\tgeometry Shape {\n\t}\n}\n"},
       }) {
    const EchoCapture echo;
    EXPECT_EQ(loaded(row.text), row.expected) << row.name;
  }
}

TEST(Grammar, accepts_commas_wherever_white_space_is) {
  EXPECT_EQ(loaded(",Switch,{,whichChoice,1,,choice,[,Shape,{,},,],}, ,"),
            "Switch {\n\twhichChoice 1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n");
}

TEST(Grammar, reads_scripts) {
  struct Row {
    const char* name;
    const char* body;
    const char* expected;  // the lines behind mustEvaluate
  };
  for (const Row& row : std::vector<Row>{
           {"nothing", "", ""},
           {"fields", "field SFFloat x 1.5 field SFInt32 n 0x10 field SFBool b TRUE field SFString s \"q\"",
            "\tfield SFFloat x 1.5\n\tfield SFInt32 n 16\n\tfield SFBool b TRUE\n\tfield SFString s \"q\"\n"},
           {"vectors",
            "field SFVec2f a 1 2 field SFVec3f b 1 2 3 field SFColor c 1 0 0 field SFRotation d 0 0 1 2 field SFTime t "
            "5",
            "\tfield SFVec2f a 1 2\n\tfield SFVec3f b 1 2 3\n\tfield SFColor c 1 0 0\n\tfield SFRotation d 0 0 1 "
            "2\n\tfield SFTime t 5\n"},
           {"lists",
            "field MFFloat a [ 1 2 ] field MFInt32 b 3 field MFString c [ ] field MFVec3f d [ 1 2 3 ] field MFTime t 1",
            "\tfield MFFloat a [1, 2]\n\tfield MFInt32 b [3]\n\tfield MFString c []\n\tfield MFVec3f d [1 2 3]\n"
            "\tfield MFTime t [1]\n"},
           {"nodes",
            "field SFNode a NULL field SFNode b USE x field MFNode c [ NULL USE x, ] field MFNode d [ ] field MFNode e "
            "USE y",
            "\tfield SFNode a NULL\n\tfield SFNode b USE x\n\tfield MFNode c [ NULL USE x ]\n\tfield MFNode d [ "
            "]\n\tfield MFNode e USE y\n"},
           {"types that are kept as text",
            "field MFBool a [ TRUE, FALSE 0 ] field MFBool b TRUE field MFImage c [ 1 1 1 0xFF ]",
            "\tfield MFBool a [ TRUE FALSE 0 ]\n\tfield MFBool b TRUE\n\tfield MFImage c [ 1 1 1 0xFF ]\n"},
           {"events", "eventIn SFBool go eventOut MFNode done eventIn MFBool on",
            "\teventIn SFBool go\n\teventOut MFNode done\n\teventIn MFBool on\n"},
           {"events with values",
            "eventIn SFBool a TRUE eventOut SFVec3f b 1 2 3 eventIn MFString c [ \"x\" ] eventIn SFNode d NULL eventIn "
            "MFNode e [ USE x ] eventOut SFTime f",
            "\teventIn SFBool a\n\teventOut SFVec3f b\n\teventIn MFString c\n\teventIn SFNode d\n\teventIn MFNode "
            "e\n\teventOut SFTime f\n"},
           {"names that are keywords elsewhere", "field SFVec3f size 1 2 3 eventIn SFNode Transform",
            "\tfield SFVec3f size 1 2 3\n\teventIn SFNode Transform\n"},
       })
    EXPECT_EQ(loaded("Script { " + std::string(row.body) + " }"),
              "Script {\n\tdirectOutput FALSE\n\tmustEvaluate FALSE\n" + std::string(row.expected) + "}\n")
        << row.name;
  EXPECT_EQ(loaded("Script { url \"a\" directOutput TRUE mustEvaluate 1 url [ \"b\" ] }"),
            "Script {\n\tdirectOutput TRUE\n\tmustEvaluate TRUE\n\turl [\n\t\t\"a\",\n\t\t\"b\"\n\t]\n}\n");
}

TEST(Grammar, refuses_what_a_script_does_not_have) {
  for (const char* const body : {"url 5", "field SFFloat", "field x 1", "field SFFloat url 1", "field SFFloat x",
                                 "eventIn go", "SFFloat", "field SFNode n 1", "field SFImage i 1 1 1 0",
                                 "field MFNode n [ 1 ]", "field MFBool b \"x\"", "field SFNode n [ ]", "x 1", "{"}) {
    const EchoCapture echo;
    SceneGraph scene;
    loadText(scene, "Script { " + std::string(body) + " }");
    EXPECT_FALSE(scene.succeeded()) << body;
  }
}

TEST(Grammar, reports_errors_where_they_are) {
  struct Row {
    const char* name;
    const char* text;  // behind the header line
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{
           {"a field that the node lacks", "Shape { geometry Box { radius 1 } }",
            "2:radius:Shape { geometry Box { radius 1 } }"},
           {"a value that is missing", "\nSphere { radius }", "3:}:Sphere { radius }"},
           {"a number too few", "Box { size 1 2 }", "2:}:Box { size 1 2 }"},
           {"a number too many", "Box { size 1 2 3 4 }", "2:4:Box { size 1 2 3 4 }"},
           {"a group of a list too short", "Coordinate { point [ 1 2 3 4 ] }", "2:]:Coordinate { point [ 1 2 3 4 ] }"},
           {"a real number among integers", "IndexedLineSet { coordIndex [ 1 2.5 ] }",
            "2:2.5:IndexedLineSet { coordIndex [ 1 2.5 ] }"},
           {"a name among numbers", "LOD { range [ 1 x 2 ] }", "2:x:LOD { range [ 1 x 2 ] }"},
           {"a name for a truth value", "TouchSensor { enabled true }", "2:true:TouchSensor { enabled true }"},
           {"a string for a number, quotes and all", "Sphere { radius \"big\" }",
            "2:\"big\":Sphere { radius \"big\" }"},
           {"a number for a string", "WorldInfo { title 5 }", "2:5:WorldInfo { title 5 }"},
           {"a list for a single value", "Sphere { radius [ 1 ] }", "2:[:Sphere { radius [ 1 ] }"},
           {"a list for a single node", "Shape { geometry [ Sphere { } ] }", "2:[:Shape { geometry [ Sphere { } ] }"},
           {"a number for nodes", "Group { children 5 }", "2:5:Group { children 5 }"},
           {"a USE for a number", "Sphere { radius USE a }", "2:USE:Sphere { radius USE a }"},
           {"nodes without a field", "Shape { Sphere { } }", "2:Sphere:Shape { Sphere { } }"},
           {"a type without a body", "Group }", "2:}:Group }"},
           {"a number as a statement", "5", "2:5:5"},
           {"NULL as a statement", "NULL", "2:NULL:NULL"},
           {"a field as a statement", "size 1 2 3", "2:size:size 1 2 3"},
           {"a brace as a statement", "{ }", "2:{:{ }"},
           {"a brace too many", "Shape { } }\n", "2:}:Shape { } }"},
           {"a name as a statement", "foo 1", "2:foo:foo 1"},
           {"a name in a node", "Group { foo 1 }", "2:foo:Group { foo 1 }"},
           {"the end in a node", "Switch { choice [ Shape { }\n", "3::"},
           {"the end in a list", "LOD { range [ 1", "2::LOD { range [ 1"},
           {"the end behind a field", "Shape { geometry", "2::Shape { geometry"},
           {"the end in an unknown node", "Foo { {\n}", "3::}"},
           {"the end in a string", "WorldInfo { title \"a\n", "2:\":WorldInfo { title \"a"},
           {"the line of the token, in the midst of a list", "LOD { range [\n1\n# comment\n2 ]\nfoo }", "6:foo:foo }"},
           {"behind lines in strings it is counted early", "WorldInfo { title \"a\nb\nc\" }\nradius 1\n",
            "3:radius:radius 1"},
           {"behind a comment", "# first\nradius", "3:radius:radius"},
           {"behind a ROUTE", "ROUTE a.b TO c.d\nradius", "3:radius:radius"},
           {"behind a PROTO", "PROTO P [\n] {\nShape { }\n} radius", "5:radius:} radius"},
           {"behind a USE", "Group { children [ USE\na ] radius", "3:radius:a ] radius"},
           {"behind a DEF header", "DEF a\nGroup { radius", "3:radius:Group { radius"},
           {"in an expansion, at its instance", "PROTO P [] { Group { nosuch 1 } }\n\nP {\n}", "5:nosuch:}"},
           {"a line without its carriage return", "Box { radius 1 }\r\n", "2:radius:Box { radius 1 }"},
           {"an EXTERNPROTO without a url", "EXTERNPROTO A [ ]\nShape { }", "3:Shape:Shape { }"},
           {"an EXTERNPROTO without an interface", "EXTERNPROTO A \"x\"", "2::EXTERNPROTO A \"x\""},
           {"an EXTERNPROTO with another list", "EXTERNPROTO A [ ] [ \"x\" 5 ] 6",
            "2:5:EXTERNPROTO A [ ] [ \"x\" 5 ] 6"},
       }) {
    const EchoCapture echo;
    SceneGraph scene;
    loadText(scene, row.text);
    EXPECT_EQ(verdict(scene), row.expected) << row.name;
  }
}

TEST(Grammar, reports_an_error_on_the_first_line) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, "Box { radius 1 }\n", true, false);
  EXPECT_EQ(verdict(scene), "1:radius:Box { radius 1 }");
}

TEST(Grammar, cuts_the_text_of_a_long_line) {
  SceneGraph scene;
  loadText(scene, std::string(70'000, ' ') + "Box { radius 1 }");
  EXPECT_EQ(scene.getErrorLineText(), std::string(65'535, ' '));
  EXPECT_EQ(scene.getErrorToken(), "radius");
}

TEST(Grammar, keeps_what_was_built_before_an_error) {
  SceneGraph scene;
  loadText(scene, "DEF a Group { children [ Shape { } Shape { geometry DEF b Sphere { radius 2 foo");
  EXPECT_FALSE(scene.succeeded());
  EXPECT_EQ(readertest::written(scene),
            "DEF a Group {\n\tchildren [\n\t\tShape {\n\t\t}\n\t\tShape {\n\t\t\tgeometry DEF b Sphere {\n"
            "\t\t\t\tradius 2\n\t\t\t}\n\t\t}\n\t]\n}\n");
  EXPECT_NE(scene.findNodeByName("b"), nullptr);
}

TEST(Grammar, passes_over_unknown_nodes_in_VRML_2_files_alone) {
  struct Row {
    const char* header;
    const char* expected;
  };
  for (const Row& row : std::vector<Row>{{"#VRML V2.0 utf8\n", "ok"},
                                         {"#VRML V2.0\n", "ok"},
                                         {"\xEF\xBB\xBF#VRML V2.0 utf8\n", "ok"},
                                         {"#VRML V1.0 ascii\n", "2:Foo:Foo { } Group { }"},
                                         {"# VRML V2.0 utf8\n", "2:Foo:Foo { } Group { }"},
                                         {"\n", "2:Foo:Foo { } Group { }"}}) {
    const EchoCapture echo;
    SceneGraph scene;
    loadText(scene, std::string(row.header) + "Foo { } Group { }", true, false);
    EXPECT_EQ(verdict(scene), row.expected) << row.header;
  }
}

TEST(Grammar, passes_over_whole_unknown_nodes) {
  for (const char* const body : {"", "a 1 b [ 2 ]", "s \"}\"", "# }\n", "c { d { } }", "DEF x Group { }",
                                 "ROUTE a.b TO c.d\n", "PROTO P [ ] { }", "\"{\""})
    EXPECT_EQ(loaded("Foo {" + std::string(body) + "} Shape { }"), "Shape {\n}\n") << body;
  EXPECT_EQ(loaded("DEF lost Foo { } Shape { }"), "Shape {\n}\n") << "a pending name goes with it";
  EXPECT_EQ(loaded("Foo # {\n { } Shape { }"), "Shape {\n}\n");
}

TEST(Grammar, passes_over_EXTERNPROTOs) {
  for (const char* const text :
       {"EXTERNPROTO Far [ field SFFloat r eventIn SFBool on ] [ \"a\", \"b\" ]", "EXTERNPROTO Near [ ] \"near.wrl\"",
        "EXTERNPROTO\nX\n[ # ]\n field MFNode [ ]\n ]\n[ ]", "EXTERNPROTO X[ ]\"x\""}) {
    EXPECT_EQ(loaded(std::string(text) + "\nShape { }"), "Shape {\n}\n") << text;
    EXPECT_EQ(loaded("Switch { " + std::string(text) + "\nchoice [ " + text + " Shape { } ] }"),
              "Switch {\n\twhichChoice -1\n\tchoice [\n\t\tShape {\n\t\t}\n\t]\n}\n")
        << text;
  }
}

TEST(Grammar, gives_names_to_the_nodes_that_follow_them) {
  EXPECT_EQ(loaded("DEF a Shape{}DEF b\nShape\n{ }Shape { }"), "DEF a Shape {\n}\nDEF b Shape {\n}\nShape {\n}\n");
}

TEST(Grammar, attaches_a_reference_where_it_stands) {
  // The first reference stands in a list that is open, the second behind it.
  EXPECT_EQ(loaded("DEF s Shape { } Switch { choice [ USE s ] } USE s USE nosuch", false),
            "DEF s Shape {\n}\nSwitch {\n\twhichChoice -1\n\tchoice [\n\t\tUSE s\n\t]\n}\nUSE s\n");
}

}  // namespace
}  // namespace vrml
