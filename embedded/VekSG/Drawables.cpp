// The drawables: their states, and the measures of the primitive ones. The lists of the others live in the
// declarations.

#include <VekSG/sglCone.h>
#include <VekSG/sglCube.h>
#include <VekSG/sglCylinder.h>
#include <VekSG/sglDrawable.h>
#include <VekSG/sglIndexedTriangleSet.h>
#include <VekSG/sglIndexedTriangleStripSet.h>
#include <VekSG/sglMonoIndexedTriangleStripSet.h>
#include <VekSG/sglPrimitive.h>
#include <VekSG/sglSphere.h>
#include <VekSG/sglTriangleSet.h>

namespace {

constexpr unsigned kNumStates = 8;

// The list without its null entries.
sglStateletList withoutNull(const sglStateletList& statelets) {
  sglStateletList kept;
  kept.reserve(statelets.size());
  for (const sglRef<sglStatelet>& statelet : statelets) {
    if (statelet) kept.push_back(statelet);
  }
  return kept;
}

}  // namespace

sglDrawable::~sglDrawable() = default;

void sglDrawable::setState(unsigned index, const sglStateletList& statelets) {
  if (index >= kNumStates) return;
  if (index >= m_states.size()) m_states.resize(index + 1);
  m_states[index] = std::make_unique<StateElement>(withoutNull(statelets), std::vector<sglTexCoords>{});
}

void sglDrawable::setState(unsigned index, const sglStateletList& statelets, const sglTexCoords& texCoords) {
  if (index >= kNumStates) return;
  if (index >= m_states.size()) m_states.resize(index + 1);
  m_states[index] = std::make_unique<StateElement>(withoutNull(statelets), std::vector<sglTexCoords>{texCoords});
}

sglGeoSet::~sglGeoSet() = default;

sglIndexedGeoSet::~sglIndexedGeoSet() = default;

sglIndexedGeoStripSet::~sglIndexedGeoStripSet() = default;

sglMonoIndexedGeoStripSet::~sglMonoIndexedGeoStripSet() = default;

sglTriangleSet::sglTriangleSet() = default;

sglTriangleSet::~sglTriangleSet() = default;

sglIndexedTriangleSet::sglIndexedTriangleSet() = default;

sglIndexedTriangleSet::~sglIndexedTriangleSet() = default;

sglIndexedTriangleStripSet::sglIndexedTriangleStripSet() = default;

sglIndexedTriangleStripSet::~sglIndexedTriangleStripSet() = default;

sglMonoIndexedTriangleStripSet::sglMonoIndexedTriangleStripSet() = default;

sglMonoIndexedTriangleStripSet::~sglMonoIndexedTriangleStripSet() = default;

sglPrimitive::~sglPrimitive() = default;

sglCube::sglCube(float sizeX, float sizeY, float sizeZ) : m_size{sizeX, sizeY, sizeZ} {}

sglCube::~sglCube() = default;

sglCone::sglCone(unsigned segments, float height, float radius)
    : m_segments(segments), m_height(height), m_radius(radius) {}

sglCone::~sglCone() = default;

sglCylinder::sglCylinder(unsigned around, unsigned along, float height, float bottomRadius, float topRadius,
                         bool capped)
    : m_around(around),
      m_along(along),
      m_height(height),
      m_bottomRadius(bottomRadius),
      m_topRadius(topRadius),
      m_capped(capped) {}

sglCylinder::~sglCylinder() = default;

sglSphere::sglSphere(unsigned around, unsigned poleToPole, float radius)
    : m_around(around), m_poleToPole(poleToPole), m_radius(radius) {}

sglSphere::~sglSphere() = default;
