#pragma once

// The import's entry point, as the host looks it up.

#include <VekFoundations/VekExport.h>

#include <string>

class CVekDBRoot;

/// Loads a VRML97 file into a new host scene.
///
/// Returns a database that the caller owns and deletes. It has no scene when the file could not be loaded or holds
/// nothing that can be shown; the host's message stream then says why. Null only when there is no memory left for an
/// empty database. `path` is used and shown as it is, and looked for along the host's paths when it cannot be loaded as
/// it is. `flags` changes nothing. The content of the file need not be trusted. Not safe to call from two threads at
/// once.
extern "C" VEK_API CVekDBRoot* loadModelWRL(const std::string& path, unsigned flags) noexcept;
