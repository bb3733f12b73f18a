// Numbers, names, texts and lists of absurd size, and sizes whose products overflow: each is read or refused, in a time
// and a memory that its own size explains.

#include <ctime>
#include <limits>

#include "embedded/LoaderSettings.h"
#include "tests/attacks/Attack.h"

namespace {

using attack::repeated;

class AbsurdSize : public attack::Attack {};

struct Absurdity {
  const char* name;
  std::string text;
  bool loads = true;
};

std::string faces(const std::string& fields) {
  return "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0 1 0 0 1 1 0 ] } " + fields + " } }";
}

std::string image(const std::string& values) {
  return "Shape { geometry Box { } appearance Appearance { texture PixelTexture { image " + values + " } } }";
}

TEST_F(AbsurdSize, of_texts_is_read_or_refused) {
  const auto size = static_cast<std::size_t>(attack::steps(200'000, 5'000'000));
  const std::string digits(size, '9');
  const Absurdity rows[] = {
      {"an integer", "Switch { whichChoice " + digits + " }"},
      {"a hexadecimal integer", "Switch { whichChoice 0x" + digits + " }"},
      {"a float", "Sphere { radius " + digits + "." + digits + " }"},
      {"a float of zeros", "Sphere { radius 0." + std::string(size, '0') + "1 }"},
      {"an exponent", "Sphere { radius 1e" + digits + " }"},
      {"a negative exponent", "Sphere { radius 1e-" + digits + " }"},
      {"a time", "TimeSensor { startTime " + digits + "e-" + digits + " }"},
      {"a name", "DEF " + std::string(size, 'n') + " Group { } USE " + std::string(size, 'n')},
      {"a name of a PROTO",
       "PROTO " + std::string(size, 'n') + " [ ] { Group { } } " + std::string(size, 'n') + " { }"},
      {"a name of a ROUTE", "ROUTE " + std::string(size, 'n') + ".a TO " + std::string(size, 'n') + ".b\n"},
      {"an unknown type", std::string(size, 'n') + " { } Group { }"},
      {"a word that is none", "Box { " + std::string(size, 'n') + " 1 }", false},
      {"a text", "WorldInfo { title \"" + std::string(size, 't') + "\" }"},
      {"a text with escapes", "WorldInfo { title \"" + repeated("\\\"", size / 2) + "\" }"},
      {"a comment", "#" + std::string(size, '#') + "\nGroup { }"},
      {"blanks", std::string(size, ' ') + "Group { }"},
      {"line ends", std::string(size, '\n') + "Group { }"},
      {"commas", std::string(size, ',') + "Group { }"},
      {"characters that are none", std::string(size, '\1') + "Group { }"},
      {"zeros", std::string(size, '\0')},
      {"texts", "WorldInfo { info [ " + repeated("\"\" ", size / 4) + "] }"},
      {"indices", faces("coordIndex [ " + repeated("0 ", size / 2) + "]")},
      {"ends of faces", faces("coordIndex [ " + repeated("-1 ", size / 3) + "]")},
      {"routes", "DEF a TimeSensor { } " + repeated("ROUTE a.b TO a.c\n", size / 20)},
      {"urls of an Inline", "Inline { url [ " + repeated("\"x\" ", size / 40) + "] }"},
      {"fields of a Script", "Script { " + repeated("field SFBool a TRUE ", size / 40) + "}"},
      {"levels", "LOD { range [ " + repeated("1 ", size / 4) + "] level [ ] }"},
      {"EXTERNPROTO urls", "EXTERNPROTO E [ ] [ " + repeated("\"x\" ", size / 4) + "]"},
  };
  for (const Absurdity& row : rows) {
    SCOPED_TRACE(row.name);
    const std::clock_t start = std::clock();  // of the processor: the machine may be busy
    testing::internal::CaptureStdout();       // where the scanner echoes
    const attack::Loaded loaded = loadText(row.text);
    testing::internal::GetCapturedStdout();
    EXPECT_NE(loaded.database, nullptr);
    EXPECT_EQ(loaded.isReported(), !row.loads) << loaded.messages.substr(0, 200);
    EXPECT_LT(std::clock() - start, 30 * CLOCKS_PER_SEC);
  }
}

TEST_F(AbsurdSize, of_counts_is_ignored_or_cut) {
  const Absurdity rows[] = {
      {"an image", image("65536 65536 4")},
      {"an image whose product overflows", image("2147483647 2147483647 2147483647")},
      {"an image whose product is small again", image("65536 65536 1 0")},
      {"an image of negative sizes", image("-1 -2147483648 3 1 2 3")},
      {"an image of no pixels", image("0 2147483647 4")},
      {"a grid", "Shape { geometry ElevationGrid { xDimension 2147483647 zDimension 2147483647 height [ 0 1 ] } }"},
      {"a negative grid", "Shape { geometry ElevationGrid { xDimension -2147483648 zDimension -1 } }"},
      {"indices", faces("coordIndex [ 2147483647 -2147483648 0 -1 0 1 2147483646 -1 0 1 2 -1 ]")},
      {"normal indices", faces("coordIndex [ 0 1 2 ] normal Normal { vector 0 0 1 } normalIndex [ 2147483647 -2 ]")},
      {"colour indices", faces("coordIndex [ 0 1 2 -1 ] colorPerVertex FALSE color Color { color 1 0 0 } colorIndex "
                               "[ -2147483648 2147483647 ]")},
      {"a choice", "Switch { whichChoice 2147483647 choice Group { } }"},
      {"a negative choice", "Switch { whichChoice -2147483648 choice Group { } }"},
      {"a radius",
       "Shape { geometry Sphere { radius 1e39 } } Shape { geometry Cone { bottomRadius -1e38 height 1e-46 } }"},
      {"points",
       "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 1e39 -1e39 1e-50 ] } coordIndex [ 0 0 0 ] } }"},
      {"a transform",
       "Transform { scale 1e38 1e38 1e38 rotation 1e38 1e38 1e38 1e38 translation 1e39 0 0 children "
       "Transform { scale 1e38 1e38 1e38 center 1e38 0 0 children Shape { geometry Box { } } } }"},
  };
  for (const Absurdity& row : rows) {
    SCOPED_TRACE(row.name);
    const attack::Loaded loaded = loadText(row.text);
    EXPECT_FALSE(loaded.isReported()) << loaded.messages;
    EXPECT_FALSE(loaded.document().empty());
  }
}

TEST_F(AbsurdSize, of_a_refinement_is_cut) {
  using Float = std::numeric_limits<float>;
  for (const float refinement :
       {0.0F, -1.0F, 1e-30F, 1e30F, Float::infinity(), -Float::infinity(), Float::quiet_NaN()}) {
    embedded::loaderSettings().refinement = refinement;
    EXPECT_TRUE(loadText("Shape { geometry Sphere { } } Shape { geometry Cylinder { } }").hasScene()) << refinement;
  }
}

}  // namespace
