// What layers look like when they are painted.
#include <gtest/gtest.h>

#include <numbers>

#include "tests/simulator/quartz/composite.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

using test::Pixel;
using test::pixelAt;

constexpr Color red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1};
constexpr Pixel clearPixel{0, 0, 0, 0}, redPixel{255, 0, 0, 255}, greenPixel{0, 255, 0, 255},
    bluePixel{0, 0, 255, 255};

class Compositor : public testing::Test {
 protected:
  Compositor() {
    root.setFrame({{0, 0}, {100, 100}});
    place(box, {{20, 20}, {40, 40}}, red);
    root.addChild(box);
  }

  static void place(Layer& layer, const CGRect& frame, const Color& color) {
    layer.setFrame(frame);
    layer.backgroundColor = color;
  }

  Surface painted(double now = 0, double scale = 1) {
    Surface image = makeImage(static_cast<int>(100 * scale), static_cast<int>(100 * scale));
    composite(root, now, image.get(), scale);
    return image;
  }

  Layer root, box;
};

TEST_F(Compositor, PaintsABackgroundInItsFrameOnly) {
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 20, 20), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 59, 59), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 19, 20), clearPixel);
  EXPECT_EQ(pixelAt(image.get(), 60, 59), clearPixel);
}

TEST_F(Compositor, ScaleIsPixelsPerPoint) {
  const Surface image = painted(0, 3);
  EXPECT_EQ(pixelAt(image.get(), 60, 60), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 179, 179), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 59, 60), clearPixel);
  EXPECT_EQ(pixelAt(image.get(), 180, 179), clearPixel);
}

TEST_F(Compositor, LaterChildrenLieInFront) {
  Layer other;
  place(other, {{40, 40}, {40, 40}}, green);
  root.addChild(other);
  EXPECT_EQ(pixelAt(painted().get(), 50, 50), greenPixel);
  root.addChild(box);
  EXPECT_EQ(pixelAt(painted().get(), 50, 50), redPixel);
}

TEST_F(Compositor, HiddenLayersAndTheirChildrenAreNotPainted) {
  Layer child;
  place(child, {{0, 0}, {10, 10}}, green);
  box.addChild(child);
  box.hidden = true;
  EXPECT_EQ(test::inkIn(painted().get()), 0);
}

TEST_F(Compositor, FlattenedLayersAreNotPainted) {
  box.transform = scaling(0, 1);
  EXPECT_EQ(test::inkIn(painted().get()), 0);
}

TEST_F(Compositor, OpacityIsThatOfTheLayerWithItsChildrenAsOne) {
  Layer child;
  place(child, {{10, 10}, {20, 20}}, green);
  box.addChild(child);
  box.opacity = 0.5;
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 40, 40), (Pixel{0, 128, 0, 128}));
  EXPECT_EQ(pixelAt(image.get(), 22, 22), (Pixel{128, 0, 0, 128}));
}

TEST_F(Compositor, TransformTurnsAboutTheAnchorPoint) {
  box.bounds.size = {40, 20};
  box.transform = rotation(std::numbers::pi / 2);
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 40, 22), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 40, 57), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 28, 40), clearPixel);
}

TEST_F(Compositor, ChildrenOverhangUnlessMasked) {
  Layer child;
  place(child, {{-10, 10}, {60, 10}}, green);
  box.addChild(child);
  EXPECT_EQ(pixelAt(painted().get(), 15, 35), greenPixel);
  box.masksToBounds = true;
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 19, 35), clearPixel);
  EXPECT_EQ(pixelAt(image.get(), 20, 35), greenPixel);
  EXPECT_EQ(pixelAt(image.get(), 60, 35), clearPixel);
}

TEST_F(Compositor, BoundsOriginScrollsTheChildrenUnderTheMask) {
  Layer child;
  place(child, {{0, 100}, {40, 10}}, green);
  box.addChild(child);
  box.masksToBounds = true;
  EXPECT_EQ(pixelAt(painted().get(), 30, 25), redPixel);
  box.bounds.origin.y = 95;
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 30, 24), redPixel);
  EXPECT_EQ(pixelAt(image.get(), 30, 25), greenPixel);
  EXPECT_EQ(pixelAt(image.get(), 30, 35), redPixel);
}

