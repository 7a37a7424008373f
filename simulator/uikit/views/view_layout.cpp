// UIView's layout.
#include <utility>

#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit {

void expectLayoutBelow(UIView view) {
  for (; view && !stateOf(view).layoutDueBelow; view = stateOf(view).superview)
    stateOf(view).layoutDueBelow = true;
}

bool layoutTree(UIView view) {
  if (!stateOf(view).needsLayout && !stateOf(view).layoutDueBelow) return false;
  const auto alive = retained(view);
  const bool due = stateOf(view).needsLayout;
  if (due) {
    stateOf(view).needsLayout = false;
    view.layoutSubviews();
  }
  bool any = due;
  // What is said meanwhile is for the next time.
  if (!std::exchange(stateOf(view).layoutDueBelow, false)) return any;
  const auto subviews = stateOf(view).subviews;
  for (const auto& subview : subviews)
    if (stateOf(subview).superview == view && layoutTree(subview)) any = true;
  return any;
}

namespace view {

void setNeedsLayout(UIView self) {
  stateOf(self).needsLayout = true;
  expectLayoutBelow(stateOf(self).superview);
}

// Ancestors that wait for their layout may still move this view, so theirs comes first.
void layoutIfNeeded(UIView self) {
  UIView top = self;
  while (stateOf(top).superview && stateOf(stateOf(top).superview).needsLayout) top = stateOf(top).superview;
  layoutTree(top);
}

}  // namespace view
}  // namespace sim::uikit
