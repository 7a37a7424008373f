// Pictures of the screen.
#include "simulator/uikit/drawing/rendering.hpp"

#include <cstdint>

#include "platform/uikit/color.hpp"
#include "platform/uikit/image_view.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/page_control.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/drawing/image.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class Rendering : public UIKit {
 protected:
  static std::uint32_t pixel(const sim::Surface& image, int x, int y) {
    const auto* row =
        cairo_image_surface_get_data(image.get()) + y * cairo_image_surface_get_stride(image.get());
    return reinterpret_cast<const std::uint32_t*>(row)[x] & 0xffffff;
  }

  // The colour on the screen at a place in points.
  std::uint32_t colorAt(int x, int y) { return pixel(screen(), x * 2, y * 2); }
  static sim::Surface screen() { return sim::uikit::renderScreen(sim::clock::now()); }

  Strong<UIView> addView(CGRect frame, UIColor color) {
    auto view = makeView(frame);
    view->backgroundColor.set(color);
    window->addSubview(view);
    return view;
  }

  Strong<UIWindow> window = makeWindow();
};

TEST_F(Rendering, PictureHasTheNativePixels) {
  const sim::Surface picture = screen();
  EXPECT_EQ(cairo_image_surface_get_width(picture.get()), 750);
  EXPECT_EQ(cairo_image_surface_get_height(picture.get()), 1334);
  sim::uikit::setInterfaceOrientation(UIInterfaceOrientationLandscapeRight);
  EXPECT_EQ(cairo_image_surface_get_width(screen().get()), 1334);
}

TEST_F(Rendering, PlusPhonesAreDrawnAtTheirNativeScale) {
  auto plus = phone();
  plus.size = {414, 736};
  plus.scale = 3;
  plus.nativeSize = {1080, 1920};
  sim::uikit::configure(plus);
  window->frame.set(UIScreen::mainScreen().bounds());
  const auto view = addView({{407, 0}, {7, 736}}, UIColor::redColor());
  const sim::Surface picture = screen();  // confirmed: device-facts 6
  EXPECT_EQ(cairo_image_surface_get_width(picture.get()), 1080);
  EXPECT_EQ(cairo_image_surface_get_height(picture.get()), 1920);
  EXPECT_EQ(pixel(picture, 1079, 1919), 0xff0000u);
  EXPECT_EQ(pixel(picture, 1055, 0), 0x000000u);
}

TEST_F(Rendering, ViewsLieOverEachOther) {
  const auto back = addView({{0, 0}, {100, 100}}, UIColor::redColor());
  const auto front = addView({{50, 50}, {100, 100}}, UIColor::greenColor());
  EXPECT_EQ(colorAt(25, 25), 0xff0000u);
  EXPECT_EQ(colorAt(75, 75), 0x00ff00u);
  EXPECT_EQ(colorAt(200, 200), 0x000000u);
  front->hidden.set(YES);
  EXPECT_EQ(colorAt(75, 75), 0xff0000u);
}

TEST_F(Rendering, WindowsLieOverEachOtherByLevel) {
  auto alert = makeWindow();
  alert->windowLevel.set(UIWindowLevelAlert);
  alert->backgroundColor.set(UIColor::blueColor());
  auto normal = makeWindow();
  normal->backgroundColor.set(UIColor::redColor());
  EXPECT_EQ(colorAt(10, 10), 0x0000ffu);
  alert->hidden.set(YES);
  EXPECT_EQ(colorAt(10, 10), 0xff0000u);
}

TEST_F(Rendering, AnimationsShowOnTheirWay) {
  const auto view = addView({{0, 0}, {10, 10}}, UIColor::redColor());
  const UIView target = view;
  UIView::animateWithDuration_animations(1, Block<void()>([=] { target.center.set({205, 5}); }));
  EXPECT_EQ(colorAt(5, 5), 0xff0000u);
  pass(0.5);
  EXPECT_EQ(colorAt(105, 5), 0xff0000u);
  EXPECT_EQ(colorAt(5, 5), 0x000000u);
  pass(0.5);
  EXPECT_EQ(colorAt(205, 5), 0xff0000u);
}

// A view that paints its bounds' lower half.
struct PaintedView : bridge::Face<"TestPaintedView", UIView> {};

int paints = 0;

void paint(PaintedView self, CGRect rect) {
  ++paints;
  EXPECT_EQ(rect, self.bounds());
  cairo_t* context = sim::uikit::currentContext();
  ASSERT_NE(context, nullptr);
  cairo_rectangle(context, rect.origin.x, rect.origin.y + rect.size.height / 2, rect.size.width,
                  rect.size.height / 2);
  cairo_set_source_rgb(context, 0, 0, 1);
  cairo_fill(context);
}

Strong<PaintedView> makePaintedView(CGRect frame) {
  bridge::Implementation<PaintedView>::define<UIView>(method<&UIView::drawRect, paint>());
  paints = 0;
  return make<PaintedView, &UIView::initWithFrame>(frame);
}

