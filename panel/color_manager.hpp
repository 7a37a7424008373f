// RQColorManager: the colours that the panel's background may have.
#pragma once

#include "platform/foundation/array.hpp"
#include "platform/uikit/color.hpp"

namespace tilo {

struct RQColorManager : bridge::Face<"RQColorManager", NSObject> {
  // The background in dark mode.
  static constexpr bridge::ClassMethod<"RQColorManager", "darkModeBlack", UIColor()> darkModeBlack{};
  // The palette, new colours with each call. The first is the default.
  static constexpr bridge::ClassMethod<"RQColorManager", "colors", NSArray()> colors{};
};

void defineColorManager();

}  // namespace tilo
