#include "embedded/pictures/Billboards.h"

#include <gtest/gtest.h>

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>

namespace embedded {
namespace {

glm::dvec3 turned(const glm::dmat4& turn, const glm::dvec3& direction) {
  return glm::dvec3(turn * glm::dvec4(direction, 0.0));
}

void expectNear(const glm::dvec3& actual, const glm::dvec3& expected) {
  for (int axis = 0; axis < 3; ++axis) EXPECT_NEAR(actual[axis], expected[axis], 1e-9) << "axis " << axis;
}

TEST(Billboards, turn_to_the_eye) {
  const glm::dvec3 x(1, 0, 0);
  const glm::dvec3 y(0, 1, 0);
  const glm::dvec3 z(0, 0, 1);
  const glm::dvec3 slanted = glm::normalize(glm::dvec3(1, 1, 0));
  const struct {
    const char* name;
    sglBillboard::ModeEnum mode;
    sglVec3<double> axis;
    glm::dvec4 viewpoint;
    glm::dvec3 front;  // where z goes
    glm::dvec3 upper;  // where y goes
  } kRows[] = {
      {"about its axis", sglBillboard::AXIAL, {0, 1, 0}, {5, 0, 0, 1}, x, y},
      {"behind", sglBillboard::AXIAL, {0, 3, 0}, {0, 0, -5, 1}, -z, y},
      {"stays on its axis though the eye is above", sglBillboard::AXIAL, {0, 1, 0}, {5, 5, 0, 1}, x, y},
      {"about another axis", sglBillboard::AXIAL, {1, 0, 0}, {0, 5, 0, 1}, y, -z},
      {"an eye on the axis", sglBillboard::AXIAL, {0, 1, 0}, {0, 5, 0, 1}, z, y},
      {"an axis through its front", sglBillboard::AXIAL, {0, 0, 1}, {5, 0, 0, 1}, z, y},
      {"a direction", sglBillboard::AXIAL, {0, 1, 0}, {1, 0, 0, 0}, x, y},
      {"no axis: upright to the onlooker", sglBillboard::AXIAL, {0, 0, 0}, {5, 0, 0, 1}, x, z},
      {"to the eye", sglBillboard::POINT_EYE, {0, 1, 0}, {5, 5, 0, 1}, slanted, glm::dvec3(-slanted.x, slanted.y, 0)},
      {"upright to the world", sglBillboard::POINT_WORLD, {0, 1, 0}, {5, 0, 0, 1}, x, z},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    sglBillboard billboard;
    billboard.setMode(row.mode);
    billboard.setAxis(row.axis);
    const glm::dmat4 turn = billboardTurn(billboard, glm::dmat4(1.0), {row.viewpoint, {0, 0, 1}});
    expectNear(turned(turn, z), row.front);
    expectNear(turned(turn, y), row.upper);
  }
}

TEST(Billboards, turn_in_coordinates_of_their_own) {
  sglBillboard billboard;
  const glm::dmat4 identity(1.0);
  const glm::dmat4 world = glm::translate(identity, glm::dvec3(10, 0, 0)) *
                           glm::rotate(identity, glm::radians(90.0), glm::dvec3(1, 0, 0)) *
                           glm::scale(identity, glm::dvec3(3.0));
  // Seen from the right of where it stands; its y axis is the world's z axis.
  const glm::dmat4 turn = billboardTurn(billboard, world, {{20, 0, 0, 1}, {0, 0, 1}});
  expectNear(turned(world * turn, {0, 0, 1}), {3, 0, 0});
  expectNear(turned(world * turn, {0, 1, 0}), {0, 0, 3});
}

TEST(Billboards, stay_when_their_placement_leaves_no_room) {
  const sglBillboard billboard;
  for (const double scale : {0.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(billboardTurn(billboard, glm::scale(glm::dmat4(1.0), glm::dvec3(scale)), Onlooker()), glm::dmat4(1.0));
  }
}

}  // namespace
}  // namespace embedded
