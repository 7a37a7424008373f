// The box and its background on the screen.
#include "bridge/define.hpp"
#include "simulator/coregraphics/gradient.hpp"
#include "tests/library/hud_fixture.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace test {
namespace {

using sim::test::Pixel;

// On white; the box is 77 points wide, in the middle of 375 x 667.
class ProgressHUDDrawing : public HUD {
 protected:
  ProgressHUDDrawing() {
    view->backgroundColor.set(UIColor::whiteColor());
    hud->show(NO);
  }

  static Pixel at(CGFloat x, CGFloat y) {
    const sim::Surface screen = sim::uikit::renderScreen(now());
    return sim::test::pixelAt(screen.get(), static_cast<int>(x * 2), static_cast<int>(y * 2));
  }
  // In the box, beside the indicator.
  static Pixel inBox() { return at(375 / 2.0 - 30, 667 / 2.0 - 20); }
  static Pixel corner() { return at(375 / 2.0 - 37, 667 / 2.0 - 37); }
  static Pixel outside() { return at(375 / 2.0 - 45, 667 / 2.0); }
};

void expectNear(const Pixel& pixel, int red, int green, int blue) {
  EXPECT_NEAR(pixel.red, red, 3);
  EXPECT_NEAR(pixel.green, green, 3);
  EXPECT_NEAR(pixel.blue, blue, 3);
}

TEST_F(ProgressHUDDrawing, IsABlackBoxThatLetsAFifthThrough) {
  expectNear(inBox(), 51, 51, 51);
  expectNear(outside(), 255, 255, 255);
}

TEST_F(ProgressHUDDrawing, TakesAnotherOpacity) {
  hud->opacity.set(0.4f);
  hud->show(NO);
  expectNear(inBox(), 153, 153, 153);
}

TEST_F(ProgressHUDDrawing, TakesAColourWithItsOpacity) {
  hud->color.set(UIColor::redColor());
  hud->show(NO);
  expectNear(inBox(), 255, 51, 51);
  hud->color.set(UIColor::redColor().colorWithAlphaComponent(0.5));
  hud->show(NO);
  expectNear(inBox(), 255, 153, 153);
}

TEST_F(ProgressHUDDrawing, IsDrawnAnewWithEveryTextAndColour) {
  expectNear(inBox(), 51, 51, 51);
  hud->color.set(UIColor::redColor());
  hud->labelColor.set(UIColor::blackColor());
  expectNear(inBox(), 255, 51, 51);
}

TEST_F(ProgressHUDDrawing, HasRoundCorners) { expectNear(corner(), 255, 255, 255); }

TEST_F(ProgressHUDDrawing, TakesAnotherCornerRadius) {
  hud->cornerRadius.set(0);
  hud->show(NO);
  expectNear(corner(), 51, 51, 51);
}

TEST_F(ProgressHUDDrawing, DimsTheBackgroundTowardsTheEdges) {
  hud->dimBackground.set(YES);
  hud->show(NO);
  EXPECT_LT(outside().red, 252);
  EXPECT_GT(outside().red, at(375 / 2.0, 400).red - 5);
  EXPECT_GT(outside().red, at(5, 667 / 2.0).red);
  expectNear(at(2, 2), 64, 64, 64);
  expectNear(at(372, 660), 64, 64, 64);
}

TEST_F(ProgressHUDDrawing, DimsTheBackgroundByHalfAsMuchHalfWay) {
  hud->dimBackground.set(YES);
  hud->show(NO);
  const int half = 255 - 255 * 3 / 8;
  expectNear(at(375 / 2.0, 667 / 2.0 + 375 / 2.0), half, half, half);
}

TEST_F(ProgressHUDDrawing, DimsASmallViewFromItsVeryMiddle) {
  view->frame.set({{100, 100}, {20, 20}});
  hud->frame.set(view->bounds());
  hud->opacity.set(0);
  hud->dimBackground.set(YES);
  hud->mode.set(tilo::RQProgressHUDModeText);
  hud->show(NO);
  // Half a point of twenty to the right of the middle: a fortieth of three quarters of black.
  EXPECT_NEAR(at(110.5, 110).red, 255 - 255 * 3 / 4.0 * 0.75 / 20, 2);
  EXPECT_NEAR(at(115, 110).red, 255 - 255 * 3 / 4.0 * 5.25 / 20, 2);
}

// One of a pattern, say, of which nobody can tell how much red it has.
struct Unlevelled : bridge::Face<"TestUnlevelledColor", UIColor> {};

BOOL tellNothing(Unlevelled, CGFloat*, CGFloat*, CGFloat*, CGFloat*) { return NO; }

TEST_F(ProgressHUDDrawing, TakesAColourWithoutLevelsWithItsOpacity) {
  bridge::Implementation<Unlevelled>::define<UIColor>(
      bridge::method<&UIColor::getRed_green_blue_alpha, tellNothing>());
  const auto color = bridge::Descriptor<&UIColor::initWithRed_green_blue_alpha>::send(
      bridge::allocate<Unlevelled>().leak(), 1, 0, 0, 1);
  hud->color.set(color);
  hud->opacity.set(0.5f);
  hud->show(NO);
  expectNear(inBox(), 255, 128, 128);
}

TEST_F(ProgressHUDDrawing, LetsGoOfWhatItDimsTheBackgroundWith) {
  hud->dimBackground.set(YES);
  hud->show(NO);
  expectNear(at(2, 2), 64, 64, 64);
  EXPECT_EQ(sim::heldGradients, 0);
}

TEST_F(ProgressHUDDrawing, IsDrawnAnewWhenAModeChangesItsSize) {
  expectNear(outside(), 255, 255, 255);
  hud->mode.set(2);
  expectNear(outside(), 51, 51, 51);
}

}  // namespace
}  // namespace test
