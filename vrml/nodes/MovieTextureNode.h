#pragma once

// A texture from a film. The field that a file calls speed is named speedTime, and written as speed.

#include "vrml/fields/MFString.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFTime.h"
#include "vrml/nodes/TextureNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct MovieTextureData : TextureData {
  Named<MFString> url{"url"};
  Named<SFBool> loop{"loop", false};
  Named<SFTime> startTime{"startTime", 0.0};
  Named<SFTime> stopTime{"stopTime", 0.0};
  Named<SFFloat> speedTime{"speedTime", 1.0f};
};

class MovieTextureNode final : public TypedNode<TextureNode, MovieTextureData> {
 public:
  static const NodeClass kClass;
  explicit MovieTextureNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFString& getUrl() const { return *data().url; }
  [[nodiscard]] MFString& editUrl() { return *editData().url; }
  [[nodiscard]] bool getLoop() const { return data().loop->getValue(); }
  void setLoop(bool value) { editData().loop->setValue(value); }
  [[nodiscard]] double getStartTime() const { return data().startTime->getValue(); }
  void setStartTime(double value) { editData().startTime->setValue(value); }
  [[nodiscard]] double getStopTime() const { return data().stopTime->getValue(); }
  void setStopTime(double value) { editData().stopTime->setValue(value); }
  [[nodiscard]] float getSpeedTime() const { return data().speedTime->getValue(); }
  void setSpeedTime(float value) { editData().speedTime->setValue(value); }
};

}  // namespace vrml
