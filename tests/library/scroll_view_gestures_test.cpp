// The two recognisers of the icon scroll view: which is attached, what messages do to them, and when there
// are none.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using bridge::install;
using bridge::original;
using bridge::replace;
using test::PanelHome;

SBIconScrollView scrollView() { return sim::springboard::homeScreen().scrollView.get(); }

void tell(PanelHome& home, const std::string& title, const char* value) {
  home.step("message PreferencesDidChangeNotification name=\"" + title + "\" value=" + value);
}
constexpr const char *tapInstead = "Use Two Finger Tap Instead", *quick = "Enable Quick Settings",
                     *dark = "Quick Settings Dark Mode";

TEST(ScrollView, HasTheSwipeAttachedAndNotTheTap) {
  PanelHome home;
  EXPECT_TRUE(scrollView().swipeGesture().view());
  EXPECT_FALSE(scrollView().tapGesture().view());
}

TEST(ScrollView, HasTheTapAttachedAndNotTheSwipeWhereItIsWanted) {
  PanelHome home({"twoFinger=YES"});
  EXPECT_FALSE(scrollView().swipeGesture().view());
  EXPECT_TRUE(scrollView().tapGesture().view());
  home.open();
  EXPECT_EQ(home.shown(), nullptr);
}

TEST(ScrollView, HasTheControllerForItsRecognisersDelegate) {
  PanelHome home;
  EXPECT_EQ(scrollView().swipeGesture().delegate().raw, PanelHome::controller().raw);
  EXPECT_EQ(scrollView().tapGesture().delegate().raw, PanelHome::controller().raw);
}

TEST(ScrollView, MadeWhileIconsAreEditedHasNoRecognisers) {
  PanelHome home;
  home.step("edit");
  auto edited = bridge::make<SBIconScrollView, &NSObject::init>();
  EXPECT_FALSE(edited->swipeGesture());
  EXPECT_FALSE(edited->tapGesture());
  home.step("home");
  auto later = bridge::make<SBIconScrollView, &NSObject::init>();
  EXPECT_TRUE(later->swipeGesture());
  EXPECT_TRUE(later->tapGesture());
}

TEST(ScrollView, HasNoRecognisersWhileTheLibraryIsOff) {
  PanelHome home({"enabled=NO"});
  EXPECT_FALSE(scrollView().swipeGesture());
  EXPECT_FALSE(scrollView().tapGesture());
}

TEST(Message, ThatTheTapIsUnwantedBringsTheSwipeBack) {
  PanelHome home;
  tell(home, tapInstead, "YES");
  tell(home, tapInstead, "NO");
  home.step("two-finger-tap");
  home.wait(1);
  EXPECT_EQ(home.shown(), nullptr);
  home.open();
  EXPECT_NE(home.shown(), nullptr);
}

TEST(Message, EnablesBothRecognisersAgain) {
  PanelHome home;
  tell(home, quick, "NO");
  tell(home, quick, "YES");
  EXPECT_TRUE(scrollView().swipeGesture().enabled());
  EXPECT_TRUE(scrollView().tapGesture().enabled());
}

TEST(Message, EndsTheDarkMode) {
  PanelHome home({"isDarkMode=YES"});
  tell(home, dark, "NO");
  home.open();
  EXPECT_EQ(home.shown()["dark"], false);
}

class SwitchedOff : public testing::TestWithParam<const char*> {};

// The recognisers are from before; the messages are those of a settings pane that does not know.
TEST_P(SwitchedOff, LeavesRecognisersAndSettingsToThemselves) {
  PanelHome home;
  home.save(NSString::stringWithUTF8String(GetParam()), NSNumber::numberWithBool(NO));
  tell(home, quick, "NO");
  EXPECT_TRUE(scrollView().swipeGesture().enabled());
  tell(home, tapInstead, "YES");
  EXPECT_TRUE(scrollView().swipeGesture().view());
  EXPECT_FALSE(scrollView().tapGesture().view());
  tell(home, dark, "YES");
  EXPECT_EQ(PanelHome::live("isDarkMode"_ns), nullptr);
}

INSTANTIATE_TEST_SUITE_P(By, SwitchedOff, testing::Values("enabled", "quick"));

TEST(Scrolling, CountsNoViewsButPages) {
  PanelHome home;
  auto stranger = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{0, 0}, {10, 10}});
  scrollView().addSubview(stranger);
  home.step("swipe left");
  EXPECT_EQ(PanelHome::live("numOfPages"_ns), 3);
}

