// The replacements of icon list methods.
#include "hooks/icon_lists.hpp"

#include <cstdint>

#include "bridge/replace.hpp"
#include "platform/springboard/dock.hpp"
#include "startup/geometry.hpp"
#include "startup/shared_state.hpp"

namespace tilo::hooks {

constinit CGFloat origS = 0;

namespace {

using bridge::original;

// Counts travel as one less than they are; both this and iconGridCalc know it. The largest one wraps around.
NSUInteger gridCount(NSString key, bridge::Object list, NSUInteger systemCount) {
  auto lessOne = static_cast<uint32_t>(iconGridCalc(key.raw, list.raw, static_cast<int32_t>(systemCount)));
  return static_cast<NSUInteger>(static_cast<NSInteger>(static_cast<int32_t>(lessOne + 1)));
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
  NSString presetKey;
  CGFloat (*adjust)(CGFloat, CGFloat);
};

CGFloat presetSpacing(const Spacing& spacing) {
  NSDictionary preset = RQGestureController::sharedInstance().currentPreset();
  auto values = bridge::as<NSDictionary>(preset.objectForKey("configuration"_ns));
  CGFloat length = bridge::as<NSNumber>(values.objectForKey(spacing.presetKey)).floatValue();
  bool usedAsItIs = bridge::as<NSNumber>(preset.objectForKey("configurable"_ns)).boolValue();
  return usedAsItIs ? length : spacing.adjust(length, 0);
}

// `first` runs after the settings have been read and before anything is decided.
template <auto Replacement, class List>
CGFloat spacingOfList(List self, const Spacing& spacing, void (*first)(List)) {
  bridge::allocate<value>()->obtainValues();
  NSInteger selectedPreset = setting("custom_preset"_ns).integerValue();
  bool enabled = setting("enabled"_ns).boolValue();
  if (first) first(self);
  if (!enabled || bridge::isKindOf<SBDockIconListView>(self) || bridge::isKindOf<SBFolderIconListView>(self))
    return original<Replacement>(self);
  return selectedPreset < 0 ? framing[spacing.element] : presetSpacing(spacing);
}

void rememberController(SBIconListView) { cont = bridge::retained(SBIconController::sharedInstance()); }

void rememberSystemInset(SBRootIconListView self) { origS = original<sideIconInset>(self); }

}  // namespace

NSUInteger iconRowsForSpacingCalculation(SBIconListView self) {
  return countOfList<iconRowsForSpacingCalculation>(self, "rows"_ns);
}

NSUInteger iconRowsForCurrentOrientation(SBIconListView self) {
  return countOfList<iconRowsForCurrentOrientation>(self, "rows"_ns);
}

NSUInteger iconColumnsForCurrentOrientation(SBIconListView self) {
  return countOfList<iconColumnsForCurrentOrientation>(self, "columns"_ns);
}

NSUInteger iconRowsForInterfaceOrientation(Class self, NSInteger orientation) {
  return countOfClass<iconRowsForInterfaceOrientation>(self, orientation, "rows"_ns);
}

NSUInteger iconColumnsForInterfaceOrientation(Class self, NSInteger orientation) {
  return countOfClass<iconColumnsForInterfaceOrientation>(self, orientation, "columns"_ns);
}

CGFloat verticalIconPadding(SBIconListView self) {
  return spacingOfList<verticalIconPadding, SBIconListView>(
      self, {verticalPadding, "vertical_padding"_ns, adjustHeight}, nullptr);
}

CGFloat horizontalIconPadding(SBIconListView self) {
  return spacingOfList<horizontalIconPadding, SBIconListView>(
      self, {horizontalPadding, "horizontal_padding"_ns, adjustWidth}, rememberController);
}

// A folder's page is three icons high, whatever SpringBoard or the settings say.
NSUInteger folderIconRowsForInterfaceOrientation(Class, NSInteger) { return 3; }

CGFloat sideIconInset(SBRootIconListView self) {
  return spacingOfList<sideIconInset, SBRootIconListView>(self, {sideInset, "side_inset"_ns, adjustWidth},
                                                          rememberSystemInset);
}

CGFloat topIconInset(SBRootIconListView self) {
  return spacingOfList<topIconInset, SBRootIconListView>(self, {topInset, "top_inset"_ns, adjustHeight},
                                                         nullptr);
}

}  // namespace tilo::hooks
