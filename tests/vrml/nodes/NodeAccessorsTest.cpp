// The typed accessors of every class: each must lead to the field of its name, for reading and for changing, and on an
// instance to its source's.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "vrml/fields/Fields.h"
#include "vrml/nodes/AnchorNode.h"
#include "vrml/nodes/AudioClipNode.h"
#include "vrml/nodes/BackgroundNode.h"
#include "vrml/nodes/BillboardNode.h"
#include "vrml/nodes/BoxNode.h"
#include "vrml/nodes/CollisionNode.h"
#include "vrml/nodes/ColorInterpolatorNode.h"
#include "vrml/nodes/ColorNode.h"
#include "vrml/nodes/ConeNode.h"
#include "vrml/nodes/CoordinateInterpolatorNode.h"
#include "vrml/nodes/CoordinateNode.h"
#include "vrml/nodes/CylinderNode.h"
#include "vrml/nodes/CylinderSensorNode.h"
#include "vrml/nodes/DirectionalLightNode.h"
#include "vrml/nodes/ElevationGridNode.h"
#include "vrml/nodes/ExtrusionNode.h"
#include "vrml/nodes/FogNode.h"
#include "vrml/nodes/FontStyleNode.h"
#include "vrml/nodes/GroupNode.h"
#include "vrml/nodes/ImageTextureNode.h"
#include "vrml/nodes/IndexedFaceSetNode.h"
#include "vrml/nodes/IndexedLineSetNode.h"
#include "vrml/nodes/InlineNode.h"
#include "vrml/nodes/LodNode.h"
#include "vrml/nodes/MaterialNode.h"
#include "vrml/nodes/MovieTextureNode.h"
#include "vrml/nodes/NavigationInfoNode.h"
#include "vrml/nodes/Node.h"
#include "vrml/nodes/NodeFactory.h"
#include "vrml/nodes/NormalInterpolatorNode.h"
#include "vrml/nodes/NormalNode.h"
#include "vrml/nodes/OrientationInterpolatorNode.h"
#include "vrml/nodes/PixelTextureNode.h"
#include "vrml/nodes/PlaneSensorNode.h"
#include "vrml/nodes/PointLightNode.h"
#include "vrml/nodes/PositionInterpolatorNode.h"
#include "vrml/nodes/ProximitySensorNode.h"
#include "vrml/nodes/ScalarInterpolatorNode.h"
#include "vrml/nodes/ScriptNode.h"
#include "vrml/nodes/SoundNode.h"
#include "vrml/nodes/SphereNode.h"
#include "vrml/nodes/SphereSensorNode.h"
#include "vrml/nodes/SpotLightNode.h"
#include "vrml/nodes/SwitchNode.h"
#include "vrml/nodes/TextNode.h"
#include "vrml/nodes/TextureCoordinateNode.h"
#include "vrml/nodes/TextureTransformNode.h"
#include "vrml/nodes/TimeSensorNode.h"
#include "vrml/nodes/TouchSensorNode.h"
#include "vrml/nodes/TransformNode.h"
#include "vrml/nodes/ViewpointNode.h"
#include "vrml/nodes/VisibilitySensorNode.h"
#include "vrml/nodes/WorldInfoNode.h"

