#pragma once

// The export's entry point, as the host looks it up.

#include <VekFoundations/VekExport.h>

#include <string>

class CVekStager;

/// Writes the host's current assembly as a VRML97 file.
///
/// `path` is the file to make or replace; texture images are put into a folder "Textures" beside it. `app` gives the
/// assembly, the cameras, the views and the colours, and is not changed; without an assembly no file is made. Progress
/// goes to the host's callback. Afterwards `errno` is 0 when the file was written whole; otherwise it says why not, and
/// what stands at `path` ends where the writing did. Not safe to call from two threads at once.
extern "C" VEK_API void writeModelWRL(const std::string& path, CVekStager* app) noexcept;
