#pragma once

// How the bytes of an image are to be read, OpenGL numbers.

enum sglImageFormatEnum : unsigned {
  SGL_IMAGE_RGB = 0x1907,              // red, green, blue
  SGL_IMAGE_RGBA = 0x1908,             // red, green, blue, alpha
  SGL_IMAGE_LUMINANCE = 0x1909,        // grey
  SGL_IMAGE_LUMINANCE_ALPHA = 0x190A,  // grey, alpha
};

enum sglImageTypeEnum : unsigned {
  SGL_IMAGE_UNSIGNED_BYTE = 0x1401,  // one byte a channel
};
