// Controls: their targets and the finger that they follow.
#include "platform/uikit/control.hpp"

#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

// A target with actions of every shape; it is a view, so that the responder chain can find it.
struct ActionView : bridge::Face<"TestActionView", UIView> {
  MESSAGE Method<"plain", void()> plain;
  MESSAGE Method<"withSender:", void(UIControl)> withSender;
  MESSAGE Method<"withSender:event:", void(UIControl, UIEvent)> withSender_event;
};
using ActionClass = bridge::Implementation<ActionView>;

// A control that may refuse a touch.
struct PickyControl : bridge::Face<"TestPickyControl", UIControl> {};
using PickyClass = bridge::Implementation<PickyControl>;
bool begins = true, goesOn = true;

template <auto Member>
SEL selectorOf() {
  return bridge::Descriptor<Member>::selector();
}

class Control : public Fingers {
 protected:
  Control() {
    struct Functions {
      static void plain(ActionView) { note("plain"); }
      static void withSender(ActionView, UIControl sender) { note("sender " + nameOf(sender)); }
      static void withEvent(ActionView, UIControl sender, UIEvent event) {
        note("event " + nameOf(sender) + (event ? " yes" : " no"));
      }
      static BOOL begin(PickyControl, UITouch, UIEvent) { return begins; }
      static BOOL goOn(PickyControl, UITouch, UIEvent) { return goesOn; }
    };
    using F = Functions;
    ActionClass::define<UIView>(method<&ActionView::plain, F::plain>(),
                                method<&ActionView::withSender, F::withSender>(),
                                method<&ActionView::withSender_event, F::withEvent>());
    PickyClass::define<UIControl>(method<&UIControl::beginTrackingWithTouch_withEvent, F::begin>(),
                                  method<&UIControl::continueTrackingWithTouch_withEvent, F::goOn>());
    begins = goesOn = true;
    target = make<ActionView, &UIView::initWithFrame>(CGRect{{0, 0}, {375, 667}});
    window->addSubview(target);
    control = make<PickyControl, &UIView::initWithFrame>(CGRect{{150, 300}, {50, 40}});
    happenings().names[control->raw] = "control";
    target->addSubview(control);
  }

  // Logs every one of the events by a control of its own name.
  void logEvents() {
    const std::pair<NSUInteger, const char*> events[] = {
        {UIControlEventTouchDown, "down"},          {UIControlEventTouchDownRepeat, "repeat"},
        {UIControlEventTouchDragInside, "inside"},  {UIControlEventTouchDragOutside, "outside"},
        {UIControlEventTouchDragEnter, "enter"},    {UIControlEventTouchDragExit, "exit"},
        {UIControlEventTouchUpInside, "up inside"}, {UIControlEventTouchUpOutside, "up outside"},
        {UIControlEventTouchCancel, "cancel"}};
    for (const auto& [bit, name] : events) {
      struct Functions {
        static void fire(id, SEL action, id) { note(sel_getName(action)); }
      };
      const std::string text = std::string(name) + ":";
      const SEL action = sel_registerName(text.c_str());
      class_addMethod(ActionClass::cls, action, reinterpret_cast<IMP>(&Functions::fire), "v@:@");
      control->addTarget_action_forControlEvents(target, action, bit);
    }
  }

  Strong<ActionView> target;
  Strong<PickyControl> control;
  CGPoint inside{175, 320};
};

TEST_F(Control, SendsActionsOfEveryShape) {
  control->addTarget_action_forControlEvents(target, selectorOf<&ActionView::plain>(),
                                             UIControlEventTouchUpInside);
  control->addTarget_action_forControlEvents(target, selectorOf<&ActionView::withSender>(),
                                             UIControlEventTouchUpInside);
  control->addTarget_action_forControlEvents(target, selectorOf<&ActionView::withSender_event>(),
                                             UIControlEventTouchUpInside);
  tap(inside);
  // confirmed: Apple documentation of UIControl, in the order of their adding
  EXPECT_EQ(takeLog(), (Log{"plain", "sender control", "event control yes"}));
  control->sendActionsForControlEvents(UIControlEventTouchUpInside);
  EXPECT_EQ(takeLog(), (Log{"plain", "sender control", "event control no"}));
}

