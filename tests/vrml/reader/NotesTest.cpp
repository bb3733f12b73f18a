// Every kind of note can be provoked, has its line, and has a text.

#include "vrml/reader/Notes.h"

#include <gtest/gtest.h>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::EchoCapture;
using readertest::loadText;
using readertest::notesOf;
using readertest::TemporaryFolder;

TEST(Notes, name_what_a_reading_passed_over) {
  struct Row {
    const char* name;
    const char* text;
    const char* notes;
    const char* said;  // of the last note
  };
  for (const Row& row : std::vector<Row>{
           {"unknown node", "\nHUD { }", "3:unknownNode:HUD::\n", "unknown node HUD passed over"},
           {"with a name", "DEF lost KeySensor { }", "2:unknownNode:KeySensor:lost:\n",
            "unknown node KeySensor \"lost\" passed over"},
           {"EXTERNPROTO", "EXTERNPROTO Far [ ] \"x\"", "2:externProto:Far::\n", "EXTERNPROTO Far passed over"},
           {"PROTO cut off", "PROTO P [", "2:protoCutOff:P::\n", "PROTO P is cut off by the end of the file"},
           {"unresolved USE", "Group { children [\nUSE nobody ] }", "3:unresolvedUse::nobody:\n",
            "USE nobody: no node of that name before it"},
           {"a ROUTE without its node", "DEF a TouchSensor { }\nROUTE a.isActive TO b.enabled\r\nShape { }",
            "3:droppedRoute:::a.isActive TO b.enabled\n",
            "ROUTE a.isActive TO b.enabled: no such node or event before it"},
           {"a ROUTE without its event", "DEF a TouchSensor { }\nDEF b TouchSensor { }\nROUTE a.nosuch TO b.enabled",
            "4:droppedRoute:::a.nosuch TO b.enabled\n", "ROUTE a.nosuch TO b.enabled: no such node or event before it"},
           {"half a ROUTE", "ROUTE\t a.b\n", "2:droppedRoute:::a.b\n", "ROUTE a.b: no such node or event before it"},
           {"a ROUTE by the wide rules", "WorldInfo { title \"\\\"\" }\nROUTE a.x TO\n b.y Shape { }",
            "2:secondReading:::\"\n3:droppedRoute:::a.x TO b.y\n", "ROUTE a.x TO b.y: no such node or event before it"},
           {"a ROUTE from a node to itself", "DEF a TouchSensor { }\nROUTE a.isActive TO a.enabled",
            "3:routeToItself:::a.isActive TO a.enabled\n",
            "ROUTE a.isActive TO a.enabled: leads from a node to itself"},
           {"no ROUTE that is there already",
            "HUD { }\nDEF a TouchSensor { }\nDEF b TouchSensor { }\nROUTE a.isActive TO b.enabled\nROUTE a.isActive TO "
            "b.set_enabled",
            "2:unknownNode:HUD::\n", "unknown node HUD passed over"},
           {"a USE of a Box", "Shape { geometry DEF b Box { } }\nShape { geometry USE b }",
            "3:referenceWithoutCopy:Box:b:\n", "USE b: a Box has no copy"},
           {"a Box in what is used again", "DEF s Shape { geometry Box { } }\nUSE s\nUSE s",
            "3:nodeWithoutCopy:Box::\n", "Box is left out where its group is used again"},
           {"second reading", "\nWorldInfo { title \"a\\\"b\" }", "3:secondReading:::b\n",
            "read by the wide rules: the exact ones refuse it at or about \"b\""},
           {"EXPORT", "Group { }\nEXPORT Handle\n", "3:secondReading:::EXPORT\n3:exportStatement:::Handle\n",
            "EXPORT Handle passed over"},
           {"an Inline without its file", "Inline { url [ \"none.wrl\" \"other.wrl\" ] }",
            "2:inlineNotOpened:::none.wrl\n", "Inline: no file of its urls can be opened, \"none.wrl\" the first"},
           {"an Inline with a name", "\nGroup { children DEF lost Inline { url \"none.wrl\" } }",
            "3:inlineNotOpened::lost:none.wrl\n",
            "Inline \"lost\": no file of its urls can be opened, \"none.wrl\" the first"},
       }) {
    const EchoCapture echo;
    SceneGraph scene;
    loadText(scene, row.text);
    EXPECT_TRUE(scene.succeeded()) << row.name;
    EXPECT_EQ(notesOf(scene), row.notes) << row.name;
    ASSERT_FALSE(scene.notes().empty()) << row.name;
    EXPECT_EQ(noteText(scene.notes().back()), row.said) << row.name;
  }
}

TEST(Notes, name_what_an_inline_file_is_lost_for) {
  const TemporaryFolder folder;
  const std::string path =
      folder.write("a.wrl", "#VRML V2.0 utf8\n\nInline { url \"a.wrl\" }\nDEF i Inline { url \"bad.wrl\" }\n");
  folder.write("bad.wrl", "#VRML V2.0 utf8\nGroup { nosuch }\n");
  SceneGraph scene;
  scene.load(path, true);
  EXPECT_TRUE(scene.succeeded());
  EXPECT_EQ(notesOf(scene),
            "3:inlineAlreadyLoading:::" + path + "\n4:inlineNotParsed::i:" + folder.path("bad.wrl") + ":2\n");
  EXPECT_EQ(noteText(scene.notes()[0]), "Inline: " + path + " is being loaded already");
  EXPECT_EQ(noteText(scene.notes()[1]), "Inline \"i\": " + folder.path("bad.wrl") + ":2 does not parse");
}

TEST(Notes, of_a_refused_file_are_those_of_its_first_reading) {
  const EchoCapture echo;
  SceneGraph scene;
  loadText(scene, "HUD { }\nWorldInfo { title \"a\\\" b\" }\nHUD { }\nBox { radius 1 }\n");
  EXPECT_FALSE(scene.succeeded());
  EXPECT_EQ(notesOf(scene), "2:unknownNode:HUD::\n");
}

TEST(Notes, end_with_the_next_load) {
  SceneGraph scene;
  loadText(scene, "HUD { }");
  EXPECT_EQ(scene.notes().size(), 1u);
  loadText(scene, "Group { }");
  EXPECT_EQ(scene.notes().size(), 0u);
}

TEST(Notes, have_a_text_for_every_kind) {
  for (int kind = 0; kind <= static_cast<int>(NoteKind::inlineLimit); ++kind) {
    const std::string text = noteText({1, static_cast<NoteKind>(kind), "TYPE", "NAME", "TEXT"});
    EXPECT_EQ(text.find('%'), std::string::npos) << text;
    EXPECT_NE(text.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace vrml
