// ColorSlider's class.
#include "settings/slider/color_slider.hpp"

#include <cstdio>

#include "bridge/define.hpp"
#include "controls/described_views.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/toolbar.hpp"
#include "settings/store/configuration_manager.hpp"
#include "settings/store/values.hpp"

namespace tilo {
namespace {

using bridge::Strong;

struct SliderState {
  Strong<NSString> type;
  Strong<UITextField> valueLabel;
  Strong<UILabel> errorLabel;
  Strong<BButton> addButton, subtractButton;
};

using Slider = bridge::Implementation<ColorSlider, SliderState>;

constexpr NSUInteger plusIcon = 0xF067, minusIcon = 0xF068;
constexpr CGFloat partsTop = 50, buttonSize = 30, fieldWidth = 50;  // points
constexpr CGRect errorFrame{{0, 10}, {200, 50}};
constexpr CGFloat quietAlpha = 0.5;  // of buttons and field
constexpr CGFloat iconFontSize = 20;

template <auto Member>
SEL selectorOf() {
  return bridge::Descriptor<Member>::selector();
}

// With one decimal.
NSString textOf(float value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.1f", static_cast<double>(value));
  return NSString::stringWithUTF8String(text);
}

UIColor rgbColor(CGFloat red, CGFloat green, CGFloat blue) {
  return UIColor::colorWithRed_green_blue_alpha(red / 255, green / 255, blue / 255, 1);
}

void animate(double duration, const bridge::Block<void()>& animations,
             const bridge::Block<void(BOOL)>& completion) {
  UIView::animateWithDuration_delay_options_animations_completion(
      duration, 0, UIViewAnimationOptionOverrideInheritedDuration, animations, completion);
}

void fade(UIView view, CGFloat alpha, double duration, const bridge::Block<void(BOOL)>& completion = {}) {
  animate(duration, [view = retained(view), alpha] { view->alpha.set(alpha); }, completion);
}

void postPressed(ColorSlider self) {
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns, self);
}

// Construction.

Strong<BButton> makeButton(ColorSlider self, CGFloat x, NSUInteger icon, SEL action) {
  auto button = build(IconButton{.frame = {{x, partsTop}, {buttonSize, buttonSize}},
                                 .icon = icon,
                                 .fontSize = iconFontSize,
                                 .color = UIColor::blackColor(),
                                 .alpha = quietAlpha,
                                 .target = self,
                                 .action = action});
  self.addSubview(button);
  return button;
}

Strong<UIBarButtonItem> makeSpace() {
  return bridge::make<UIBarButtonItem, &UIBarButtonItem::initWithBarButtonSystemItem_target_action>(
      UIBarButtonSystemItemFlexibleSpace, bridge::Object(), SEL(nullptr));
}

Strong<UIBarButtonItem> makeItem(ColorSlider self, NSString title, NSInteger style, SEL action) {
  return bridge::make<UIBarButtonItem, &UIBarButtonItem::initWithTitle_style_target_action>(
      title, style, bridge::Object(self), action);
}

// Cancel, the error in the middle, Apply.
Strong<UIToolbar> makeToolbar(ColorSlider self) {
  auto toolbar = bridge::make<UIToolbar, &UIView::initWithFrame>(CGRect{{0, 0}, {320, 50}});
  toolbar->barStyle.set(UIBarStyleBlackTranslucent);
  auto items = bridge::make<NSMutableArray, &NSObject::init>();
  items->addObject(
      makeItem(self, "Cancel"_ns, UIBarButtonItemStylePlain, selectorOf<&ColorSlider::cancelNumberPad>())
          .get());
  items->addObject(makeSpace().get());
  items->addObject(
      bridge::make<UIBarButtonItem, &UIBarButtonItem::initWithCustomView>(UIView(self.errorLabel())).get());
  items->addObject(makeSpace().get());
  items->addObject(
      makeItem(self, "Apply"_ns, UIBarButtonItemStyleDone, selectorOf<&ColorSlider::doneWithNumberPad>())
          .get());
  toolbar->items.set(items);
  toolbar->sizeToFit();
  return toolbar;
}

float storedValue(NSString type) {
  return floatIn(Values(ConfigurationManager::sharedManager().configuration()).object(type));
}

Strong<UITextField> makeNumberField(ColorSlider self, CGFloat width) {
  auto field = bridge::make<UITextField, &UIView::initWithFrame>(
      CGRect{{width / 2 - 15, partsTop}, {fieldWidth, buttonSize}});
  field->delegate.set(self);
  field->keyboardType.set(UIKeyboardTypeNumbersAndPunctuation);
  field->enablesReturnKeyAutomatically.set(YES);
  field->returnKeyType.set(UIReturnKeyDone);
  field->text.set(textOf(storedValue(self.type())));
  field->textColor.set(UIColor::blackColor());
  field->backgroundColor.set(UIColor::clearColor());
  field->alpha.set(quietAlpha);
  return field;
}

Strong<ColorSlider> initWithFrameType(ColorSlider self, CGRect frame, NSString type) {
  const CGRect grown{{frame.origin.x + 10, frame.origin.y - 30}, {frame.size.width, frame.size.height + 50}};
  auto made = Slider::superInit<&UIView::initWithFrame>(self, grown);
  made->type.set(type);
  made->minimumTrackTintColor.set(rgbColor(13, 247, 255));
  made->maximumTrackTintColor.set(rgbColor(48, 55, 182));
  const CGFloat width = frame.size.width;
  made->addButton.set(
      makeButton(made, width - buttonSize, plusIcon, selectorOf<&ColorSlider::incrementValue>()).get());
  made->subtractButton.set(makeButton(made, 0, minusIcon, selectorOf<&ColorSlider::decrementValue>()).get());
  made->errorLabel.set(
      build(Label{.frame = errorFrame, .color = UIColor::redColor(), .centred = true}).get());
  auto toolbar = makeToolbar(made);
  made->valueLabel.set(makeNumberField(made, width).get());
  made->valueLabel().setInputAccessoryView(toolbar);
  made->addSubview(made->valueLabel());
  return made;
}

void setDarkMode(ColorSlider self, BOOL dark) {
  const UIColor color = dark ? UIColor::whiteColor() : UIColor::blackColor();
  self.addButton().setTitleColor_forState(color, UIControlStateNormal);
  self.subtractButton().setTitleColor_forState(color, UIControlStateNormal);
  self.valueLabel().textColor.set(color);
}

// Stepping.

void flash(UIView view) {
  constexpr double duration = 0.1;  // seconds, each way
  fade(view, 0.5f, duration, [view = retained(view)](BOOL) { fade(view, 1, duration); });
}

// The range clamps the value.
void step(ColorSlider self, float by, bridge::Object sender) {
  self.setValue_animated(self.value() + by, YES);
  self.valueLabel().text.set(textOf(self.value()));
  flash(bridge::as<UIView>(sender));
  postPressed(self);
}

void incrementValue(ColorSlider self, bridge::Object sender) { step(self, 1, sender); }
void decrementValue(ColorSlider self, bridge::Object sender) { step(self, -1, sender); }

// Typing.

void cancelNumberPad(ColorSlider self) { self.valueLabel().resignFirstResponder(); }

void refuseRange(ColorSlider self) {
  char text[128];
  std::snprintf(text, sizeof text, "Min: %.1f Max: %.1f", static_cast<double>(self.minimumValue()),
                static_cast<double>(self.maximumValue()));
  self.errorWithMessage(NSString::stringWithUTF8String(text));
}

void doneWithNumberPad(ColorSlider self) {
  const float typed = self.valueLabel().text().floatValue();
  if (!(typed <= self.maximumValue() && typed >= self.minimumValue())) return refuseRange(self);
  self.setValue_animated(typed, YES);
  postPressed(self);
  self.valueLabel().resignFirstResponder();
}

bool contains(NSString text, unsigned short unit) {
  for (NSUInteger i = 0; i < text.length(); ++i)
    if (text.characterAtIndex(i) == unit) return true;
  return false;
}

bool isNumeric(NSString text) {
  for (NSUInteger i = 0; i < text.length(); ++i)
    if (!contains("0123456789-."_ns, text.characterAtIndex(i))) return false;
  return true;
}

// A decimal point is refused though it is among the characters of numbers: whole numbers are typed.
BOOL shouldChange(ColorSlider self, UITextField, NSRange, NSString replacement) {
  if (contains(replacement, '.')) {
    self.errorWithMessage("Invalid number"_ns);
    return NO;
  }
  if (isNumeric(replacement)) return YES;
  self.errorWithMessage("Invalid character entry"_ns);
  return NO;
}

// Errors.

void errorWithMessage(ColorSlider self, NSString message) {
  constexpr double comes = 0.4, goes = 2.4;  // seconds
  const UILabel label = self.errorLabel();
  label.text.set(message);
  label.alpha.set(0);
  fade(label, 1, comes, [label = retained(label)](BOOL) { fade(label, 0, goes); });
}

UIAlertController alertWithMessage(ColorSlider, NSString message) {
  const UIAlertController alert = UIAlertController::alertControllerWithTitle_message_preferredStyle(
      "Tilo 3"_ns, message, UIAlertControllerStyleAlert);
  alert.addAction(UIAlertAction::actionWithTitle_style_handler(
      "Okay"_ns, UIAlertActionStyleDefault, bridge::Block<void(UIAlertAction)>([](UIAlertAction) {})));
  return alert;
}

}  // namespace

void defineColorSlider() {
  using bridge::method;
  using Face = ColorSlider;
  using State = SliderState;
  Slider::define<UISlider>(
      bridge::adopts<UITextFieldDelegate>(), Slider::property<&Face::type, &State::type>(),
      Slider::property<&Face::valueLabel, &State::valueLabel>(),
      Slider::property<&Face::errorLabel, &State::errorLabel>(),
      Slider::property<&Face::addButton, &State::addButton>(),
      Slider::property<&Face::subtractButton, &State::subtractButton>(),
      method<&Face::initWithFrame_type, initWithFrameType>(), method<&Face::setDarkMode, setDarkMode>(),
      method<&Face::incrementValue, incrementValue>(), method<&Face::decrementValue, decrementValue>(),
      method<&Face::cancelNumberPad, cancelNumberPad>(),
      method<&Face::doneWithNumberPad, doneWithNumberPad>(),
      method<&UITextFieldDelegate::textField_shouldChangeCharactersInRange_replacementString, shouldChange>(),
      method<&Face::errorWithMessage, errorWithMessage>(),
      method<&Face::alertWithMessage, alertWithMessage>());
}

}  // namespace tilo