TEST_F(Compositor, CornerRadiusRoundsTheBackgroundAndWhatIsMasked) {
  box.cornerRadius = 20;
  Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 21, 21), clearPixel);
  EXPECT_EQ(pixelAt(image.get(), 40, 21), redPixel);
  Layer child;
  place(child, {{0, 0}, {40, 40}}, green);
  box.addChild(child);
  EXPECT_EQ(pixelAt(painted().get(), 21, 21), greenPixel);
  box.masksToBounds = true;
  image = painted();
  EXPECT_EQ(pixelAt(image.get(), 21, 21), clearPixel);
  EXPECT_EQ(pixelAt(image.get(), 40, 40), greenPixel);
  // A disc of radius 20, in no pixel anything but green: the red below does not show through the soft rim.
  EXPECT_NEAR(test::inkIn(image.get()), std::numbers::pi * 400, 4);
  for (int x = 20; x < 60; ++x) EXPECT_EQ(pixelAt(image.get(), x, 24).red, 0);
}

TEST_F(Compositor, BorderLiesInsideAndOverTheChildren) {
  Layer child;
  place(child, {{0, 0}, {40, 40}}, green);
  box.addChild(child);
  box.borderWidth = 3;
  box.borderColor = blue;
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 20, 40), bluePixel);
  EXPECT_EQ(pixelAt(image.get(), 22, 40), bluePixel);
  EXPECT_EQ(pixelAt(image.get(), 23, 40), greenPixel);
  EXPECT_EQ(pixelAt(image.get(), 19, 40), clearPixel);
}

TEST_F(Compositor, DrawnContentLiesOverTheBackground) {
  box.setDraw([](cairo_t* context, CGSize size) {
    EXPECT_EQ(size, (CGSize{40, 40}));
    setSource(context, blue);
    cairo_rectangle(context, 0, 0, size.width / 2, size.height);
    cairo_fill(context);
  });
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 39, 40), bluePixel);
  EXPECT_EQ(pixelAt(image.get(), 40, 40), redPixel);
}

// Left half green, right half blue, at two pixels per point: 10 by 5 points.
Surface twoColors() {
  Surface image = makeImage(20, 10);
  const Context context(image.get());
  setSource(context, green);
  cairo_paint(context);
  setSource(context, blue);
  cairo_rectangle(context, 10, 0, 10, 10);
  cairo_fill(context);
  return image;
}

TEST_F(Compositor, ImagesArePlacedByTheirGravity) {
  box.backgroundColor = clearColor;
  box.setContents(twoColors(), 2);
  struct Case {
    ContentsGravity gravity;
    test::InkBounds ink;
  };
  const Case cases[] = {{ContentsGravity::resize, {20, 20, 59, 59, false}},
                        {ContentsGravity::resizeAspect, {20, 30, 59, 49, false}},
                        {ContentsGravity::resizeAspectFill, {0, 20, 79, 59, false}},
                        {ContentsGravity::center, {35, 37, 44, 42, false}},
                        {ContentsGravity::top, {35, 20, 44, 24, false}},
                        {ContentsGravity::bottomRight, {50, 55, 59, 59, false}},
                        {ContentsGravity::left, {20, 37, 29, 42, false}}};
  for (const Case& expected : cases) {
    box.contentsGravity = expected.gravity;
    const test::InkBounds ink = test::inkBounds(painted().get());
    EXPECT_EQ(ink.left, expected.ink.left) << int(expected.gravity);
    EXPECT_EQ(ink.right, expected.ink.right) << int(expected.gravity);
    EXPECT_EQ(ink.top, expected.ink.top) << int(expected.gravity);
    EXPECT_EQ(ink.bottom, expected.ink.bottom) << int(expected.gravity);
  }
}

TEST_F(Compositor, ImageThatIsDueIsAskedForWhenItIsFirstShownAndNotAgain) {
  int asked = 0;
  box.setContents([&] { return ++asked, twoColors(); }, {20, 10}, 2);
  EXPECT_EQ(box.contentSize(), (CGSize{10, 5}));
  EXPECT_EQ(asked, 0);
  for (int time = 0; time < 2; ++time) {
    const Surface image = painted();
    EXPECT_EQ(pixelAt(image.get(), 20, 20), greenPixel);
    EXPECT_EQ(asked, 1);
  }
}

