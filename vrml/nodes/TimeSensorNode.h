#pragma once

// Sends the time while it runs.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFTime.h"
#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct TimeSensorData : SensorData {
  Named<SFBool> loop{"loop", false};
  Named<SFTime> cycleInterval{"cycleInterval", 1.0};
  Named<SFTime> startTime{"startTime", 0.0};
  Named<SFTime> stopTime{"stopTime", 0.0};
};

class TimeSensorNode final : public TypedNode<SensorNode, TimeSensorData> {
 public:
  static const NodeClass kClass;
  explicit TimeSensorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getLoop() const { return data().loop->getValue(); }
  void setLoop(bool value) { editData().loop->setValue(value); }
  [[nodiscard]] double getCycleInterval() const { return data().cycleInterval->getValue(); }
  void setCycleInterval(double value) { editData().cycleInterval->setValue(value); }
  [[nodiscard]] double getStartTime() const { return data().startTime->getValue(); }
  void setStartTime(double value) { editData().startTime->setValue(value); }
  [[nodiscard]] double getStopTime() const { return data().stopTime->getValue(); }
  void setStopTime(double value) { editData().stopTime->setValue(value); }
};

}  // namespace vrml
