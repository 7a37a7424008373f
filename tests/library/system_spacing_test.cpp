// When SpringBoard itself is asked for a spacing value, and what the library keeps of it.
#include <gtest/gtest.h>

#include "tests/library/grid_home.hpp"

namespace {

using test::Home;
using test::homeOptions;
using test::libraryVariable;

// SpringBoard's own answers, given by stand-ins that count the requests.
int verticalRequests, horizontalRequests, sideRequests, topRequests;

CGFloat systemVertical(SBIconListView) {
  ++verticalRequests;
  return 101;
}
CGFloat systemHorizontal(SBIconListView) {
  ++horizontalRequests;
  return 102;
}
// A different one every time.
CGFloat systemSide(SBRootIconListView) { return 200 + ++sideRequests; }
CGFloat systemTop(SBRootIconListView) {
  ++topRequests;
  return 104;
}
// Lists that are no pages have an inset of their own.
CGFloat systemSideOfAnyList(SBIconListView) { return 33; }

void standInForTheSystem(sim::Simulation&) {
  test::standIn<SBIconListView, &SBIconListView::verticalIconPadding, systemVertical>();
  test::standIn<SBIconListView, &SBIconListView::horizontalIconPadding, systemHorizontal>();
  test::standIn<SBRootIconListView, &SBRootIconListView::sideIconInset, systemSide>();
  test::standIn<SBRootIconListView, &SBRootIconListView::topIconInset, systemTop>();
  test::standIn<SBIconListView, &SBIconListView::sideIconInset, systemSideOfAnyList>();
}

void forgetRequests() { verticalRequests = horizontalRequests = sideRequests = topRequests = 0; }

CGFloat& origS() { return libraryVariable<CGFloat>("tilo::hooks::origS"); }
id& cont() { return libraryVariable<id>("tilo::cont"); }

const std::vector<std::string> on{"enabled=YES", "custom_preset=-1", "sideIconInset=7"};

TEST(SystemSpacing, IsAskedForOnceWhileTurnedOffAndTheSideInsetTwice) {
  Home home(homeOptions("iPhone 7", {"enabled=NO"}), standInForTheSystem);
  forgetRequests();
  EXPECT_EQ(home.page(0).verticalIconPadding(), 101);
  EXPECT_EQ(verticalRequests, 1);
  EXPECT_EQ(home.page(0).horizontalIconPadding(), 102);
  EXPECT_EQ(horizontalRequests, 1);
  EXPECT_EQ(home.page(0).topIconInset(), 104);
  EXPECT_EQ(topRequests, 1);
  // The first answer is kept, the second one is the result.
  EXPECT_EQ(home.page(0).sideIconInset(), 202);
  EXPECT_EQ(sideRequests, 2);
  EXPECT_EQ(origS(), 201);
}

TEST(SystemSpacing, IsNotAskedForWhileTurnedOnExceptTheSideInset) {
  Home home(homeOptions("iPhone 7", on), standInForTheSystem);
  for (int selected : {-1, 0}) {
    home.save("custom_preset"_ns, NSNumber::numberWithInt(selected));
    forgetRequests();
    home.page(0).verticalIconPadding();
    home.page(0).horizontalIconPadding();
    home.page(0).topIconInset();
    EXPECT_EQ(verticalRequests + horizontalRequests + topRequests, 0);
    home.page(0).sideIconInset();
    EXPECT_EQ(sideRequests, 1);
    EXPECT_EQ(origS(), 201);
  }
}

TEST(SystemSpacing, IsTheAnswerOfTheDockAndFolders) {
  Home home(homeOptions("iPhone 7", on), standInForTheSystem);
  for (SBIconListView list : {SBIconListView(home.dock()), SBIconListView(home.folder())}) {
    forgetRequests();
    EXPECT_EQ(list.verticalIconPadding(), 101);
    EXPECT_EQ(list.horizontalIconPadding(), 102);
    EXPECT_EQ(verticalRequests, 1);
    EXPECT_EQ(horizontalRequests, 1);
  }
  EXPECT_EQ(home.folder().sideIconInset(), 33);
}

// Up to system 10 the dock's list has insets of its own, afterwards those of a page's list.
TEST(SystemSpacing, IsTheAnswerOfADockWithInsetsOfItsOwn) {
  Home home(homeOptions("iPhone 7", on), standInForTheSystem);
  EXPECT_EQ(home.dock().sideIconInset(), 0);
  EXPECT_EQ(home.dock().topIconInset(), 0);
}

TEST(SystemSpacing, IsTheAnswerOfADockThatInheritsItsInsets) {
  Home home(homeOptions("iPhone 7", on, {"--ios", "12.1"}), standInForTheSystem);
  sideRequests = 0;
  EXPECT_EQ(home.dock().sideIconInset(), 202);
  EXPECT_EQ(home.dock().topIconInset(), 104);
}

TEST(SystemSideInset, IsKeptAtEveryRequest) {
  Home home(homeOptions("iPhone 7", on), standInForTheSystem);
  sideRequests = 0;
  EXPECT_EQ(home.page(0).sideIconInset(), 7);
  EXPECT_EQ(home.page(0).sideIconInset(), 7);
  EXPECT_EQ(origS(), 202);
}

TEST(SystemSideInset, IsNotKeptByOtherRequests) {
  Home home(homeOptions("iPhone 7", on), standInForTheSystem);
  CGFloat before = origS();
  home.page(0).verticalIconPadding();
  home.page(0).horizontalIconPadding();
  home.page(0).topIconInset();
  home.folder().sideIconInset();
  EXPECT_EQ(origS(), before);
}

TEST(SystemSideInset, IsTheOneOfTheOrientation) {
  Home home(homeOptions("iPad Air", on));
  EXPECT_EQ(home.page(0).sideIconInset(), 7);
  EXPECT_EQ(origS(), 100);
  home.step("rotate landscape");
  home.page(0).sideIconInset();
  EXPECT_EQ(origS(), 110);
  home.save("enabled"_ns, NSNumber::numberWithBool(NO));
  home.step("rotate portrait");
  EXPECT_EQ(home.page(0).sideIconInset(), 100);
  EXPECT_EQ(origS(), 100);
}

TEST(IconControllerReference, ComesWithTheHorizontalPadding) {
  bool seen = false;
  Home home(homeOptions("iPhone 7", on), [&](sim::Simulation&) {
    test::loadLibrary();
    auto page = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{});
    page->verticalIconPadding();
    page->sideIconInset();
    page->topIconInset();
    page->iconRowsForCurrentOrientation();
    EXPECT_EQ(cont(), nullptr);
    page->horizontalIconPadding();
    EXPECT_EQ(cont(), SBIconController::sharedInstance().raw);
    EXPECT_NE(cont(), nullptr);
    seen = true;
  });
  EXPECT_TRUE(seen);
}

