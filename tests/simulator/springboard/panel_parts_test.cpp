// Chevrons and close boxes: their classes by system version, how they look and what they do.
#include "platform/springboard/panel_parts.hpp"

#include <gtest/gtest.h>

#include "platform/uikit/application.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "tests/support/home.hpp"

namespace {

struct System {
  const char* version;
  bool uiChevron, xCloseBox;

  friend void PrintTo(const System& system, std::ostream* stream) { *stream << system.version; }
};

class PanelParts : public testing::TestWithParam<System> {};

TEST_P(PanelParts, HaveTheNamesOfTheSystem) {
  test::Home home({"--stock", "--device", "iPhone 6", "--ios", GetParam().version});
  EXPECT_EQ(objc_getClass("SBUIChevronView") != nullptr, GetParam().uiChevron);
  EXPECT_EQ(objc_getClass("SBChevronView") != nullptr, !GetParam().uiChevron);
  EXPECT_EQ(objc_getClass("SBXCloseBoxView") != nullptr, GetParam().xCloseBox);
  EXPECT_TRUE(objc_getClass("SBCloseBoxView"));
}

INSTANTIATE_TEST_SUITE_P(Versions, PanelParts,
                         testing::Values(System{"8.4", false, false}, System{"9.3.5", false, false},
                                         System{"10.0", true, false}, System{"10.3.3", true, false},
                                         System{"11.0", true, true}, System{"12.5.7", true, true}));

UIWindow homeWindow() { return UIApplication::sharedApplication().keyWindow(); }

// A plain view over the whole home screen.
bridge::Strong<UIView> makeBackground() {
  auto view = bridge::make<UIView, &UIView::initWithFrame>(homeWindow().bounds());
  view->backgroundColor.set(UIColor::whiteColor());
  homeWindow().addSubview(view);
  return view;
}

// 0xRRGGBB at a point of the screen, which is drawn at two pixels a point.
unsigned pixelAt(double x, double y) {
  sim::Surface screen = sim::uikit::renderScreen(sim::clock::now());
  cairo_surface_flush(screen.get());
  auto* row = cairo_image_surface_get_data(screen.get()) +
              static_cast<int>(2 * y) * cairo_image_surface_get_stride(screen.get());
  return reinterpret_cast<const uint32_t*>(row)[static_cast<int>(2 * x)] & 0xffffff;
}

TEST(Chevron, IsDrawnInItsColourAndPointsDown) {
  test::Home home({"--stock"});
  auto background = makeBackground();
  auto chevron = bridge::make<SBUIChevronView, &SBChevronView::initWithColor>(UIColor::redColor());
  chevron->frame.set({{100, 100}, {50, 30}});
  background->addSubview(chevron);
  EXPECT_EQ(pixelAt(125, 119), 0xff0000u);  // the tip, below the middle
  EXPECT_EQ(pixelAt(108, 111), 0xff0000u);  // the ends, above it
  EXPECT_EQ(pixelAt(142, 111), 0xff0000u);
  EXPECT_EQ(pixelAt(125, 111), 0xffffffu);
  EXPECT_EQ(pixelAt(101, 101), 0xffffffu);
}

TEST(Chevron, FollowsItsFrame) {
  test::Home home({"--stock"});
  auto background = makeBackground();
  auto chevron = bridge::make<SBUIChevronView, &SBChevronView::initWithColor>(UIColor::blackColor());
  background->addSubview(chevron);
  chevron->frame.set({{100, 100}, {50, 30}});
  ASSERT_EQ(pixelAt(125, 119), 0u);
  chevron->frame.set({{100, 200}, {80, 60}});
  EXPECT_EQ(pixelAt(125, 119), 0xffffffu);
  EXPECT_EQ(pixelAt(140, 234), 0u);
}

TEST(CloseBox, IsADiscWithADarkCross) {
  test::Home home({"--stock"});
  auto background = makeBackground();
  auto box = bridge::make<SBCloseBoxView, &UIView::initWithFrame>(CGRect{{100, 100}, {24, 24}});
  background->addSubview(box);
  EXPECT_EQ(pixelAt(100.5, 100.5), 0xffffffu);  // outside the disc
  unsigned disc = pixelAt(112, 104), middle = pixelAt(112, 112);
  EXPECT_LT(disc, 0xffffffu);
  EXPECT_GT(disc & 0xff, 0x90u);
  EXPECT_LT(middle & 0xff, 0x60u);
  for (double by : {-3.0, 3.0}) {
    EXPECT_EQ(pixelAt(112 + by, 112 + by), middle);
    EXPECT_EQ(pixelAt(112 + by, 112 - by), middle);
  }
}

TEST(CloseBox, DarkensUnderAFinger) {
  test::Home home({"--stock"});
  auto background = makeBackground();
  auto box = bridge::make<SBCloseBoxView, &UIView::initWithFrame>(CGRect{{100, 100}, {24, 24}});
  background->addSubview(box);
  unsigned before = pixelAt(112, 104);
  home.step("finger 1 down 112 112");
  EXPECT_LT(pixelAt(112, 104) & 0xff, before & 0xff);
  home.step("finger 1 up 112 112");
  EXPECT_EQ(pixelAt(112, 104), before);
}

TEST(CloseBox, IsCalledClose) {
  test::Home home({"--stock", "--device", "iPhone 6", "--ios", "12.1"});
  auto background = makeBackground();
  auto box = bridge::make<SBXCloseBoxView, &UIView::initWithFrame>(CGRect{{100, 100}, {24, 24}});
  background->addSubview(box);
  box->addTarget_action_forControlEvents(background.get(), bridge::selector<"removeFromSuperview">(),
                                         UIControlEventTouchUpInside);
  home.step("tap \"close\"");
  EXPECT_FALSE(background->superview());
}

}  // namespace