TEST_F(Control, SendsTheSameActionOnce) {
  for (int i = 0; i < 2; ++i)
    control->addTarget_action_forControlEvents(target, selectorOf<&ActionView::plain>(),
                                               UIControlEventValueChanged);
  control->sendActionsForControlEvents(UIControlEventValueChanged);
  EXPECT_EQ(takeLog(), Log{"plain"});  // confirmed: UIKit headers
  control->removeTarget_action_forControlEvents(target, nullptr, UIControlEventValueChanged);
  control->sendActionsForControlEvents(UIControlEventValueChanged);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Control, LooksForATargetUpTheChain) {
  control->addTarget_action_forControlEvents({}, selectorOf<&ActionView::plain>(),
                                             UIControlEventTouchUpInside);
  tap(inside);
  EXPECT_EQ(takeLog(), Log{"plain"});  // confirmed: nil target
}

TEST_F(Control, ForgetsATargetThatDied) {
  auto other = make<ActionView, &NSObject::init>();
  control->addTarget_action_forControlEvents(other, selectorOf<&ActionView::plain>(),
                                             UIControlEventTouchUpInside);
  other.clear();
  tap(inside);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Control, FollowsAFinger) {
  logEvents();
  down(inside);
  EXPECT_TRUE(control->isTracking());
  EXPECT_TRUE(control->isTouchInside());
  EXPECT_EQ(control->state(), UIControlStateHighlighted);
  move({180, 320});
  move({290, 320});
  EXPECT_FALSE(control->isTouchInside());
  EXPECT_FALSE(control->highlighted());  // confirmed: Apple documentation of highlighted
  move({295, 320});
  move({190, 320});
  EXPECT_TRUE(control->highlighted());
  up({190, 320});
  EXPECT_FALSE(control->isTracking());
  EXPECT_EQ(control->state(), UIControlStateNormal);
  EXPECT_EQ(takeLog(), (Log{"down:", "inside:", "exit:", "outside:", "outside:", "enter:", "inside:",
                            "up inside:"}));  // confirmed: UIControlEvents
}

TEST_F(Control, ToleratesAFingerThatSlips) {
  logEvents();
  down(inside);
  move({269, 320});
  up({269, 320});
  EXPECT_EQ(takeLog().back(), "up inside:");  // assumed: 70 points
  down(inside);
  move({271, 320});
  up({271, 320});
  EXPECT_EQ(takeLog().back(), "up outside:");
}

TEST_F(Control, TellsOfRepeatedTouches) {
  logEvents();
  tap(inside);
  takeLog();
  pass(0.1);
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"down:", "repeat:", "up inside:"}));  // confirmed: UIControlEventTouchDownRepeat
}

TEST_F(Control, TellsOfACancelledTouch) {
  logEvents();
  attach<UIPanGestureRecognizer>(window, "pan");
  down(inside);
  move({190, 320});
  EXPECT_EQ(takeLog(), (Log{"down:", "pan began", "cancel:"}));
  EXPECT_FALSE(control->highlighted());
}

TEST_F(Control, TakesNoTouchesWhileDisabled) {
  logEvents();
  control->enabled.set(NO);
  EXPECT_EQ(control->state(), UIControlStateDisabled);
  tap(inside);
  EXPECT_EQ(takeLog(), Log{});  // confirmed: enabled
  control->selected.set(YES);
  EXPECT_EQ(control->state(), UIControlStateDisabled | UIControlStateSelected);
}

TEST_F(Control, MayRefuseOrDropATouch) {
  logEvents();
  begins = false;
  tap(inside);
  EXPECT_EQ(takeLog(), Log{});  // confirmed: beginTrackingWithTouch:withEvent:
  begins = true;
  pass(1);
  down(inside);
  goesOn = false;
  move({180, 320});
  EXPECT_FALSE(control->isTracking());
  up({180, 320});
  EXPECT_EQ(takeLog(), Log{"down:"});  // assumed
}

TEST_F(Control, KeepsSingleTapsFromViewsAboveIt) {
  logEvents();
  attach<UITapGestureRecognizer>(target, "tap");
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"down:", "up inside:"}));  // confirmed: UIKit since 6.0
  tap({20, 20});
  EXPECT_EQ(takeLog(), Log{"tap ended"});
}

TEST_F(Control, MayDieInItsAction) {
  struct Functions {
    static void remove(ActionView, UIControl sender) { sender.removeFromSuperview(); }
  };
  class_addMethod(ActionClass::cls, sel_registerName("removeIt:"),
                  bridge::implementationOf<&ActionView::withSender, &Functions::remove>(), "v@:@");
  control->addTarget_action_forControlEvents(target, sel_registerName("removeIt:"),
                                             UIControlEventTouchUpInside);
  control.clear();
  tap(inside);
  EXPECT_EQ(target->subviews().count(), 0u);
}

}  // namespace
}  // namespace test
