// UIColor(BButton): the palette, lightness, and colours made of others.
#include "controls/button_colors.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "controls/button.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::uikit::colorOf;
using test::Home;
using tilo::BButton;
using tilo::ButtonColor;

using Named = UIColor (*)();

template <const auto& Method>
UIColor named() {
  return Method();
}

#define NAMED(name) named<ButtonColor::name>

struct Kind {
  NSUInteger type;
  Named raised, flat;                 // its names in the palette
  float red, green, blue;             // style 0
  float hue, saturation, brightness;  // style 1, hue in degrees; a negative hue: as style 0
};

constexpr Kind kinds[] = {
    {0, NAMED(bb_defaultColorV2), NAMED(bb_defaultColorV3), 0.85f, 0.85f, 0.85f, 0, 0, 1},
    {1, NAMED(bb_primaryColorV2), NAMED(bb_primaryColorV3), 0, 0.33f, 0.80f, 208, 0.72f, 0.69f},
    {2, NAMED(bb_infoColorV2), NAMED(bb_infoColorV3), 0.18f, 0.59f, 0.71f, 194, 0.59f, 0.87f},
    {3, NAMED(bb_successColorV2), NAMED(bb_successColorV3), 0.32f, 0.64f, 0.32f, 120, 0.5f, 0.72f},
    {4, NAMED(bb_warningColorV2), NAMED(bb_warningColorV3), 0.97f, 0.58f, 0.02f, 35, 0.68f, 0.94f},
    {5, NAMED(bb_dangerColorV2), NAMED(bb_dangerColorV3), 0.74f, 0.21f, 0.18f, 2, 0.64f, 0.85f},
    {6, NAMED(bb_inverseColorV2), NAMED(bb_inverseColorV3), 0.13f, 0.13f, 0.13f, 0, 0, 0.75f},
    {7, NAMED(bb_twitterColor), NAMED(bb_twitterColor), 0.25f, 0.60f, 1, -1, 0, 0},
    {8, NAMED(bb_facebookColor), NAMED(bb_facebookColor), 0.23f, 0.35f, 0.60f, -1, 0, 0},
    {9, NAMED(bb_purpleBButtonColor), NAMED(bb_purpleBButtonColor), 0.45f, 0.30f, 0.75f, -1, 0, 0},
    {10, NAMED(bb_grayBButtonColor), NAMED(bb_grayBButtonColor), 0.60f, 0.60f, 0.60f, -1, 0, 0},
};

// Red, green and blue of a hue by the sextant of the colour circle that it lies in.
sim::Color ofHue(double degrees, double saturation, double brightness) {
  const int sextant = static_cast<int>(degrees / 60) % 6;
  const double part = degrees / 60 - sextant;
  const double low = brightness * (1 - saturation), falling = brightness * (1 - saturation * part),
               rising = brightness * (1 - saturation * (1 - part));
  switch (sextant) {
    case 0:
      return {brightness, rising, low, 1};
    case 1:
      return {falling, brightness, low, 1};
    case 2:
      return {low, brightness, rising, 1};
    case 3:
      return {low, falling, brightness, 1};
    case 4:
      return {rising, low, brightness, 1};
    default:
      return {brightness, low, falling, 1};
  }
}

void expectNear(UIColor color, const sim::Color& wanted) {
  const sim::Color is = colorOf(color);
  EXPECT_NEAR(is.red, wanted.red, 1e-6);
  EXPECT_NEAR(is.green, wanted.green, 1e-6);
  EXPECT_NEAR(is.blue, wanted.blue, 1e-6);
  EXPECT_NEAR(is.alpha, wanted.alpha, 1e-6);
}

ButtonColor made(double red, double green, double blue, double alpha = 1) {
  return bridge::as<ButtonColor>(UIColor::colorWithRed_green_blue_alpha(red, green, blue, alpha));
}
ButtonColor grey(double white, double alpha = 1) {
  return bridge::as<ButtonColor>(UIColor::colorWithWhite_alpha(white, alpha));
}

size_t components(UIColor color) { return CGColorGetNumberOfComponents(color.CGColor()); }

TEST(ButtonPalette, OfTheOlderLookIsInSinglePrecision) {
  Home home;
  for (const Kind& kind : kinds) {
    const sim::Color wanted{kind.red, kind.green, kind.blue, 1};
    EXPECT_EQ(colorOf(kind.raised()), wanted) << kind.type;
    EXPECT_EQ(colorOf(BButton::colorForButtonType_style(kind.type, 0)), wanted) << kind.type;
    EXPECT_EQ(colorOf(BButton::colorForV2StyleButtonWithType(kind.type)), wanted) << kind.type;
  }
}

TEST(ButtonPalette, OfTheFlatLookIsByHueSaturationAndBrightness) {
  Home home;
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.type);
    const sim::Color wanted = kind.hue < 0 ? sim::Color{kind.red, kind.green, kind.blue, 1}
                                           : ofHue(kind.hue, kind.saturation, kind.brightness);
    expectNear(kind.flat(), wanted);
    expectNear(BButton::colorForButtonType_style(kind.type, 1), wanted);
    expectNear(BButton::colorForV3StyleButtonWithType(kind.type), wanted);
    expectNear(BButton::colorForButtonType_style(kind.type, 2), wanted);
  }
}

TEST(ButtonPalette, HasTheSystemsClearColorForClearButtons) {
  Home home;
  EXPECT_TRUE(ButtonColor::bb_clearBButtonColor() == UIColor::clearColor());
  for (const NSUInteger style : {0, 1})
    EXPECT_TRUE(BButton::colorForButtonType_style(11, style) == UIColor::clearColor());
}

