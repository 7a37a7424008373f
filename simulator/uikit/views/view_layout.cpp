// UIView's layout.
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit {

bool layoutTree(UIView view) {
  const auto alive = retained(view);
  const bool due = stateOf(view).needsLayout;
  if (due) {
    stateOf(view).needsLayout = false;
    view.layoutSubviews();
  }
  bool any = due;
  const auto subviews = stateOf(view).subviews;
  for (const auto& subview : subviews)
    if (stateOf(subview).superview == view && layoutTree(subview)) any = true;
  return any;
}

namespace view {

void setNeedsLayout(UIView self) { stateOf(self).needsLayout = true; }

// Ancestors that wait for their layout may still move this view, so theirs comes first.
void layoutIfNeeded(UIView self) {
  UIView top = self;
  while (stateOf(top).superview && stateOf(stateOf(top).superview).needsLayout) top = stateOf(top).superview;
  layoutTree(top);
}

}  // namespace view
}  // namespace sim::uikit