TEST_F(Compositor, ImageThatIsDueIsNeverAskedForOnceThereIsAnother) {
  int asked = 0;
  const auto due = [&] { return ++asked, twoColors(); };
  box.setContents(due, {20, 10}, 2);
  box.setContents(Surface(), 1);
  EXPECT_EQ(box.contentSize(), (CGSize{0, 0}));
  box.setContents(due, {20, 10}, 2);
  box.setDraw([](cairo_t*, CGSize) {});
  painted();
  EXPECT_EQ(asked, 0);
}

TEST_F(Compositor, StretchedImageKeepsItsEdgesHard) {
  box.setContents(twoColors(), 2);
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 20, 20), greenPixel);
  EXPECT_EQ(pixelAt(image.get(), 59, 59), bluePixel);
}

TEST_F(Compositor, ShadowIsSoftAndOffset) {
  box.shadowOpacity = 0.5;
  box.shadowRadius = 4;
  box.shadowOffset = {0, 10};
  const Surface image = painted();
  EXPECT_EQ(pixelAt(image.get(), 40, 40), redPixel);
  // The shadow's lower edge is at 70: half of its strength there, all but all within, none far out.
  EXPECT_NEAR(pixelAt(image.get(), 40, 70).alpha, 64, 8);
  EXPECT_NEAR(pixelAt(image.get(), 40, 61).alpha, 127, 3);
  EXPECT_EQ(pixelAt(image.get(), 40, 84).alpha, 0);
  EXPECT_EQ(pixelAt(image.get(), 40, 70).red, 0);
  int last = 128;
  for (int y = 60; y < 84; ++y) {
    EXPECT_LE(pixelAt(image.get(), 40, y).alpha, last);
    last = pixelAt(image.get(), 40, y).alpha;
  }
}

TEST_F(Compositor, ShadowIsThatOfTheChildrenToo) {
  Layer child;
  place(child, {{60, 0}, {10, 40}}, green);
  box.addChild(child);
  box.shadowOpacity = 1;
  box.shadowRadius = 1;
  box.shadowOffset = {0, 10};
  EXPECT_EQ(pixelAt(painted().get(), 85, 66).alpha, 255);
}

TEST_F(Compositor, ShadowFarFromATranslucentLayerIsPaintedToo) {
  box.shadowOpacity = 1;
  box.shadowRadius = 1;
  box.shadowOffset = {0, 50};
  box.opacity = 0.5;
  EXPECT_EQ(pixelAt(painted().get(), 40, 90).alpha, 128);
}

TEST_F(Compositor, MaskedLayersCastNoShadow) {
  box.shadowOpacity = 1;
  box.shadowOffset = {0, 10};
  box.masksToBounds = true;
  EXPECT_EQ(pixelAt(painted().get(), 40, 65), clearPixel);
}

TEST_F(Compositor, PresentsAnimationsAtTheirTime) {
  const LayerValues before = box.values();
  box.position.x += 40;
  box.animateFrom(before, {.start = 0, .duration = 1, .pacing = linearCurve});
  EXPECT_EQ(pixelAt(painted(0).get(), 20, 40), redPixel);
  EXPECT_EQ(pixelAt(painted(0.5).get(), 39, 40), clearPixel);
  EXPECT_EQ(pixelAt(painted(0.5).get(), 40, 40), redPixel);
  EXPECT_EQ(pixelAt(painted(1).get(), 60, 40), redPixel);
}

TEST_F(Compositor, ScreenIsOpaqueBlackWhereNothingIs) {
  const Surface screen = compositeScreen(root, 0, 100, 100, 1);
  EXPECT_EQ(pixelAt(screen.get(), 0, 0), (Pixel{0, 0, 0, 255}));
  EXPECT_EQ(pixelAt(screen.get(), 30, 30), redPixel);
}

TEST_F(Compositor, FarOverhangingChildrenDoNotBreakShadowsOrOpacity) {
  Layer child;
  place(child, {{1e7, 1e7}, {10, 10}}, green);
  box.addChild(child);
  box.shadowOpacity = 1;
  box.opacity = 0.5;
  EXPECT_EQ(pixelAt(painted().get(), 40, 40).alpha, 128);
}

}  // namespace
}  // namespace sim
