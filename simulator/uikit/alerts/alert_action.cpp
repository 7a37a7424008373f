// UIAlertAction, and the button that an alert shows for it.
#include "simulator/uikit/alerts/alert_action.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/color.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr CGFloat titleSize = 17, titleMargin = 8;  // points

struct ActionState {
  Strong<NSString> title;
  NSInteger style = UIAlertActionStyleDefault;
  bridge::Block<void(UIAlertAction)> handler;
};

using ActionClass = bridge::Implementation<UIAlertAction, ActionState>;

UIAlertAction makeAction(Class, NSString title, NSInteger style,
                         bridge::BlockRef<void(UIAlertAction)> handler) {
  auto action = bridge::make<UIAlertAction, &NSObject::init>();
  ActionState& state = ActionClass::state(action);
  state.title = retained(title);
  state.style = style;
  state.handler = bridge::Block<void(UIAlertAction)>(handler);
  return std::move(action).autoreleased();
}

NSString title(UIAlertAction self) { return ActionClass::state(self).title; }
NSInteger style(UIAlertAction self) { return ActionClass::state(self).style; }

struct ButtonState {
  Strong<UIAlertAction> action;
  Strong<UILabel> label;
};

using ButtonClass = bridge::Implementation<AlertButton, ButtonState>;

UIColor colorOf(NSInteger style) {
  return style == UIAlertActionStyleDestructive ? UIColor::colorWithRed_green_blue_alpha(1, 0.231, 0.188, 1)
                                                : UIColor::colorWithRed_green_blue_alpha(0, 0.478, 1, 1);
}

void layoutSubviews(AlertButton self) {
  const CGSize size = self.bounds().size;
  ButtonClass::state(self).label->frame.set({{titleMargin, 0}, {size.width - 2 * titleMargin, size.height}});
  self.backgroundColor.set(UIColor::colorWithWhite_alpha(0, self.highlighted() ? 0.1 : 0));
}

}  // namespace

void perform(UIAlertAction action) {
  const bridge::Block<void(UIAlertAction)> handler = ActionClass::state(action).handler;
  if (handler) handler(action);
}

Strong<AlertButton> makeAlertButton(UIAlertAction action) {
  auto button = bridge::make<AlertButton, &UIView::initWithFrame>(CGRect{});
  ButtonState& state = ButtonClass::state(button.get());
  state.action = retained(action);
  state.label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  state.label->text.set(action.title());
  state.label->textColor.set(colorOf(action.style()));
  state.label->textAlignment.set(NSTextAlignmentCenter);
  const bool bold = action.style() == UIAlertActionStyleCancel;
  state.label->font.set(bold ? UIFont::boldSystemFontOfSize(titleSize) : UIFont::systemFontOfSize(titleSize));
  button->addSubview(state.label);
  return button;
}

UIAlertAction actionOf(AlertButton button) { return ButtonClass::state(button).action; }

double titleWidth(AlertButton button) {
  return ButtonClass::state(button).label->sizeThatFits({}).width + 2 * titleMargin;
}

void defineAlertAction() {
  using bridge::method;
  ActionClass::define<NSObject>(method<&UIAlertAction::actionWithTitle_style_handler, makeAction>(),
                                method<&UIAlertAction::title, title>(),
                                method<&UIAlertAction::style, style>());
}

void defineAlertButton() {
  ButtonClass::define<UIControl>(bridge::method<&UIView::layoutSubviews, layoutSubviews>());
}

}  // namespace sim::uikit
