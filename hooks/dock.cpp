// The replacements of the dock's methods.
#include "hooks/dock.hpp"

#include <cstdint>

#include "bridge/replace.hpp"
#include "settings/store/values.hpp"

namespace tilo::hooks {
namespace {

using bridge::original;

constexpr int32_t usualCount = 4;     // with nothing stored, and below it the dock is short
constexpr CGFloat dockSpacing = 10;   // points
constexpr double fadeDuration = 0.3;  // seconds

bool dockIsHidden() { return settings().flag(keys::dock); }

NSUInteger widened(int32_t count) { return static_cast<NSUInteger>(static_cast<NSInteger>(count)); }

// Every question about the dock's size has the same answer: the user's number of icons, or SpringBoard's.
template <auto Replacement, class Self, class... A>
NSUInteger dockCount(Self self, A... arguments) {
  return SBDockIconListView::isDockIconsEnabled() ? widened(SBDockIconListView::numberOfDockIcons())
                                                  : original<Replacement>(self, arguments...);
}

}  // namespace

BOOL isDockIconsEnabled(Class) { return settings().flag(keys::dockIconsEnabled); }

// That there is something stored decides, not what: no number is a dock of none.
int numberOfDockIcons(Class) {
  const bridge::Object stored = settings().object(keys::dockIcons);
  return stored ? static_cast<int32_t>(integerIn(stored).value_or(0)) : usualCount;
}

void dockLayoutSubviews(SBDockIconListView self) {
  original<dockLayoutSubviews>(self);
  if (dockIsHidden()) self.alpha.set(0);
  int count = SBDockIconListView::isDockIconsEnabled() ? SBDockIconListView::numberOfDockIcons() : usualCount;
  if (count < usualCount) self.setSpacing.ifAnswered(dockSpacing);
}

// SpringBoard's own answer is never asked for.
CGFloat effectiveSpacing(SBDockIconListView) { return dockSpacing; }

SBIcon iconAtPoint(SBDockIconListView self, CGPoint point, NSUInteger* index, int* proposedOrder,
                   SBIcon grabbed) {
  return original<iconAtPoint>(self, point, index, proposedOrder, grabbed);
}

NSUInteger iconsInRowForSpacingCalculation(SBDockIconListView self) {
  return dockCount<iconsInRowForSpacingCalculation>(self);
}

NSUInteger maxIcons(Class self) { return dockCount<maxIcons>(self); }

NSUInteger dockIconRowsForInterfaceOrientation(Class self, NSInteger orientation) {
  return dockCount<dockIconRowsForInterfaceOrientation>(self, orientation);
}

NSUInteger maxVisibleIconRows(Class self, NSInteger orientation) {
  return dockCount<maxVisibleIconRows>(self, orientation);
}

CGFloat defaultHeight(Class self) { return dockIsHidden() ? 0 : original<defaultHeight>(self); }

// A hidden dock keeps whatever alpha its background had.
void setBackgroundAlpha(SBDockView self, CGFloat alpha) {
  if (dockIsHidden()) return;
  UIView::animateWithDuration_animations_completion(
      fadeDuration, bridge::Block<void()>([self, alpha] { original<setBackgroundAlpha>(self, alpha); }),
      bridge::Block<void(BOOL)>([](BOOL) {}));
}

}  // namespace tilo::hooks
