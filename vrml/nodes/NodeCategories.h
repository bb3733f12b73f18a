#pragma once

// The sets of node types that belong together: what the category finders look for and what may stand where.

#include "vrml/nodes/Names.h"

namespace vrml {

inline constexpr NodeTypeSet kGroupingTypes("Anchor", "Billboard", "Collision", "Group", "Transform");

inline constexpr NodeTypeSet kGeometryTypes("Box", "Cone", "Cylinder", "ElevationGrid", "Extrusion", "IndexedFaceSet",
                                            "IndexedLineSet", "PointSet", "Sphere", "Text");

inline constexpr NodeTypeSet kTextureTypes("ImageTexture", "MovieTexture", "PixelTexture");

inline constexpr NodeTypeSet kSensorTypes("CylinderSensor", "PlaneSensor", "SphereSensor", "ProximitySensor",
                                          "TimeSensor", "TouchSensor", "VisibilitySensor");

/// The types of which one node at a time is bound.
inline constexpr NodeTypeSet kBindableTypes("Background", "Fog", "NavigationInfo", "Viewpoint");

/// What may stand among the children of a grouping node and on the top level of a file.
inline constexpr NodeTypeSet kGroupingChildTypes =
    NodeTypeSet("DirectionalLight", "SpotLight", "PointLight", "AudioClip", "Script", "Shape", "Sound", "WorldInfo",
                "ColorInterpolator", "CoordinateInterpolator", "NormalInterpolator", "OrientationInterpolator",
                "PositionInterpolator", "ScalarInterpolator", "Inline", "Switch", "LOD") |
    kBindableTypes | kSensorTypes | kGroupingTypes;

}  // namespace vrml
