// Where a notice box has its parts, how large it is, and how it turns.
#include "platform/uikit/activity_indicator.hpp"
#include "tests/library/hud_box.hpp"

namespace test {
namespace {

using tilo::RQRoundProgressView;

class ProgressHUDLayout : public HUDBox {};

TEST_F(ProgressHUDLayout, HasAMarginAroundTheIndicator) {
  EXPECT_TRUE(near(box(), centred({77, 77})));
  EXPECT_TRUE(near(part<UIActivityIndicatorView>().frame(), centred({37, 37})));
}

TEST_F(ProgressHUDLayout, HasAMarginAroundTheText) {
  hud->mode.set(5);
  hud->labelText.set("Exported Current Icon Layout"_ns);
  layOut();
  const CGSize text = textSize(label(0));
  EXPECT_TRUE(near(box(), centred({text.width + 40, text.height + 40})));
  EXPECT_TRUE(near(label(0).frame(), centred(text)));
}

TEST_F(ProgressHUDLayout, HasItsPartsOneBelowTheOtherFourPointsApart) {
  hud->mode.set(1);
  hud->labelText.set("Loading"_ns);
  hud->detailsLabelText.set("Soon"_ns);
  layOut();
  const CGSize text = textSize(label(0)), details = textSize(label(1));
  const CGRect indicator = part<RQRoundProgressView>().frame();
  EXPECT_EQ(label(0).frame().origin.y, indicator.origin.y + 37 + 4);
  EXPECT_EQ(label(1).frame().origin.y, label(0).frame().origin.y + text.height + 4);
  EXPECT_EQ(label(0).frame().size, text);
  EXPECT_EQ(label(1).frame().size, details);
  for (const UIView& one : {UIView(label(0)), UIView(label(1))}) EXPECT_NEAR(one.center().x, 375 / 2.0, 0.5);
  EXPECT_TRUE(near(box(), centred({text.width + 40, 37 + 4 + text.height + 4 + details.height + 40})));
}

// Of the pixels in a part of the screen that are not the box's: the middle between the first and the last
// column.
CGFloat inkMiddle(const CGRect& points) {
  const sim::Surface screen = sim::uikit::renderScreen(sim::clock::now());
  const auto pixels = [](CGFloat length) { return static_cast<int>(length * 2); };
  int first = pixels(points.origin.x + points.size.width), last = pixels(points.origin.x);
  for (int y = pixels(points.origin.y); y < pixels(points.origin.y + points.size.height); ++y)
    for (int x = pixels(points.origin.x); x < pixels(points.origin.x + points.size.width); ++x)
      if (sim::test::pixelAt(screen.get(), x, y).red > 100)
        first = std::min(first, x), last = std::max(last, x);
  return (first + last + 1) / 4.0;
}

TEST_F(ProgressHUDLayout, HasTheLinesOfItsTextsInTheMiddle) {
  hud->mode.set(5);
  hud->labelText.set("Exported"_ns);
  hud->detailsLabelText.set("ii\nmmmmmmmmmmmm"_ns);
  layOut();
  EXPECT_EQ(label(0).textAlignment(), NSTextAlignmentCenter);
  CGRect firstLine = label(1).frame();
  firstLine.size.height /= 2;
  EXPECT_GT(firstLine.size.width, 60);
  EXPECT_NEAR(inkMiddle(firstLine), 375 / 2.0, 1);
}

TEST_F(ProgressHUDLayout, GivesAnEmptyTextNoRoom) {
  hud->labelText.set(""_ns);
  hud->detailsLabelText.set({});
  EXPECT_TRUE(near(box(), centred({77, 77})));
}

TEST_F(ProgressHUDLayout, CapsTheWidthOfTheTexts) {
  hud->mode.set(5);
  hud->labelText.set("A text that is longer than the screen of a telephone can be wide"_ns);
  hud->detailsLabelText.set(
      "Another one that is longer than the screen, and goes on in more than one line"_ns);
  layOut();
  for (int i : {0, 1}) {
    EXPECT_LE(label(i).frame().size.width, 375 - 80);
    EXPECT_GT(label(i).frame().size.width, 375 - 160);
    EXPECT_GT(label(i).frame().size.height, 1.9 * textSize(label(i)).height);
  }
  EXPECT_LE(box().size.width, 375 - 40);
}

TEST_F(ProgressHUDLayout, CapsTheHeightOfTheDetails) {
  hud->mode.set(5);
  std::string text;
  for (int i = 0; i < 500; ++i) text += "word ";
  hud->detailsLabelText.set(NSString::stringWithUTF8String(text.c_str()));
  layOut();
  EXPECT_LE(label(1).frame().size.height, 667 - 80);
  EXPECT_LE(box().size.height, 667 - 40);
}

TEST_F(ProgressHUDLayout, TakesAnotherMargin) {
  EXPECT_TRUE(near(box(), centred({77, 77})));
  hud->margin.set(5);
  hud->setNeedsLayout();
  EXPECT_TRUE(near(box(), centred({47, 47})));
}

TEST_F(ProgressHUDLayout, TakesAnotherMarginWhenItIsShownAgain) {
  EXPECT_TRUE(near(box(), centred({77, 77})));
  hud->hide(NO);
  hud->margin.set(5);
  hud->show(NO);
  EXPECT_TRUE(near(box(), centred({47, 47})));
}

TEST_F(ProgressHUDLayout, IsMovedByItsOffsets) {
  hud->xOffset.set(30);
  hud->yOffset.set(-100);
  hud->show(NO);
  EXPECT_TRUE(near(box(), centred({77, 77}, {30, -100})));
  EXPECT_TRUE(near(part<UIActivityIndicatorView>().frame(), centred({37, 37}, {30, -100})));
}

// The indicator's corner is at (169, 315) without offsets; half a point and more goes away from zero.
TEST_F(ProgressHUDLayout, HasItsPartsAtTheNearestWholePoints) {
  const auto cornerAt = [this](float x, float y) {
    hud->xOffset.set(x - 169);
    hud->yOffset.set(y - 315);
    hud->show(NO);
    layOut();
    return part<UIActivityIndicatorView>().frame().origin;
  };
  EXPECT_EQ(cornerAt(169, 315), (CGPoint{169, 315}));
  EXPECT_EQ(cornerAt(169.25f, 315.25f), (CGPoint{169, 315}));
  EXPECT_EQ(cornerAt(169.5f, 315.75f), (CGPoint{170, 316}));
  EXPECT_EQ(cornerAt(0.25f, -0.25f), (CGPoint{0, 0}));
  EXPECT_EQ(cornerAt(-1.25f, -1.75f), (CGPoint{-1, -2}));
  EXPECT_EQ(cornerAt(-1.5f, 0), (CGPoint{-2, 0}));
}

TEST_F(ProgressHUDLayout, IsAtLeastAsLargeAsItMust) {
  hud->minSize.set({150, 20});
  hud->show(NO);
  EXPECT_TRUE(near(box(), centred({150, 77})));
  EXPECT_TRUE(near(part<UIActivityIndicatorView>().frame(), centred({37, 37})));
}

TEST_F(ProgressHUDLayout, MayBeSquare) {
  hud->mode.set(5);
  hud->labelText.set("Exported Layout"_ns);
  hud->square.set(YES);
  hud->show(NO);
  layOut();
  const CGFloat side = textSize(label(0)).width + 40;
  EXPECT_TRUE(near(box(), centred({side, side})));
  EXPECT_TRUE(near(label(0).frame(), centred(textSize(label(0)))));
}

// Four margins stay free beside the texts, and above and below them.
TEST_F(ProgressHUDLayout, LeavesTheTextsAllButFourMargins) {
  hud->mode.set(5);
  hud->labelText.set(
      "iiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiii"_ns);
  layOut();
  EXPECT_LE(label(0).frame().size.width, 375 - 80);
  EXPECT_GT(label(0).frame().size.width, 375 - 90);
}

TEST_F(ProgressHUDLayout, GivesTheDetailsWhatTheOthersLeave) {
  std::string text;
  for (int i = 0; i < 900; ++i) text += "word ";
  hud->detailsLabelText.set(NSString::stringWithUTF8String(text.c_str()));
  const CGFloat line = 15;  // the text ends with a whole one
  layOut();
  EXPECT_LE(label(1).frame().size.height, 667 - 80 - 37 - 4);
  EXPECT_GT(label(1).frame().size.height, 667 - 80 - 37 - 4 - line);
  hud->mode.set(5);
  layOut();
  EXPECT_LE(label(1).frame().size.height, 667 - 80 - 4);
  EXPECT_GT(label(1).frame().size.height, 667 - 80 - 4 - line);
}

TEST_F(ProgressHUDLayout, HasRoomForATextOfOneLetter) {
  hud->labelText.set("i"_ns);
  layOut();
  EXPECT_GT(label(0).frame().size.height, 10);
}

TEST_F(ProgressHUDLayout, IsNoWiderForASquareThanTheViewAllows) {
  hud->detailsLabelText.set("a\nb\nc\nd\ne\nf\ng\nh"_ns);
  hud->square.set(YES);
  hud->frame.set({{0, 0}, {120, 400}});
  layOut();
  EXPECT_NEAR(box().size.width, 120 - 40, 0.5);
  EXPECT_GT(box().size.height, 140);
}

TEST_F(ProgressHUDLayout, IsNoHigherForASquareThanTheViewAllows) {
  hud->mode.set(5);
  hud->labelText.set("Exported Layout"_ns);
  hud->square.set(YES);
  hud->frame.set({{0, 0}, {375, 112}});
  layOut();
  EXPECT_NEAR(box().size.height, 112 - 40, 0.5);
  EXPECT_GT(box().size.width, 120);
}

TEST_F(ProgressHUDLayout, FollowsTheSizeOfTheHUD) {
  EXPECT_TRUE(near(box(), centred({77, 77})));
  hud->frame.set({{0, 0}, {200, 300}});
  EXPECT_TRUE(near(box(), {{(200 - 77) / 2.0, (300 - 77) / 2.0}, {77, 77}}));
}

TEST_F(ProgressHUDLayout, StaysInTheMiddleOfAViewThatGrows) {
  view->frame.set({{0, 0}, {300, 400}});
  EXPECT_TRUE(near(box(), {{(300 - 77) / 2.0, (400 - 77) / 2.0}, {77, 77}}));
}

TEST_F(ProgressHUDLayout, HasRoomForAViewSmallerThanItsMargins) {
  hud->labelText.set("Loading"_ns);
  hud->detailsLabelText.set("Soon"_ns);
  hud->frame.set({{0, 0}, {50, 40}});
  layOut();
  EXPECT_EQ(label(0).frame().size, (CGSize{0, 0}));
  EXPECT_EQ(label(1).frame().size, (CGSize{0, 0}));
}

}  // namespace
}  // namespace test
