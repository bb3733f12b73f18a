// The scene as a loader gives it back.

#include <VekSG/sglNode.h>
#include <VekSGdb/CVekDBRoot.h>

CVekDBRoot::CVekDBRoot() = default;

CVekDBRoot::~CVekDBRoot() { delete m_root; }

void CVekDBRoot::SetSglRoot(sglNode* root) {
  if (root == m_root) return;
  delete m_root;
  m_root = root;
}
