// UIButton: a title and an image, side by side in the middle, as the control's state wants them.
#include "platform/uikit/button.hpp"

#include <algorithm>
#include <cmath>
#include <map>

#include "bridge/define.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "platform/uikit/image_view.hpp"
#include "simulator/uikit/base/coding.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr CGFloat titleFontSize = 18;  // of a button that is made in code
constexpr CGFloat verticalMargin = 6;  // above a title and below it
constexpr CGSize leastSize{30, 34};    // of a button that fits its title
constexpr CGFloat pressedAlpha = 0.2;  // of a system button's title
constexpr CGFloat dimmedAlpha = 0.5;   // of an image that shows a state it has no own for

// By state. What is not set for a state is that of the normal one.
template <class T>
struct ByState {
  std::map<NSUInteger, Strong<T>> values;

  T own(NSUInteger state) const {
    const auto found = values.find(state);
    return found == values.end() ? T() : found->second.get();
  }
  T at(NSUInteger state) const {
    const T value = own(state);
    return value ? value : own(UIControlStateNormal);
  }
};

struct ButtonState {
  NSInteger type = UIButtonTypeCustom;
  ByState<NSString> titles;  // copies
  ByState<UIColor> titleColors, shadowColors;
  ByState<UIImage> images;
  Strong<UILabel> titleLabel;
  Strong<UIImageView> imageView;
};

using ButtonClass = bridge::Implementation<UIButton, ButtonState>;

struct Copied : bridge::Face<"NSString", NSObject> {
  MESSAGE Method<"copy", NSString()> copy;
};

ButtonState& stateOf(UIButton self) { return ButtonClass::state(self); }
bool isSystem(UIButton self) { return stateOf(self).type == UIButtonTypeSystem; }

UIColor titleColorForState(UIButton self, NSUInteger state) {
  const ByState<UIColor>& colors = stateOf(self).titleColors;
  if (const UIColor color = colors.own(state)) return color;
  if (isSystem(self) && (state & UIControlStateDisabled)) return UIColor::colorWithWhite_alpha(0.4, 0.35);
  if (const UIColor color = colors.own(UIControlStateNormal)) return color;
  return isSystem(self) ? self.tintColor() : UIColor::whiteColor();
}

UILabel titleLabel(UIButton self) {
  Strong<UILabel>& label = stateOf(self).titleLabel;
  if (!label) {
    label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
    label->font.set(UIFont::systemFontOfSize(titleFontSize));
    label->lineBreakMode.set(NSLineBreakByTruncatingMiddle);
    label->shadowOffset.set({});
    self.addSubview(label);
  }
  return label;
}

UIImageView imageViewOf(UIButton self) {
  Strong<UIImageView>& view = stateOf(self).imageView;
  if (!view) {
    view = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{});
    self.insertSubview_atIndex(view, 0);
  }
  return view;
}

void showTitle(UIButton self) {
  if (!stateOf(self).titleLabel && !self.currentTitle()) return;
  const UILabel label = self.titleLabel();
  label.text.set(self.currentTitle());
  label.textColor.set(self.currentTitleColor());
  label.shadowColor.set(self.currentTitleShadowColor());
  label.alpha.set(isSystem(self) && self.highlighted() ? pressedAlpha : 1);
}

void showImage(UIButton self) {
  const ByState<UIImage>& images = stateOf(self).images;
  const UIImage image = images.at(self.state());
  if (!stateOf(self).imageView && !image) return;
  const UIImageView view = imageViewOf(self);
  view.image.set(image);
  const bool pressedOrDisabled = self.state() & (UIControlStateHighlighted | UIControlStateDisabled);
  view.alpha.set(pressedOrDisabled && !images.own(self.state()) ? dimmedAlpha : 1);
}

// What is shown follows the state at once, its place with the next layout.
void update(UIButton self) {
  showTitle(self);
  showImage(self);
  self.setNeedsLayout();
}

