// Making the views of icons.
#pragma once

#include "platform/springboard/icon.hpp"
#include "platform/uikit/label.hpp"

namespace sim::springboard {

bridge::Strong<SBIconView> makeIconView(SBIcon icon);

// The view's parts, for whoever looks at the home screen from outside.
SBIcon iconOf(SBIconView view);
SBIconImageView imageViewOf(SBIconView view);
UILabel labelOf(SBIconView view);

void defineIconView();

}  // namespace sim::springboard
