// The nodes of the scene graph.
//
// Scenes may be hundreds of thousands of groups deep, so that a group never leaves the destruction of its children to
// their own destructors: it goes down to the last child of the last child and so on, destroys that one, and goes on
// from the group above it. This takes no memory, so that a scene can be destroyed because there is none.

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
  const auto takeLast = [](sglGroup& group) {
    sglNode* const last = group.m_children.back();
    group.m_children.pop_back();
    last->m_parent = nullptr;
    return last;
  };
  sglGroup* above = this;
  while (above != this || !m_children.empty()) {
    if (above->m_children.empty()) {
      above = above->m_parent;
      delete takeLast(*above);
    } else if (auto* const group = dynamic_cast<sglGroup*>(above->m_children.back())) {
      above = group;
    } else {
      delete takeLast(*above);
    }
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
