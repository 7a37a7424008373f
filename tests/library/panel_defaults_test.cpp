// The panel says what it needs, and relies on nothing that views happen to begin with: a stranger's library
// may have them begin otherwise.
#include <gtest/gtest.h>

#include "platform/uikit/page_control.hpp"
#include "platform/uikit/slider.hpp"
#include "platform/uikit/text_field.hpp"
#include "platform/uikit/toolbar.hpp"
#include "settings/slider/color_slider.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using bridge::original;
using test::PanelHome;

bridge::Strong<UIView> idleView(UIView self, CGRect frame) {
  auto made = original<idleView>(self, frame);
  made->userInteractionEnabled.set(NO);
  made->autoresizesSubviews.set(NO);
  return made;
}

bridge::Strong<UIView> idleScrollView(UIScrollView self, CGRect frame) {
  auto made = original<idleScrollView>(self, frame);
  auto view = bridge::as<UIScrollView>(made.get());
  view.scrollEnabled.set(NO);
  view.userInteractionEnabled.set(NO);
  view.backgroundColor.set(UIColor::redColor());
  return made;
}

bridge::Strong<UIView> pageControlOnItsThirdPage(UIPageControl self, CGRect frame) {
  auto made = original<pageControlOnItsThirdPage>(self, frame);
  auto control = bridge::as<UIPageControl>(made.get());
  control.numberOfPages.set(3);
  control.currentPage.set(2);
  return made;
}

bridge::Strong<UIView> lateSlider(UISlider self, CGRect frame) {
  auto made = original<lateSlider>(self, frame);
  auto slider = bridge::as<UISlider>(made.get());
  slider.continuous.set(NO);
  slider.backgroundColor.set(UIColor::redColor());
  return made;
}

bridge::Strong<UIView> redField(UITextField self, CGRect frame) {
  auto made = original<redField>(self, frame);
  made->backgroundColor.set(UIColor::redColor());
  bridge::as<UITextField>(made.get()).textColor.set(UIColor::redColor());
  return made;
}

bool isClear(UIColor color) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 1;
  color.getRed_green_blue_alpha(&red, &green, &blue, &alpha);
  return alpha == 0;
}

TEST(PanelDefaults, OfItsCardAreItsOwn) {
  PanelHome home;
  test::standIn<UIView, &UIView::initWithFrame, idleView>();
  home.open();
  EXPECT_TRUE(home.panel().userInteractionEnabled());
  EXPECT_TRUE(home.panel().autoresizesSubviews());
}

TEST(PanelDefaults, OfItsPagesAreItsOwn) {
  PanelHome home;
  test::standIn<UIScrollView, &UIView::initWithFrame, idleScrollView>();
  home.open();
  UIScrollView view = home.panel().scrollView();
  EXPECT_TRUE(view.scrollEnabled());
  EXPECT_TRUE(view.userInteractionEnabled());
  EXPECT_TRUE(isClear(view.backgroundColor()));
}

TEST(PanelDefaults, OfItsDotsAreItsOwn) {
  PanelHome home;
  test::standIn<UIPageControl, &UIView::initWithFrame, pageControlOnItsThirdPage>();
  home.open();
  EXPECT_EQ(home.panel().pageControl().numberOfPages(), 2);
  EXPECT_EQ(home.panel().pageControl().currentPage(), 0);
}

TEST(PanelDefaults, OfItsSlidersAreItsOwn) {
  PanelHome home;
  test::standIn<UISlider, &UIView::initWithFrame, lateSlider>();
  home.open();
  for (tilo::ColorSlider slider : {home.panel().horSlider(), home.panel().vertSlider(),
                                   home.panel().sideSlider(), home.panel().topSlider()}) {
    EXPECT_TRUE(slider.continuous());
    EXPECT_TRUE(isClear(slider.backgroundColor()));
  }
}

TEST(PanelDefaults, OfItsNumberFieldsAreItsOwn) {
  PanelHome home;
  test::standIn<UITextField, &UIView::initWithFrame, redField>();
  home.open();
  EXPECT_TRUE(isClear(home.panel().horSlider().valueLabel().backgroundColor()));
}

TEST(NumberControlDefaults, OfItsFieldAreItsOwn) {
  test::Home home;
  test::standIn<UITextField, &UIView::initWithFrame, redField>();
  const auto slider = bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(
      CGRect{{10, 50}, {255, 30}}, "topIconInset"_ns);
  EXPECT_EQ(sim::uikit::colorOf(slider->valueLabel().textColor()), sim::blackColor);
}

CGRect framed{};

bridge::Strong<UIView> framedToolbar(UIToolbar self, CGRect frame) {
  framed = frame;
  return original<framedToolbar>(self, frame);
}

TEST(NumberControlDefaults, OfItsToolbarHaveTheHeightThatItNeedNotKeep) {
  test::Home home;
  test::standIn<UIToolbar, &UIView::initWithFrame, framedToolbar>();
  (void)bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(CGRect{{10, 50}, {255, 30}},
                                                                                "topIconInset"_ns);
  EXPECT_EQ(framed, (CGRect{{0, 0}, {320, 50}}));
}

}  // namespace
