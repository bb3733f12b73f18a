// The nodes of the scene graph.
//
// Scenes may be hundreds of thousands of groups deep, so that a group never leaves the destruction of its children to
// their own destructors: it collects everything below it on a list and destroys one childless node after the other.

#include <VekSG/sglBillboard.h>
#include <VekSG/sglGeode.h>
#include <VekSG/sglGroup.h>
#include <VekSG/sglLOD.h>
#include <VekSG/sglNode.h>
#include <VekSG/sglObject.h>
#include <VekSG/sglSwitch.h>
#include <VekSG/sglTransform.h>

#include <algorithm>

namespace {

constexpr unsigned kMaxRangeIndex = 16'000'000;

}  // namespace

sglObject::~sglObject() = default;

sglNode::~sglNode() {
  if (m_parent != nullptr) m_parent->removeChild(this);
}

sglGroup::sglGroup() = default;

sglGroup::~sglGroup() {
  std::vector<sglNode*> doomed;
  doomed.swap(m_children);
  while (!doomed.empty()) {
    sglNode* node = doomed.back();
    doomed.pop_back();
    node->m_parent = nullptr;
    if (auto* group = dynamic_cast<sglGroup*>(node)) {
      doomed.insert(doomed.end(), group->m_children.begin(), group->m_children.end());
      group->m_children.clear();
    }
    delete node;
  }
}

void sglGroup::addChild(sglNode* child, bool) {
  if (child == nullptr || child == this || child->m_parent == this) return;
  m_children.push_back(child);  // first: without memory for it the child stays where it is
  if (child->m_parent != nullptr) child->m_parent->removeChild(child);
  child->m_parent = this;
}

bool sglGroup::removeChild(sglNode* child) {
  if (child == nullptr || child->m_parent != this) return false;
  // The child that was added last is the one that leaves most often.
  const auto found = std::find(m_children.rbegin(), m_children.rend(), child);
  m_children.erase(std::next(found).base());
  child->m_parent = nullptr;
  return true;
}

template <class T>
sglTransform<T>::sglTransform() = default;

template <class T>
sglTransform<T>::~sglTransform() = default;

template class sglTransform<float>;

sglLOD::sglLOD() = default;

sglLOD::~sglLOD() = default;

void sglLOD::setRange(unsigned index, float distance) {
  if (index > kMaxRangeIndex) return;
  if (index >= m_ranges.size()) m_ranges.resize(index + 1);
  m_ranges[index] = distance;
}

sglSwitch::sglSwitch() = default;

sglSwitch::~sglSwitch() = default;

sglBillboard::sglBillboard() = default;

sglBillboard::~sglBillboard() = default;

sglGeode::sglGeode() = default;

sglGeode::~sglGeode() {
  for (const sglDrawable* drawable : m_geometries) delete drawable;
}

void sglGeode::addGeometry(sglDrawable* drawable) { m_geometries.push_back(drawable); }
