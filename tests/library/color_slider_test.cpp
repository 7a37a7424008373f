// The number control: its parts, and its plus and minus buttons.
#include "platform/uikit/toolbar.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"
#include "tests/library/color_slider_fixture.hpp"

namespace test {
namespace {

using sim::uikit::colorOf;

double alphaOf(UIView view) { return sim::uikit::layerOf(view).presentation(sim::clock::now()).opacity; }

class NumberControl : public ColorSlider {
 protected:
  UIToolbar toolbar() { return bridge::as<UIToolbar>(slider->valueLabel().inputAccessoryView()); }
  UIBarButtonItem item(NSUInteger index) {
    return bridge::as<UIBarButtonItem>(toolbar().items().objectAtIndex(index));
  }
  template <auto Member>
  static bool sends(UIBarButtonItem item) {
    return sel_isEqual(item.action(), bridge::Descriptor<Member>::selector());
  }
};

TEST_F(NumberControl, IsASliderThatIsItsFieldsDelegate) {
  show();
  EXPECT_TRUE(bridge::isKindOf<UISlider>(slider));
  EXPECT_TRUE(slider->valueLabel().delegate() == bridge::Object(slider.get()));
}

TEST_F(NumberControl, IsLargerThanTheFrameItIsGiven) {
  show();
  EXPECT_EQ(slider->frame(), (CGRect{{20, 20}, {255, 80}}));
  EXPECT_STREQ(slider->type().UTF8String(), "topIconInset");
}

TEST_F(NumberControl, HasItsTrackInTwoBlues) {
  show();
  EXPECT_EQ(colorOf(slider->minimumTrackTintColor()), (sim::Color{13.0 / 255, 247.0 / 255, 1, 1}));
  EXPECT_EQ(colorOf(slider->maximumTrackTintColor()), (sim::Color{48.0 / 255, 55.0 / 255, 182.0 / 255, 1}));
}

TEST_F(NumberControl, HasAFaintButtonAtEitherEnd) {
  show();
  const struct {
    tilo::BButton button;
    CGFloat x;
    unsigned short icon;
  } expected[] = {{slider->addButton(), 225, 0xF067}, {slider->subtractButton(), 0, 0xF068}};
  for (const auto& [button, x, icon] : expected) {
    EXPECT_EQ(button.frame(), (CGRect{{x, 50}, {30, 30}}));
    EXPECT_EQ(button.titleForState(UIControlStateNormal).characterAtIndex(0), icon);
    EXPECT_STREQ(button.titleLabel().font().fontName().UTF8String(), "FontAwesome");
    EXPECT_EQ(button.titleLabel().font().pointSize(), 20);
    EXPECT_EQ(colorOf(button.titleColorForState(UIControlStateNormal)), sim::blackColor);
    EXPECT_EQ(colorOf(button.color()), sim::clearColor);
    EXPECT_EQ(button.buttonStyle(), 1u);
    EXPECT_EQ(button.buttonCornerRadius().floatValue(), 4);
    EXPECT_EQ(button.alpha(), 0.5);
    EXPECT_TRUE(button.superview() == slider.get());
  }
}

TEST_F(NumberControl, HasItsButtonsAboveTheSlidersOwnParts) {
  show();
  const NSArray parts = slider->subviews();
  const NSUInteger count = parts.count();
  ASSERT_GT(count, 3u);
  EXPECT_TRUE(parts.objectAtIndex(count - 3) == bridge::Object(slider->addButton()));
  EXPECT_TRUE(parts.objectAtIndex(count - 2) == bridge::Object(slider->subtractButton()));
  EXPECT_TRUE(parts.objectAtIndex(count - 1) == bridge::Object(slider->valueLabel()));
}

TEST_F(NumberControl, HasANumberFieldUnderIt) {
  show();
  const UITextField field = slider->valueLabel();
  EXPECT_EQ(field.frame(), (CGRect{{112.5, 50}, {50, 30}}));
  EXPECT_EQ(field.keyboardType(), 2);
  EXPECT_EQ(field.returnKeyType(), 9);
  EXPECT_TRUE(field.enablesReturnKeyAutomatically());
  EXPECT_EQ(colorOf(field.textColor()), sim::blackColor);
  EXPECT_EQ(colorOf(field.backgroundColor()), sim::clearColor);
  EXPECT_EQ(field.alpha(), 0.5);
}

TEST_F(NumberControl, StartsWithTheStoredValueOfItsKey) {
  show();
  EXPECT_EQ(fieldText(), "12.2");
}

TEST_F(NumberControl, StartsWithZeroForAKeyThatIsNotStored) {
  auto other =
      bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(CGRect{}, "noSuchSetting"_ns);
  EXPECT_STREQ(other->valueLabel().text().UTF8String(), "0.0");
}

TEST_F(NumberControl, HasAToolbarOverItsKeyboard) {
  show();
  EXPECT_EQ(toolbar().frame(), (CGRect{{0, 0}, {320, 44}}));
  EXPECT_EQ(toolbar().barStyle(), 2);
  ASSERT_EQ(toolbar().items().count(), 5u);
  EXPECT_STREQ(item(0).title().UTF8String(), "Cancel");
  EXPECT_EQ(item(0).style(), UIBarButtonItemStylePlain);
  EXPECT_TRUE(sends<&tilo::ColorSlider::cancelNumberPad>(item(0)));
  EXPECT_TRUE(item(2).customView() == UIView(slider->errorLabel()));
  EXPECT_STREQ(item(4).title().UTF8String(), "Apply");
  EXPECT_EQ(item(4).style(), UIBarButtonItemStyleDone);
  EXPECT_TRUE(sends<&tilo::ColorSlider::doneWithNumberPad>(item(4)));
  for (const NSUInteger end : {0, 4}) EXPECT_TRUE(item(end).target() == bridge::Object(slider.get()));
  for (const NSUInteger space : {1, 3}) EXPECT_FALSE(item(space).title() || item(space).customView());
}

TEST_F(NumberControl, HasARedErrorLabelInTheToolbar) {
  auto fresh = bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(frame, "x"_ns);
  const UILabel label = fresh->errorLabel();
  EXPECT_EQ(label.frame(), (CGRect{{0, 10}, {200, 50}}));
  EXPECT_EQ(colorOf(label.textColor()), (sim::Color{1, 0, 0, 1}));
  EXPECT_EQ(colorOf(label.backgroundColor()), sim::clearColor);
  EXPECT_EQ(label.textAlignment(), NSTextAlignmentCenter);
  EXPECT_FALSE(label.isDescendantOfView(fresh));
}

TEST_F(NumberControl, TurnsWhiteInTheDarkAndBlackAgain) {
  show();
  const auto colors = [&] {
    return std::vector{colorOf(slider->addButton().titleColorForState(UIControlStateNormal)),
                       colorOf(slider->subtractButton().titleColorForState(UIControlStateNormal)),
                       colorOf(slider->valueLabel().textColor())};
  };
  slider->setDarkMode(YES);
  EXPECT_EQ(colors(), std::vector(3, sim::whiteColor));
  slider->setDarkMode(NO);
  EXPECT_EQ(colors(), std::vector(3, sim::blackColor));
}

TEST_F(NumberControl, HasSettersForItsParts) {
  show();
  auto field = bridge::make<UITextField, &UIView::initWithFrame>(CGRect{});
  slider->valueLabel.set(field);
  EXPECT_TRUE(slider->valueLabel() == field.get());
  slider->type.set("sideIconInset"_ns);
  EXPECT_STREQ(slider->type().UTF8String(), "sideIconInset");
}

TEST_F(NumberControl, DiesWithItsCard) {
  show();
  const NSUInteger before = slider->retainCount();
  {
    const bridge::Pool pool;
    home.step("increment \"Row\"");
    home.step("type \"Row\" \"7\"");
    home.step("apply \"Row\"");
    home.step("wait 3");
  }
  EXPECT_EQ(slider->retainCount(), before);
}

// Stepping.

TEST_F(NumberControl, PlusStepsUpByOne) {
  show();
  tap(slider->addButton());
  EXPECT_EQ(slider->value(), 6);
  EXPECT_EQ(fieldText(), "6.0");
}

TEST_F(NumberControl, MinusStepsDownByOne) {
  show(-20, 100, 5.25f);
  tap(slider->subtractButton());
  EXPECT_EQ(slider->value(), 4.25f);
  EXPECT_EQ(fieldText(), "4.2");
}

TEST_F(NumberControl, EachPressIsAnnouncedOnceWithTheControl) {
  show();
  tap(slider->addButton());
  ASSERT_EQ(announced().size(), 1u);
  EXPECT_TRUE(announced()[0] == bridge::Object(slider.get()));
  home.step("wait 0.3");
  tap(slider->subtractButton());
  EXPECT_EQ(announced().size(), 2u);
}

TEST_F(NumberControl, PlusAtTheMaximumStaysAndStillTells) {
  show(-20, 100, 100);
  tap(slider->addButton());
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(fieldText(), "100.0");
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberControl, MinusAtTheMinimumStaysAndStillTells) {
  show(-20, 100, -20);
  tap(slider->subtractButton());
  EXPECT_EQ(slider->value(), -20);
  EXPECT_EQ(fieldText(), "-20.0");
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberControl, StepsNoFurtherThanItsEnds) {
  show(-20, 100, 99.5f);
  tap(slider->addButton());
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(fieldText(), "100.0");
  slider->value.set(-19.5f);
  tap(slider->subtractButton());
  EXPECT_EQ(slider->value(), -20);
  EXPECT_EQ(fieldText(), "-20.0");
}

TEST_F(NumberControl, HoldingAButtonStepsOnce) {
  show();
  const CGRect plus = slider->addButton().convertRect_toView(slider->addButton().bounds(), UIView());
  const std::string at = std::to_string(plus.origin.x + 15) + " " + std::to_string(plus.origin.y + 15);
  home.step("finger 1 down " + at);
  home.step("wait 3");
  EXPECT_EQ(slider->value(), 5);
  home.step("finger 1 up " + at);
  EXPECT_EQ(slider->value(), 6);
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberControl, ThePressedButtonFlashes) {
  show();
  const tilo::BButton plus = slider->addButton();
  plus.alpha.set(1);
  plus.sendActionsForControlEvents(UIControlEventTouchUpInside);
  EXPECT_EQ(alphaOf(plus), 1);
  home.step("wait 0.05");
  EXPECT_NEAR(alphaOf(plus), 0.75, 0.01);
  home.step("wait 0.05");
  EXPECT_NEAR(alphaOf(plus), 0.5, 1e-6);
  home.step("wait 0.05");
  EXPECT_NEAR(alphaOf(plus), 0.75, 0.01);
  home.step("wait 0.05");
  EXPECT_NEAR(alphaOf(plus), 1, 1e-6);
  EXPECT_EQ(alphaOf(slider->subtractButton()), 0.5);
}

TEST_F(NumberControl, TheThumbGlidesToTheNewValue) {
  show(0, 4, 1);
  slider->layoutIfNeeded();
  const UIView thumb = bridge::as<UIView>(slider->subviews().objectAtIndex(2));
  const auto x = [&] { return sim::uikit::layerOf(thumb).presentation(sim::clock::now()).position.x; };
  const double before = x();
  slider->addButton().sendActionsForControlEvents(UIControlEventTouchUpInside);
  EXPECT_NEAR(x(), before, 1e-6);
  home.step("wait 0.3");
  EXPECT_NEAR(x(), before + 56, 1e-6);
}

TEST_F(NumberControl, ADragIsNotAnnouncedAndLeavesTheField) {
  show();
  home.step("slide \"Row\" 50");
  EXPECT_EQ(slider->value(), 50);
  EXPECT_EQ(fieldText(), "12.2");
  EXPECT_TRUE(announced().empty());
}

}  // namespace
}  // namespace test
