// The replacements of icon list methods.
#include "hooks/icon_lists.hpp"

#include <algorithm>
#include <cstdint>

#include "bridge/replace.hpp"
#include "platform/springboard/dock.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/values.hpp"
#include "startup/grid/geometry.hpp"
#include "startup/grid/relayout.hpp"

namespace tilo::hooks {

constinit CGFloat origS{};

namespace {

using bridge::original;

NSUInteger gridCount(NSString key, bridge::Object list, NSUInteger systemCount) {
  return static_cast<NSUInteger>(
      grid::fromOneLess(iconGridCalc(key.raw, list.raw, static_cast<int32_t>(systemCount))));
}

template <auto Replacement>
NSUInteger countOfList(SBIconListView self, NSString key) {
  NSUInteger systemCount = original<Replacement>(self);
  return bridge::isKindOf<SBFolderIconListView>(self) ? systemCount : gridCount(key, self, systemCount);
}

template <auto Replacement>
NSUInteger countOfClass(Class self, NSInteger orientation, NSString key) {
  return gridCount(key, bridge::as<bridge::Object>(reinterpret_cast<id>(self)),
                   original<Replacement>(self, orientation));
}

// One of the four spacing values: its place in `framing`, its key in a preset, and how a preset's value is
// scaled.
struct Spacing {
  FramingElement element;
  Key<Kind::number> presetKey;
  CGFloat (*adjust)(CGFloat, CGFloat);
};

CGFloat presetSpacing(const Spacing& spacing) {
  NSDictionary preset = RQGestureController::sharedInstance().currentPreset();
  CGFloat length = Values(Values(preset).values(keys::configuration)).number(spacing.presetKey);
  bool usedAsItIs = Values(preset).flag(keys::configurable);
  return usedAsItIs ? length : spacing.adjust(length, 0);
}

// As far as icons can be moved, in points: beyond any screen, and small enough that sums and products of it
// are numbers on every processor. What is no number moves nothing.
CGFloat inReach(CGFloat length) {
  constexpr CGFloat farthest = 1e6;
  return length == length ? std::clamp(length, -farthest, farthest) : 0;
}

// `first` runs after the settings have been read and before anything is decided.
template <auto Replacement, class List>
CGFloat spacingOfList(List self, const Spacing& spacing, void (*first)(List)) {
  bridge::allocate<value>()->obtainValues();
  NSInteger selectedPreset = settings().count(keys::customPreset);
  bool enabled = settings().flag(keys::enabled);
  if (first) first(self);
  if (!enabled || isDockOrFolder(self)) return original<Replacement>(self);
  return inReach(selectedPreset < 0 ? framing[spacing.element] : presetSpacing(spacing));
}

void rememberController(SBIconListView) { cont = bridge::retained(SBIconController::sharedInstance()); }

void rememberSystemInset(SBRootIconListView self) { origS = original<sideIconInset>(self); }

}  // namespace

NSUInteger iconRowsForSpacingCalculation(SBIconListView self) {
  return countOfList<iconRowsForSpacingCalculation>(self, keys::rows);
}

NSUInteger iconRowsForCurrentOrientation(SBIconListView self) {
  return countOfList<iconRowsForCurrentOrientation>(self, keys::rows);
}

NSUInteger iconColumnsForCurrentOrientation(SBIconListView self) {
  return countOfList<iconColumnsForCurrentOrientation>(self, keys::columns);
}

NSUInteger iconRowsForInterfaceOrientation(Class self, NSInteger orientation) {
  return countOfClass<iconRowsForInterfaceOrientation>(self, orientation, keys::rows);
}

NSUInteger iconColumnsForInterfaceOrientation(Class self, NSInteger orientation) {
  return countOfClass<iconColumnsForInterfaceOrientation>(self, orientation, keys::columns);
}

CGFloat verticalIconPadding(SBIconListView self) {
  return spacingOfList<verticalIconPadding, SBIconListView>(
      self, {verticalPadding, keys::verticalPadding, adjustHeight}, nullptr);
}

CGFloat horizontalIconPadding(SBIconListView self) {
  return spacingOfList<horizontalIconPadding, SBIconListView>(
      self, {horizontalPadding, keys::horizontalPadding, adjustWidth}, rememberController);
}

// A folder's page is three icons high, whatever SpringBoard or the settings say.
NSUInteger folderIconRowsForInterfaceOrientation(Class, NSInteger) { return 3; }

CGFloat sideIconInset(SBRootIconListView self) {
  return spacingOfList<sideIconInset, SBRootIconListView>(self, {sideInset, keys::sideInset, adjustWidth},
                                                          rememberSystemInset);
}

CGFloat topIconInset(SBRootIconListView self) {
  return spacingOfList<topIconInset, SBRootIconListView>(self, {topInset, keys::topInset, adjustHeight},
                                                         nullptr);
}

}  // namespace tilo::hooks
