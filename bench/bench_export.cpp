// Measures the whole export, as a host calls it: the grid mesh as one indexed triangle set under the assembly root,
// written by the module's writeModelWRL.
//
//   bench_export FILE MODULE
//
// The same content as `yardstick write` prints: points, normals, and two lists of indices.

#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekAssyRoot.h>
#include <VekKernel/CVekSceneManager.h>
#include <VekKernel/CVekStager.h>
#include <VekSG/sglDataPtr.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <dlfcn.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/GridMesh.h"
#include "bench/StageTimer.h"

namespace {

using WriteFunction = void(const std::string&, CVekStager*);

// The stager's scene manager owns the root, the root the actor, the actor the geode with the mesh.
void showMesh(CVekStager& stager, bench::GridMesh mesh) {
  auto* const triangles = new sglIndexedTriangleSet;
  triangles->setNumPrims(static_cast<unsigned>(mesh.indices.size() / 3));
  const sglRef<sglDataPtr> indices(
      new sglDataPtr(std::vector<std::uint32_t>(mesh.indices.begin(), mesh.indices.end())));
  triangles->setCoordList(new sglDataPtr(std::move(mesh.points)));
  triangles->setCoordIndexList(indices.get());
  triangles->setNormalList(new sglDataPtr(std::move(mesh.normals)), sglGeoSet::BIND_PER_VERTEX);
  triangles->setNormalIndexList(indices.get());
  auto* const geode = new sglGeode;
  geode->addGeometry(triangles);
  auto* const actor = new CVekActorMesh;
  actor->SetPresentable(geode);
  auto root = std::make_unique<CVekAssyRoot>();
  root->AddChild(actor);
  stager.GetSceneManager()->SetAssyRoot(std::move(root));
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) {
    std::fputs("usage: bench_export FILE MODULE\n", stderr);
    return 2;
  }
  void* const module = dlopen(arguments[2], RTLD_NOW);
  void* const symbol = module == nullptr ? nullptr : dlsym(module, "writeModelWRL");
  if (symbol == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  auto* const write = reinterpret_cast<WriteFunction*>(symbol);

  bench::StageTimer timer;
  CVekStager stager;
  showMesh(stager, bench::GridMesh(bench::GridMesh::kColumns, bench::GridMesh::kRows));
  timer.endStage("mesh");
  write(arguments[1], &stager);
  timer.endStage("export");
  std::fflush(stdout);
  _exit(0);  // without taking the mesh apart, as the yardstick ends
}
