// UISlider.
#pragma once

#include "platform/uikit/slider.hpp"

namespace sim::uikit {

/** Where the thumb stands for that value, in points of the slider. */
CGRect thumbRectOf(UISlider slider, float value);

}  // namespace sim::uikit
