#pragma once

// From an imported scene to what the application shows: the assembly, and a stager around it.

#include <VekGeometry/CVekBBox.h>
#include <VekKernel/CVekStager.h>
#include <VekSG/sglNode.h>

#include <memory>
#include <string>

namespace embedded {

// The assembly of a scene, under a root of that name; null for a null scene. The scene stays as it is, and may go: the
// assembly shares its lists and states.
//
// Transforms, groups and billboards become CVekKAssyGroups of the same name, a level of detail becomes its first level,
// a switch its selected choice. A geode with at least one drawable becomes a CVekActorMesh named like the geode or,
// when that has no name, like its group; primitive drawables become indexed triangle sets. A mesh carries one image
// file at most, as its texture and as the property "Texture.Map.Path": where the drawables of a geode have different
// ones, each file's become a mesh of their own, and those without one another, all of the same name.
[[nodiscard]] std::unique_ptr<CVekAssyRoot> buildAssembly(const sglNode* scene, const std::string& name);

// A camera that sees all of a box: perspective, from the front, the right and above, upright in a world whose z axis is
// up. For an empty box it looks at the origin.
[[nodiscard]] std::unique_ptr<CVekCamera> cameraForBox(const CVekBBox& box);

// A stager with that assembly, which may be null, and the defaults of everything else: a viewport whose camera sees the
// whole model, an empty list of views, a black background.
[[nodiscard]] std::unique_ptr<CVekStager> makeStager(std::unique_ptr<CVekAssyRoot> assembly);

}  // namespace embedded
