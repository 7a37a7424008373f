// The ways that lead to the panel, and the messages that change them.
#include <gtest/gtest.h>

#include "panel/popup_view.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using test::Home;

std::vector<std::string> settings(std::vector<std::string> more = {}) {
  std::vector<std::string> options{"--device", "iPhone 7"};
  for (const char* setting :
       {"enabled=YES", "quick=YES", "labels=YES", "custom_preset=-1", "sideIconInset=27",
        "horiIconPadding=27", "topIconInset=30", "vertIconPadding=14"}) {
    options.push_back("--set");
    options.push_back(setting);
  }
  for (auto& setting : more) {
    options.push_back("--set");
    options.push_back(setting);
  }
  return options;
}

bool panelIsShown(Home& home) { return !home.report()["panel"].isNull(); }

sim::Json live(NSString key) {
  return sim::plain(tilo::ConfigurationManager::sharedManager().configuration().objectForKey(key));
}

SBIconScrollView scrollView() { return sim::springboard::homeScreen().scrollView.get(); }

TEST(Swipe, UpOpensThePanel) {
  Home home(settings());
  home.step("swipe up");
  EXPECT_TRUE(panelIsShown(home));
}

TEST(Swipe, DownOpensNothing) {
  Home home(settings());
  home.step("swipe down");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(Swipe, OpensNothingWhileQuickSettingsAreOff) {
  Home home(settings({"quick=NO"}));
  home.step("swipe up");
  EXPECT_FALSE(panelIsShown(home));
  EXPECT_FALSE(scrollView().swipeGesture());
  EXPECT_FALSE(scrollView().tapGesture());
}

TEST(Swipe, OpensNothingWhileTheLibraryIsOff) {
  Home home(settings({"enabled=NO"}));
  home.step("swipe up");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(Swipe, OpensNoSecondPanel) {
  Home home(settings());
  home.step("swipe up 187 500");
  home.step("wait 0.5");
  home.step("swipe up 187 300");
  NSArray views = scrollView().window().subviews();
  int panels = 0;
  for (NSUInteger i = 0; i < views.count(); ++i)
    panels += bridge::isKindOf(views.objectAtIndex(i), objc_getClass("RQPopupView"));
  EXPECT_EQ(panels, 1);
}

TEST(Swipe, FromTheDockOpensNothing) {
  Home home(settings());
  home.step("swipe up 187 640");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(TwoFingerTap, OpensThePanelWhereItIsWanted) {
  Home home(settings({"twoFinger=YES"}));
  home.step("two-finger-tap");
  EXPECT_TRUE(panelIsShown(home));
}

TEST(TwoFingerTap, OfOneFingerOpensNothing) {
  Home home(settings({"twoFinger=YES"}));
  home.step("finger 1 down 187 500");
  home.step("finger 1 up 187 500");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(TwoFingerTap, OpensNothingUntilAMessageAsksForIt) {
  Home home(settings());
  home.step("two-finger-tap");
  EXPECT_FALSE(panelIsShown(home));
  home.step("message PreferencesDidChangeNotification name=\"Use Two Finger Tap Instead\" value=YES");
  home.step("swipe up");
  EXPECT_FALSE(panelIsShown(home));
  home.step("wait 1");
  home.step("two-finger-tap");
  EXPECT_TRUE(panelIsShown(home));
}

TEST(Press, OpensThePanelAtAForceOfExactlyThree) {
  Home home(settings({"forceTouch=YES"}));
  home.step("press 3.0");
  EXPECT_TRUE(panelIsShown(home));
}

TEST(Press, OfLessThanThreeOpensNothing) {
  Home home(settings({"forceTouch=YES"}));
  home.step("press 2.99");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(Press, OpensNothingWithoutTheSetting) {
  Home home(settings());
  home.step("press 5");
  EXPECT_FALSE(panelIsShown(home));
}

class PressWhile : public testing::TestWithParam<const char*> {};

TEST_P(PressWhile, ItIsOffOpensNothing) {
  Home home(settings({"forceTouch=YES", std::string(GetParam()) + "=NO"}));
  home.step("press 5");
  EXPECT_FALSE(panelIsShown(home));
}

INSTANTIATE_TEST_SUITE_P(Of, PressWhile, testing::Values("enabled", "quick"));

TEST(Press, OpensNothingOnAScreenThatFeelsNoForce) {
  std::vector<std::string> options = settings({"forceTouch=YES"});
  options[1] = "iPhone 6";
  Home home(options);
  home.step("press 5");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(Press, ThatGoesOnOpensNothingMoreUntilTheFingerIsLifted) {
  Home home(settings({"forceTouch=YES"}));
  home.step("finger 1 down 187 24");
  home.step("wait 0.2");  // a scroll view holds touches back while it may yet be dragged
  home.step("finger 1 move 187 24 3.2");
  ASSERT_TRUE(panelIsShown(home));
  tilo::RQGestureController::sharedInstance().popView().didHitCancel();
  home.step("wait 1");
  home.step("finger 1 move 188 24 4");
  home.step("finger 1 move 187 24 5");
  EXPECT_FALSE(panelIsShown(home));
  home.step("finger 1 up 187 24");
  home.step("press 4 187 24");
  EXPECT_TRUE(panelIsShown(home));
}

TEST(Press, OpensNothingOnASystemOlderThanForce) {
  std::vector<std::string> options = settings({"forceTouch=YES"});
  options[1] = "iPhone 6";
  options.insert(options.end(), {"--ios", "8.4"});
  Home home(options);
  EXPECT_FALSE(class_getInstanceMethod(objc_getClass("UITouch"), bridge::selector<"force">()));
  home.step("press 5");
  EXPECT_FALSE(panelIsShown(home));
}

TEST(Messages, DisableBothRecognizersAndLeaveThemAttached) {
  Home home(settings());
  home.step("message PreferencesDidChangeNotification name=\"Enable Quick Settings\" value=NO");
  EXPECT_FALSE(scrollView().swipeGesture().enabled());
  EXPECT_FALSE(scrollView().tapGesture().enabled());
  EXPECT_TRUE(scrollView().swipeGesture().view());
  home.step("swipe up");
  EXPECT_FALSE(panelIsShown(home));
  home.step("message PreferencesDidChangeNotification name=\"Enable Quick Settings\" value=YES");
  home.step("wait 1");
  home.step("swipe up");
  EXPECT_TRUE(panelIsShown(home));
}

TEST(Messages, AreIgnoredWhileQuickSettingsAreOff) {
  Home home(settings({"quick=NO"}));
  home.step("message PreferencesDidChangeNotification name=\"Quick Settings Dark Mode\" value=YES");
  EXPECT_FALSE(tilo::ConfigurationManager::sharedManager().configuration().objectForKey("isDarkMode"_ns));
}

TEST(Messages, StoreTheDarkMode) {
  Home home(settings());
  home.step("message PreferencesDidChangeNotification name=\"Quick Settings Dark Mode\" value=YES");
  auto stored = tilo::ConfigurationManager::sharedManager().configuration().objectForKey("isDarkMode"_ns);
  EXPECT_TRUE(bridge::as<NSNumber>(stored).boolValue());
}

TEST(Messages, StoreForTheDarkModeTheVeryValueThatTheyCarry) {
  Home home(settings());
  home.step("message PreferencesDidChangeNotification name=\"Quick Settings Dark Mode\" value=2");
  EXPECT_EQ(live("isDarkMode"_ns), 2);
}

TEST(Messages, WithoutAValueMeanNo) {
  Home home(settings({"isDarkMode=YES"}));
  home.step("message PreferencesDidChangeNotification name=\"Use Two Finger Tap Instead\" value=YES");
  home.step("message PreferencesDidChangeNotification name=\"Use Two Finger Tap Instead\"");
  EXPECT_TRUE(scrollView().swipeGesture().view());
  EXPECT_FALSE(scrollView().tapGesture().view());
  home.step("message PreferencesDidChangeNotification name=\"Enable Quick Settings\"");
  EXPECT_FALSE(scrollView().swipeGesture().enabled());
  EXPECT_FALSE(scrollView().tapGesture().enabled());
  home.step("message PreferencesDidChangeNotification name=\"Quick Settings Dark Mode\"");
  EXPECT_EQ(live("isDarkMode"_ns), true);  // of which there is nothing to store
}

// A name is made into text as `%@` makes it.
TEST(Messages, HaveNumbersAndNothingForNamesAsText) {
  Home home(settings());
  home.step("message ListPreferencesDidChangeNotification name=5 index=3");
  EXPECT_EQ(live("5"_ns), 3);
  home.step("message ListPreferencesDidChangeNotification index=4");
  EXPECT_EQ(live("(null)"_ns), 4);
}

TEST(Messages, OfOtherSettingsAreStoredAndLayNothingOut) {
  Home home(settings({"quick=NO"}));
  home.step("message ListPreferencesDidChangeNotification name=sideIconInset index=40.5");
  EXPECT_EQ(home.report()["pages"][0]["sideInset"], 40.5);
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["frame"][0], 27);
  EXPECT_TRUE(home.report()["relayouts"].empty());
}

TEST(Scrolling, CountsThePagesAndStoresAFloat) {
  Home home(settings());
  EXPECT_EQ(test::libraryVariable<int>("tilo::numOfPages"), 1);
  home.step("swipe left");
  EXPECT_EQ(test::libraryVariable<int>("tilo::numOfPages"), 3);
  auto stored = bridge::as<NSNumber>(
      tilo::ConfigurationManager::sharedManager().configuration().objectForKey("numOfPages"_ns));
  EXPECT_EQ(stored.floatValue(), 3);
  EXPECT_EQ(*stored.objCType(), 'f');
}

TEST(Notification, QueuesOneRelayoutPassForEachScrollView) {
  Home home(settings());
  auto second = bridge::make<SBIconScrollView, &NSObject::init>();
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    {});
  home.step("wait 0.1");
  EXPECT_EQ(home.report()["relayouts"].size(), 2);
  second.clear();
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    {});
  home.step("wait 0.1");
  EXPECT_EQ(home.report()["relayouts"].size(), 3);
}

}  // namespace
