// The foundations: shared objects, properties and the numbers of their names.

#include <VekFoundations/CVekProp.h>
#include <VekFoundations/CVekPropIDServer.h>
#include <VekFoundations/CVekPropNumerical.h>
#include <VekFoundations/CVekPropPath.h>
#include <VekFoundations/CVekPropertySet.h>
#include <VekFoundations/CVekShared.h>

#include <unordered_map>

CVekShared::~CVekShared() = default;

// One thread works on the embedded host's objects, so that the bracket has nothing to guard.
void CVekShared::BeginAccess(bool) {}

void CVekShared::EndAccess(bool) {}

CVekProperty::~CVekProperty() = default;

template <class T>
CVekProp<T>::~CVekProp() = default;

template class CVekProp<bool>;
template class CVekProp<float>;

template <class T>
CVekPropNumerical<T>::~CVekPropNumerical() = default;

template class CVekPropNumerical<float>;

CVekPropPath::~CVekPropPath() = default;

CVekPropID CVekPropIDServer::GetID(const CString& name) {
  static std::unordered_map<CString, CVekPropID> ids;
  const auto next = static_cast<CVekPropID>(ids.size() + 1);
  return ids.try_emplace(name, next).first->second;
}

CVekPropIDServer& GetPropIDServer() {
  static CVekPropIDServer server;
  return server;
}

CVekPropertySet::CVekPropertySet() = default;

CVekPropertySet::~CVekPropertySet() = default;

CVekProperty* CVekPropertySet::GetProperty(CVekPropID id) const {
  const auto found = m_properties.find(id);
  return found == m_properties.end() ? nullptr : found->second.get();
}

void CVekPropertySet::SetProperty(CVekPropID id, std::unique_ptr<CVekProperty> property) {
  if (property == nullptr) {
    m_properties.erase(id);
  } else {
    m_properties[id] = std::move(property);
  }
}
