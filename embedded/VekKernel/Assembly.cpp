// The assembly tree. Like the groups of the scene graph, a group destroys everything below it from a list, never by
// nested destructors.

#include <VekKernel/CVekActorMesh.h>
#include <VekKernel/CVekAssyRoot.h>
#include <VekSG/sglNode.h>

#include <algorithm>

namespace {

constexpr unsigned kNumTextureSlots = 8;

std::uint64_t nextIdentity() {
  static std::uint64_t last = 0;
  return ++last;
}

}  // namespace

CVekModifiable::CVekModifiable() = default;

CVekModifiable::~CVekModifiable() = default;

CVekDraw::~CVekDraw() = default;

bool CVekDraw::IsDisplayed() const { return m_displayed; }

CVekAssyNode::CVekAssyNode() : m_identity(nextIdentity()) {}

CVekAssyNode::~CVekAssyNode() = default;

CVekAssyGroup::CVekAssyGroup() = default;

CVekAssyGroup::~CVekAssyGroup() {
  std::vector<CVekAssyNode*> doomed(m_childs.begin(), m_childs.end());
  m_childs.clear();
  while (!doomed.empty()) {
    CVekAssyNode* node = doomed.back();
    doomed.pop_back();
    if (auto* group = dynamic_cast<CVekAssyGroup*>(node)) {
      doomed.insert(doomed.end(), group->m_childs.begin(), group->m_childs.end());
      group->m_childs.clear();
    }
    delete node;
  }
}

void CVekAssyGroup::AddChild(CVekAssyNode* child) {
  // Children mostly come in the order of their creation, which puts them at the end.
  if (child != this) m_childs.insert(m_childs.end(), child);
}

CVekKAssyGroup::CVekKAssyGroup() = default;

CVekKAssyGroup::~CVekKAssyGroup() = default;

CVekAssyRoot::CVekAssyRoot() = default;

CVekAssyRoot::~CVekAssyRoot() = default;

CVekTexture::CVekTexture() = default;

CVekTexture::~CVekTexture() = default;

CVekActor::CVekActor() = default;

CVekActor::~CVekActor() { delete m_presentable; }

void CVekActor::SetPresentable(sglNode* presentable) {
  if (presentable == m_presentable) return;
  delete m_presentable;
  m_presentable = presentable;
}

bool CVekActor::HasTexture() const {
  return std::any_of(m_textures.begin(), m_textures.end(), [](const auto& texture) { return texture != nullptr; });
}

void CVekActor::SetTexture(unsigned slot, std::unique_ptr<CVekTexture> texture) {
  if (slot >= kNumTextureSlots) return;
  if (slot >= m_textures.size()) m_textures.resize(slot + 1);
  m_textures[slot] = std::move(texture);
}

CVekActorMesh::CVekActorMesh() = default;

CVekActorMesh::~CVekActorMesh() = default;