TEST(ButtonPalette, HasTheDefaultForAnUnknownType) {
  Home home;
  for (const NSUInteger type : {NSUInteger{12}, static_cast<NSUInteger>(-1)}) {
    EXPECT_EQ(colorOf(BButton::colorForButtonType_style(type, 0)), colorOf(ButtonColor::bb_defaultColorV2()));
    EXPECT_EQ(colorOf(BButton::colorForButtonType_style(type, 1)), colorOf(ButtonColor::bb_defaultColorV3()));
  }
}

TEST(LightColor, IsAGreyFromThreeQuartersOn) {
  Home home;
  EXPECT_TRUE(grey(0.75).bb_isLightColor());
  EXPECT_FALSE(grey(0.749).bb_isLightColor());
  EXPECT_TRUE(bridge::as<ButtonColor>(UIColor::whiteColor()).bb_isLightColor());
  EXPECT_FALSE(bridge::as<ButtonColor>(UIColor::clearColor()).bb_isLightColor());
}

TEST(LightColor, HasAMeanOfThreeQuartersOrMore) {
  Home home;
  EXPECT_TRUE(made(0.75, 0.75, 0.75).bb_isLightColor());
  EXPECT_TRUE(made(1, 1, 0.25).bb_isLightColor());
  EXPECT_TRUE(made(1, 0.7, 0.7).bb_isLightColor());
  EXPECT_FALSE(made(1, 1, 0.24).bb_isLightColor());
  EXPECT_FALSE(made(0.749, 0.749, 0.749).bb_isLightColor());
}

TEST(LightColor, IsLightHoweverClear) {
  Home home;
  EXPECT_TRUE(grey(0.8, 0.1).bb_isLightColor());
  EXPECT_TRUE(made(0.8, 0.8, 0.8, 0).bb_isLightColor());
}

TEST(Lightening, RaisesEachPartToOneAtMost) {
  Home home;
  expectNear(made(0.1, 0.5, 0.9, 0.3).bb_lightenColorWithValue(0.2), {0.3, 0.7, 1, 0.3});
}

TEST(Darkening, LowersEachPartToNothingAtMost) {
  Home home;
  expectNear(made(0.1, 0.5, 0.9, 0.3).bb_darkenColorWithValue(0.2), {0, 0.3, 0.7, 0.3});
}

TEST(Lightening, MakesColorsOfGreys) {
  Home home;
  const ButtonColor middle = grey(0.5, 0.3);
  ASSERT_EQ(components(middle), 2u);
  expectNear(middle.bb_lightenColorWithValue(0.2), {0.7, 0.7, 0.7, 0.3});
  expectNear(middle.bb_darkenColorWithValue(0.2), {0.3, 0.3, 0.3, 0.3});
  EXPECT_EQ(components(middle.bb_lightenColorWithValue(0.2)), 4u);
  EXPECT_EQ(components(middle.bb_darkenColorWithValue(0.2)), 4u);
}

// From system 10 on a colour may be beyond what a screen shows.
TEST(Lightening, GoesNoFurtherThanAScreenShows) {
  Home home({"--ios", "11.1"});
  CGFloat red = 0, green = 0, blue = 0;
  made(0.1, 0.5, 0.9).bb_lightenColorWithValue(0.5).getRed_green_blue_alpha(&red, &green, &blue, nullptr);
  EXPECT_NEAR(red, 0.6, 1e-6);
  EXPECT_EQ(green, 1);
  EXPECT_EQ(blue, 1);
}

TEST(Lightening, LeavesWhiteWhite) {
  Home home;
  for (const double value : {0.0, 0.06, 0.5, 1.0, 2.0}) {
    EXPECT_EQ(colorOf(grey(1).bb_lightenColorWithValue(value)), sim::whiteColor);
    EXPECT_EQ(colorOf(made(1, 1, 1).bb_lightenColorWithValue(value)), sim::whiteColor);
  }
}

TEST(Darkening, LeavesBlackBlack) {
  Home home;
  for (const double value : {0.0, 0.06, 0.5, 1.0, 2.0}) {
    EXPECT_EQ(colorOf(grey(0).bb_darkenColorWithValue(value)), sim::blackColor);
    EXPECT_EQ(colorOf(made(0, 0, 0).bb_darkenColorWithValue(value)), sim::blackColor);
  }
}

TEST(Desaturating, TakesAPartOfTheSaturationOnly) {
  Home home;
  const UIColor pale = made(0.8, 0.4, 0.2, 0.7).bb_desaturatedColorToPercentSaturation(0.6);
  CGFloat before[4], after[4];
  made(0.8, 0.4, 0.2, 0.7).getHue_saturation_brightness_alpha(before, before + 1, before + 2, before + 3);
  pale.getHue_saturation_brightness_alpha(after, after + 1, after + 2, after + 3);
  EXPECT_NEAR(after[0], before[0], 1e-9);
  EXPECT_NEAR(after[1], 0.6 * 0.75, 1e-9);
  EXPECT_NEAR(after[2], 0.8, 1e-9);
  EXPECT_NEAR(after[3], 0.7, 1e-9);
  expectNear(pale, {0.8, 0.56, 0.44, 0.7});
}

TEST(Desaturating, LeavesGreysAndClearAsTheyAre) {
  Home home;
  expectNear(grey(0.5, 0.3).bb_desaturatedColorToPercentSaturation(0.6), {0.5, 0.5, 0.5, 0.3});
  expectNear(bridge::as<ButtonColor>(UIColor::clearColor()).bb_desaturatedColorToPercentSaturation(0.6),
             {0, 0, 0, 0});
}

}  // namespace
