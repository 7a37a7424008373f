// The panel's first page: four sliders that move the icons at once.
#include <cstdio>

#include "controls/described_views.hpp"
#include "panel/popup_state.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/notification_center.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/values.hpp"

namespace tilo::panel {
namespace {

// Points.
constexpr CGFloat left = 10, firstCaptionTop = 15, rowPitch = 80, sliderBelowCaption = 35;
constexpr CGFloat rowHeight = 30, sliderWidth = 255;
constexpr CGFloat addFromRight = 90, addTop = 5, addFontSize = 20;
constexpr CGSize addSize{100, 50};
constexpr NSUInteger plus = 0xF067;  // of Font Awesome

constexpr double quietInterval = 3;  // seconds after a press until the panel shows again
constexpr double fading = 0.2;       // seconds
constexpr CGFloat fadedAlpha = 0.5;

struct Row {
  NSString caption;
  CGFloat captionWidth;
  Key<Kind::number> key;
  float minimum, maximum;
  void (*keep)(RQPopupView, ColorSlider);
};

template <auto Member>
void keep(RQPopupView self, ColorSlider slider) {
  (self.*Member).set(slider);
}

void addCaption(RQPopupView self, const Row& row, CGFloat top) {
  auto caption = build(Label{.frame = {{left, top}, {row.captionWidth, rowHeight}},
                             .text = row.caption,
                             .color = self.controlColor()});
  self.scrollView().addSubview(caption);
}

void addSlider(RQPopupView self, const Row& row, CGFloat top) {
  auto slider = bridge::make<ColorSlider, &ColorSlider::initWithFrame_type>(
      CGRect{{left, top}, {sliderWidth, rowHeight}}, row.key);
  row.keep(self, slider);
  slider->addTarget_action_forControlEvents(self, bridge::selector<"moveIcons:">(),
                                            UIControlEventValueChanged);
  slider->addTarget_action_forControlEvents(self, bridge::selector<"endSliding:">(),
                                            UIControlEventTouchUpInside);
  slider->backgroundColor.set(UIColor::clearColor());
  slider->minimumValue.set(row.minimum);
  slider->maximumValue.set(row.maximum);
  slider->continuous.set(YES);
  slider->value.set(Values(self.rootObj()).number(row.key));
  self.scrollView().addSubview(slider);
}

void addAddButton(RQPopupView self) {
  CGFloat width = self.scrollView().frame().size.width;
  auto button = build(IconButton{.frame = {{width - addFromRight, addTop}, addSize},
                                 .icon = plus,
                                 .fontSize = addFontSize,
                                 .title = "Add"_ns,
                                 .color = self.controlColor(),
                                 .target = self,
                                 .action = bridge::selector<"saveCurrentLayout:">()});
  self.addButton.set(button);
  self.scrollView().addSubview(button);
}

// The preference that the slider edits; nil for one that is none of the rows.
NSString keyOf(RQPopupView self, ColorSlider slider) {
  if (slider == self.horSlider()) return keys::horiIconPadding;
  if (slider == self.vertSlider()) return keys::vertIconPadding;
  if (slider == self.sideSlider()) return keys::sideIconInset;
  if (slider == self.topSlider()) return keys::topIconInset;
  return {};
}

void showValue(ColorSlider slider) {
  char text[64];
  std::snprintf(text, sizeof text, "%0.1f", static_cast<double>(slider.value()));
  slider.valueLabel().text.set(NSString::stringWithUTF8String(text));
}

}  // namespace

void store(RQPopupView self, NSString key, NSNumber value) {
  self.rootObj().setObject_forKey(value, key);
  RQGestureController::sharedInstance().savePrefsWithKey_value(key, value);
}

void setupControlsForScrollView(RQPopupView self) {
  const Row rows[] = {
      {"Horizontal Padding"_ns, 170, keys::horiIconPadding, -20, 100, keep<&RQPopupView::horSlider>},
      {"Vertical Padding"_ns, 170, keys::vertIconPadding, -20, 100, keep<&RQPopupView::vertSlider>},
      {"Side Inset"_ns, 130, keys::sideIconInset, 0, 500, keep<&RQPopupView::sideSlider>},
      {"Top Inset"_ns, 130, keys::topIconInset, 0, 600, keep<&RQPopupView::topSlider>},
  };
  CGFloat top = firstCaptionTop;
  for (const Row& row : rows) {
    addCaption(self, row, top);
    addSlider(self, row, top + sliderBelowCaption);
    top += rowPitch;
  }
  addAddButton(self);
}

void moveIcons(RQPopupView self, ColorSlider slider) {
  // The values no longer are those of a saved layout.
  store(self, keys::customPreset, NSNumber::numberWithInt(-1));
  fadeTo(self, fadedAlpha, fading);
  if (NSString key = keyOf(self, slider)) {
    showValue(slider);
    store(self, key, NSNumber::numberWithFloat(slider.value()));
  }
  // The panel stays; the home screen's scroll view takes this as the order to lay its icons out.
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    self);
}

void moveIconsNotification(RQPopupView self, bridge::Object notification) {
  // A cancelled panel may be kept by its timer alone, which lets go of it now.
  auto alive = bridge::retained(self);
  auto pending = bridge::retained(self.moveTimer());
  pending->invalidate();
  self.moveTimer.set(NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
      quietInterval, self, bridge::selector<"endSliding:">(), {}, NO));
  self.moveIcons(bridge::as<ColorSlider>(bridge::as<NSNotification>(notification).object()));
}

void endSliding(RQPopupView self, bridge::Object) { fadeTo(self, 1, fading); }

// Once for each panel: it does not come back.
void didHitCancel(RQPopupView self) {
  bool& cancelled = Popup::state(self).cancelled;
  if (cancelled) return;
  cancelled = true;
  dispatch::onMainQueue(
      [self = bridge::retained(self)] { slideOut(self, [self](BOOL) { self->removeFromSuperview(); }); });
}

}  // namespace tilo::panel
