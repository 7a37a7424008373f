// Sliders: their values, where their parts stand, and the finger on the thumb.
#include "platform/uikit/slider.hpp"

#include "platform/uikit/button.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "simulator/uikit/controls/slider.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

// Notes the value with every change, and the ends of touches.
struct SliderTarget : bridge::Face<"TestSliderTarget", NSObject> {
  MESSAGE Method<"changed:", void(UISlider)> changed;
  MESSAGE Method<"lifted:", void(UISlider)> lifted;
};
using TargetClass = bridge::Implementation<SliderTarget>;

class Slider : public Fingers {
 protected:
  Slider() {
    struct Functions {
      static void changed(SliderTarget, UISlider slider) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", static_cast<double>(slider.value()));
        note(text);
      }
      static void lifted(SliderTarget, UISlider) { note("lifted"); }
    };
    TargetClass::define<NSObject>(method<&SliderTarget::changed, Functions::changed>(),
                                  method<&SliderTarget::lifted, Functions::lifted>());
    target = make<SliderTarget, &NSObject::init>();
    slider = makeSlider();
    window->addSubview(slider);
  }

  // 100 points of way for the thumb, one for each of its values.
  Strong<UISlider> makeSlider() {
    auto made = make<UISlider, &UIView::initWithFrame>(CGRect{{50, 100}, {131, 80}});
    made->maximumValue.set(100);
    made->addTarget_action_forControlEvents(target, bridge::Descriptor<&SliderTarget::changed>::selector(),
                                            UIControlEventValueChanged);
    made->addTarget_action_forControlEvents(target, bridge::Descriptor<&SliderTarget::lifted>::selector(),
                                            UIControlEventTouchUpInside);
    return made;
  }

  // The middle of the thumb of a slider in the window's coordinates.
  CGPoint thumb(UISlider of) {
    const CGRect rect = sim::uikit::thumbRectOf(of, of.value());
    return of.convertPoint_toView({rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2},
                                  {});
  }
  CGPoint thumb() { return thumb(slider); }

  Strong<SliderTarget> target;
  Strong<UISlider> slider;
};

TEST_F(Slider, RunsFromZeroToOneAtFirst) {
  auto fresh = make<UISlider, &UIView::initWithFrame>(CGRect{});
  EXPECT_EQ(fresh->value(), 0);  // confirmed: Apple documentation of UISlider
  EXPECT_EQ(fresh->minimumValue(), 0);
  EXPECT_EQ(fresh->maximumValue(), 1);
  EXPECT_TRUE(fresh->continuous());
}

TEST_F(Slider, PinsItsValueToTheRange) {
  slider->value.set(150);
  EXPECT_EQ(slider->value(), 100);  // confirmed: Apple documentation of value
  slider->value.set(-1);
  EXPECT_EQ(slider->value(), 0);
}

TEST_F(Slider, BoundsThatMoveTakeTheValueAlong) {
  slider->value.set(50);
  slider->minimumValue.set(60);
  EXPECT_EQ(slider->value(), 60);  // confirmed: Apple documentation of minimumValue
  slider->maximumValue.set(55);
  EXPECT_EQ(slider->value(), 55);
  EXPECT_EQ(slider->minimumValue(), 55);  // assumed
}

TEST_F(Slider, SendsNothingForValuesThatAreSet) {
  slider->value.set(50);
  slider->setValue_animated(60, YES);
  EXPECT_TRUE(takeLog().empty());  // confirmed: Apple documentation of setValue:animated:
}

TEST_F(Slider, HasItsTrackAndThumbInTheMiddleOfItsHeight) {
  slider->value.set(25);
  const CGRect bounds = slider->bounds();
  const CGRect track = slider->trackRectForBounds(bounds);
  EXPECT_EQ(track, (CGRect{{2, 39}, {127, 2}}));  // assumed
  EXPECT_EQ(slider->thumbRectForBounds_trackRect_value(bounds, track, 0), (CGRect{{0, 24.5}, {31, 31}}));
  EXPECT_EQ(slider->thumbRectForBounds_trackRect_value(bounds, track, 100), (CGRect{{100, 24.5}, {31, 31}}));
}

TEST_F(Slider, ShowsBothSidesOfTheTrackInTheirTints) {
  slider->minimumTrackTintColor.set(UIColor::redColor());
  slider->maximumTrackTintColor.set(UIColor::blueColor());
  slider->value.set(50);
  slider->layoutIfNeeded();
  const NSArray parts = slider->subviews();
  const auto right = bridge::as<UIView>(parts.objectAtIndex(0));
  const auto left = bridge::as<UIView>(parts.objectAtIndex(1));
  EXPECT_TRUE(left.backgroundColor() == UIColor::redColor());
  EXPECT_TRUE(right.backgroundColor() == UIColor::blueColor());
  EXPECT_EQ(left.frame(), (CGRect{{2, 39}, {63.5, 2}}));
  EXPECT_EQ(right.frame(), (CGRect{{65.5, 39}, {63.5, 2}}));
}

TEST_F(Slider, AnimatedChangeMovesTheThumbOverAQuarterOfASecond) {
  slider->layoutIfNeeded();
  slider->setValue_animated(100, YES);
  EXPECT_EQ(slider->value(), 100);  // confirmed: the value is the new one at once
  const auto part = bridge::as<UIView>(slider->subviews().objectAtIndex(2));
  EXPECT_NEAR(shown(part).position.x, 15.5, 1e-9);
  pass(0.125);
  EXPECT_NEAR(shown(part).position.x, 65.5, 1);
  pass(0.125);
  EXPECT_NEAR(shown(part).position.x, 115.5, 1e-9);  // assumed
}