NSString titleForState(UIButton self, NSUInteger state) { return stateOf(self).titles.at(state); }

void setTitle(UIButton self, NSString title, NSUInteger state) {
  stateOf(self).titles.values[state] = bridge::as<Copied>(title).copy();
  update(self);
}

template <auto Field, class T>
T valueForState(UIButton self, NSUInteger state) {
  return (stateOf(self).*Field).at(state);
}

template <auto Field, class T>
void setValue(UIButton self, T value, NSUInteger state) {
  (stateOf(self).*Field).values[state] = retained(value);
  update(self);
}

// Subclasses may answer for their states.
NSString currentTitle(UIButton self) { return self.titleForState(self.state()); }
UIColor currentTitleColor(UIButton self) { return self.titleColorForState(self.state()); }
UIColor currentTitleShadowColor(UIButton self) { return self.titleShadowColorForState(self.state()); }

CGSize imageSize(UIButton self) { return stateOf(self).images.at(self.state()).size(); }

CGSize titleSize(UIButton self) {
  return self.currentTitle() ? self.titleLabel().sizeThatFits({}) : CGSize{};
}

CGFloat wholePixels(CGFloat length) {
  const CGFloat scale = configuration().scale;
  return std::floor(length * scale) / scale;
}

CGRect inMiddle(CGRect room, CGFloat left, CGSize size) {
  return {
      {room.origin.x + wholePixels(left), room.origin.y + wholePixels((room.size.height - size.height) / 2)},
      size};
}

// Right of the image, both together in the middle, the title cut to the room that is left.
CGRect titleRect(UIButton self, CGRect content) {
  const CGFloat imageWidth = std::min(imageSize(self).width, content.size.width);
  CGSize size = titleSize(self);
  size.width = std::min(size.width, content.size.width - imageWidth);
  size.height = std::min(size.height, content.size.height);
  const CGFloat left = (content.size.width - imageWidth - size.width) / 2;
  return inMiddle(content, left + imageWidth, size);
}

CGRect imageRect(UIButton self, CGRect content) {
  CGSize size = imageSize(self);
  size = {std::min(size.width, content.size.width), std::min(size.height, content.size.height)};
  const CGFloat titleWidth = std::min(titleSize(self).width, content.size.width - size.width);
  return inMiddle(content, (content.size.width - size.width - titleWidth) / 2, size);
}

void layoutSubviews(UIButton self) {
  showTitle(self);
  const ButtonState& state = stateOf(self);
  if (state.titleLabel) state.titleLabel->frame.set(self.titleRectForContentRect(self.bounds()));
  if (state.imageView) state.imageView->frame.set(imageRect(self, self.bounds()));
}

CGSize sizeThatFits(UIButton self, CGSize) {
  const CGSize image = imageSize(self), title = titleSize(self);
  if (image.width > 0 && title.width == 0) return image;
  const CGFloat height = title.height == 0 ? leastSize.height : title.height + 2 * verticalMargin;
  return {std::max(leastSize.width, image.width + title.width), std::max(image.height, height)};
}

// A state that is switched shows at once.
template <auto Setter>
void setFlag(UIButton self, BOOL value) {
  ButtonClass::super<Setter>(self, value);
  update(self);
}

Strong<UIView> initWithFrame(UIButton self, CGRect frame) {
  auto made = ButtonClass::super<&UIView::initWithFrame>(self, frame);
  made->opaque.set(NO);
  return made;
}

UIButton buttonWithType(Class self, NSInteger type) {
  using Allocate = bridge::Message<"alloc", bridge::Object()>;
  const id raw = Allocate::send(reinterpret_cast<id>(self)).leak();
  auto made = bridge::adopt<UIButton>(bridge::Descriptor<&UIView::initWithFrame>::send(raw, CGRect{}).leak());
  stateOf(made.get()).type = type;
  return std::move(made).autoreleased();
}

