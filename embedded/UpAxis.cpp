// A turn about x by a right angle, either way. Its sines and cosines are exact, so that it costs no precision. A root's
// own placement is not exported, so the turn stands in a group below a new root; the old root, as a node inside the
// tree, is a group that places nothing.

#include "embedded/UpAxis.h"

namespace embedded {
namespace {

// Stands up what lies because the other axis was taken for the one that is up.
sglMat4<float> turnFor(UpAxis actual) {
  const float sign = actual == UpAxis::Y ? 1.0F : -1.0F;
  sglMat4<float> matrix;
  matrix(1, 1) = matrix(2, 2) = 0.0F;
  matrix(1, 2) = sign;
  matrix(2, 1) = -sign;
  return matrix;
}

}  // namespace

std::unique_ptr<CVekAssyRoot> turnedUpright(std::unique_ptr<CVekAssyRoot> assembly, UpAxis assumed, UpAxis actual) {
  if (assembly == nullptr || assumed == actual) return assembly;
  auto turn = std::make_unique<CVekKAssyGroup>();
  turn->SetName("Upright");
  turn->SetMatLocalToParent(turnFor(actual));
  auto root = std::make_unique<CVekAssyRoot>();
  root->SetName(assembly->GetName());
  turn->AddChild(assembly.release());
  root->AddChild(turn.release());
  return root;
}

}  // namespace embedded
