// Images and image views.
#include "simulator/uikit/drawing/image.hpp"

#include "platform/uikit/image_view.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Images = UIKit;

TEST_F(Images, SizeIsInPoints) {
  auto image = sim::uikit::makeImage(sim::makeImage(120, 60), 2);
  EXPECT_EQ(image->size(), (CGSize{60, 30}));  // confirmed: Apple documentation of size
  EXPECT_EQ(image->scale(), 2);
}

TEST_F(Images, DrawnOneIsDrawnOnceWhenItIsFirstUsed) {
  int drawn = 0;
  auto image = sim::uikit::makeImage(CGSize{10, 20}, 2, [&](cairo_t*, CGSize size) {
    ++drawn;
    EXPECT_EQ(size, (CGSize{10, 20}));
  });
  EXPECT_EQ(image->size(), (CGSize{10, 20}));
  EXPECT_EQ(drawn, 0);
  const sim::Surface pixels = sim::uikit::pixelsOf(image);
  EXPECT_EQ(cairo_image_surface_get_width(pixels.get()), 20);
  EXPECT_EQ(cairo_image_surface_get_height(pixels.get()), 40);
  EXPECT_EQ(sim::uikit::pixelsOf(image), pixels);
  EXPECT_EQ(drawn, 1);
}

TEST_F(Images, ViewTakesTheImagesSize) {
  auto image = sim::uikit::makeImage(sim::makeImage(120, 60), 2);
  auto view = make<UIImageView, &UIImageView::initWithImage>(image.get());
  EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {60, 30}}));  // confirmed: Apple documentation of initWithImage:
  EXPECT_TRUE(view->image() == image);
  EXPECT_GE(image->retainCount(), 2u);
  EXPECT_EQ(view->sizeThatFits({}), (CGSize{60, 30}));
  view->image.set({});
  EXPECT_EQ(image->retainCount(), 1u);
  EXPECT_EQ(view->sizeThatFits({}), (CGSize{0, 0}));
}

}  // namespace
}  // namespace test
