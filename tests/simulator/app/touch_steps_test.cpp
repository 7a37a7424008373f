// What fingers do to the home screen, step by step.
#include <gtest/gtest.h>

#include <cmath>

#include "bridge/define.hpp"
#include "bridge/replace.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/control.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "platform/uikit/label.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "tests/support/home.hpp"

namespace test {
namespace {

// What a finger's view was told.
struct Seen {
  std::vector<double> forces;
  std::vector<NSInteger> phases;
  std::vector<CGPoint> places;
};

Seen& seen() {
  static Seen all;
  return all;
}

// A recogniser that watches every touch and recognises nothing.
struct Watcher : bridge::Face<"TestWatcher", UIGestureRecognizer> {};

void watch(Watcher, NSSet touches, UIEvent) {
  const auto touch = bridge::as<UITouch>(touches.anyObject());
  seen().forces.push_back(touch.force());
  seen().phases.push_back(touch.phase());
  seen().places.push_back(touch.locationInView({}));
}

void watchTouches() {
  using bridge::method;
  bridge::Implementation<Watcher>::define<UIGestureRecognizer>(
      method<&UIGestureRecognizer::touchesBegan_withEvent, watch>(),
      method<&UIGestureRecognizer::touchesMoved_withEvent, watch>(),
      method<&UIGestureRecognizer::touchesEnded_withEvent, watch>());
  auto watcher = bridge::make<Watcher, &NSObject::init>();
  watcher->cancelsTouchesInView.set(NO);
  watcher->delaysTouchesEnded.set(NO);
  UIApplication::sharedApplication().keyWindow().addGestureRecognizer(watcher);
}

NSInteger shownPage() { return SBIconController::sharedInstance().currentIconListIndex(); }

double timeOf(Home& home, const std::string& line) {
  const double start = sim::clock::now();
  home.step(line);
  return sim::clock::now() - start;
}

std::string errorOf(Home& home, const std::string& line) {
  try {
    home.step(line);
  } catch (const sim::UsageError& error) {
    return error.what();
  }
  return "no error";
}

TEST(TouchSteps, SwipesTurnPages) {
  Home home({"--stock"});
  home.step("swipe left");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 1);
  home.step("swipe left 300 200");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 2);
  home.step("swipe left");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 2);
  home.step("swipe right");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 1);
  home.step("swipe up");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 1);
}

TEST(TouchSteps, SwipesTurnPagesOfEveryDevice) {
  for (const char* device : {"iPhone 4s", "iPhone X", "iPad Pro (12.9-inch)"}) {
    SCOPED_TRACE(device);
    const auto run = runSimulator({"--stock", "--device", device, "--script", "-", "--report", "-"},
                                  "swipe left\nwait 1\n");
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(sim::Json::parse(run.output)["pageDots"]["current"], 1);
  }
}

TEST(TouchSteps, PagesTurnInLandscapeToo) {
  Home home({"--stock", "--device", "iPad Air 2", "--orientation", "landscape"});
  home.step("swipe left");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 1);
}

TEST(TouchSteps, DragMovesThePageAlong) {
  Home home({"--stock"});
  home.step("finger 1 down 300 300");
  home.step("finger 1 move 200 300");
  EXPECT_EQ(sim::springboard::homeScreen().scrollView->contentOffset().x, 100);
  home.step("finger 1 up 200 300");
  home.step("wait 1");
  home.step("drag 200 300 150 300 1");
  home.step("wait 1");
  const NSInteger page = shownPage();
  home.step("drag 300 300 20 300");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), page + 1);
}

TEST(TouchSteps, LastAsLongAsPromised) {
  Home home({"--stock"});
  constexpr double step = 2e-6;  // the clock's, rounded up twice
  EXPECT_NEAR(timeOf(home, "tap 10 100"), 0.05, step);
  EXPECT_NEAR(timeOf(home, "two-finger-tap"), 0.05, step);
  EXPECT_NEAR(timeOf(home, "swipe down"), 0.15, step);
  EXPECT_NEAR(timeOf(home, "press 2"), 0.3, step);
  EXPECT_NEAR(timeOf(home, "drag 10 100 12 300 0.7"), 0.7, step);
  EXPECT_EQ(timeOf(home, "finger 3 down 10 100"), 0);
  EXPECT_EQ(timeOf(home, "finger 3 move 10 110"), 0);
  EXPECT_EQ(timeOf(home, "finger 3 up 10 110"), 0);
}

