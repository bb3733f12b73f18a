#pragma once

// A recorded sound.

#include <string_view>

#include "vrml/fields/MFString.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFString.h"
#include "vrml/fields/SFTime.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct AudioClipData : NodeData {
  Named<SFString> description{"description", ""};
  Named<SFBool> loop{"loop", false};
  Named<SFTime> startTime{"startTime", 0.0};
  Named<SFTime> stopTime{"stopTime", 0.0};
  Named<SFFloat> pitch{"pitch", 1.0f};
  Named<MFString> url{"url"};
};

class AudioClipNode final : public TypedNode<Node, AudioClipData> {
 public:
  static const NodeClass kClass;
  explicit AudioClipNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const char* getDescription() const { return data().description->getValue(); }
  void setDescription(std::string_view text) { editData().description->setValue(text); }
  [[nodiscard]] bool getLoop() const { return data().loop->getValue(); }
  void setLoop(bool value) { editData().loop->setValue(value); }
  [[nodiscard]] double getStartTime() const { return data().startTime->getValue(); }
  void setStartTime(double value) { editData().startTime->setValue(value); }
  [[nodiscard]] double getStopTime() const { return data().stopTime->getValue(); }
  void setStopTime(double value) { editData().stopTime->setValue(value); }
  [[nodiscard]] float getPitch() const { return data().pitch->getValue(); }
  void setPitch(float value) { editData().pitch->setValue(value); }
  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }
};

}  // namespace vrml
