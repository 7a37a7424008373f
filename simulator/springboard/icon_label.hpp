// The labels of icons: pictures made from parameters.
#pragma once

#include "platform/springboard/icon_label.hpp"

namespace sim::springboard {

bridge::Strong<SBIconLabelImageParameters> makeLabelParameters(NSString text);

// A label's picture as it is to be now, and the rectangle of `room` (points) that it covers. The picture is
// nil where the label takes no room.
struct LabelPicture {
  UIImage image;  // borrowed from the pool
  CGRect frame;
  bool clear;  // drawn in a colour that cannot be seen
};
LabelPicture labelPicture(SBIconLabelImageParameters parameters, CGRect room);

void defineIconLabel();

}  // namespace sim::springboard
