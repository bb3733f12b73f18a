// What every node class has from the start: its fields in creation order, each with its list, its type and its default.
// The table is written down here on its own, so that a slip in a class's table shows.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"

namespace vrml {
namespace {

struct ClassRow {
  const char* typeName;
  const char* fields;  // list, name, type and default, a line each
};

constexpr ClassRow kClasses[] = {
    {"Anchor",
     "field bboxCenter SFVec3f 0 0 0\n"
     "field bboxSize SFVec3f -1 -1 -1\n"
     "exposed description SFString \"\"\n"
     "exposed parameter MFString empty\n"
     "exposed url MFString empty\n"},
    {"Appearance", ""},
    {"AudioClip",
     "exposed description SFString \"\"\n"
     "exposed loop SFBool FALSE\n"
     "exposed startTime SFTime 0\n"
     "exposed stopTime SFTime 0\n"
     "exposed pitch SFFloat 1\n"
     "exposed url MFString empty\n"
     "eventOut isActive SFBool FALSE\n"
     "eventOut duration SFTime -1\n"},
    {"Background",
     "eventIn set_bind SFBool TRUE\n"
     "eventOut bindTime SFTime 1\n"
     "eventOut isBound SFBool TRUE\n"
     "exposed groundColor MFColor empty\n"
     "exposed skyColor MFColor empty\n"
     "exposed groundAngle MFFloat empty\n"
     "exposed skyAngle MFFloat empty\n"
     "exposed frontUrl MFString empty\n"
     "exposed backUrl MFString empty\n"
     "exposed leftUrl MFString empty\n"
     "exposed rightUrl MFString empty\n"
     "exposed topUrl MFString empty\n"
     "exposed bottomUrl MFString empty\n"},
    {"Billboard",
     "field bboxCenter SFVec3f 0 0 0\n"
     "field bboxSize SFVec3f -1 -1 -1\n"
     "exposed axisOfRotation SFVec3f 0 1 0\n"},
    {"Box",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "exposed size SFVec3f 2 2 2\n"},
    {"Collision",
     "field bboxCenter SFVec3f 0 0 0\n"
     "field bboxSize SFVec3f -1 -1 -1\n"
     "exposed collide SFBool TRUE\n"
     "eventOut collideTime SFTime -1\n"},
    {"Color", "exposed color MFColor empty\n"},
    {"ColorInterpolator",
     "exposed key MFFloat empty\n"
     "eventIn fraction SFFloat 0\n"
     "exposed keyValue MFColor empty\n"
     "eventOut value SFColor 0 0 0\n"},
    {"Cone",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "exposed bottomRadius SFFloat 1\n"
     "exposed height SFFloat 2\n"
     "exposed side SFBool TRUE\n"
     "exposed bottom SFBool TRUE\n"},
    {"Coordinate", "exposed point MFVec3f empty\n"},
    {"CoordinateInterpolator",
     "exposed key MFFloat empty\n"
     "eventIn fraction SFFloat 0\n"
     "exposed keyValue MFVec3f empty\n"
     "eventOut value SFVec3f 0 0 0\n"},
    {"Cylinder",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "exposed radius SFFloat 1\n"
     "exposed height SFFloat 2\n"
     "exposed top SFBool TRUE\n"
     "exposed side SFBool TRUE\n"
     "exposed bottom SFBool TRUE\n"},
    {"CylinderSensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "exposed autoOffset SFBool TRUE\n"
     "exposed diskAngle SFFloat 0.262\n"
     "exposed minAngle SFFloat 0\n"
     "exposed maxAngle SFFloat -1\n"
     "exposed offset SFFloat 0\n"
     "eventOut rotation SFRotation 0 0 1 0\n"
     "eventOut trackPoint SFVec3f 0 0 0\n"},
    {"DEF", ""},
    {"DirectionalLight",
     "exposed on SFBool TRUE\n"
     "exposed intensity SFFloat 1\n"
     "exposed color SFColor 1 1 1\n"
     "exposed ambientIntensity SFFloat 0\n"
     "exposed direction SFVec3f 0 0 -1\n"},
    {"ElevationGrid",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "field xSpacing SFFloat 0\n"
     "field zSpacing SFFloat 0\n"
     "field xDimension SFInt32 0\n"
     "field zDimension SFInt32 0\n"
     "field colorPerVertex SFBool TRUE\n"
     "field normalPerVertex SFBool TRUE\n"
     "field ccw SFBool TRUE\n"
     "field solid SFBool TRUE\n"
     "field creaseAngle SFFloat 0\n"
     "field height MFFloat empty\n"
     "eventIn height MFFloat empty\n"},
    {"Extrusion",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "field beginCap SFBool TRUE\n"
     "field endCap SFBool TRUE\n"
     "field ccw SFBool TRUE\n"
     "field convex SFBool TRUE\n"
     "field creaseAngle SFFloat 0\n"
     "field solid SFBool TRUE\n"
     "field orientation MFRotation empty\n"
     "field scale MFVec2f empty\n"
     "field crossSection MFVec2f empty\n"
     "field spine MFVec3f empty\n"
     "eventIn orientation MFRotation empty\n"
     "eventIn scale MFVec2f empty\n"
     "eventIn crossSection MFVec2f empty\n"
     "eventIn spine MFVec3f empty\n"},
    {"Fog",
     "eventIn set_bind SFBool TRUE\n"
     "eventOut bindTime SFTime 1\n"
     "eventOut isBound SFBool TRUE\n"
     "exposed color SFColor 1 1 1\n"
     "exposed fogType SFString \"LINEAR\"\n"
     "exposed visibilityRange SFFloat 0\n"},
    {"FontStyle",
     "field family SFString \"SERIF\"\n"
     "field style SFString \"PLAIN\"\n"
     "field language SFString \"\"\n"
     "field justify MFString empty\n"
     "field size SFFloat 1\n"
     "field spacing SFFloat 1\n"
     "field horizontal SFBool TRUE\n"
     "field leftToRight SFBool TRUE\n"
     "field topToBottom SFBool TRUE\n"},
    {"Group",
     "field bboxCenter SFVec3f 0 0 0\n"
     "field bboxSize SFVec3f -1 -1 -1\n"},
    {"ImageTexture",
     "field repeatS SFBool TRUE\n"
     "field repeatT SFBool TRUE\n"
     "exposed url MFString empty\n"},
    {"IndexedFaceSet",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "field ccw SFBool TRUE\n"
     "field colorPerVertex SFBool TRUE\n"
     "field normalPerVertex SFBool TRUE\n"
     "field solid SFBool TRUE\n"
     "field convex SFBool TRUE\n"
     "field creaseAngle SFFloat 0\n"
     "field coordIndex MFInt32 empty\n"
     "field texCoordIndex MFInt32 empty\n"
     "field colorIndex MFInt32 empty\n"
     "field normalIndex MFInt32 empty\n"
     "eventIn coordIndex MFInt32 empty\n"
     "eventIn texCoordIndex MFInt32 empty\n"
     "eventIn colorIndex MFInt32 empty\n"
     "eventIn normalIndex MFInt32 empty\n"},
    {"IndexedLineSet",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "field colorPerVertex SFBool TRUE\n"
     "field coordIndex MFInt32 empty\n"
     "field colorIndex MFInt32 empty\n"
     "eventIn coordIndex MFInt32 empty\n"
     "eventIn colorIndex MFInt32 empty\n"},
    {"Inline",
     "field bboxCenter SFVec3f 0 0 0\n"
     "field bboxSize SFVec3f -1 -1 -1\n"
     "exposed url MFString empty\n"},
    {"LOD",
     "field center SFVec3f 0 0 0\n"
     "field range MFFloat empty\n"},
    {"Material",
     "exposed transparency SFFloat 0\n"
     "exposed ambientIntensity SFFloat 0.2\n"
     "exposed shininess SFFloat 0.2\n"
     "exposed diffuseColor SFColor 0.8 0.8 0.8\n"
     "exposed specularColor SFColor 0 0 0\n"
     "exposed emissiveColor SFColor 0 0 0\n"},
    {"MovieTexture",
     "field repeatS SFBool TRUE\n"
     "field repeatT SFBool TRUE\n"
     "exposed url MFString empty\n"
     "exposed loop SFBool FALSE\n"
     "exposed startTime SFTime 0\n"
     "exposed stopTime SFTime 0\n"
     "exposed speedTime SFFloat 1\n"
     "eventOut isActive SFBool FALSE\n"
     "eventOut duration SFTime -1\n"},
    {"NavigationInfo",
     "eventIn set_bind SFBool TRUE\n"
     "eventOut bindTime SFTime 1\n"
     "eventOut isBound SFBool TRUE\n"
     "exposed visibilityLimit SFFloat 0\n"
     "exposed avatarSize MFFloat empty\n"
     "exposed type MFString empty\n"
     "exposed headlight SFBool FALSE\n"
     "exposed speed SFFloat 1\n"},
    {"Normal", "exposed vector MFVec3f empty\n"},
    {"NormalInterpolator",
     "exposed key MFFloat empty\n"
     "eventIn fraction SFFloat 0\n"
     "exposed keyValue MFVec3f empty\n"
     "eventOut value SFVec3f 0 0 0\n"},
    {"OrientationInterpolator",
     "exposed key MFFloat empty\n"
     "eventIn fraction SFFloat 0\n"
     "exposed keyValue MFRotation empty\n"
     "eventOut value SFRotation 0 0 1 0\n"},
    {"PixelTexture",
     "field repeatS SFBool TRUE\n"
     "field repeatT SFBool TRUE\n"
     "exposed image SFImage empty\n"},
    {"PlaneSensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "exposed autoOffset SFBool TRUE\n"
     "exposed minPosition SFVec2f 0 0\n"
     "exposed maxPosition SFVec2f -1 -1\n"
     "exposed offset SFVec3f 0 0 0\n"
     "eventOut translation SFVec3f 0 0 0\n"
     "eventOut trackPoint SFVec3f 0 0 0\n"},
    {"PointLight",
     "exposed on SFBool TRUE\n"
     "exposed intensity SFFloat 1\n"
     "exposed color SFColor 1 1 1\n"
     "exposed ambientIntensity SFFloat 0\n"
     "exposed location SFVec3f 0 0 0\n"
     "exposed radius SFFloat 100\n"
     "exposed attenuation SFVec3f 1 0 0\n"},
    {"PointSet",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"},
    {"PositionInterpolator",
     "exposed key MFFloat empty\n"
     "eventIn fraction SFFloat 0\n"
     "exposed keyValue MFVec3f empty\n"
     "eventOut value SFVec3f 0 0 0\n"},
    {"ProximitySensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "exposed center SFVec3f 0 0 0\n"
     "exposed size SFVec3f 0 0 0\n"
     "eventOut position SFVec3f 0 0 0\n"
     "eventOut orientation SFRotation 0 0 1 0\n"
     "eventOut enterTime SFTime 0\n"
     "eventOut exitTime SFTime 0\n"
     "fifth inRegion SFBool FALSE\n"},
    {"Root", ""},
    {"ScalarInterpolator",
     "exposed key MFFloat empty\n"
     "eventIn fraction SFFloat 0\n"
     "exposed keyValue MFFloat empty\n"
     "eventOut value SFFloat 0\n"},
    {"Script",
     "field directOutput SFBool FALSE\n"
     "field mustEvaluate SFBool FALSE\n"
     "exposed url MFString empty\n"},
    {"Shape", ""},
    {"Sound",
     "exposed minFront SFFloat 1\n"
     "exposed maxFront SFFloat 10\n"
     "exposed minBack SFFloat 1\n"
     "exposed maxBack SFFloat 10\n"
     "exposed intensity SFFloat 10\n"
     "exposed priority SFFloat 0\n"
     "exposed direction SFVec3f 0 0 1\n"
     "exposed location SFVec3f 0 0 0\n"
     "field spatialize SFBool TRUE\n"},
    {"Sphere",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "exposed radius SFFloat 1\n"},
    {"SphereSensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "exposed autoOffset SFBool TRUE\n"
     "exposed offset SFRotation 0 0 1 0\n"
     "eventOut rotation SFRotation 0 0 1 0\n"
     "eventOut trackPoint SFVec3f 0 0 0\n"},
    {"SpotLight",
     "exposed on SFBool TRUE\n"
     "exposed intensity SFFloat 1\n"
     "exposed color SFColor 1 1 1\n"
     "exposed ambientIntensity SFFloat 0\n"
     "exposed location SFVec3f 0 0 0\n"
     "exposed direction SFVec3f 0 0 -1\n"
     "exposed radius SFFloat 100\n"
     "exposed attenuation SFVec3f 1 0 0\n"
     "exposed beamWidth SFFloat 1.570796\n"
     "exposed cutOffAngle SFFloat 0.785398\n"},
    {"Switch", "field whichChoice SFInt32 -1\n"},
    {"Text",
     "fifth bboxCenter SFVec3f 0 0 0\n"
     "fifth bboxSize SFVec3f -1 -1 -1\n"
     "exposed maxExtent SFFloat 1\n"
     "exposed length MFFloat empty\n"
     "exposed string MFString empty\n"},
    {"TextureCoordinate", "exposed point MFVec2f empty\n"},
    {"TextureTransform",
     "exposed translation SFVec2f 0 0\n"
     "exposed scale SFVec2f 1 1\n"
     "exposed center SFVec2f 0 0\n"
     "exposed rotation SFFloat 0\n"},
    {"TimeSensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "exposed loop SFBool FALSE\n"
     "exposed cycleInterval SFTime 1\n"
     "exposed startTime SFTime 0\n"
     "exposed stopTime SFTime 0\n"
     "eventOut cycleTime SFTime -1\n"
     "eventOut time SFTime -1\n"
     "eventOut fraction SFFloat 0\n"},
    {"TouchSensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "eventOut hitNormal SFVec3f 0 0 0\n"
     "eventOut hitTexCoord SFVec2f 0 0\n"
     "eventOut hitPoint SFVec3f 0 0 0\n"
     "eventOut isOver SFBool FALSE\n"
     "eventOut touchTime SFTime 0\n"},
    {"Transform",
     "field bboxCenter SFVec3f 0 0 0\n"
     "field bboxSize SFVec3f -1 -1 -1\n"
     "exposed translation SFVec3f 0 0 0\n"
     "exposed scale SFVec3f 1 1 1\n"
     "exposed center SFVec3f 0 0 0\n"
     "exposed rotation SFRotation 0 0 1 0\n"
     "exposed scaleOrientation SFRotation 0 0 1 0\n"},
    {"Viewpoint",
     "eventIn set_bind SFBool TRUE\n"
     "eventOut bindTime SFTime 1\n"
     "eventOut isBound SFBool TRUE\n"
     "exposed position SFVec3f 0 0 0\n"
     "exposed orientation SFRotation 0 0 1 0\n"
     "field description SFString \"\"\n"
     "exposed fieldOfView SFFloat 0.785398\n"
     "exposed jump SFBool TRUE\n"},
    {"VisibilitySensor",
     "exposed enabled SFBool TRUE\n"
     "eventOut isActive SFBool FALSE\n"
     "exposed center SFVec3f 0 0 0\n"
     "exposed size SFVec3f 0 0 0\n"
     "eventOut enterTime SFTime 0\n"
     "eventOut exitTime SFTime 0\n"},
    {"WorldInfo",
     "field title SFString \"\"\n"
     "field info MFString empty\n"},
};

const char* listName(FieldList list) {
  constexpr std::array kNames{"exposed", "eventIn", "eventOut", "field", "fifth"};
  return kNames[static_cast<std::size_t>(list)];
}

std::string valueText(const Field& field) {
  const bool isList = field.getType() == FieldType::SFImage || field.getType() >= FieldType::MFFloat;
  if (isList) return static_cast<const MField&>(field).getSize() == 0 ? "empty" : "not empty";
  std::string text;
  field.appendVrml(text);
  return text;
}

// The fields of a node as its lists give them, in the order of its class.
std::string dumpFields(Node& node) {
  std::array<int, kFieldListCount> position{};
  std::string dump;
  for (const FieldDecl& decl : node.getClass().fields) {
    Field* const field = node.fieldAt(decl.list, position[static_cast<std::size_t>(decl.list)]++);
    if (!field) return dump + "missing: " + decl.name;
    dump += std::string(listName(decl.list)) + " " + field->getName() + " " + fieldTypeName(field->getType()) + " " +
            valueText(*field) + "\n";
  }
  return dump;
}

TEST(NodeCatalogue, EveryClassHasItsFieldsWithTheirDefaults) {
  EXPECT_EQ(std::size(kClasses), kNodeTypeCount);
  for (const ClassRow& row : kClasses) {
    SCOPED_TRACE(row.typeName);
    const std::unique_ptr<Node> node(createNode(row.typeName));
    ASSERT_NE(node, nullptr);
    EXPECT_STREQ(node->getTypeName(), row.typeName);
    EXPECT_EQ(dumpFields(*node), row.fields);
  }
}

TEST(NodeCatalogue, EveryListEndsWhereItsCountSays) {
  for (const ClassRow& row : kClasses) {
    SCOPED_TRACE(row.typeName);
    const std::unique_ptr<Node> node(createNode(row.typeName));
    std::size_t total = 0;
    for (std::size_t i = 0; i < kFieldListCount; ++i) {
      const auto list = static_cast<FieldList>(i);
      const int count = node->countFields(list);
      total += static_cast<std::size_t>(count);
      EXPECT_EQ(node->fieldAt(list, count), nullptr);
      EXPECT_EQ(node->fieldAt(list, -1), nullptr);
      for (int index = 0; index < count; ++index)
        EXPECT_EQ(node->indexOfField(list, node->fieldAt(list, index)), index);
    }
    EXPECT_EQ(total, node->getClass().fields.size());
  }
}

// Reading defaults needs no values of the node's own; after a change the same readers see the change.
TEST(NodeCatalogue, DefaultsReadWithoutValuesAreTheSameAsWithThem) {
  for (const ClassRow& row : kClasses) {
    SCOPED_TRACE(row.typeName);
    const std::unique_ptr<Node> untouched(createNode(row.typeName));
    const std::unique_ptr<Node> touched(createNode(row.typeName));
    for (const FieldDecl& decl : untouched->getClass().fields) {
      if (!decl.peek) continue;
      EXPECT_EQ(valueText(untouched->peekField(decl)), valueText(touched->fieldOf(decl))) << decl.name;
      EXPECT_EQ(&touched->peekField(decl), &touched->fieldOf(decl)) << decl.name;
      EXPECT_STREQ(untouched->peekField(decl).getName(), decl.name);
    }
  }
}

TEST(NodeCatalogue, KeywordsFindExposedAndPlainFieldsOnly) {
  for (const ClassRow& row : kClasses) {
    SCOPED_TRACE(row.typeName);
    const NodeClass& nodeClass = *findNodeClass(row.typeName);
    EXPECT_EQ(nodeClass.findField(FieldKey::none), nullptr);
    EXPECT_EQ(nodeClass.findField(""), nullptr);
    for (const FieldDecl& decl : nodeClass.fields) {
      const bool settable = decl.list == FieldList::exposedField || decl.list == FieldList::field;
      if (settable) {
        EXPECT_EQ(nodeClass.findField(decl.keyword), &decl) << decl.name;
        if (decl.key != FieldKey::none) {
          EXPECT_EQ(nodeClass.findField(decl.key), &decl) << decl.name;
          EXPECT_STREQ(fieldName(decl.key), decl.keyword);
        }
      } else {
        EXPECT_EQ(decl.key, FieldKey::none) << decl.name;
      }
    }
  }
}

TEST(NodeCatalogue, MovieTextureNamesItsSpeedOtherwiseThanTheFile) {
  const NodeClass& movie = *findNodeClass("MovieTexture");
  const FieldDecl* const speed = movie.findField(fieldKey("speed"));
  ASSERT_NE(speed, nullptr);
  EXPECT_STREQ(speed->name, "speedTime");
  EXPECT_EQ(movie.findField("speedTime"), nullptr);
}

struct MemberRow {
  const char* typeName;
  const char* members;  // names in order, a star behind those that take a list
};

constexpr MemberRow kMembers[] = {
    {"Anchor", "children*"},
    {"Appearance", "material texture textureTransform"},
    {"Billboard", "children*"},
    {"Collision", "proxy children*"},
    {"ElevationGrid", "color normal texCoord"},
    {"Group", "children*"},
    {"IndexedFaceSet", "color coord normal texCoord"},
    {"IndexedLineSet", "color coord"},
    {"LOD", "level*"},
    {"PointSet", "color coord"},
    {"Root", "children*"},
    {"Shape", "appearance geometry"},
    {"Sound", "source"},
    {"Switch", "choice*"},
    {"Text", "fontStyle"},
    {"Transform", "children*"},
};

TEST(NodeCatalogue, MembersThatHoldNodes) {
  for (const ClassRow& row : kClasses) {
    std::string expected;
    for (const MemberRow& members : kMembers)
      if (std::string(members.typeName) == row.typeName) expected = members.members;
    std::string found;
    for (const NodeMember& member : findNodeClass(row.typeName)->members)
      found += (found.empty() ? "" : " ") + std::string(fieldName(member.key)) + (member.many ? "*" : "");
    EXPECT_EQ(found, expected) << row.typeName;
  }
}

struct AcceptRow {
  const char* typeName;
  const char* accepted;  // the types that may stand among its children
};

constexpr const char* kGroupChildren =
    "Anchor AudioClip Background Billboard Collision ColorInterpolator CoordinateInterpolator CylinderSensor "
    "DirectionalLight Fog Group Inline LOD NavigationInfo NormalInterpolator OrientationInterpolator PlaneSensor "
    "PointLight PositionInterpolator ProximitySensor ScalarInterpolator Script Shape Sound SphereSensor SpotLight "
    "Switch "
    "TimeSensor TouchSensor Transform Viewpoint VisibilitySensor WorldInfo";

constexpr AcceptRow kAccepted[] = {
    {"Anchor", kGroupChildren},
    {"Appearance", "ImageTexture Material MovieTexture PixelTexture TextureTransform"},
    {"Billboard", kGroupChildren},
    {"Collision", kGroupChildren},
    {"ElevationGrid", "Color Normal TextureCoordinate"},
    {"Group", kGroupChildren},
    {"IndexedFaceSet", "Color Coordinate Normal TextureCoordinate"},
    {"IndexedLineSet", "Color Coordinate"},
    {"Inline", kGroupChildren},
    {"LOD", kGroupChildren},
    {"PointSet", "Color Coordinate"},
    {"Root", kGroupChildren},
    {"Shape",
     "Appearance Box Cone Cylinder ElevationGrid Extrusion IndexedFaceSet IndexedLineSet PointSet Sphere Text"},
    {"Sound", "AudioClip MovieTexture"},
    {"Switch", kGroupChildren},
    {"Text", "FontStyle"},
    {"Transform", kGroupChildren},
};

TEST(NodeCatalogue, ChildrenThatEachClassTakes) {
  for (const ClassRow& row : kClasses) {
    std::string expected;
    for (const AcceptRow& accept : kAccepted)
      if (std::string(accept.typeName) == row.typeName) expected = accept.accepted;
    const std::unique_ptr<Node> node(createNode(row.typeName));
    std::string found;
    for (const char* childType : kNodeTypeNames) {
      const std::unique_ptr<Node> child(createNode(childType));
      if (node->isChildNodeType(child.get())) found += (found.empty() ? "" : " ") + std::string(childType);
    }
    EXPECT_EQ(found, expected) << row.typeName;
    EXPECT_FALSE(node->isChildNodeType(nullptr));
  }
}

TEST(NodeCatalogue, AReferenceStandsWhereItsSourceMay) {
  const std::unique_ptr<Node> group(createNode("Group"));
  const std::unique_ptr<Node> shape(createNode("Shape"));
  const std::unique_ptr<Node> box(createNode("Box"));
  const std::unique_ptr<Node> toShape(createReference(*shape));
  const std::unique_ptr<Node> toBox(createReference(*box));
  EXPECT_TRUE(group->isChildNodeType(toShape.get()));
  EXPECT_FALSE(group->isChildNodeType(toBox.get()));
  EXPECT_TRUE(shape->isChildNodeType(toBox.get()));
}

}  // namespace
}  // namespace vrml
