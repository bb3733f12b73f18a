// EGL's surfaceless platform: a context without window or pixel buffer, all drawing goes to framebuffer objects. The
// display belongs to the process and is never shut down: the next picture finds the driver loaded.

#include "embedded/pictures/OffscreenContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <algorithm>

#include "embedded/pictures/OpenGL.h"

namespace embedded {

bool OffscreenContext::fail(const char* what) {
  m_errorText = std::string(what) + ": there is no OpenGL renderer here (Mesa's software renderer would do)";
  return false;
}

bool OffscreenContext::open() {
  m_display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  if (m_display == EGL_NO_DISPLAY) return fail("no EGL display without a screen");
  if (eglInitialize(m_display, nullptr, nullptr) != EGL_TRUE) {
    m_display = nullptr;
    return fail("EGL does not start");
  }
  if (eglBindAPI(EGL_OPENGL_API) != EGL_TRUE) return fail("EGL knows no OpenGL");
  const EGLint wanted[] = {EGL_SURFACE_TYPE, EGL_DONT_CARE, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (eglChooseConfig(m_display, wanted, &config, 1, &count) != EGL_TRUE || count == 0) {
    return fail("EGL has no configuration for OpenGL");
  }
  m_context = eglCreateContext(m_display, config, EGL_NO_CONTEXT, nullptr);
  if (m_context == EGL_NO_CONTEXT) return fail("no OpenGL context");
  if (eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, m_context) != EGL_TRUE) {
    return fail("the OpenGL context cannot be used without a surface");
  }
  return true;
}

OffscreenContext::~OffscreenContext() {
  if (m_display == nullptr) return;
  eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  if (m_context != nullptr) eglDestroyContext(m_display, m_context);
  eglReleaseThread();
}

OffscreenBuffer::~OffscreenBuffer() {
  destroy(m_drawn);
  destroy(m_resolved);
}

void OffscreenBuffer::destroy(const Target& target) {
  if (target.framebuffer == 0) return;
  glDeleteFramebuffers(1, &target.framebuffer);
  glDeleteRenderbuffers(1, &target.color);
  glDeleteRenderbuffers(1, &target.depth);
}

bool OffscreenBuffer::make(Target& target, unsigned sampleCount, bool withDepth) const {
  const auto width = static_cast<GLsizei>(m_width);
  const auto height = static_cast<GLsizei>(m_height);
  const auto samples = static_cast<GLsizei>(sampleCount);
  const auto attach = [&](unsigned& buffer, GLenum format, GLenum place) {
    glGenRenderbuffers(1, &buffer);
    glBindRenderbuffer(GL_RENDERBUFFER, buffer);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, place, GL_RENDERBUFFER, buffer);
  };
  glGenFramebuffers(1, &target.framebuffer);
  glBindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
  attach(target.color, GL_RGBA8, GL_COLOR_ATTACHMENT0);
  if (withDepth) attach(target.depth, GL_DEPTH_COMPONENT24, GL_DEPTH_ATTACHMENT);
  return glGetError() == GL_NO_ERROR && glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

bool OffscreenBuffer::open(unsigned width, unsigned height, unsigned sampleCount) {
  m_width = width;
  m_height = height;
  GLint most = 0;
  glGetIntegerv(GL_MAX_SAMPLES, &most);
  const unsigned samples = std::min(sampleCount, static_cast<unsigned>(std::max(most, 0)));
  if (samples >= 2 && !make(m_resolved, 0, false)) return false;
  if (!make(m_drawn, samples >= 2 ? samples : 0, true)) return false;
  glViewport(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height));
  return true;
}

bool OffscreenBuffer::read(Raster& raster) {
  const auto width = static_cast<GLsizei>(m_width);
  const auto height = static_cast<GLsizei>(m_height);
  if (m_resolved.framebuffer != 0) {
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_drawn.framebuffer);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_resolved.framebuffer);
    glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_resolved.framebuffer);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_drawn.framebuffer);
  }
  constexpr unsigned kChannels = 3;
  if (!makeRaster(m_width, m_height, kChannels, raster)) return false;
  const std::size_t rowBytes = std::size_t{m_width} * kChannels;
  std::vector<std::uint8_t> fromBottom(raster.bytes.size());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, fromBottom.data());
  for (std::size_t row = 0; row < m_height; ++row) {
    std::copy_n(fromBottom.data() + row * rowBytes, rowBytes, raster.bytes.data() + (m_height - 1 - row) * rowBytes);
  }
  return glGetError() == GL_NO_ERROR;
}

}  // namespace embedded
