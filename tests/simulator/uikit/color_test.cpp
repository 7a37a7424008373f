// Colours.
#include "simulator/uikit/drawing/color.hpp"

#include "platform/foundation/string.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Colors = UIKit;

struct Comparable : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"hash", NSUInteger()> hash;
};

TEST_F(Colors, ComponentsReadBack) {
  const UIColor color = UIColor::colorWithRed_green_blue_alpha(0.1, 0.2, 0.3, 0.4);
  CGFloat red, green, blue, alpha;
  ASSERT_TRUE(color.getRed_green_blue_alpha(&red, &green, &blue, &alpha));
  EXPECT_EQ(red, 0.1);
  EXPECT_EQ(green, 0.2);
  EXPECT_EQ(blue, 0.3);
  EXPECT_EQ(alpha, 0.4);
  EXPECT_TRUE(color.getRed_green_blue_alpha(nullptr, nullptr, nullptr, nullptr));
}

std::vector<CGFloat> partsOf(UIColor color) {
  std::vector<CGFloat> parts(4);
  color.getRed_green_blue_alpha(&parts[0], &parts[1], &parts[2], &parts[3]);
  return parts;
}

TEST_F(Colors, ComponentsStayWithinTheirRangeBeforeSystem10) {
  auto older = phone();
  older.systemVersion = "9.3.5";
  sim::uikit::configure(older);
  // confirmed: Apple documentation of colorWithRed:green:blue:alpha:
  EXPECT_EQ(partsOf(UIColor::colorWithRed_green_blue_alpha(2, -1, 0.5, 3)),
            (std::vector<CGFloat>{1, 0, 0.5, 1}));
  EXPECT_EQ(partsOf(UIColor::colorWithWhite_alpha(2, 3)), (std::vector<CGFloat>{1, 1, 1, 1}));
}

TEST_F(Colors, ComponentsAreKeptBeyondTheirRangeFromSystem10On) {
  // confirmed: Apple documentation of colorWithRed:green:blue:alpha:, of alpha too, which stays within its
  // range
  EXPECT_EQ(partsOf(UIColor::colorWithRed_green_blue_alpha(2, -1, 0.5, 3)),
            (std::vector<CGFloat>{2, -1, 0.5, 1}));
  EXPECT_EQ(partsOf(UIColor::colorWithWhite_alpha(2, 3)), (std::vector<CGFloat>{2, 2, 2, 1}));
}

TEST_F(Colors, ComponentsBeyondTheirRangeAreShownWithinIt) {
  EXPECT_EQ(sim::uikit::colorOf(UIColor::colorWithRed_green_blue_alpha(2, -1, 0.5, 3)),
            (sim::Color{1, 0, 0.5, 1}));
}

TEST_F(Colors, WhiteHasThreeEqualComponents) {
  EXPECT_EQ(sim::uikit::colorOf(UIColor::colorWithWhite_alpha(0.25, 0.5)),
            (sim::Color{0.25, 0.25, 0.25, 0.5}));
}

TEST_F(Colors, NamedOnesAreApples) {
  using sim::uikit::colorOf;
  // confirmed: Apple documentation of UIColor
  EXPECT_EQ(colorOf(UIColor::blackColor()), (sim::Color{0, 0, 0, 1}));
  EXPECT_EQ(colorOf(UIColor::orangeColor()), (sim::Color{1, 0.5, 0, 1}));
  EXPECT_EQ(colorOf(UIColor::purpleColor()), (sim::Color{0.5, 0, 0.5, 1}));
  EXPECT_EQ(colorOf(UIColor::brownColor()), (sim::Color{0.6, 0.4, 0.2, 1}));
  EXPECT_EQ(colorOf(UIColor::clearColor()), (sim::Color{0, 0, 0, 0}));
  EXPECT_EQ(colorOf(UIColor::lightGrayColor()).red, 2.0 / 3);
  EXPECT_TRUE(UIColor::redColor() == UIColor::redColor());
}

TEST_F(Colors, EqualComponentsMakeEqualColors) {
  const auto one = bridge::as<Comparable>(UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 1));
  const auto other = bridge::as<Comparable>(UIColor::redColor());
  EXPECT_TRUE(one.isEqual(other));  // confirmed: UIColor compares by value
  EXPECT_EQ(one.hash(), other.hash());
  EXPECT_FALSE(one.isEqual(UIColor::blueColor()));
  EXPECT_FALSE(one.isEqual("red"_ns));
}

