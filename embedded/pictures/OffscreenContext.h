#pragma once

// An OpenGL context that needs no display, and something to draw on.

#include <string>

#include "embedded/images/Raster.h"

namespace embedded {

// A context of the calling thread, from EGL without a surface: a graphics card's where there is one that may be used,
// otherwise one that draws on the processor. One at a time. What draws in it must be gone before it.
class OffscreenContext {
 public:
  OffscreenContext() = default;
  OffscreenContext(const OffscreenContext&) = delete;
  OffscreenContext& operator=(const OffscreenContext&) = delete;
  ~OffscreenContext();

  // Makes the context and takes it into use; false when there is none to be had, and errorText() says why.
  [[nodiscard]] bool open();

  [[nodiscard]] const std::string& errorText() const { return m_errorText; }

 private:
  bool fail(const char* what);

  void* m_display = nullptr;
  void* m_context = nullptr;
  std::string m_errorText;
};

// Colour and depth buffers in the context in use. Drawing goes there from open() on.
class OffscreenBuffer {
 public:
  OffscreenBuffer() = default;
  OffscreenBuffer(const OffscreenBuffer&) = delete;
  OffscreenBuffer& operator=(const OffscreenBuffer&) = delete;
  ~OffscreenBuffer();

  // Makes the buffers. `sampleCount` samples a pixel, or as many as the renderer has when it has fewer; below 2 means
  // one. False when the renderer has no such buffers.
  [[nodiscard]] bool open(unsigned width, unsigned height, unsigned sampleCount);

  // Waits for what was drawn and puts it into `raster`, in three channels. False when memory ran out.
  [[nodiscard]] bool read(Raster& raster);

 private:
  // A framebuffer with its two renderbuffers, OpenGL's names; 0 for none.
  struct Target {
    unsigned framebuffer = 0;
    unsigned color = 0;
    unsigned depth = 0;
  };

  [[nodiscard]] bool make(Target& target, unsigned sampleCount, bool withDepth) const;
  static void destroy(const Target& target);

  unsigned m_width = 0;
  unsigned m_height = 0;
  Target m_drawn;
  Target m_resolved;  // one sample a pixel, for reading; not there when m_drawn has no more than that
};

}  // namespace embedded
