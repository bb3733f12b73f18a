// OpenGL's fixed functions do the shading: the host's states are their states, number for number. Triangles come out of
// the bakers in the space of the picture and are handed over in arrays, many drawables of one look in each, so that a
// world of many small shapes costs few calls, and a world of many triangles little memory.

#include "embedded/pictures/Picture.h"

#include <algorithm>
#include <cstddef>
#include <glm/geometric.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <numeric>

#include "embedded/pictures/OffscreenContext.h"
#include "embedded/pictures/OpenGL.h"
#include "embedded/pictures/TextureStore.h"
#include "embedded/pictures/TriangleBaker.h"

namespace embedded {
namespace {

constexpr std::size_t kBatchVertices = 3 * 32768;

void enable(GLenum what, bool on) { on ? glEnable(what) : glDisable(what); }

// A lamp in the eye's coordinates, infinitely far away.
struct Lamp {
  GLenum light;
  std::array<float, 4> towards;
  float diffuse;
  float specular;
};

// The specular part is weak: materials come with a white one, which at full strength would wash their colours out.
constexpr Lamp kLamps[] = {
    {GL_LIGHT0, {-0.35F, 0.5F, 1.0F, 0.0F}, 0.87F, 0.25F},
    {GL_LIGHT1, {0.8F, -0.3F, 0.5F, 0.0F}, 0.32F, 0.0F},
};
constexpr float kAmbient = 0.3F;

void setUpLamps() {
  const auto grey = [](float value) { return std::array<float, 4>{value, value, value, 1.0F}; };
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, grey(kAmbient).data());
  glLightModeli(GL_LIGHT_MODEL_COLOR_CONTROL, GL_SEPARATE_SPECULAR_COLOR);
  for (const Lamp& lamp : kLamps) {
    glLightfv(lamp.light, GL_AMBIENT, grey(0.0F).data());
    glLightfv(lamp.light, GL_DIFFUSE, grey(lamp.diffuse).data());
    glLightfv(lamp.light, GL_SPECULAR, grey(lamp.specular).data());
    glLightfv(lamp.light, GL_POSITION, lamp.towards.data());
    glEnable(lamp.light);
  }
}

void setSurface(GLenum side, const SurfaceLook& surface) {
  const auto set = [&](GLenum what, const Rgb& color) {
    const std::array<float, 4> values{color[0], color[1], color[2], surface.alpha};
    glMaterialfv(side, what, values.data());
  };
  set(GL_DIFFUSE, surface.diffuse);
  set(GL_AMBIENT, surface.ambient);
  set(GL_SPECULAR, surface.specular);
  set(GL_EMISSION, {0.0F, 0.0F, 0.0F});
  glMaterialf(side, GL_SHININESS, surface.shininess);
}

void setCulling(const Look& look) {
  glFrontFace(look.isClockwise ? GL_CW : GL_CCW);
  enable(GL_CULL_FACE, look.cullMode != sglCullMode::CULL_OFF);
  glCullFace(look.cullMode == sglCullMode::CULL_FRONT ? GL_FRONT : GL_BACK);
  glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, look.cullMode == sglCullMode::CULL_BACK ? GL_FALSE : GL_TRUE);
}

void setLook(const Look& look, TextureStore& textures) {
  // Off first: while it is on, setting a material is without effect.
  glDisable(GL_COLOR_MATERIAL);
  enable(GL_LIGHTING, look.isLit);
  setSurface(GL_FRONT, look.front);
  setSurface(GL_BACK, look.back);
  if (look.hasColors) {
    glColorMaterial(look.colorSide, look.colorMode);
    glEnable(GL_COLOR_MATERIAL);
  }
  enable(GL_TEXTURE_2D, look.texture != nullptr);
  if (look.texture != nullptr) {
    textures.bind(*look.texture);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, static_cast<GLint>(look.environment));
  }
  enable(GL_ALPHA_TEST, look.alphaFunc != sglAlphaTest::ALWAYS);
  glAlphaFunc(look.alphaFunc, look.alphaReference);
  enable(GL_BLEND, look.isBlended);
  glDepthMask(look.isBlended ? GL_FALSE : GL_TRUE);
  setCulling(look);
}

// Hands triangles over in arrays.
class Batch {
 public:
  Batch() {
    m_vertices.reserve(kBatchVertices);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    constexpr GLsizei kStride = sizeof(PictureVertex);
    const PictureVertex& first = *m_vertices.data();
    glVertexPointer(3, GL_FLOAT, kStride, first.position.data());
    glNormalPointer(GL_FLOAT, kStride, first.normal.data());
    glTexCoordPointer(2, GL_FLOAT, kStride, first.texCoord.data());
    glColorPointer(4, GL_UNSIGNED_BYTE, kStride, first.color.data());
  }

  void add(const PictureTriangle& triangle) {
    m_vertices.insert(m_vertices.end(), triangle.begin(), triangle.end());
    if (m_vertices.size() == kBatchVertices) flush();
  }

  void flush() {
    if (!m_vertices.empty()) glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(m_vertices.size()));
    m_vertices.clear();
  }

 private:
  std::vector<PictureVertex> m_vertices;  // never grows, since OpenGL knows where it lies
};