TEST_F(Rendering, ViewDrawsItselfOnceUntilItIsDue) {
  auto view = makePaintedView({{0, 0}, {100, 100}});
  window->addSubview(view);
  EXPECT_EQ(colorAt(50, 75), 0x0000ffu);
  EXPECT_EQ(colorAt(50, 25), 0x000000u);
  EXPECT_EQ(paints, 1);
  view->setNeedsDisplay();
  screen();
  EXPECT_EQ(paints, 2);  // confirmed: Apple documentation of setNeedsDisplay
  view->frame.set({{0, 0}, {100, 200}});
  EXPECT_EQ(colorAt(50, 150), 0x0000ffu);
  EXPECT_EQ(paints, 2) << "stretched";  // confirmed: Apple documentation of UIViewContentModeScaleToFill
  view->contentMode.set(UIViewContentModeRedraw);
  view->frame.set({{0, 0}, {100, 300}});
  screen();
  EXPECT_EQ(paints, 3);  // confirmed: Apple documentation of UIViewContentModeRedraw
  EXPECT_EQ(sim::uikit::currentContext(), nullptr);
}

TEST_F(Rendering, ViewThatHadNoRoomIsDrawnWhenItGetsSome) {
  auto view = makePaintedView({});
  window->addSubview(view);
  screen();
  view->frame.set({{0, 0}, {100, 100}});
  EXPECT_EQ(colorAt(50, 75), 0x0000ffu);
}

TEST_F(Rendering, DrawingHappensInBoundsCoordinates) {
  auto view = makePaintedView({{0, 0}, {100, 100}});
  view->bounds.set({{40, 60}, {100, 100}});
  window->addSubview(view);
  EXPECT_EQ(colorAt(1, 75), 0x0000ffu);
  EXPECT_EQ(colorAt(99, 99), 0x0000ffu);
  EXPECT_EQ(colorAt(50, 25), 0x000000u);
}

TEST_F(Rendering, ImageFollowsTheContentMode) {
  auto image = sim::uikit::makeImage(CGSize{10, 10}, 2, [](cairo_t* context, CGSize) {
    cairo_set_source_rgb(context, 1, 1, 0);
    cairo_paint(context);
  });
  auto view = make<UIImageView, &UIImageView::initWithImage>(image.get());
  window->addSubview(view);
  view->frame.set({{0, 0}, {100, 100}});
  EXPECT_EQ(colorAt(90, 90), 0xffff00u);  // confirmed: Apple documentation of UIViewContentMode
  view->contentMode.set(UIViewContentModeCenter);
  EXPECT_EQ(colorAt(90, 90), 0x000000u);
  EXPECT_EQ(colorAt(50, 50), 0xffff00u);
  view->contentMode.set(UIViewContentModeTopLeft);
  EXPECT_EQ(colorAt(5, 5), 0xffff00u);
  EXPECT_EQ(colorAt(50, 50), 0x000000u);
  view->contentMode.set(UIViewContentModeBottomRight);
  EXPECT_EQ(colorAt(95, 95), 0xffff00u);
  view->image.set({});
  EXPECT_EQ(colorAt(95, 95), 0x000000u);
}

TEST_F(Rendering, ClippingCutsSubviews) {
  const auto view = addView({{0, 0}, {50, 50}}, UIColor::redColor());
  auto child = makeView({{0, 0}, {100, 100}});
  child->backgroundColor.set(UIColor::greenColor());
  view->addSubview(child);
  EXPECT_EQ(colorAt(75, 75), 0x00ff00u);
  view->clipsToBounds.set(YES);
  EXPECT_EQ(colorAt(75, 75), 0x000000u);
  EXPECT_TRUE(view->layer().masksToBounds());
}

TEST_F(Rendering, ScrollViewMovesItsContent) {
  auto scroll = make<UIScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 100}});
  auto child = makeView({{100, 0}, {100, 100}});
  child->backgroundColor.set(UIColor::greenColor());
  scroll->addSubview(child);
  window->addSubview(scroll);
  EXPECT_EQ(colorAt(50, 50), 0x000000u);
  scroll->contentOffset.set({100, 0});
  EXPECT_EQ(colorAt(50, 50), 0x00ff00u);
}

TEST_F(Rendering, LabelShowsItsText) {
  window->backgroundColor.set(UIColor::whiteColor());
  auto label = make<UILabel, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 30}});
  label->textAlignment.set(NSTextAlignmentCenter);
  window->addSubview(label);
  auto dark = [&](int from, int to) {
    const sim::Surface picture = screen();
    int count = 0;
    for (int y = 0; y < 60; ++y)
      for (int x = from; x < to; ++x) count += (pixel(picture, x, y) & 0xff) < 128;
    return count;
  };
  EXPECT_EQ(dark(0, 200), 0);
  label->text.set("III"_ns);
  EXPECT_GT(dark(75, 125), 50);
  EXPECT_EQ(dark(0, 60) + dark(140, 200), 0);
  label->textAlignment.set(NSTextAlignmentRight);
  EXPECT_GT(dark(150, 200), 50);
  label->textColor.set(UIColor::whiteColor());
  EXPECT_EQ(dark(0, 200), 0);
}

TEST_F(Rendering, PageControlShowsTheCurrentPageBrightest) {
  auto control = make<UIPageControl, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 38}});
  control->numberOfPages.set(2);
  window->addSubview(control);
  EXPECT_EQ(colorAt(42, 19), 0xffffffu);
  EXPECT_LT(colorAt(58, 19), 0x808080u);
  control->currentPage.set(1);
  EXPECT_EQ(colorAt(58, 19), 0xffffffu);
}

TEST_F(Rendering, LaysOutFirst) {
  auto view = makeRecordingView({{0, 0}, {1, 1}});
  window->addSubview(view);
  linesOf(view).clear();
  screen();
  EXPECT_EQ(linesOf(view), std::vector<std::string>{"layout"});
}

}  // namespace
}  // namespace test