bridge::Strong<SBIconController>& another() {
  static auto& controller = *new bridge::Strong<SBIconController>();
  return controller;
}
int sharedRequests = 0;
SBIconController anotherController(Class) {
  ++sharedRequests;
  return another();
}

NSUInteger references(id object) { return bridge::as<NSObject>(object).retainCount(); }

TEST(IconControllerReference, IsRefreshedByEveryListAndWhileTurnedOff) {
  Home home(homeOptions("iPhone 7", on));
  id first = cont();
  ASSERT_EQ(first, SBIconController::sharedInstance().raw);
  NSUInteger held = references(first);
  another() = bridge::make<SBIconController, &NSObject::init>();
  NSUInteger unheld = references(another().get().raw);
  test::standIn<SBIconController, &SBIconController::sharedInstance, anotherController>();

  home.page(0).verticalIconPadding();
  EXPECT_EQ(cont(), first);
  home.page(0).horizontalIconPadding();
  EXPECT_EQ(cont(), another().get().raw);
  EXPECT_EQ(references(first), held - 1);
  for (int i = 0; i < 3; ++i) home.page(0).horizontalIconPadding();
  EXPECT_EQ(references(another().get().raw), unheld + 1);

  home.save("enabled"_ns, NSNumber::numberWithBool(NO));
  for (SBIconListView list :
       {SBIconListView(home.page(1)), SBIconListView(home.dock()), SBIconListView(home.folder())}) {
    sharedRequests = 0;
    list.horizontalIconPadding();
    EXPECT_EQ(sharedRequests, 1);
  }
}

}  // namespace