class Drawing {
 public:
  Drawing(const DrawList& list, const PictureBox& bounds, const PictureCamera& camera)
      : m_list(list), m_space(spaceOf(bounds)), m_camera(camera) {}

  void draw() {
    std::vector<std::uint32_t> opaque;
    std::vector<std::uint32_t> blended;
    for (std::uint32_t i = 0; i < m_list.items().size(); ++i) {
      (lookOf(i).isBlended ? blended : opaque).push_back(i);
    }
    std::ranges::stable_sort(opaque, {}, [this](std::uint32_t i) { return m_list.items()[i].look; });
    sortFarthestFirst(blended);
    for (const std::uint32_t i : opaque) drawOpaque(i);
    m_batch.flush();
    for (const std::uint32_t i : blended) drawBlended(i);
    m_batch.flush();
  }

 private:
  // A triangle on its way to being sorted.
  struct Far {
    double distance;
    PictureTriangle triangle;
  };

  [[nodiscard]] const Look& lookOf(std::uint32_t item) const { return m_list.looks()[m_list.items()[item].look]; }

  // How far behind the eye's plane a point of the picture's space lies.
  [[nodiscard]] double distanceOf(const PictureTriangle& triangle) const {
    glm::dvec3 sum(0.0);
    for (const PictureVertex& vertex : triangle) sum += glm::dvec3(glm::make_vec3(vertex.position.data()));
    if (!m_camera.isPerspective) return -glm::dot(m_camera.axes.back, sum);
    return glm::length(sum / 3.0 - m_space.from(m_camera.eye));
  }

  void sortFarthestFirst(std::vector<std::uint32_t>& items) {
    std::vector<double> distances(m_list.items().size(), 0.0);
    for (const std::uint32_t i : items) {
      TriangleBaker baker(m_list, m_list.items()[i], m_space, m_normals);
      PictureTriangle triangle;
      double sum = 0.0;
      double count = 0.0;
      for (; baker.next(triangle); count += 1.0) sum += distanceOf(triangle);
      distances[i] = count > 0.0 ? sum / count : 0.0;
    }
    std::ranges::stable_sort(items, std::ranges::greater(), [&](std::uint32_t i) { return distances[i]; });
  }

  void useLookOf(std::uint32_t item) {
    if (m_look == &lookOf(item)) return;
    m_batch.flush();
    m_look = &lookOf(item);
    setLook(*m_look, m_textures);
  }

  void drawOpaque(std::uint32_t item) {
    useLookOf(item);
    TriangleBaker baker(m_list, m_list.items()[item], m_space, m_normals);
    PictureTriangle triangle;
    while (baker.next(triangle)) m_batch.add(triangle);
  }

  void drawBlended(std::uint32_t item) {
    useLookOf(item);
    std::vector<Far> triangles;
    TriangleBaker baker(m_list, m_list.items()[item], m_space, m_normals);
    for (PictureTriangle triangle; baker.next(triangle);) triangles.push_back({distanceOf(triangle), triangle});
    std::ranges::stable_sort(triangles, std::ranges::greater(), &Far::distance);
    for (const Far& far : triangles) m_batch.add(far.triangle);
  }

  const DrawList& m_list;
  const PictureSpace m_space;
  const PictureCamera& m_camera;
  const Look* m_look = nullptr;  // what OpenGL is set to
  NormalCache m_normals;
  TextureStore m_textures;
  Batch m_batch;
};

// The camera and the box in the space of the picture.
PictureCamera cameraIn(const PictureSpace& space, PictureCamera camera) {
  camera.eye = space.from(camera.eye);
  camera.span *= space.scale;
  return camera;
}

PictureBox boxIn(const PictureSpace& space, const PictureBox& box) {
  PictureBox image;
  if (box.isEmpty()) return image;
  for (const glm::dvec3& corner : box.corners()) image.include(space.from(corner));
  return image;
}

void setUpView(const PictureBox& bounds, const PictureCamera& camera, const PictureFormat& format) {
  const PictureSpace space = spaceOf(bounds);
  const PictureCamera placed = cameraIn(space, camera);
  const std::array<float, 3> background{static_cast<float>(format.background[0]) / 255.0F,
                                        static_cast<float>(format.background[1]) / 255.0F,
                                        static_cast<float>(format.background[2]) / 255.0F};
  glClearColor(background[0], background[1], background[2], 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixd(glm::value_ptr(projectionMatrix(placed, boxIn(space, bounds), format.aspect())));
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  setUpLamps();
  glLoadMatrixd(glm::value_ptr(viewMatrix(placed)));
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LEQUAL);
  glDisable(GL_DITHER);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

}  // namespace

std::string drawPicture(const DrawList& list, const PictureBox& bounds, const PictureCamera& camera,
                        const PictureFormat& format, Raster& raster) {
  OffscreenContext context;
  if (!context.open()) return context.errorText();
  OffscreenBuffer buffer;
  if (!buffer.open(format.width, format.height, format.sampleCount)) return "the renderer has no room for the picture";
  setUpView(bounds, camera, format);
  Drawing(list, bounds, camera).draw();
  if (!buffer.read(raster)) return "the renderer ran out of memory";
  return "";
}

}  // namespace embedded
