// What is written reads back, and writing that again gives the same bytes: of trees that are written otherwise than
// they were read.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ReaderTesting.h"

namespace vrml {
namespace {

using readertest::loadText;
using readertest::written;

struct Row {
  const char* name;
  const char* text;
  const char* part;  // of what is written
};

const std::vector<Row> kRows = {
    {"a proxy that uses a child", "Collision { children DEF a Shape { } proxy USE a }", "\t]\n\tproxy USE a\n}\n"},
    {"a child that uses a proxy", "Collision { proxy DEF p Shape { } children [ USE p Shape { } ] }",
     "\tproxy DEF p Shape {\n\t}\n\tchildren [\n\t\tUSE p\n"},
    {"proxies between children",
     "Collision { children DEF a Shape { } proxy DEF p Shape { } children [ USE p USE a ] proxy USE a }",
     "\t]\n\tproxy DEF p Shape {\n\t}\n\tchildren [\n\t\tUSE p\n\t\tUSE a\n\t]\n\tproxy USE a\n}\n"},
    {"an axis at the edge of unit length", "Viewpoint { orientation 0.8000015 0.6000005 0 1 }",
     "\torientation 0.8 0.6 0 1\n"},
    {"such an axis in a list", "OrientationInterpolator { keyValue [ 0.8000015 0.6000005 0 1, 0 0 0 1 ] }",
     "\t\t0.8 0.6 0 1,\n\t\t0 0 0 1\n"},
    {"such an axis in a script", "Script { field SFRotation r 0.8000015 0.6000005 0 1 }",
     "\tfield SFRotation r 0.8000015 0.6000005 0 1\n"},
    {"an exposed field of a script",
     "DEF t TimeSensor { } DEF s Script { exposedField SFFloat x 1 eventIn SFBool go }\n"
     "ROUTE t.fraction_changed TO s.set_x\nROUTE s.x_changed TO t.cycleInterval\nROUTE t.isActive TO s.set_go\n",
     "\tfield SFFloat x 1\n\teventIn SFBool go\n}\nROUTE t.isActive TO s.go\n"},
    {"a USE of a node that is open", "DEF a Group { children [ USE a Shape { } ] } USE a", "\t\tUSE a\n\t\tShape {\n"},
    {"one name twice", "DEF a Shape { } USE a DEF a Group { } USE a", "}\nUSE a\nDEF a Group {\n}\nUSE a\n"},
    {"a node without a copy", "Shape { geometry DEF b Box { } } Shape { geometry USE b }", "\tgeometry USE b\n"},
    {"members given twice", "Shape { geometry DEF q Sphere { } geometry USE q appearance NULL }", "\tgeometry USE q\n"},
    {"times and tiny numbers", "TimeSensor { cycleInterval 1e30 startTime -0 stopTime 8.000001 }",
     "\tstartTime -0.000000\n\tstopTime 8.000001\n"},
    {"numbers beyond a float", "Shape { geometry Sphere { radius 1e99 } } Shape { geometry Sphere { radius 1e-45 } }",
     "\t\tradius 3.40282e+38\n"},
    {"a size of no box", "Group { bboxCenter 1 2 3 bboxSize -1 -1 -1 } Group { bboxSize 0 0 0 }",
     "Group {\n}\nGroup {\n\tbboxCenter 0 0 0\n\tbboxSize 0 0 0\n}\n"},
};

TEST(roundTrip, gives_the_same_bytes_again) {
  for (const Row& row : kRows)
    for (const bool resolve : {false, true}) {
      SceneGraph first;
      loadText(first, row.text, resolve);
      ASSERT_TRUE(first.succeeded()) << row.name;
      const std::string text = written(first);
      EXPECT_NE(text.find(row.part), std::string::npos) << row.name << "\n" << text;
      SceneGraph second;
      loadText(second, text, resolve);
      ASSERT_TRUE(second.succeeded()) << row.name;
      EXPECT_FALSE(second.readWide()) << row.name;
      EXPECT_EQ(written(second), text) << row.name;
    }
}

}  // namespace
}  // namespace vrml
