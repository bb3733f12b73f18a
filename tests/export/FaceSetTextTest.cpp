// The lists of a face set, through the writer's operations on streams.

#include "export/FaceSetText.h"

#include <VekKernel/CVekActorMesh.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "export/CVekVRMLLoader.h"
#include "tests/export/Scene.h"
#include "tests/export/Written.h"

namespace {

using exporter_test::Floats;
using exporter_test::Indices;
using exporter_test::written;

std::string data(const Floats& values, std::size_t count) {
  return written([&](std::FILE* file) { CVekVRMLLoader().WriteData(file, "point", values.data(), count); });
}

TEST(FaceSetText, VectorsStandOnALineEach) {
  EXPECT_EQ(data({1, 2, 3, 4, 5, 6}, 2), "point[\n1.000000 2.000000 3.000000,\n4.000000 5.000000 6.000000]\n");
}

TEST(FaceSetText, TheFirstVectorIsWrittenWhateverTheCount) {
  const std::string first = "point[\n1.000000 2.000000 3.000000]\n";
  EXPECT_EQ(data({1, 2, 3}, 1), first);
  EXPECT_EQ(data({1, 2, 3}, 0), first);
}

TEST(FaceSetText, NothingIsWrittenForWhatIsMissing) {
  CVekVRMLLoader writer;
  CVekActorMesh actor;
  const Floats floats(9);
  const Indices indices = {0, 1, 2};
  // Without a stream none of these may look at anything else.
  writer.WriteData(nullptr, "point", floats.data(), 1);
  writer.WriteTextureData(nullptr, &actor, "point", floats.data(), 1);
  writer.WriteIndexIndexed(nullptr, indices.data(), 1);
  writer.WriteIndexIndexedStrip(nullptr, indices.data(), indices.data(), 1);
  writer.WriteIndexNonIndexed(nullptr, 3);
  EXPECT_EQ(written([&](std::FILE* file) {
              writer.WriteData(file, nullptr, floats.data(), 1);
              writer.WriteData(file, "point", nullptr, 1);
              writer.WriteTextureData(file, &actor, nullptr, floats.data(), 1);
              writer.WriteTextureData(file, &actor, "point", nullptr, 1);
              writer.WriteIndexIndexed(file, nullptr, 1);
              writer.WriteIndexIndexedStrip(file, nullptr, indices.data(), 1);
              writer.WriteIndexIndexedStrip(file, indices.data(), nullptr, 1);
              writer.WriteIndexIndexedStrip(file, indices.data(), indices.data(), 0);
            }),
            "");
}

TEST(FaceSetText, TrianglesHaveABlankBehindTheLineBreak) {
  const Indices indices = {0, 1, 2, 2, 1, 3, 4, 5, 6};
  CVekVRMLLoader writer;
  EXPECT_EQ(written([&](std::FILE* file) { writer.WriteIndexIndexed(file, indices.data(), 3); }),
            "0 1 2 -1,\n 2 1 3 -1,\n 4 5 6 -1");
  EXPECT_EQ(written([&](std::FILE* file) { writer.WriteIndexIndexed(file, indices.data(), 0); }), "0 1 2 -1");
}

TEST(FaceSetText, IndicesPrintAsSignedNumbers) {
  const Indices indices = {4294967295U, 2147483648U, 2147483647U};
  EXPECT_EQ(written([&](std::FILE* file) { CVekVRMLLoader().WriteIndexIndexed(file, indices.data(), 1); }),
            "-1 -2147483648 2147483647 -1");
}

TEST(FaceSetText, ConsecutiveTrianglesReachAsFarAsTheVertices) {
  const auto text = [](std::size_t vertexCount) {
    return written([&](std::FILE* file) { CVekVRMLLoader().WriteIndexNonIndexed(file, vertexCount); });
  };
  EXPECT_EQ(text(9), "0 1 2 -1,\n 3 4 5 -1,\n 6 7 8 -1");
  EXPECT_EQ(text(4), "0 1 2 -1,\n 3 4 5 -1");
  EXPECT_EQ(text(3), "0 1 2 -1");
  EXPECT_EQ(text(0), "0 1 2 -1");
}

TEST(FaceSetText, StripsBecomeTrianglesOfOneWinding) {
  struct Row {
    const char* name;
    Indices indices;
    Indices lengths;
    const char* expected;
  };
  const Row rows[] = {
      {"five indices", {10, 11, 12, 13, 14}, {5}, "10 11 12 -1,\n11 13 12 -1,\n12 13 14 -1"},
      {"each strip starts anew", {0, 1, 2, 3, 4, 5, 6}, {4, 3}, "0 1 2 -1,\n1 3 2 -1,\n4 5 6 -1"},
      {"a short strip in front moves the start", {9, 9, 0, 1, 2}, {2, 3}, "0 1 2 -1"},
      {"short strips in between", {0, 1, 2, 9, 3, 4, 5}, {3, 0, 1, 3}, "0 1 2 -1,\n3 4 5 -1"},
      {"nothing but short strips", {0, 1, 2}, {2, 1, 0}, ""},
      {"repeated indices stay", {0, 0, 1, 1}, {4}, "0 0 1 -1,\n0 1 1 -1"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(written([&row](std::FILE* file) {
                CVekVRMLLoader().WriteIndexIndexedStrip(file, row.indices.data(), row.lengths.data(),
                                                        row.lengths.size());
              }),
              row.expected)
        << row.name;
  }
}

TEST(FaceSetText, StripsEndWhereTheIndicesDo) {
  const Indices indices = {0, 1, 2, 3};
  const Indices lengths = {3, 4294967295U, 4294967295U, 3};
  EXPECT_EQ(exporter_test::printed([&](exporter::TextWriter& out) {
              exporter::writeStrips(out, indices.data(), lengths, indices.size());
            }),
            "0 1 2 -1");
}

std::string textureData(CVekActor* actor, const Floats& values, std::size_t count) {
  return written(
      [&](std::FILE* file) { CVekVRMLLoader().WriteTextureData(file, actor, "point", values.data(), count); });
}

TEST(FaceSetText, TextureCoordinatesGoThroughTheActorsMatrix) {
  CVekActorMesh actor;
  const Floats values = {0.5F, 0.25F, 1, 1};
  EXPECT_EQ(textureData(&actor, values, 2), "point[\n0.500000 0.250000,\n1.000000 1.000000]\n");
  EXPECT_EQ(textureData(nullptr, values, 2), "point[\n0.500000 0.250000,\n1.000000 1.000000]\n");
  actor.SetTexture(0, exporter_test::texture({{2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1, 0, 0.5F, -1, 0, 1}}));
  EXPECT_EQ(textureData(&actor, values, 2), "point[\n1.500000 0.000000,\n2.500000 3.000000]\n");
  EXPECT_EQ(textureData(&actor, values, 0), "point[\n1.500000 0.000000]\n");
  EXPECT_EQ(values, (Floats{0.5F, 0.25F, 1, 1}));
}

TEST(FaceSetText, OnlySlotZeroHasTheMatrix) {
  CVekActorMesh actor;
  actor.SetTexture(1, exporter_test::texture({{2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}}));
  EXPECT_EQ(textureData(&actor, {1, 1}, 1), "point[\n1.000000 1.000000]\n");
}

TEST(FaceSetText, TextureCoordinatesOutOfRangeBecomeZero) {
  CVekActorMesh actor;
  actor.SetTexture(0, exporter_test::texture({{1e6F, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}}));
  EXPECT_EQ(textureData(&actor, {2, 0.5F, -2, 1, 1, 2, -1, NAN, 0.9999999F, 3}, 5),
            "point[\n0.000000 0.500000,\n0.000000 1.000000,\n0.000000 2.000000,\n0.000000 0.000000,\n"
            "999999.875000 3.000000]\n");
}

}  // namespace
