#pragma once

// OpenGL's declarations, those that the library exports beyond version 1.1 included.

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