TEST_F(Colors, AlphaCanBeReplaced) {
  EXPECT_EQ(sim::uikit::colorOf(UIColor::redColor().colorWithAlphaComponent(0.5)),
            (sim::Color{1, 0, 0, 0.5}));
}

TEST_F(Colors, GreysHaveTwoComponentsAndOthersFour) {
  const auto count = [](UIColor color) { return CGColorGetNumberOfComponents(color.CGColor()); };
  // confirmed: greys are of the grey colour space, the clear colour too
  for (const UIColor grey : {UIColor::blackColor(), UIColor::whiteColor(), UIColor::grayColor(),
                             UIColor::clearColor(), UIColor::colorWithWhite_alpha(0.3, 1)})
    EXPECT_EQ(count(grey), 2u);
  EXPECT_EQ(count(UIColor::redColor()), 4u);
  EXPECT_EQ(count(UIColor::colorWithRed_green_blue_alpha(0, 0, 0, 1)), 4u);
  EXPECT_EQ(count(UIColor::colorWithHue_saturation_brightness_alpha(0, 0, 1, 1)), 4u);
  EXPECT_EQ(count(UIColor::whiteColor().colorWithAlphaComponent(0.5)), 2u);
  EXPECT_EQ(CGColorGetNumberOfComponents(nullptr), 0u);
}

TEST_F(Colors, ComponentsEndWithAlpha) {
  const UIColor grey = UIColor::colorWithWhite_alpha(0.25, 0.5);
  EXPECT_EQ(CGColorGetComponents(grey.CGColor())[0], 0.25);
  EXPECT_EQ(CGColorGetComponents(grey.CGColor())[1], 0.5);
  const UIColor color = UIColor::colorWithRed_green_blue_alpha(0.1, 0.2, 0.3, 0.4);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(CGColorGetComponents(color.CGColor())[i], (i + 1) / 10.0);
}

TEST_F(Colors, GreyIsNotEqualToAColorOfThatShade) {
  const auto grey = bridge::as<Comparable>(UIColor::colorWithWhite_alpha(1, 1));
  EXPECT_TRUE(grey.isEqual(UIColor::whiteColor()));
  // confirmed: UIColor compares colour spaces too
  EXPECT_FALSE(grey.isEqual(UIColor::colorWithRed_green_blue_alpha(1, 1, 1, 1)));
}

TEST_F(Colors, HuesGoAroundTheCircle) {
  const auto hue = [](double place) {
    return sim::uikit::colorOf(UIColor::colorWithHue_saturation_brightness_alpha(place, 1, 1, 1));
  };
  EXPECT_EQ(hue(0), (sim::Color{1, 0, 0, 1}));
  EXPECT_EQ(hue(1 / 3.0), (sim::Color{0, 1, 0, 1}));
  EXPECT_EQ(hue(0.5), (sim::Color{0, 1, 1, 1}));
  EXPECT_EQ(hue(2 / 3.0), (sim::Color{0, 0, 1, 1}));
  EXPECT_EQ(hue(1), (sim::Color{1, 0, 0, 1}));
}

TEST_F(Colors, HueSaturationAndBrightnessReadBack) {
  for (const double hue : {0.0, 0.1, 0.25, 0.45, 0.6, 0.75, 0.95}) {
    CGFloat parts[4];
    UIColor::colorWithHue_saturation_brightness_alpha(hue, 0.3, 0.7, 0.4)
        .getHue_saturation_brightness_alpha(parts, parts + 1, parts + 2, parts + 3);
    EXPECT_NEAR(parts[0], hue, 1e-9);
    EXPECT_NEAR(parts[1], 0.3, 1e-9);
    EXPECT_NEAR(parts[2], 0.7, 1e-9);
    EXPECT_EQ(parts[3], 0.4);
  }
}

TEST_F(Colors, GreysHaveNoHue) {
  CGFloat hue, saturation, brightness;
  EXPECT_TRUE(UIColor::colorWithWhite_alpha(0.3, 1).getHue_saturation_brightness_alpha(&hue, &saturation,
                                                                                       &brightness, nullptr));
  EXPECT_EQ(hue, 0);
  EXPECT_EQ(saturation, 0);
  EXPECT_EQ(brightness, 0.3);
}

TEST_F(Colors, MadeByInitialisers) {
  auto color = make<UIColor, &UIColor::initWithRed_green_blue_alpha>(0.0, 0.0, 1.0, 1.0);
  EXPECT_EQ(color->retainCount(), 1u);
  EXPECT_EQ(sim::uikit::colorOf(color), (sim::Color{0, 0, 1, 1}));
}

}  // namespace
}  // namespace test
