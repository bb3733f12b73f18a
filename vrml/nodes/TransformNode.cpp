// The matrix is built from the left, one factor after the other, in double: the scale as it is seen along the scale
// orientation, then the rotation; the two translations about them only ever change the fourth row.

#include "vrml/nodes/TransformNode.h"

#include <array>
#include <cmath>

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(
    kGroupingFields,
    std::array{
        dataField<&TransformData::translation>(FieldList::exposedField, "translation"),
        dataField<&TransformData::scale>(FieldList::exposedField, "scale"),
        rareField<&TransformData::rare, &TransformRare::center>(FieldList::exposedField, "center"),
        dataField<&TransformData::rotation>(FieldList::exposedField, "rotation"),
        rareField<&TransformData::rare, &TransformRare::scaleOrientation>(FieldList::exposedField, "scaleOrientation"),
    });

constexpr NodeMember kMembers[] = {
    {fieldKey("children"), true, kGroupingChildTypes},
};

constexpr FieldKey kWriteOrder[] = {
    fieldKey("translation"), fieldKey("rotation"),   fieldKey("scale"),    fieldKey("scaleOrientation"),
    fieldKey("center"),      fieldKey("bboxCenter"), fieldKey("bboxSize"),
};

using Linear = std::array<std::array<double, 3>, 3>;  // rows are the images of the axes

constexpr Linear kIdentity{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

// The rotation about an axis, which need not be of unit length, by an angle of `sign` times the field's.
Linear rotationMatrix(const SFRotation& rotation, double sign) {
  double x = static_cast<double>(rotation.x());
  double y = static_cast<double>(rotation.y());
  double z = static_cast<double>(rotation.z());
  const double angle = sign * static_cast<double>(rotation.angle());
  const double length = std::sqrt(x * x + y * y + z * z);
  if (length == 0.0 || angle == 0.0) return kIdentity;
  x /= length;
  y /= length;
  z /= length;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double t = 1.0 - c;
  return {{{t * x * x + c, t * x * y + s * z, t * x * z - s * y},
           {t * x * y - s * z, t * y * y + c, t * y * z + s * x},
           {t * x * z + s * y, t * y * z - s * x, t * z * z + c}}};
}

// a, then b, for row vectors.
Linear product(const Linear& a, const Linear& b) {
  Linear result{};
  for (std::size_t row = 0; row < 3; ++row)
    for (std::size_t column = 0; column < 3; ++column)
      for (std::size_t k = 0; k < 3; ++k) result[row][column] += a[row][k] * b[k][column];
  return result;
}

Linear scaleMatrix(const SFVec3f& scale) {
  Linear result{};
  for (std::size_t i = 0; i < 3; ++i) result[i][i] = static_cast<double>(scale.getValue()[i]);
  return result;
}

bool turnsNothing(const SFRotation& rotation) {
  return rotation.angle() == 0.0f || (rotation.x() == 0.0f && rotation.y() == 0.0f && rotation.z() == 0.0f);
}

}  // namespace

constinit const NodeClass TransformNode::kClass = describe<TransformNode>({.typeName = "Transform",
                                                                           .fields = kFields,
                                                                           .members = kMembers,
                                                                           .acceptedChildren = kGroupingChildTypes,
                                                                           .writeOrder = kWriteOrder});

void TransformNode::getMatrix(double (&matrix)[16]) const {
  Linear linear = scaleMatrix(getScale());
  if (!turnsNothing(getScaleOrientation())) {
    linear = product(rotationMatrix(getScaleOrientation(), -1.0), linear);
    linear = product(linear, rotationMatrix(getScaleOrientation(), 1.0));
  }
  if (!turnsNothing(getRotation())) linear = product(linear, rotationMatrix(getRotation(), 1.0));

  const auto& center = getCenter().getValue();
  const auto& translation = getTranslation().getValue();
  for (std::size_t column = 0; column < 3; ++column) {
    double fourth = static_cast<double>(center[column]) + static_cast<double>(translation[column]);
    for (std::size_t row = 0; row < 3; ++row) {
      matrix[row * 4 + column] = linear[row][column];
      fourth -= static_cast<double>(center[row]) * linear[row][column];
    }
    matrix[12 + column] = fourth;
    matrix[column * 4 + 3] = 0.0;
  }
  matrix[15] = 1.0;
}

}  // namespace vrml
