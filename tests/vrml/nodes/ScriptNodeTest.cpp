// What a script declares: the fields it gets, how routes find them, and the text they are written back as.

#include "vrml/nodes/ScriptNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/NodeOwner.h"

namespace vrml {
namespace {

std::string textOf(const Node& node) {
  std::ostringstream out;
  node.write(out, 0);
  return out.str();
}

std::string declarationsOf(ScriptNode& script) {
  const std::string text = textOf(script);
  constexpr std::string_view kBefore = "Script {\n\tdirectOutput FALSE\n\tmustEvaluate FALSE\n";
  EXPECT_EQ(text.substr(0, kBefore.size()), kBefore);
  EXPECT_EQ(text.substr(text.size() - 2), "}\n");
  return text.substr(kBefore.size(), text.size() - kBefore.size() - 2);
}

struct TypeRow {
  const char* type;
  const char* value;    // set through the field's own text form or, for lists and texts, by addText
  const char* written;  // the declaration's line
  const char* empty;    // the same without a value set
};

constexpr TypeRow kTypes[] = {
    {"SFBool", "FALSE", "field SFBool x FALSE", "field SFBool x TRUE"},
    {"SFFloat", "1.5", "field SFFloat x 1.5", "field SFFloat x 0"},
    {"SFInt32", "-7", "field SFInt32 x -7", "field SFInt32 x 0"},
    {"SFTime", "2.25", "field SFTime x 2.25", "field SFTime x -1"},
    {"SFRotation", "0 1 0 0.5", "field SFRotation x 0 1 0 0.5", "field SFRotation x 0 0 1 0"},
    {"SFColor", "1 0 0.5", "field SFColor x 1 0 0.5", "field SFColor x 1 1 1"},
    {"SFString", "q r", "field SFString x \"q r\"", "field SFString x \"\""},
    {"SFVec2f", "1 2", "field SFVec2f x 1 2", "field SFVec2f x 0 0"},
    {"SFVec3f", "1 2 3", "field SFVec3f x 1 2 3", "field SFVec3f x 0 0 0"},
    {"SFNode", "USE a", "field SFNode x USE a", "field SFNode x NULL"},
    {"MFNode", "[ USE a USE b ]", "field MFNode x [ USE a USE b ]", "field MFNode x [ ]"},
    {"MFBool", "[ TRUE FALSE ]", "field MFBool x [ TRUE FALSE ]", "field MFBool x [ ]"},
    {"MFImage", "[ 1 1 1 5 ]", "field MFImage x [ 1 1 1 5 ]", "field MFImage x [ ]"},
};

TEST(ScriptNode, SingleValuesAndTextsAreWrittenBack) {
  for (const TypeRow& row : kTypes) {
    SCOPED_TRACE(row.type);
    ScriptNode script;
    Field* const field = script.declare(FieldList::field, findScriptWord(row.type), "x");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(declarationsOf(script), "\t" + std::string(row.empty) + "\n");
    field->setValue(row.value);
    EXPECT_EQ(declarationsOf(script), "\t" + std::string(row.written) + "\n");
    EXPECT_EQ(script.getField("x"), field);
  }
}

TEST(ScriptNode, ListsAreWrittenInOneLine) {
  ScriptNode script;
  auto* const integers = static_cast<MFInt32*>(script.declare(FieldList::field, scriptWord("MFInt32"), "m"));
  integers->addValue(41);
  integers->addValue(42);
  auto* const strings = static_cast<MFString*>(script.declare(FieldList::field, scriptWord("MFString"), "s"));
  strings->addValue("a b");
  std::string integerText;
  integers->appendVrml(integerText);
  std::string stringText;
  strings->appendVrml(stringText);
  EXPECT_EQ(declarationsOf(script), "\tfield MFInt32 m " + integerText + "\n\tfield MFString s " + stringText + "\n");
  EXPECT_NE(integerText.find("41"), std::string::npos);
  EXPECT_EQ(integerText.find('\n'), std::string::npos);
}

TEST(ScriptNode, EventsHaveNoValue) {
  ScriptNode script;
  Field* const go = script.declare(FieldList::eventIn, scriptWord("SFBool"), "go");
  Field* const done = script.declare(FieldList::eventOut, scriptWord("SFTime"), "done");
  Field* const nodes = script.declare(FieldList::eventIn, scriptWord("MFNode"), "nodes");
  Field* const level = script.declare(FieldList::exposedField, scriptWord("SFFloat"), "level");
  EXPECT_EQ(declarationsOf(script),
            "\teventIn SFBool go\n\teventOut SFTime done\n\teventIn MFNode nodes\n\tfield SFFloat level 0\n");
  EXPECT_EQ(script.getEventIn("set_go"), go);
  EXPECT_EQ(script.getEventOut("done_changed"), done);
  EXPECT_EQ(script.getEventIn("nodes"), nodes);
  EXPECT_EQ(script.getExposedField("level_changed"), level);
  EXPECT_EQ(script.getExposedField("set_level"), level);
  EXPECT_EQ(script.getExposedField("set_url"), script.getExposedField("url"));
  EXPECT_EQ(script.getField("level"), nullptr);
  EXPECT_EQ(script.getEventIn("done"), nullptr);
  ASSERT_EQ(script.getDeclarations().size(), 4u);
  EXPECT_EQ(script.getDeclarations()[2].field, nodes);
  EXPECT_TRUE(script.getDeclarations()[2].isText);
}

TEST(ScriptNode, WordsThatAreNoTypeDeclareNothing) {
  ScriptNode script;
  for (const char* word : {"field", "eventIn", "eventOut", "directOutput", "mustEvaluate", "url"})
    EXPECT_EQ(script.declare(FieldList::field, findScriptWord(word), "x"), nullptr) << word;
  EXPECT_EQ(script.declare(FieldList::field, ScriptWord::none, "x"), nullptr);
  EXPECT_EQ(script.declare(FieldList::fifth, scriptWord("SFBool"), "x"), nullptr);
  EXPECT_TRUE(script.getDeclarations().empty());
  EXPECT_EQ(script.getNumFields(), 2);
}

TEST(ScriptNode, EveryTypeWordDeclaresAField) {
  for (std::size_t i = 6; i < kScriptWordCount; ++i) {
    ScriptNode script;
    EXPECT_NE(script.declare(FieldList::field, static_cast<ScriptWord>(i), "x"), nullptr) << kScriptWords[i];
  }
}

class EscapingOwner : public NodeOwner {
 public:
  [[nodiscard]] bool writesEscapes() const override { return true; }
};

TEST(ScriptNode, StringsAreEscapedWhenTheTreeWasReadSo) {
  EscapingOwner owner;
  ScriptNode script;
  script.declare(FieldList::field, scriptWord("SFString"), "s")->setValue("a\"b\\c");
  EXPECT_EQ(declarationsOf(script), "\tfield SFString s \"a\"b\\c\"\n");
  script.setSceneGraph(&owner);
  EXPECT_EQ(declarationsOf(script), "\tfield SFString s \"a\\\"b\\\\c\"\n");
}

TEST(ScriptNode, AnInstanceDeclaresForItsSource) {
  ScriptNode script;
  const std::unique_ptr<Node> instance(copyNode(&script));
  static_cast<ScriptNode&>(*instance).declare(FieldList::eventIn, scriptWord("SFBool"), "go");
  EXPECT_EQ(script.getDeclarations().size(), 1u);
}

}  // namespace
}  // namespace vrml
