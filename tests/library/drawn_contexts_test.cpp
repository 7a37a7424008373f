// What our views draw leaves nothing behind: neither in the context, into which others draw afterwards, nor
// in memory.
#include <gtest/gtest.h>

#include <functional>

#include "controls/bar_progress_view.hpp"
#include "controls/button.hpp"
#include "platform/uikit/color.hpp"
#include "simulator/coregraphics/context.hpp"
#include "simulator/coregraphics/gradient.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "tests/simulator/quartz/pixels.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::test::Pixel;
using tilo::BButton;
using tilo::RQBarProgressView;

constexpr CGRect frame{{0, 0}, {40, 20}};

// A red rectangle and a wide green line, drawn after `draw` into the same context.
Pixel afterwards(const std::function<void()>& draw, int x, int y) {
  const sim::Surface image = sim::makeImage(50, 30);
  const sim::Context cairo(image.get());
  const sim::uikit::DrawingContext drawing(cairo);
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSetLineWidth(context, 6);
  draw();
  CGContextSetStrokeColorWithColor(context, UIColor::greenColor().CGColor());
  CGContextSetFillColorWithColor(context, UIColor::redColor().CGColor());
  CGContextFillRect(context, {{0, 0}, {40, 30}});
  CGContextAddRect(context, {{45, -10}, {40, 50}});
  CGContextDrawPath(context, kCGPathStroke);
  return sim::test::pixelAt(image.get(), x, y);
}

void expectUntouched(const std::function<void()>& draw) {
  constexpr Pixel red{255, 0, 0, 255}, green{0, 255, 0, 255}, clear{0, 0, 0, 0};
  EXPECT_EQ(afterwards(draw, 0, 0), red) << "a corner, which a clip would keep away";
  EXPECT_EQ(afterwards(draw, 20, 25), red);
  EXPECT_EQ(afterwards(draw, 40, 25), clear) << "beside the rectangle, where a shadow would fall";
  EXPECT_EQ(afterwards(draw, 42, 25), green) << "the edge of the line";
}

class DrawnButton : public testing::TestWithParam<NSUInteger> {
 protected:
  bridge::Strong<BButton> button() {
    return bridge::make<BButton, &BButton::initWithFrame_color_style>(frame, UIColor::blueColor(),
                                                                      GetParam());
  }
  test::Home home;
};

TEST_P(DrawnButton, LeavesTheContextAsItWas) {
  const auto drawn = button();
  expectUntouched([&] { drawn->drawRect(frame); });
  drawn->highlighted.set(YES);
  expectUntouched([&] { drawn->drawRect(frame); });
}

// Of a rectangle with an edge, drawn after the button in the colours that there were before.
TEST_P(DrawnButton, LeavesTheColoursAsTheyWere) {
  const auto drawn = button();
  const sim::Surface image = sim::makeImage(50, 30);
  const sim::Context cairo(image.get());
  const sim::uikit::DrawingContext drawing(cairo);
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSetFillColorWithColor(context, UIColor::redColor().CGColor());
  CGContextSetStrokeColorWithColor(context, UIColor::greenColor().CGColor());
  drawn->drawRect(frame);
  CGContextSetLineWidth(context, 6);
  CGContextAddRect(context, {{10, 10}, {30, 15}});
  CGContextDrawPath(context, kCGPathFillStroke);
  EXPECT_EQ(sim::test::pixelAt(image.get(), 25, 17), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(sim::test::pixelAt(image.get(), 10, 17), (Pixel{0, 255, 0, 255}));
}

TEST_P(DrawnButton, LetsGoOfItsGradients) {
  const auto drawn = button();
  (void)afterwards([&] { drawn->drawRect(frame); }, 0, 0);
  EXPECT_EQ(sim::heldGradients, 0);
}

INSTANTIATE_TEST_SUITE_P(OfStyle, DrawnButton, testing::Values(0, 1));

TEST(DrawnBar, LeavesTheContextAsItWas) {
  test::Home home;
  const auto bar = bridge::make<RQBarProgressView, &UIView::initWithFrame>(frame);
  bar->progress.set(0.5f);
  expectUntouched([&] { bar->drawRect(frame); });
}

}  // namespace
