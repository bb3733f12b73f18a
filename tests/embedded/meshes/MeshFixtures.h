#pragma once

// Assemblies for the tests of other formats.

#include <VekFoundations/CVekPropPath.h>
#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekAssyRoot.h>
#include <VekSG/sglCullMode.h>
#include <VekSG/sglMaterial.h>

#include <string>

#include "embedded/AssemblyWalk.h"
#include "embedded/StageProperties.h"
#include "tests/embedded/SceneFixtures.h"

namespace fixtures {

inline sglRef<sglStatelet> material(float red, float green, float blue, float alpha = 1.0F) {
  const sglRef<sglMaterial> made(new sglMaterial);
  made->setDiffuse(red, green, blue, sglMaterial::FRONT_AND_BACK);
  made->setSpecular(0.5F, 0.25F, 0.125F, sglMaterial::FRONT_AND_BACK);
  made->setShininess(64.0F, sglMaterial::FRONT_AND_BACK);
  made->setAlpha(alpha, sglMaterial::FRONT_AND_BACK);
  return made;
}

// A square from (0, 0, 0) to (1, 1, 0) that faces z, as six corners over four points, with texture coordinates.
inline std::unique_ptr<sglIndexedTriangleSet> square(const sglStateletList& states) {
  auto set = std::make_unique<sglIndexedTriangleSet>();
  const sglRef<sglDataPtr> indices(new sglDataPtr(std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
  set->setNumPrims(2);
  set->setCoordList(new sglDataPtr(std::vector<float>{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}));
  set->setCoordIndexList(indices.get());
  set->setTexCoordIndexList(indices.get());
  set->setState(0, states,
                sglTexCoords(new sglDataPtr(std::vector<float>{0, 0, 1, 0, 1, 1, 0, 1}), sglTexCoords::FLOAT, 2));
  return set;
}

inline std::unique_ptr<CVekActorMesh> actorOf(std::unique_ptr<sglDrawable> drawable, const std::string& name) {
  auto actor = std::make_unique<CVekActorMesh>();
  actor->SetName(name);
  actor->SetPresentable(geodeOf(std::move(drawable)).release());
  return actor;
}

inline void setMapPath(CVekActor& actor, const std::string& path) {
  actor.GetProperties()->SetProperty(GetPropIDServer().GetID(embedded::kMapPath), std::make_unique<CVekPropPath>(path));
}

inline std::unique_ptr<CVekKAssyGroup> groupAt(const sglMat4<float>& matrix, const std::string& name,
                                               std::unique_ptr<CVekAssyNode> child = nullptr) {
  auto group = std::make_unique<CVekKAssyGroup>();
  group->SetName(name);
  group->SetMatLocalToParent(matrix);
  if (child != nullptr) group->AddChild(child.release());
  return group;
}

inline std::unique_ptr<CVekAssyRoot> rootOf(std::unique_ptr<CVekAssyNode> child, const std::string& name = "root") {
  auto root = std::make_unique<CVekAssyRoot>();
  root->SetName(name);
  root->AddChild(child.release());
  return root;
}

// What stands y up stands z up after it.
inline sglMat4<float> uprightTurn() {
  sglMat4<float> matrix;
  matrix[5] = matrix[10] = 0.0F;
  matrix[6] = 1.0F;
  matrix[9] = -1.0F;
  return matrix;
}

}  // namespace fixtures