TEST_F(Slider, FollowsTheFingerThatHoldsItsThumb) {
  const CGPoint from = thumb();
  down({from.x + 5, from.y});
  move({from.x + 35, from.y});
  EXPECT_EQ(slider->value(), 30);
  move({from.x + 25, from.y + 60});
  up({from.x + 25, from.y + 60});
  EXPECT_EQ(slider->value(), 20);
  // confirmed: actions for changes of value commonly look for a touch that has ended
  EXPECT_EQ(takeLog(), (Log{"30", "20", "20", "lifted"}));
}

TEST_F(Slider, IsNotTakenBesideItsThumb) {
  const CGPoint from = thumb();
  down({from.x + 60, from.y});
  move({from.x + 90, from.y});
  up({from.x + 90, from.y});
  EXPECT_EQ(slider->value(), 0);  // confirmed: a touch on the bare track does nothing on iOS
  EXPECT_TRUE(takeLog().empty());
}

TEST_F(Slider, IsTakenJustBesideItsThumb) {
  const CGPoint from = thumb();
  down({from.x + 21, from.y});
  move({from.x + 41, from.y});
  EXPECT_EQ(slider->value(), 20);  // assumed
}

TEST_F(Slider, StopsAtItsEnds) {
  const CGPoint from = thumb();
  down(from);
  move({from.x + 300, from.y});
  move({from.x + 301, from.y});
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(takeLog(), (Log{"100"}));  // assumed: no news of a value that stays
  move({from.x - 300, from.y});
  EXPECT_EQ(slider->value(), 0);
}

TEST_F(Slider, ThatIsNotContinuousTellsOnceAtTheEnd) {
  slider->continuous.set(NO);
  const CGPoint from = thumb();
  down(from);
  move({from.x + 30, from.y});
  move({from.x + 40, from.y});
  EXPECT_TRUE(takeLog().empty());
  up({from.x + 40, from.y});
  EXPECT_EQ(takeLog(), (Log{"40", "lifted"}));  // confirmed: Apple documentation of continuous
}

TEST_F(Slider, ThatIsDisabledDoesNotMove) {
  slider->enabled.set(NO);
  const CGPoint from = thumb();
  down(from);
  move({from.x + 30, from.y});
  up({from.x + 30, from.y});
  EXPECT_EQ(slider->value(), 0);
}

TEST_F(Slider, LeavesTouchesOfItsSubviewsToThem) {
  auto button = make<UIButton, &UIView::initWithFrame>(CGRect{{0, 50}, {30, 30}});
  button->addTarget_action_forControlEvents(target, bridge::Descriptor<&SliderTarget::lifted>::selector(),
                                            UIControlEventTouchUpInside);
  slider->addSubview(button);
  tap({65, 165});
  EXPECT_EQ(takeLog(), (Log{"lifted"}));
  EXPECT_EQ(slider->value(), 0);
}

// A slider on pages side by side.
class PagedSlider : public Slider {
 protected:
  PagedSlider() {
    pages = make<UIScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 400}});
    pages->contentSize.set({600, 400});
    pages->pagingEnabled.set(YES);
    window->addSubview(pages);
    paged = makeSlider();
    pages->addSubview(paged);
  }

  Strong<UIScrollView> pages;
  Strong<UISlider> paged;
};

TEST_F(PagedSlider, KeepsDragsAlongItFromThePages) {
  const CGPoint from = thumb(paged);
  down(from);
  travel(from, {from.x + 60, from.y}, 0.3);
  up({from.x + 60, from.y});
  // confirmed: Apple's Event Handling Guide, Interacting with Other User Interface Controls
  EXPECT_EQ(pages->contentOffset().x, 0);
  EXPECT_EQ(paged->value(), 60);
}

TEST_F(PagedSlider, FollowsFromWhereTheFingerCameDown) {
  const CGPoint from = thumb(paged);
  down(from);
  move({from.x + 40, from.y});  // sooner than the pages let the slider hear of the touch
  move({from.x + 50, from.y});
  EXPECT_EQ(paged->value(), 50);
  up({from.x + 50, from.y});
  EXPECT_EQ(paged->value(), 50);
}

TEST_F(PagedSlider, LeavesDragsBesideItsThumbToThePages) {
  const CGPoint from = thumb(paged);
  down({from.x + 80, from.y});
  travel({from.x + 80, from.y}, {from.x - 60, from.y}, 0.3);
  EXPECT_GT(pages->contentOffset().x, 0);
  EXPECT_EQ(paged->value(), 0);
}

TEST_F(PagedSlider, LeavesDragsAcrossItToOthers) {
  auto pan = attach<UIPanGestureRecognizer>(pages, "pan");
  pages->scrollEnabled.set(NO);
  const CGPoint from = thumb(paged);
  down(from);
  travel(from, {from.x, from.y + 60}, 0.3);
  up({from.x, from.y + 60});
  const Log log = takeLog();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.front(), "pan began");  // confirmed: as above; only strokes along the slider are its own
}

TEST_F(PagedSlider, KeepsSwipesAlongItFromOthers) {
  auto swipe = attach<UISwipeGestureRecognizer>(pages, "swipe");
  pages->scrollEnabled.set(NO);
  const CGPoint from = thumb(paged);
  down(from);
  travel(from, {from.x + 60, from.y}, 0.1);
  up({from.x + 60, from.y});
  for (const std::string& line : takeLog()) EXPECT_NE(line, "swipe ended");  // confirmed: as above
  EXPECT_EQ(paged->value(), 60);
}

}  // namespace
}  // namespace test