TEST(Scrolling, CountsPagesOfADerivedClassToo) {
  PanelHome home;
  auto derived = bridge::make<SBDockIconListView, &UIView::initWithFrame>(CGRect{});
  scrollView().addSubview(derived);
  home.step("swipe left");
  EXPECT_EQ(PanelHome::live("numOfPages"_ns), 4);
}

TEST(Scrolling, CountsNoPagesInsideOtherViews) {
  PanelHome home;
  auto page = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{});
  auto stranger = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  stranger->addSubview(page);
  scrollView().addSubview(stranger);
  home.step("swipe left");
  EXPECT_EQ(PanelHome::live("numOfPages"_ns), 3);
}

// A folder's, for one: whichever scrolls is counted.
TEST(Scrolling, OfAViewWithoutPagesCountsNone) {
  PanelHome home;
  home.step("swipe left");
  auto other = bridge::make<SBIconScrollView, &NSObject::init>();
  other->contentOffset.set({1, 0});
  EXPECT_EQ(PanelHome::live("numOfPages"_ns), 0);
  EXPECT_EQ(test::libraryVariable<int>("tilo::numOfPages"), 0);
}

TEST(Scrolling, StoresTheCountOfThePagesThatAreThereNow) {
  PanelHome home;
  home.step("swipe left");
  auto fourth = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{});
  scrollView().addSubview(fourth);
  home.step("swipe right");
  EXPECT_EQ(PanelHome::live("numOfPages"_ns), 4);
  fourth->removeFromSuperview();
  home.step("swipe left");
  EXPECT_EQ(PanelHome::live("numOfPages"_ns), 3);
}

// The system has `force` from 9.0 on; a library may have added it to an older one.
CGFloat firm(UITouch) { return 5; }

TEST(Press, OpensNothingBeforeSystem9WhateverATouchAnswers) {
  PanelHome home({"forceTouch=YES"}, {"--ios", "8.4.1"}, "iPhone 6");
  class_addMethod(objc_getClass("UITouch"), bridge::selector<"force">(), reinterpret_cast<IMP>(&firm), "d@:");
  home.step("press 5");
  EXPECT_EQ(home.shown(), nullptr);
}

BOOL feelsNothing(UITouch self, SEL selector) {
  return sel_isEqual(selector, bridge::selector<"force">()) ? NO : original<feelsNothing>(self, selector);
}

TEST(Press, OpensNothingForATouchThatHasNoForce) {
  PanelHome home({"forceTouch=YES"});
  install(replace<UITouch, &NSObject::respondsToSelector, feelsNothing>());
  home.step("press 5");
  EXPECT_EQ(home.shown(), nullptr);
}

// SpringBoard's own beginning and end of a scroll view, under the library's.
int begun = 0, preparedBefore = 0;
bridge::Strong<NSObject> systemInit(SBIconScrollView self) {
  ++begun;
  preparedBefore += self.swipeGesture().view() && self.tapGesture();
  return original<systemInit>(self);
}
bridge::Strong<UIView> systemInitWithFrame(SBIconScrollView self, CGRect frame) {
  ++begun;
  preparedBefore += self.swipeGesture().view() && self.tapGesture();
  return original<systemInitWithFrame>(self, frame);
}
void systemDealloc(SBIconScrollView self) {
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    {});
  original<systemDealloc>(self);
}

TEST(ScrollView, IsPreparedBeforeSpringBoardsOwnInitialiserRuns) {
  test::Home home(test::homeOptions("iPhone 7", test::panelSettings()),
                  [](sim::Simulation&) { test::standIn<SBIconScrollView, &NSObject::init, systemInit>(); });
  EXPECT_GE(begun, 1);
  EXPECT_EQ(preparedBefore, begun);
}

TEST(ScrollView, IsPreparedBeforeSpringBoardsOwnInitialiserWithAFrameRuns) {
  test::Home home(test::homeOptions("iPhone 7", test::panelSettings()), [](sim::Simulation&) {
    using enum sim::springboard::ScrollViewInitialiser;
    sim::springboard::useScrollViewInitialiser(initWithFrame);
    test::standIn<SBIconScrollView, &UIView::initWithFrame, systemInitWithFrame>();
  });
  EXPECT_GE(begun, 1);
  EXPECT_EQ(preparedBefore, begun);
}

TEST(ScrollView, HearsNothingMoreWhenItsEndBegins) {
  test::Home home(test::homeOptions("iPhone 7", test::panelSettings()), [](sim::Simulation&) {
    test::standIn<SBIconScrollView, &NSObject::dealloc, systemDealloc>();
  });
  bridge::make<SBIconScrollView, &NSObject::init>().clear();
  home.step("wait 0.1");
  EXPECT_EQ(home.report()["relayouts"].size(), 1u);  // of the home screen's own, which goes on
}

}  // namespace