TEST(TouchSteps, PressRisesToExactlyItsForce) {
  Home home({"--stock"});
  watchTouches();
  home.step("press 3");
  ASSERT_GT(seen().forces.size(), 5u);
  EXPECT_EQ(seen().forces[seen().forces.size() - 2], 3);
  for (std::size_t i = 1; i + 1 < seen().forces.size(); ++i) {
    EXPECT_EQ(seen().phases[i], UITouchPhaseMoved);
    EXPECT_GT(seen().forces[i], seen().forces[i - 1]);
  }
  EXPECT_EQ(seen().phases.back(), UITouchPhaseEnded);
}

TEST(TouchSteps, DragMovesSixtyTimesASecond) {
  Home home({"--stock"});
  watchTouches();
  home.step("drag 100 100 100 220 0.2");
  ASSERT_EQ(seen().places.size(), 14u);  // down, twelve moves, up
  EXPECT_NEAR(seen().places[6].y, 160, 1e-9);
  EXPECT_EQ(seen().places.back().y, 220);
}

// Counts what the home screen's scroll view is told.
struct Counter : bridge::Face<"TestCounter", NSObject> {
  MESSAGE Method<"fired", void()> fired;
};
int fired = 0;
CGFloat hardest = 0;
bridge::Slot movedSlot;

void touchesMoved(id, SEL, id touches, id) {
  const auto touch = bridge::as<UITouch>(bridge::as<NSSet>(touches).anyObject());
  hardest = std::max(hardest, touch.force());
}

bridge::Strong<Counter> makeCounter() {
  struct Functions {
    static void fire(Counter) { ++fired; }
  };
  bridge::Implementation<Counter>::define<NSObject>(bridge::method<&Counter::fired, Functions::fire>());
  return bridge::make<Counter, &NSObject::init>();
}

TEST(TouchSteps, PressReachesAScrollViewThatHandlesTouchesItself) {
  Home home({"--stock"});
  bridge::replaceMethod(bridge::classNamed<SBIconScrollView>(), bridge::selector<"touchesMoved:withEvent:">(),
                        reinterpret_cast<IMP>(&touchesMoved), movedSlot);
  home.step("press 3");
  EXPECT_EQ(hardest, 3);
  home.step("swipe left");
  home.step("wait 1");
  EXPECT_EQ(shownPage(), 1);  // scrolling does not need those methods
}

TEST(TouchSteps, RecognisersOfTheScrollViewHearOfFingersOnIcons) {
  Home home({"--stock"});
  auto counter = makeCounter();
  const SEL action = bridge::selector<"fired">();
  auto swipe = bridge::make<UISwipeGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(
      bridge::Object(counter.get()), action);
  bridge::as<UISwipeGestureRecognizer>(swipe.get()).direction.set(UISwipeGestureRecognizerDirectionUp);
  const UIView scrollView = sim::springboard::homeScreen().scrollView.get();
  scrollView.addGestureRecognizer(swipe);
  const CGPoint icon = sim::input::findNamed(
      bridge::as<SBIcon>(home.page(0).icons().objectAtIndex(12)).displayName.ifAnswered().UTF8String());
  sim::input::swipe(sim::input::Direction::up, icon);
  EXPECT_EQ(fired, 1);
  home.step("swipe up");
  EXPECT_EQ(fired, 2);
  home.step("two-finger-tap");
  home.step("swipe left");
  home.step("wait 1");
  EXPECT_EQ(fired, 2);
  scrollView.removeGestureRecognizer(swipe);
  auto tap = bridge::make<UITapGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(
      bridge::Object(counter.get()), action);
  bridge::as<UITapGestureRecognizer>(tap.get()).numberOfTouchesRequired.set(2);
  scrollView.addGestureRecognizer(tap);
  home.step("two-finger-tap");
  EXPECT_EQ(fired, 3);
  home.step("two-finger-tap 100 200");
  EXPECT_EQ(fired, 4);
  home.step("swipe up");
  home.step("tap 100 200");
  EXPECT_EQ(fired, 4);
}

TEST(TouchSteps, ForceCanBeGivenByHand) {
  Home home({"--stock"});
  watchTouches();
  home.step("finger 1 down 10 100");
  home.step("finger 1 move 10 100 2.5");
  home.step("finger 1 up 10 100");
  EXPECT_EQ(seen().forces[0], sim::input::usualForce);
  EXPECT_EQ(seen().forces[1], 2.5);
}

TEST(TouchSteps, TouchesHaveNoForceBeforeSystem9) {
  Home home({"--stock", "--device", "iPhone 6", "--ios", "8.4"});
  auto touch = bridge::make<UITouch, &NSObject::init>();
  EXPECT_FALSE(touch->respondsToSelector(bridge::selector<"force">()));  // confirmed: UITouch, from 9.0 on
}