namespace vrml {
namespace {

// The field of that name in either list that a file sets.
Field& fieldNamed(Node& node, const char* name) {
  Field* const exposed = node.findField(FieldList::exposedField, name);
  Field* const field = exposed ? exposed : node.findField(FieldList::field, name);
  if (!field) ADD_FAILURE() << node.getTypeName() << " has no " << name;
  return *field;
}

std::string textOf(const Field& field) {
  std::string text;
  field.appendText(text);
  return text;
}

template <class T>
struct Sample {
  static constexpr T value = static_cast<T>(42);
  static constexpr const char* text = "42";
};
template <>
struct Sample<bool> {
  static constexpr bool value = false;
  static constexpr const char* text = "FALSE";
};
template <>
struct Sample<double> {
  static constexpr double value = 42;
  static constexpr const char* text = "42.000000";
};
template <>
struct Sample<std::string_view> {
  static constexpr std::string_view value = "forty two";
  static constexpr const char* text = "forty two";
};

template <class N, class Base, class T, class R>
void checkScalar(const char* name, void (Base::*set)(T), R (Base::*get)() const) {
  SCOPED_TRACE(name);
  N source;
  const std::unique_ptr<Node> instance(copyNode(&source));
  N& user = instance ? static_cast<N&>(*instance) : source;
  (user.*set)(Sample<T>::value);
  EXPECT_EQ((source.*get)(), Sample<T>::value);
  EXPECT_EQ((user.*get)(), Sample<T>::value);
  EXPECT_EQ(textOf(fieldNamed(source, name)), Sample<T>::text);
}

template <class N, class Base, class... C, class F>
void checkVector(const char* name, void (Base::*set)(C...), const F& (Base::*get)() const) {
  SCOPED_TRACE(name);
  N source;
  const std::unique_ptr<Node> instance(copyNode(&source));
  N& user = instance ? static_cast<N&>(*instance) : source;
  if constexpr (sizeof...(C) == 2) {
    (user.*set)(1.0f, 2.0f);
  } else if constexpr (sizeof...(C) == 3) {
    (user.*set)(1.0f, 2.0f, 3.0f);
  } else {
    (user.*set)(1.0f, 0.0f, 0.0f, 4.0f);  // an axis of unit length
  }
  constexpr const char* kTexts[] = {"", "", "1 2", "1 2 3", "1 0 0 4"};
  EXPECT_EQ(textOf((source.*get)()), kTexts[sizeof...(C)]);
  EXPECT_EQ(&(source.*get)(), &fieldNamed(source, name));
  EXPECT_EQ(&(user.*get)(), &(source.*get)());
}

template <class N, class Base, class F>
void checkList(const char* name, F& (Base::*edit)(), const F& (Base::*get)() const) {
  SCOPED_TRACE(name);
  N source;
  const std::unique_ptr<Node> instance(copyNode(&source));
  N& user = instance ? static_cast<N&>(*instance) : source;
  (user.*edit)().addValue(typename F::Value{});
  EXPECT_EQ((source.*get)().getSize(), 1);
  EXPECT_EQ(&(source.*get)(), &fieldNamed(source, name));
  EXPECT_EQ(&(user.*get)(), &(source.*get)());
}

TEST(NodeAccessors, LeadToTheFieldsOfTheirNames) {
  // Anchor
  checkVector<AnchorNode>("bboxCenter", &AnchorNode::setBboxCenter, &AnchorNode::getBboxCenter);
  checkVector<AnchorNode>("bboxSize", &AnchorNode::setBboxSize, &AnchorNode::getBboxSize);
  checkScalar<AnchorNode>("description", &AnchorNode::setDescription, &AnchorNode::getDescription);
  checkList<AnchorNode>("parameter", &AnchorNode::editParameter, &AnchorNode::getParameter);
  checkList<AnchorNode>("url", &AnchorNode::editUrl, &AnchorNode::getUrl);
  // AudioClip
  checkScalar<AudioClipNode>("description", &AudioClipNode::setDescription, &AudioClipNode::getDescription);
  checkScalar<AudioClipNode>("loop", &AudioClipNode::setLoop, &AudioClipNode::getLoop);
  checkScalar<AudioClipNode>("startTime", &AudioClipNode::setStartTime, &AudioClipNode::getStartTime);
  checkScalar<AudioClipNode>("stopTime", &AudioClipNode::setStopTime, &AudioClipNode::getStopTime);
  checkScalar<AudioClipNode>("pitch", &AudioClipNode::setPitch, &AudioClipNode::getPitch);
  checkList<AudioClipNode>("url", &AudioClipNode::editUrl, &AudioClipNode::getUrl);
  // Background
  checkList<BackgroundNode>("groundColor", &BackgroundNode::editGroundColor, &BackgroundNode::getGroundColor);
  checkList<BackgroundNode>("skyColor", &BackgroundNode::editSkyColor, &BackgroundNode::getSkyColor);
  checkList<BackgroundNode>("groundAngle", &BackgroundNode::editGroundAngle, &BackgroundNode::getGroundAngle);
  checkList<BackgroundNode>("skyAngle", &BackgroundNode::editSkyAngle, &BackgroundNode::getSkyAngle);
  checkList<BackgroundNode>("frontUrl", &BackgroundNode::editFrontUrl, &BackgroundNode::getFrontUrl);
  checkList<BackgroundNode>("backUrl", &BackgroundNode::editBackUrl, &BackgroundNode::getBackUrl);
  checkList<BackgroundNode>("leftUrl", &BackgroundNode::editLeftUrl, &BackgroundNode::getLeftUrl);
  checkList<BackgroundNode>("rightUrl", &BackgroundNode::editRightUrl, &BackgroundNode::getRightUrl);
  checkList<BackgroundNode>("topUrl", &BackgroundNode::editTopUrl, &BackgroundNode::getTopUrl);
  checkList<BackgroundNode>("bottomUrl", &BackgroundNode::editBottomUrl, &BackgroundNode::getBottomUrl);
  // Billboard
  checkVector<BillboardNode>("bboxCenter", &BillboardNode::setBboxCenter, &BillboardNode::getBboxCenter);
  checkVector<BillboardNode>("bboxSize", &BillboardNode::setBboxSize, &BillboardNode::getBboxSize);
  checkVector<BillboardNode>("axisOfRotation", &BillboardNode::setAxisOfRotation, &BillboardNode::getAxisOfRotation);
  // Box
  checkVector<BoxNode>("size", &BoxNode::setSize, &BoxNode::getSize);
  // Collision
  checkVector<CollisionNode>("bboxCenter", &CollisionNode::setBboxCenter, &CollisionNode::getBboxCenter);
  checkVector<CollisionNode>("bboxSize", &CollisionNode::setBboxSize, &CollisionNode::getBboxSize);
  checkScalar<CollisionNode>("collide", &CollisionNode::setCollide, &CollisionNode::getCollide);
  // Color
  checkList<ColorNode>("color", &ColorNode::editColor, &ColorNode::getColor);
  // ColorInterpolator
  checkList<ColorInterpolatorNode>("key", &ColorInterpolatorNode::editKey, &ColorInterpolatorNode::getKey);
  checkList<ColorInterpolatorNode>("keyValue", &ColorInterpolatorNode::editKeyValue,
                                   &ColorInterpolatorNode::getKeyValue);
  // Cone
  checkScalar<ConeNode>("bottomRadius", &ConeNode::setBottomRadius, &ConeNode::getBottomRadius);
  checkScalar<ConeNode>("height", &ConeNode::setHeight, &ConeNode::getHeight);
  checkScalar<ConeNode>("side", &ConeNode::setSide, &ConeNode::getSide);
  checkScalar<ConeNode>("bottom", &ConeNode::setBottom, &ConeNode::getBottom);
  // Coordinate
  checkList<CoordinateNode>("point", &CoordinateNode::editPoint, &CoordinateNode::getPoint);
  // CoordinateInterpolator
  checkList<CoordinateInterpolatorNode>("key", &CoordinateInterpolatorNode::editKey,
                                        &CoordinateInterpolatorNode::getKey);
  checkList<CoordinateInterpolatorNode>("keyValue", &CoordinateInterpolatorNode::editKeyValue,
                                        &CoordinateInterpolatorNode::getKeyValue);
  // Cylinder
  checkScalar<CylinderNode>("radius", &CylinderNode::setRadius, &CylinderNode::getRadius);
  checkScalar<CylinderNode>("height", &CylinderNode::setHeight, &CylinderNode::getHeight);
  checkScalar<CylinderNode>("top", &CylinderNode::setTop, &CylinderNode::getTop);
  checkScalar<CylinderNode>("side", &CylinderNode::setSide, &CylinderNode::getSide);
  checkScalar<CylinderNode>("bottom", &CylinderNode::setBottom, &CylinderNode::getBottom);
  // CylinderSensor
  checkScalar<CylinderSensorNode>("enabled", &CylinderSensorNode::setEnabled, &CylinderSensorNode::getEnabled);
  checkScalar<CylinderSensorNode>("autoOffset", &CylinderSensorNode::setAutoOffset, &CylinderSensorNode::getAutoOffset);
  checkScalar<CylinderSensorNode>("diskAngle", &CylinderSensorNode::setDiskAngle, &CylinderSensorNode::getDiskAngle);
  checkScalar<CylinderSensorNode>("minAngle", &CylinderSensorNode::setMinAngle, &CylinderSensorNode::getMinAngle);
  checkScalar<CylinderSensorNode>("maxAngle", &CylinderSensorNode::setMaxAngle, &CylinderSensorNode::getMaxAngle);
  checkScalar<CylinderSensorNode>("offset", &CylinderSensorNode::setOffset, &CylinderSensorNode::getOffset);
  // DirectionalLight
  checkScalar<DirectionalLightNode>("on", &DirectionalLightNode::setOn, &DirectionalLightNode::getOn);
  checkScalar<DirectionalLightNode>("intensity", &DirectionalLightNode::setIntensity,
                                    &DirectionalLightNode::getIntensity);
  checkVector<DirectionalLightNode>("color", &DirectionalLightNode::setColor, &DirectionalLightNode::getColor);
  checkScalar<DirectionalLightNode>("ambientIntensity", &DirectionalLightNode::setAmbientIntensity,
                                    &DirectionalLightNode::getAmbientIntensity);
  checkVector<DirectionalLightNode>("direction", &DirectionalLightNode::setDirection,
                                    &DirectionalLightNode::getDirection);
  // ElevationGrid
  checkScalar<ElevationGridNode>("xSpacing", &ElevationGridNode::setXSpacing, &ElevationGridNode::getXSpacing);
  checkScalar<ElevationGridNode>("zSpacing", &ElevationGridNode::setZSpacing, &ElevationGridNode::getZSpacing);
  checkScalar<ElevationGridNode>("xDimension", &ElevationGridNode::setXDimension, &ElevationGridNode::getXDimension);
  checkScalar<ElevationGridNode>("zDimension", &ElevationGridNode::setZDimension, &ElevationGridNode::getZDimension);
  checkScalar<ElevationGridNode>("colorPerVertex", &ElevationGridNode::setColorPerVertex,
                                 &ElevationGridNode::getColorPerVertex);
  checkScalar<ElevationGridNode>("normalPerVertex", &ElevationGridNode::setNormalPerVertex,
                                 &ElevationGridNode::getNormalPerVertex);
  checkScalar<ElevationGridNode>("ccw", &ElevationGridNode::setCcw, &ElevationGridNode::getCcw);
  checkScalar<ElevationGridNode>("solid", &ElevationGridNode::setSolid, &ElevationGridNode::getSolid);
  checkScalar<ElevationGridNode>("creaseAngle", &ElevationGridNode::setCreaseAngle, &ElevationGridNode::getCreaseAngle);
  checkList<ElevationGridNode>("height", &ElevationGridNode::editHeight, &ElevationGridNode::getHeight);
  // Extrusion
  checkScalar<ExtrusionNode>("beginCap", &ExtrusionNode::setBeginCap, &ExtrusionNode::getBeginCap);
  checkScalar<ExtrusionNode>("endCap", &ExtrusionNode::setEndCap, &ExtrusionNode::getEndCap);
  checkScalar<ExtrusionNode>("ccw", &ExtrusionNode::setCcw, &ExtrusionNode::getCcw);
  checkScalar<ExtrusionNode>("convex", &ExtrusionNode::setConvex, &ExtrusionNode::getConvex);
  checkScalar<ExtrusionNode>("creaseAngle", &ExtrusionNode::setCreaseAngle, &ExtrusionNode::getCreaseAngle);
  checkScalar<ExtrusionNode>("solid", &ExtrusionNode::setSolid, &ExtrusionNode::getSolid);
  checkList<ExtrusionNode>("orientation", &ExtrusionNode::editOrientation, &ExtrusionNode::getOrientation);
  checkList<ExtrusionNode>("scale", &ExtrusionNode::editScale, &ExtrusionNode::getScale);
  checkList<ExtrusionNode>("crossSection", &ExtrusionNode::editCrossSection, &ExtrusionNode::getCrossSection);
  checkList<ExtrusionNode>("spine", &ExtrusionNode::editSpine, &ExtrusionNode::getSpine);
  // Fog
  checkVector<FogNode>("color", &FogNode::setColor, &FogNode::getColor);
  checkScalar<FogNode>("fogType", &FogNode::setFogType, &FogNode::getFogType);
  checkScalar<FogNode>("visibilityRange", &FogNode::setVisibilityRange, &FogNode::getVisibilityRange);
  // FontStyle
  checkScalar<FontStyleNode>("family", &FontStyleNode::setFamily, &FontStyleNode::getFamily);
  checkScalar<FontStyleNode>("style", &FontStyleNode::setStyle, &FontStyleNode::getStyle);
  checkScalar<FontStyleNode>("language", &FontStyleNode::setLanguage, &FontStyleNode::getLanguage);
  checkList<FontStyleNode>("justify", &FontStyleNode::editJustify, &FontStyleNode::getJustify);
  checkScalar<FontStyleNode>("size", &FontStyleNode::setSize, &FontStyleNode::getSize);
  checkScalar<FontStyleNode>("spacing", &FontStyleNode::setSpacing, &FontStyleNode::getSpacing);
  checkScalar<FontStyleNode>("horizontal", &FontStyleNode::setHorizontal, &FontStyleNode::getHorizontal);
  checkScalar<FontStyleNode>("leftToRight", &FontStyleNode::setLeftToRight, &FontStyleNode::getLeftToRight);
  checkScalar<FontStyleNode>("topToBottom", &FontStyleNode::setTopToBottom, &FontStyleNode::getTopToBottom);
  // Group
  checkVector<GroupNode>("bboxCenter", &GroupNode::setBboxCenter, &GroupNode::getBboxCenter);
  checkVector<GroupNode>("bboxSize", &GroupNode::setBboxSize, &GroupNode::getBboxSize);
  // ImageTexture
  checkScalar<ImageTextureNode>("repeatS", &ImageTextureNode::setRepeatS, &ImageTextureNode::getRepeatS);
  checkScalar<ImageTextureNode>("repeatT", &ImageTextureNode::setRepeatT, &ImageTextureNode::getRepeatT);
  checkList<ImageTextureNode>("url", &ImageTextureNode::editUrl, &ImageTextureNode::getUrl);
  // IndexedFaceSet
  checkScalar<IndexedFaceSetNode>("ccw", &IndexedFaceSetNode::setCcw, &IndexedFaceSetNode::getCcw);
  checkScalar<IndexedFaceSetNode>("colorPerVertex", &IndexedFaceSetNode::setColorPerVertex,
                                  &IndexedFaceSetNode::getColorPerVertex);
  checkScalar<IndexedFaceSetNode>("normalPerVertex", &IndexedFaceSetNode::setNormalPerVertex,
                                  &IndexedFaceSetNode::getNormalPerVertex);
  checkScalar<IndexedFaceSetNode>("solid", &IndexedFaceSetNode::setSolid, &IndexedFaceSetNode::getSolid);
  checkScalar<IndexedFaceSetNode>("convex", &IndexedFaceSetNode::setConvex, &IndexedFaceSetNode::getConvex);
  checkScalar<IndexedFaceSetNode>("creaseAngle", &IndexedFaceSetNode::setCreaseAngle,
                                  &IndexedFaceSetNode::getCreaseAngle);
  checkList<IndexedFaceSetNode>("coordIndex", &IndexedFaceSetNode::editCoordIndex, &IndexedFaceSetNode::getCoordIndex);
  checkList<IndexedFaceSetNode>("texCoordIndex", &IndexedFaceSetNode::editTexCoordIndex,
                                &IndexedFaceSetNode::getTexCoordIndex);
  checkList<IndexedFaceSetNode>("colorIndex", &IndexedFaceSetNode::editColorIndex, &IndexedFaceSetNode::getColorIndex);
  checkList<IndexedFaceSetNode>("normalIndex", &IndexedFaceSetNode::editNormalIndex,
                                &IndexedFaceSetNode::getNormalIndex);
  // IndexedLineSet
  checkScalar<IndexedLineSetNode>("colorPerVertex", &IndexedLineSetNode::setColorPerVertex,
                                  &IndexedLineSetNode::getColorPerVertex);
  checkList<IndexedLineSetNode>("coordIndex", &IndexedLineSetNode::editCoordIndex, &IndexedLineSetNode::getCoordIndex);
  checkList<IndexedLineSetNode>("colorIndex", &IndexedLineSetNode::editColorIndex, &IndexedLineSetNode::getColorIndex);
  // Inline
  checkVector<InlineNode>("bboxCenter", &InlineNode::setBboxCenter, &InlineNode::getBboxCenter);
  checkVector<InlineNode>("bboxSize", &InlineNode::setBboxSize, &InlineNode::getBboxSize);
  checkList<InlineNode>("url", &InlineNode::editUrl, &InlineNode::getUrl);
  // LOD
  checkVector<LodNode>("center", &LodNode::setCenter, &LodNode::getCenter);
  checkList<LodNode>("range", &LodNode::editRange, &LodNode::getRange);
  // Material
  checkScalar<MaterialNode>("transparency", &MaterialNode::setTransparency, &MaterialNode::getTransparency);
  checkScalar<MaterialNode>("ambientIntensity", &MaterialNode::setAmbientIntensity, &MaterialNode::getAmbientIntensity);
  checkScalar<MaterialNode>("shininess", &MaterialNode::setShininess, &MaterialNode::getShininess);
  checkVector<MaterialNode>("diffuseColor", &MaterialNode::setDiffuseColor, &MaterialNode::getDiffuseColor);
  checkVector<MaterialNode>("specularColor", &MaterialNode::setSpecularColor, &MaterialNode::getSpecularColor);
  checkVector<MaterialNode>("emissiveColor", &MaterialNode::setEmissiveColor, &MaterialNode::getEmissiveColor);
  // MovieTexture
  checkScalar<MovieTextureNode>("repeatS", &MovieTextureNode::setRepeatS, &MovieTextureNode::getRepeatS);
  checkScalar<MovieTextureNode>("repeatT", &MovieTextureNode::setRepeatT, &MovieTextureNode::getRepeatT);
  checkList<MovieTextureNode>("url", &MovieTextureNode::editUrl, &MovieTextureNode::getUrl);
  checkScalar<MovieTextureNode>("loop", &MovieTextureNode::setLoop, &MovieTextureNode::getLoop);
  checkScalar<MovieTextureNode>("startTime", &MovieTextureNode::setStartTime, &MovieTextureNode::getStartTime);
  checkScalar<MovieTextureNode>("stopTime", &MovieTextureNode::setStopTime, &MovieTextureNode::getStopTime);
  checkScalar<MovieTextureNode>("speedTime", &MovieTextureNode::setSpeedTime, &MovieTextureNode::getSpeedTime);
  // NavigationInfo
  checkScalar<NavigationInfoNode>("visibilityLimit", &NavigationInfoNode::setVisibilityLimit,
                                  &NavigationInfoNode::getVisibilityLimit);
  checkList<NavigationInfoNode>("avatarSize", &NavigationInfoNode::editAvatarSize, &NavigationInfoNode::getAvatarSize);
  checkList<NavigationInfoNode>("type", &NavigationInfoNode::editType, &NavigationInfoNode::getType);
  checkScalar<NavigationInfoNode>("headlight", &NavigationInfoNode::setHeadlight, &NavigationInfoNode::getHeadlight);
  checkScalar<NavigationInfoNode>("speed", &NavigationInfoNode::setSpeed, &NavigationInfoNode::getSpeed);
  // Normal
  checkList<NormalNode>("vector", &NormalNode::editVector, &NormalNode::getVector);
  // NormalInterpolator
  checkList<NormalInterpolatorNode>("key", &NormalInterpolatorNode::editKey, &NormalInterpolatorNode::getKey);
  checkList<NormalInterpolatorNode>("keyValue", &NormalInterpolatorNode::editKeyValue,
                                    &NormalInterpolatorNode::getKeyValue);
  // OrientationInterpolator
  checkList<OrientationInterpolatorNode>("key", &OrientationInterpolatorNode::editKey,
                                         &OrientationInterpolatorNode::getKey);
  checkList<OrientationInterpolatorNode>("keyValue", &OrientationInterpolatorNode::editKeyValue,
                                         &OrientationInterpolatorNode::getKeyValue);
  // PixelTexture
  checkScalar<PixelTextureNode>("repeatS", &PixelTextureNode::setRepeatS, &PixelTextureNode::getRepeatS);
  checkScalar<PixelTextureNode>("repeatT", &PixelTextureNode::setRepeatT, &PixelTextureNode::getRepeatT);
  checkList<PixelTextureNode>("image", &PixelTextureNode::editImageField, &PixelTextureNode::getImageField);
  // PlaneSensor
  checkScalar<PlaneSensorNode>("enabled", &PlaneSensorNode::setEnabled, &PlaneSensorNode::getEnabled);
  checkScalar<PlaneSensorNode>("autoOffset", &PlaneSensorNode::setAutoOffset, &PlaneSensorNode::getAutoOffset);
  checkVector<PlaneSensorNode>("minPosition", &PlaneSensorNode::setMinPosition, &PlaneSensorNode::getMinPosition);
  checkVector<PlaneSensorNode>("maxPosition", &PlaneSensorNode::setMaxPosition, &PlaneSensorNode::getMaxPosition);
  checkVector<PlaneSensorNode>("offset", &PlaneSensorNode::setOffset, &PlaneSensorNode::getOffset);
  // PointLight
  checkScalar<PointLightNode>("on", &PointLightNode::setOn, &PointLightNode::getOn);
  checkScalar<PointLightNode>("intensity", &PointLightNode::setIntensity, &PointLightNode::getIntensity);
  checkVector<PointLightNode>("color", &PointLightNode::setColor, &PointLightNode::getColor);
  checkScalar<PointLightNode>("ambientIntensity", &PointLightNode::setAmbientIntensity,
                              &PointLightNode::getAmbientIntensity);
  checkVector<PointLightNode>("location", &PointLightNode::setLocation, &PointLightNode::getLocation);
  checkScalar<PointLightNode>("radius", &PointLightNode::setRadius, &PointLightNode::getRadius);
  checkVector<PointLightNode>("attenuation", &PointLightNode::setAttenuation, &PointLightNode::getAttenuation);
  // PositionInterpolator
  checkList<PositionInterpolatorNode>("key", &PositionInterpolatorNode::editKey, &PositionInterpolatorNode::getKey);
  checkList<PositionInterpolatorNode>("keyValue", &PositionInterpolatorNode::editKeyValue,
                                      &PositionInterpolatorNode::getKeyValue);
  // ProximitySensor
  checkScalar<ProximitySensorNode>("enabled", &ProximitySensorNode::setEnabled, &ProximitySensorNode::getEnabled);
  checkVector<ProximitySensorNode>("center", &ProximitySensorNode::setCenter, &ProximitySensorNode::getCenter);
  checkVector<ProximitySensorNode>("size", &ProximitySensorNode::setSize, &ProximitySensorNode::getSize);
  // ScalarInterpolator
  checkList<ScalarInterpolatorNode>("key", &ScalarInterpolatorNode::editKey, &ScalarInterpolatorNode::getKey);
  checkList<ScalarInterpolatorNode>("keyValue", &ScalarInterpolatorNode::editKeyValue,
                                    &ScalarInterpolatorNode::getKeyValue);
  // Script
  checkScalar<ScriptNode>("directOutput", &ScriptNode::setDirectOutput, &ScriptNode::getDirectOutput);
  checkScalar<ScriptNode>("mustEvaluate", &ScriptNode::setMustEvaluate, &ScriptNode::getMustEvaluate);
  checkList<ScriptNode>("url", &ScriptNode::editUrl, &ScriptNode::getUrl);
  // Sound
  checkScalar<SoundNode>("minFront", &SoundNode::setMinFront, &SoundNode::getMinFront);
  checkScalar<SoundNode>("maxFront", &SoundNode::setMaxFront, &SoundNode::getMaxFront);
  checkScalar<SoundNode>("minBack", &SoundNode::setMinBack, &SoundNode::getMinBack);
  checkScalar<SoundNode>("maxBack", &SoundNode::setMaxBack, &SoundNode::getMaxBack);
  checkScalar<SoundNode>("intensity", &SoundNode::setIntensity, &SoundNode::getIntensity);
  checkScalar<SoundNode>("priority", &SoundNode::setPriority, &SoundNode::getPriority);
  checkVector<SoundNode>("direction", &SoundNode::setDirection, &SoundNode::getDirection);
  checkVector<SoundNode>("location", &SoundNode::setLocation, &SoundNode::getLocation);
  checkScalar<SoundNode>("spatialize", &SoundNode::setSpatialize, &SoundNode::getSpatialize);
  // Sphere
  checkScalar<SphereNode>("radius", &SphereNode::setRadius, &SphereNode::getRadius);
  // SphereSensor
  checkScalar<SphereSensorNode>("enabled", &SphereSensorNode::setEnabled, &SphereSensorNode::getEnabled);
  checkScalar<SphereSensorNode>("autoOffset", &SphereSensorNode::setAutoOffset, &SphereSensorNode::getAutoOffset);
  checkVector<SphereSensorNode>("offset", &SphereSensorNode::setOffset, &SphereSensorNode::getOffset);
  // SpotLight
  checkScalar<SpotLightNode>("on", &SpotLightNode::setOn, &SpotLightNode::getOn);
  checkScalar<SpotLightNode>("intensity", &SpotLightNode::setIntensity, &SpotLightNode::getIntensity);
  checkVector<SpotLightNode>("color", &SpotLightNode::setColor, &SpotLightNode::getColor);
  checkScalar<SpotLightNode>("ambientIntensity", &SpotLightNode::setAmbientIntensity,
                             &SpotLightNode::getAmbientIntensity);
  checkVector<SpotLightNode>("location", &SpotLightNode::setLocation, &SpotLightNode::getLocation);
  checkVector<SpotLightNode>("direction", &SpotLightNode::setDirection, &SpotLightNode::getDirection);
  checkScalar<SpotLightNode>("radius", &SpotLightNode::setRadius, &SpotLightNode::getRadius);
  checkVector<SpotLightNode>("attenuation", &SpotLightNode::setAttenuation, &SpotLightNode::getAttenuation);
  checkScalar<SpotLightNode>("beamWidth", &SpotLightNode::setBeamWidth, &SpotLightNode::getBeamWidth);
  checkScalar<SpotLightNode>("cutOffAngle", &SpotLightNode::setCutOffAngle, &SpotLightNode::getCutOffAngle);
  // Switch
  checkScalar<SwitchNode>("whichChoice", &SwitchNode::setWhichChoice, &SwitchNode::getWhichChoice);
  // Text
  checkScalar<TextNode>("maxExtent", &TextNode::setMaxExtent, &TextNode::getMaxExtent);
  checkList<TextNode>("length", &TextNode::editLength, &TextNode::getLength);
  checkList<TextNode>("string", &TextNode::editString, &TextNode::getString);
  // TextureCoordinate
  checkList<TextureCoordinateNode>("point", &TextureCoordinateNode::editPoint, &TextureCoordinateNode::getPoint);
  // TextureTransform
  checkVector<TextureTransformNode>("translation", &TextureTransformNode::setTranslation,
                                    &TextureTransformNode::getTranslation);
  checkVector<TextureTransformNode>("scale", &TextureTransformNode::setScale, &TextureTransformNode::getScale);
  checkVector<TextureTransformNode>("center", &TextureTransformNode::setCenter, &TextureTransformNode::getCenter);
  checkScalar<TextureTransformNode>("rotation", &TextureTransformNode::setRotation, &TextureTransformNode::getRotation);
  // TimeSensor
  checkScalar<TimeSensorNode>("enabled", &TimeSensorNode::setEnabled, &TimeSensorNode::getEnabled);
  checkScalar<TimeSensorNode>("loop", &TimeSensorNode::setLoop, &TimeSensorNode::getLoop);
  checkScalar<TimeSensorNode>("cycleInterval", &TimeSensorNode::setCycleInterval, &TimeSensorNode::getCycleInterval);
  checkScalar<TimeSensorNode>("startTime", &TimeSensorNode::setStartTime, &TimeSensorNode::getStartTime);
  checkScalar<TimeSensorNode>("stopTime", &TimeSensorNode::setStopTime, &TimeSensorNode::getStopTime);
  // TouchSensor
  checkScalar<TouchSensorNode>("enabled", &TouchSensorNode::setEnabled, &TouchSensorNode::getEnabled);
  // Transform
  checkVector<TransformNode>("bboxCenter", &TransformNode::setBboxCenter, &TransformNode::getBboxCenter);
  checkVector<TransformNode>("bboxSize", &TransformNode::setBboxSize, &TransformNode::getBboxSize);
  checkVector<TransformNode>("translation", &TransformNode::setTranslation, &TransformNode::getTranslation);
  checkVector<TransformNode>("scale", &TransformNode::setScale, &TransformNode::getScale);
  checkVector<TransformNode>("center", &TransformNode::setCenter, &TransformNode::getCenter);
  checkVector<TransformNode>("rotation", &TransformNode::setRotation, &TransformNode::getRotation);
  checkVector<TransformNode>("scaleOrientation", &TransformNode::setScaleOrientation,
                             &TransformNode::getScaleOrientation);
  // Viewpoint
  checkVector<ViewpointNode>("position", &ViewpointNode::setPosition, &ViewpointNode::getPosition);
  checkVector<ViewpointNode>("orientation", &ViewpointNode::setOrientation, &ViewpointNode::getOrientation);
  checkScalar<ViewpointNode>("description", &ViewpointNode::setDescription, &ViewpointNode::getDescription);
  checkScalar<ViewpointNode>("fieldOfView", &ViewpointNode::setFieldOfView, &ViewpointNode::getFieldOfView);
  checkScalar<ViewpointNode>("jump", &ViewpointNode::setJump, &ViewpointNode::getJump);
  // VisibilitySensor
  checkScalar<VisibilitySensorNode>("enabled", &VisibilitySensorNode::setEnabled, &VisibilitySensorNode::getEnabled);
  checkVector<VisibilitySensorNode>("center", &VisibilitySensorNode::setCenter, &VisibilitySensorNode::getCenter);
  checkVector<VisibilitySensorNode>("size", &VisibilitySensorNode::setSize, &VisibilitySensorNode::getSize);
  // WorldInfo
  checkScalar<WorldInfoNode>("title", &WorldInfoNode::setTitle, &WorldInfoNode::getTitle);
  checkList<WorldInfoNode>("info", &WorldInfoNode::editInfo, &WorldInfoNode::getInfo);
}

}  // namespace
}  // namespace vrml
