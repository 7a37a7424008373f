// What stands on a toolbar for an item with a title: it looks like a button and acts in the item's name.
#include "simulator/uikit/controls/toolbar_button.hpp"

#include "bridge/define.hpp"
#include "simulator/uikit/base/action.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr CGFloat fontSize = 17;
constexpr CGFloat pressedAlpha = 0.3;

struct ToolbarButton : bridge::Face<"UIToolbarTextButton", UIButton> {
  MESSAGE Method<"sim_performItemAction:event:", void(UIControl, UIEvent)> performItemAction_event;
};

struct ToolbarButtonState {
  Strong<UIBarButtonItem> item;
};

using ButtonClass = bridge::Implementation<ToolbarButton, ToolbarButtonState>;

UIColor titleColor(ToolbarButton self, NSUInteger state) {
  const bool pressed = state & UIControlStateHighlighted;
  return pressed ? self.tintColor().colorWithAlphaComponent(pressedAlpha) : self.tintColor();
}

// The bar's tint is known only when the button is in it.
void didMoveToWindow(ToolbarButton self) { self.setNeedsLayout(); }

// Without a target the action goes up the responder chain.
bridge::Object takerOf(ToolbarButton self, SEL action, bridge::Object target) {
  if (target) return target;
  for (UIResponder one = self; one; one = one.nextResponder())
    if (one.respondsToSelector(action)) return one;
  return {};
}

void performItemAction(ToolbarButton self, UIControl, UIEvent event) {
  const Strong<UIBarButtonItem> item = ButtonClass::state(self).item;
  const SEL action = item->action();
  if (action) sendAction(action, takerOf(self, action, item->target()), item, event);
}

}  // namespace

Strong<UIButton> makeToolbarButton(UIBarButtonItem item) {
  auto button = bridge::make<ToolbarButton, &UIView::initWithFrame>(CGRect{});
  ButtonClass::state(button.get()).item = retained(item);
  const bool isDone = item.style() == UIBarButtonItemStyleDone;
  button->titleLabel().font.set(isDone ? UIFont::boldSystemFontOfSize(fontSize)
                                       : UIFont::systemFontOfSize(fontSize));
  button->setTitle_forState(item.title(), UIControlStateNormal);
  button->addTarget_action_forControlEvents(
      button, bridge::Descriptor<&ToolbarButton::performItemAction_event>::selector(),
      UIControlEventTouchUpInside);
  return button;
}

void defineToolbarButton() {
  using bridge::method;
  ButtonClass::define<UIButton>(method<&UIButton::titleColorForState, titleColor>(),
                                method<&UIView::didMoveToWindow, didMoveToWindow>(),
                                method<&ToolbarButton::performItemAction_event, performItemAction>());
}

}  // namespace sim::uikit
