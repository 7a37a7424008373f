// The panel where no touch leads it: without settings or a key window, with a slide that is cut short, with
// one slider for two rows.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/uikit/application.hpp"
#include "platform/uikit/layer.hpp"
#include "settings/store/configuration_manager.hpp"
#include "tests/library/key_value.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;
using tilo::ColorSlider;
using tilo::ConfigurationManager;
using tilo::RQPopupView;

std::ptrdiff_t disappearances() {
  return std::ranges::count(test::witnessed, "PopupViewDidDisappearNotification");
}

TEST(PanelHiding, IsAnnouncedThoughItsSlideIsCutShort) {
  PanelHome home;
  home.open();
  test::Listening listening;
  home.panel().hide();
  home.wait(0.2);
  EXPECT_EQ(disappearances(), 0);
  home.panel().layer().removeAllAnimations();
  home.wait(0.05);
  EXPECT_EQ(disappearances(), 1);
  EXPECT_FALSE(home.panel().superview());
}

TEST(PanelCancelling, TakesThePanelDownThoughItsSlideIsCutShort) {
  PanelHome home;
  home.open();
  home.panel().didHitCancel();
  home.wait(0.2);
  ASSERT_TRUE(home.panel().superview());
  home.panel().layer().removeAllAnimations();
  home.wait(0.05);
  EXPECT_FALSE(home.panel().superview());
}

UIWindow none(UIApplication) { return {}; }

TEST(PanelHiding, GoesBelowZeroWithoutAKeyWindow) {
  PanelHome home;
  home.open();
  test::standIn<UIApplication, &UIApplication::keyWindow, none>();
  home.panel().hide();
  EXPECT_EQ(home.panel().center(), (CGPoint{187.5, 370}));
}

TEST(PanelCancelling, GoesBelowZeroWithoutAKeyWindow) {
  PanelHome home;
  home.open();
  test::standIn<UIApplication, &UIApplication::keyWindow, none>();
  home.panel().didHitCancel();
  home.wait(0.1);
  EXPECT_EQ(home.panel().center(), (CGPoint{187.5, 370}));
}

// As it is made where the domain had no keys when the library was loaded.
class PanelWithoutSettings : public testing::Test {
 protected:
  PanelWithoutSettings() {
    ConfigurationManager::sharedManager().configuration.set({});
    panel = bridge::make<RQPopupView, &NSObject::init>();
  }

  PanelHome home{{"isDarkMode=YES", "qsBackgroundColor=6"}};
  bridge::Strong<RQPopupView> panel;
};

TEST_F(PanelWithoutSettings, IsLightAndOfThePalettesFirstColour) {
  EXPECT_FALSE(panel->rootObj());
  EXPECT_FALSE(panel->isDarkMode());
  CGFloat red{}, green{}, blue{}, alpha{};
  panel->backgroundColor().getRed_green_blue_alpha(&red, &green, &blue, &alpha);
  EXPECT_EQ(std::lround(red * 255), 250);
  EXPECT_EQ(std::lround(green * 255), 250);
  EXPECT_EQ(std::lround(blue * 255), 250);
}

TEST_F(PanelWithoutSettings, HasRowsOfZero) {
  for (ColorSlider slider :
       {panel->horSlider(), panel->vertSlider(), panel->sideSlider(), panel->topSlider()}) {
    EXPECT_EQ(slider.value(), 0);
    EXPECT_STREQ(slider.valueLabel().text().UTF8String(), "0.0");
  }
}

TEST_F(PanelWithoutSettings, StoresAPressInTheDomainAlone) {
  panel->topSlider().incrementValue({});
  EXPECT_EQ(home.stored("topIconInset"_ns), 1);
  EXPECT_EQ(home.stored("custom_preset"_ns), -1);
  EXPECT_FALSE(panel->rootObj());
  EXPECT_FALSE(ConfigurationManager::sharedManager().configuration());
}

std::vector<std::string> keysSaved;
void noteKey(tilo::RQGestureController self, NSString key, bridge::Object value) {
  keysSaved.push_back(key.UTF8String());
  bridge::original<noteKey>(self, key, value);
}

TEST(Values, AreThoseOfTheUpperRowWhereASliderStandsForTwo) {
  PanelHome home;
  home.open();
  test::standIn<tilo::RQGestureController, &tilo::RQGestureController::savePrefsWithKey_value, noteKey>();
  const RQPopupView panel = home.panel();
  const auto horizontal = bridge::retained(panel.horSlider()),
             vertical = bridge::retained(panel.vertSlider()), side = bridge::retained(panel.sideSlider());
  panel.topSlider.set(side);
  panel.moveIcons(side);
  panel.sideSlider.set(vertical);
  panel.moveIcons(vertical);
  panel.vertSlider.set(horizontal);
  panel.moveIcons(horizontal);
  std::erase(keysSaved, "custom_preset");
  EXPECT_EQ(keysSaved, (std::vector<std::string>{"sideIconInset", "vertIconPadding", "horiIconPadding"}));
}

NSInteger stateNow = 0;

TEST(PanelDragging, FollowsTheFingerInEveryStateOfTheRecogniser) {
  PanelHome home;
  home.open();
  const RQPopupView panel = home.panel();
  const UIPanGestureRecognizer pan = panel.pan();
  const CGPoint start = panel.center();
  bridge::Slot slot;
  bridge::replaceMethod(bridge::classNamed<UIPanGestureRecognizer>(), bridge::selector<"state">(),
                        reinterpret_cast<IMP>(+[](id, SEL) -> NSInteger { return stateNow; }), slot);
  for (stateNow = UIGestureRecognizerStatePossible; stateNow <= UIGestureRecognizerStateFailed; ++stateNow) {
    panel.center.set(start);
    pan.setTranslation_inView({10, -5}, panel);
    panel.handlePanGesture(pan);
    EXPECT_EQ(panel.center(), (CGPoint{start.x + 10, start.y - 5})) << stateNow;
    EXPECT_EQ(pan.translationInView(panel), (CGPoint{0, 0})) << stateNow;
  }
}

}  // namespace