template <class T>
void encode(const ByState<T>& values, NSCoder coder, NSString key) {
  auto archived = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (const auto& [state, value] : values.values)
    if (value) archived->setObject_forKey(value.get(), NSNumber::numberWithInt(static_cast<int>(state)));
  coder.encodeObject_forKey(archived.get(), key);
}

template <class T>
void decode(ByState<T>& values, NSCoder coder, NSString key) {
  const auto archived = bridge::as<NSDictionary>(coder.decodeObjectForKey(key));
  for (const NSUInteger state :
       {UIControlStateNormal, UIControlStateHighlighted, UIControlStateDisabled, UIControlStateSelected})
    if (const auto value = archived.objectForKey(NSNumber::numberWithInt(static_cast<int>(state))))
      values.values[state] = retained(bridge::as<T>(value));
}

// The label comes with the title.
void encodeWithCoder(UIButton self, NSCoder coder) {
  const ButtonState& state = stateOf(self);
  encodeLooks(self, coder);
  coder.encodeInteger_forKey(state.type, "UIButtonType"_ns);
  encode(state.titles, coder, "UIButtonTitles"_ns);
  encode(state.titleColors, coder, "UIButtonTitleColors"_ns);
  encode(state.shadowColors, coder, "UIButtonTitleShadowColors"_ns);
}

Strong<UIView> initWithCoder(UIButton self, NSCoder coder) {
  auto made = ButtonClass::superInit<&Coding::initWithCoder>(self, coder);
  ButtonState& state = stateOf(made.get());
  state.type = coder.decodeIntegerForKey("UIButtonType"_ns);
  decode(state.titles, coder, "UIButtonTitles"_ns);
  decode(state.titleColors, coder, "UIButtonTitleColors"_ns);
  decode(state.shadowColors, coder, "UIButtonTitleShadowColors"_ns);
  update(made);
  return made;
}

NSInteger buttonType(UIButton self) { return stateOf(self).type; }

}  // namespace

void defineButton() {
  using bridge::method;
  using Face = UIButton;
  ButtonClass::define<UIControl>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&Face::buttonWithType, buttonWithType>(),
      method<&Face::buttonType, buttonType>(), method<&Face::titleLabel, titleLabel>(),
      method<&Coding::initWithCoder, initWithCoder>(), method<&Coding::encodeWithCoder, encodeWithCoder>(),
      // By state.
      method<&Face::titleForState, titleForState>(), method<&Face::setTitle_forState, setTitle>(),
      method<&Face::titleColorForState, titleColorForState>(),
      method<&Face::setTitleColor_forState, setValue<&ButtonState::titleColors, UIColor>>(),
      method<&Face::titleShadowColorForState, valueForState<&ButtonState::shadowColors, UIColor>>(),
      method<&Face::setTitleShadowColor_forState, setValue<&ButtonState::shadowColors, UIColor>>(),
      method<&Face::imageForState, valueForState<&ButtonState::images, UIImage>>(),
      method<&Face::setImage_forState, setValue<&ButtonState::images, UIImage>>(),
      method<&Face::currentTitle, currentTitle>(), method<&Face::currentTitleColor, currentTitleColor>(),
      method<&Face::currentTitleShadowColor, currentTitleShadowColor>(),
      method<bridge::setterOf<&UIControl::enabled>, setFlag<bridge::setterOf<&UIControl::enabled>>>(),
      method<bridge::setterOf<&UIControl::highlighted>, setFlag<bridge::setterOf<&UIControl::highlighted>>>(),
      method<bridge::setterOf<&UIControl::selected>, setFlag<bridge::setterOf<&UIControl::selected>>>(),
      // Layout.
      method<&Face::titleRectForContentRect, titleRect>(), method<&UIView::layoutSubviews, layoutSubviews>(),
      method<&UIView::sizeThatFits, sizeThatFits>());
}

}  // namespace sim::uikit