TEST(TouchSteps, TouchesHaveForceFromSystem9On) {
  Home home({"--stock", "--device", "iPhone 6", "--ios", "9.2"});
  auto touch = bridge::make<UITouch, &NSObject::init>();
  EXPECT_TRUE(touch->respondsToSelector(bridge::selector<"force">()));
}

TEST(TouchSteps, RefuseWhatFingersCannotDo) {
  Home home({"--stock"});
  EXPECT_EQ(errorOf(home, "tap 375 10"), "test:1: (375, 10) is not on the screen, which is 375 x 667 points");
  EXPECT_EQ(errorOf(home, "tap 10 -1"), "test:1: (10, -1) is not on the screen, which is 375 x 667 points");
  EXPECT_EQ(errorOf(home, "finger 1 move 1 1"), "test:1: finger 1 is not down");
  EXPECT_EQ(errorOf(home, "finger 1 up 1 1"), "test:1: finger 1 is not down");
  home.step("finger 1 down 1 1");
  EXPECT_EQ(errorOf(home, "finger 1 down 1 1"), "test:1: finger 1 is down already");
}

class Named : public testing::Test {
 protected:
  Home home{{"--stock"}};
  std::string nameOnPage(size_t page) {
    return bridge::as<SBIcon>(home.page(page).icons().objectAtIndex(0)).displayName.ifAnswered().UTF8String();
  }
  std::string errorOfTap(const std::string& name) { return errorOf(home, "tap \"" + name + "\""); }
};

TEST_F(Named, IconIsFoundByItsLabel) {
  const CGPoint at = sim::input::findNamed(nameOnPage(0));
  const UIView hit = sim::uikit::viewAt(at);
  ASSERT_TRUE(bridge::isKindOf<SBIconView>(hit));
  EXPECT_EQ(sim::springboard::iconOf(bridge::as<SBIconView>(hit)).displayName.ifAnswered().UTF8String(),
            nameOnPage(0));
  EXPECT_EQ(errorOfTap(nameOnPage(0)), "no error");
}

TEST_F(Named, FailureSaysWhy) {
  EXPECT_EQ(errorOfTap("Nothing"), "test:1: nothing is called \"Nothing\"");
  EXPECT_EQ(errorOfTap(nameOnPage(1)), "test:1: \"" + nameOnPage(1) + "\" is not on the screen");
  auto control = bridge::make<UIControl, &UIView::initWithFrame>(CGRect{{50, 300}, {100, 44}});
  auto label = bridge::make<UILabel, &UIView::initWithFrame>(control->bounds());
  label->text.set(NSString::stringWithUTF8String("\xEF\x84\xB9 Go "));
  control->addSubview(label);
  const UIWindow window = UIApplication::sharedApplication().keyWindow();
  window.addSubview(control);
  EXPECT_EQ(sim::input::findNamed("Go"), (CGPoint{100, 322}));
  control->enabled.set(NO);
  EXPECT_EQ(errorOfTap("Go"), "test:1: \"Go\" is disabled");
  control->enabled.set(YES);
  control->hidden.set(YES);
  EXPECT_EQ(errorOfTap("Go"), "test:1: \"Go\" is hidden");
  control->hidden.set(NO);
  auto cover = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{0, 0}, {375, 667}});
  window.addSubview(cover);
  EXPECT_EQ(errorOfTap("Go"), "test:1: \"Go\" is covered by a UIView");
}

TEST_F(Named, FreePointIsBesideIconsAndNearTheMiddle) {
  const CGPoint free = sim::input::freePoint();
  EXPECT_FALSE(bridge::isKindOf<SBIconView>(sim::uikit::viewAt(free)));
  EXPECT_LT(std::hypot(free.x - 187.5, free.y - 333.5), 60);
  const CGPoint other = sim::input::freePoint(free, 20);
  EXPECT_GE(std::hypot(free.x - other.x, free.y - other.y), 20);
  EXPECT_FALSE(bridge::isKindOf<SBIconView>(sim::uikit::viewAt(other)));
}

TEST(Names, LeaveGlyphsOut) {
  EXPECT_EQ(sim::input::withoutGlyphs("\xEF\x84\xB9 Add "), "Add");  // U+F139
  EXPECT_EQ(sim::input::withoutGlyphs("Two words"), "Two words");
  EXPECT_EQ(sim::input::withoutGlyphs("\xEF\x84\xB9"), "");
  EXPECT_EQ(sim::input::withoutGlyphs("Caf\xC3\xA9 \xE2\x80\xA6"), "Caf\xC3\xA9 \xE2\x80\xA6");
}

}  // namespace
}  // namespace test
