// Making the views of icons.
#pragma once

#include "platform/springboard/icon.hpp"

namespace sim::springboard {

bridge::Strong<SBIconView> makeIconView(SBIcon icon);

// The view's parts, for whoever looks at the home screen from outside.
SBIcon iconOf(SBIconView view);
SBIconImageView imageViewOf(SBIconView view);

// A label as it was last drawn: where, in the view's coordinates (points), and whether it can be seen.
struct ShownLabel {
  CGRect frame;
  bool visible;
};
ShownLabel labelOf(SBIconView view);

// Docks of some systems show no labels.
void hideLabel(SBIconView view, bool hidden);

// Icons wear a badge while the home screen is being edited.
void showEditingBadge(SBIconView view, bool shown);

void defineIconView();

}  // namespace sim::springboard
