// The numbers in the host's declarations are a contract with the module: OpenGL's where OpenGL has one, the host's own
// otherwise.

#include <VekGeometry/CVekGeomTools.h>
#include <VekSG/sglAlphaTest.h>
#include <VekSG/sglBillboard.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglFrontFace.h>
#include <VekSG/sglGeoSet.h>
#include <VekSG/sglMat4.h>
#include <VekSG/sglMaterial.h>
#include <VekSG/sglOStream.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTexEnv.h>
#include <VekSG/sglTexture2D.h>
#include <VekSG/sglTransparency.h>
#include <VekSGdb/sglImageEnums.h>
#include <gtest/gtest.h>

#include <cstddef>

namespace {

struct Row {
  const char* name;
  long long actual;
  long long expected;
};

TEST(HostNumbers, EnumerationsHaveTheNumbersThatTheModulePasses) {
  const Row rows[] = {
      {"error level", sglOStream::PRINT_ERROR, 1},
      {"warning level", sglOStream::PRINT_WARNING, 2},
      {"triangle set", sglGeoSet::PRIM_TRIANGLE_SET, 3},
      {"indexed triangle set", sglGeoSet::PRIM_INDEXED_TRIANGLE_SET, 12},
      {"indexed triangle strip set", sglGeoSet::PRIM_INDEXED_TRIANGLE_STRIP_SET, 14},
      {"mono-indexed triangle strip set", sglGeoSet::PRIM_MONO_INDEXED_TRIANGLE_STRIP_SET, 23},
      {"overall binding", sglGeoSet::BIND_OVERALL, 1},
      {"per-vertex binding", sglGeoSet::BIND_PER_VERTEX, 3},
      {"front and back", sglMaterial::FRONT_AND_BACK, 0x408},
      {"ambient and diffuse", sglMaterial::AMBIENT_AND_DIFFUSE, 0x1602},
      {"linear-mipmap-linear", sglTexture::LINEAR_MIPMAP_LINEAR, 9987},
      {"linear", sglTexture::LINEAR, 9729},
      {"luminance", sglTexture::FORMAT_LUMINANCE, 0x1909},
      {"luminance-alpha", sglTexture::FORMAT_LUMINANCE_ALPHA, 0x190A},
      {"RGB", sglTexture::FORMAT_RGB, 0x1907},
      {"RGBA", sglTexture::FORMAT_RGBA, 0x1908},
      {"image RGB", SGL_IMAGE_RGB, 0x1907},
      {"highest compression", sglTexture::COMPRESSION_HIGH, 3},
      {"repeat", sglTexture2D::WRAP_REPEAT, 0},
      {"clamp", sglTexture2D::WRAP_CLAMP, 1},
      {"greater", sglAlphaTest::GREATER, 0x204},
      {"modulate", sglTexEnv::MODULATE, 0x2100},
      {"blend", sglTransparency::BLEND, 0},
      {"culling off", sglCullMode::CULL_OFF, 1},
      {"clockwise", sglFrontFace::CLOCKWISE, 0x900},
      {"axial billboard", sglBillboard::AXIAL, 2},
      {"no selected child", sglSwitch::SELECT_NONE, -2},
  };
  for (const Row& row : rows) EXPECT_EQ(row.actual, row.expected) << row.name;
}

TEST(HostNumbers, MatricesAndWeldRecordsAreLaidOutAsTheModuleReadsThem) {
  EXPECT_EQ(sizeof(sglMat4<float>), 16 * sizeof(float));
  EXPECT_EQ(sizeof(CVekGeomTools::WeldRecord), 24U);
  EXPECT_EQ(offsetof(CVekGeomTools::WeldRecord, index), 12U);
  EXPECT_EQ(offsetof(CVekGeomTools::WeldRecord, distance), 16U);
  const sglMat4<float> identity;
  EXPECT_EQ(identity(3, 3), 1.0F);
  EXPECT_EQ(identity[12], 0.0F);
}

}  // namespace
