// What the library sends in its hot paths, once each of them has been gone: every message, and that nothing
// is looked up by its name any more. The runtime's functions below stand before the runtime's own, for the
// library as for everybody else.
#include "tests/library/sent_messages.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "simulator/springboard/icon_controller.hpp"
#include "tests/library/grid_home.hpp"
#include "tests/library/hidden_class.hpp"

extern "C" BOOL class_isMetaClass(Class cls);

namespace {

using bridge::Message;
using test::Home;
using test::sentBy;
using Sent = test::SentMessages;

bool isOfTheLibrary(const void* code) {
  Dl_info image;
  return dladdr(code, &image) && std::string_view(image.dli_fname).ends_with("/Tilo.dylib");
}

// What messages are called that make objects for whoever sends them, other than to classes.
bool makesByItsName(std::string_view selector) {
  constexpr std::string_view beginnings[] = {"autorelease", "array", "copy",        "description",
                                             "dictionary",  "init",  "mutableCopy", "string"};
  return std::ranges::any_of(beginnings, [&](auto text) { return selector.starts_with(text); });
}

void record(const void* caller, const std::string& what, bool making) {
  if (!isOfTheLibrary(caller)) return;
  Sent::areRecorded = false;  // what counting sends is no part of it
  ++Sent::all[what];
  if (making) ++Sent::making[what];
  Sent::areRecorded = true;
}

void recordMessage(const void* caller, id receiver, const char* name) {
  const bool toAClass = class_isMetaClass(bridge::classOf(receiver));
  record(caller, name, toAClass || makesByItsName(name));
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define STANDS_BEFORE extern "C" __attribute__((visibility("default")))

STANDS_BEFORE IMP objc_msg_lookup(id receiver, SEL selector) {
  static const auto lookup = next<IMP (*)(id, SEL)>("objc_msg_lookup");
  if (Sent::areRecorded) recordMessage(__builtin_return_address(0), receiver, sel_getName(selector));
  return lookup(receiver, selector);
}

STANDS_BEFORE SEL sel_registerName(const char* name) {
  static const auto original = next<SEL (*)(const char*)>("sel_registerName");
  if (Sent::areRecorded) record(__builtin_return_address(0), "selector by its name", true);
  return original(name);
}

STANDS_BEFORE Class objc_getClass(const char* name) {
  static const auto original = next<Class (*)(const char*)>("objc_getClass");
  if (Sent::areRecorded) record(__builtin_return_address(0), "class by its name", true);
  return test::isHidden(name, __builtin_return_address(0)) ? nullptr : original(name);
}

namespace {

const std::vector<std::string> everything{"enabled=YES",
                                          "icons=YES",
                                          "rows=5",
                                          "columns=4",
                                          "square=YES",
                                          "custom_preset=-1",
                                          "vertIconPadding=12.0",
                                          "horiIconPadding=9",
                                          "sideIconInset=41",
                                          "topIconInset=30",
                                          "dockIconsEnabled=YES",
                                          "dockIcons=3",
                                          "labels=NO",
                                          "quick=YES"};

class SentMessages : public testing::Test {
 protected:
  Home home{test::homeOptions("iPhone 7", everything)};
  id page = home.page(0).raw, dock = home.dock().raw;

  template <bridge::Name Selector, class Result = NSUInteger>
  std::string asking(id receiver) {
    return sentBy([receiver] { Message<Selector, Result()>::send(receiver); });
  }
  // For the portrait orientation.
  template <bridge::Name Selector>
  std::string askingClass(const char* name) {
    const id cls = reinterpret_cast<id>(objc_getClass(name));
    return sentBy([cls] { Message<Selector, NSUInteger(NSInteger)>::send(cls, 1); });
  }
};

// Four numbers by an object of their own, which layout is chosen, and whether the library is switched on.
const std::string spacing = "alloc, 6 doubleValue, 6 objectForKey:, obtainValues, release";

TEST_F(SentMessages, AreThoseOfReadingTheSettingsForSpacing) {
  EXPECT_EQ((asking<"verticalIconPadding", CGFloat>(page)), spacing);
  EXPECT_EQ((asking<"sideIconInset", CGFloat>(page)), spacing);
  EXPECT_EQ((asking<"topIconInset", CGFloat>(page)), spacing);
}

// Which is also when the icon controller is looked after.
TEST_F(SentMessages, AreThoseOfTheControllerForHorizontalSpacing) {
  EXPECT_EQ((asking<"horizontalIconPadding", CGFloat>(page)),
            "alloc, 6 doubleValue, 6 objectForKey:, obtainValues, 2 release, retain, "
            "sharedInstance");
}

TEST_F(SentMessages, AreThoseOfAskingTheManagerForCounts) {
  const std::string rows = "4 doubleValue, 4 objectForKey:, rows, sharedManager";
  const std::string columns = "columns, 4 doubleValue, isEqualToString:, 4 objectForKey:, sharedManager";
  EXPECT_EQ(asking<"iconRowsForSpacingCalculation">(page), rows);
  EXPECT_EQ(asking<"iconRowsForCurrentOrientation">(page), rows);
  EXPECT_EQ(asking<"iconColumnsForCurrentOrientation">(page), columns);
  EXPECT_EQ(askingClass<"iconRowsForInterfaceOrientation:">("SBIconListView"), rows);
  EXPECT_EQ(askingClass<"iconColumnsForInterfaceOrientation:">("SBIconListView"), columns);
  EXPECT_EQ(askingClass<"iconRowsForInterfaceOrientation:">("SBFolderIconListView"), "");
}

TEST_F(SentMessages, AreThoseOfTwoSettingsForTheDock) {
  const std::string count = "2 doubleValue, isDockIconsEnabled, numberOfDockIcons, 2 objectForKey:";
  const id dockClass = reinterpret_cast<id>(objc_getClass("SBDockIconListView"));
  EXPECT_EQ(asking<"iconsInRowForSpacingCalculation">(dock), count);
  EXPECT_EQ(asking<"maxIcons">(dockClass), count);
  EXPECT_EQ(askingClass<"iconRowsForInterfaceOrientation:">("SBDockIconListView"), count);
  EXPECT_EQ(askingClass<"maxVisibleIconRowsInterfaceOrientation:">("SBDockIconListView"), count);
  EXPECT_EQ((asking<"defaultHeight", CGFloat>(reinterpret_cast<id>(objc_getClass("SBDockView")))),
            "objectForKey:");
}

// This system's dock has no spacing to set.
TEST_F(SentMessages, AreThoseOfAShortDockForItsLayout) {
  EXPECT_EQ((asking<"layoutSubviews", void>(dock)),
            "2 doubleValue, isDockIconsEnabled, numberOfDockIcons, 3 objectForKey:, "
            "respondsToSelector:");
}

// SpringBoard asks meanwhile what the corners are.
TEST_F(SentMessages, AreThoseOfOneSettingForASquareIcon) {
  auto view = bridge::make<SBIconImageView, &UIView::initWithFrame>(CGRect{});
  EXPECT_EQ((asking<"showsSquareCorners", BOOL>(view.get().raw)), "doubleValue, objectForKey:");
  EXPECT_EQ((asking<"layoutSubviews", void>(view.get().raw)),
            "3 doubleValue, 3 objectForKey:, setShowsSquareCorners:");
  EXPECT_EQ((asking<"cornerRadius", CGFloat>(reinterpret_cast<id>(objc_getClass("SBIconImageView")))), "");
}

TEST_F(SentMessages, AreThoseOfTwoSettingsForAHiddenLabel) {
  auto parameters = bridge::make<SBIconLabelImageParameters, &NSObject::init>();
  EXPECT_EQ((asking<"textColor", UIColor>(parameters.get().raw)),
            "clearColor, 2 doubleValue, 2 objectForKey:");
}

// The pages are counted, and the count is stored.
TEST_F(SentMessages, AreThoseOfCountingPagesForAStepOfScrolling) {
  auto view = bridge::make<SBIconScrollView, &NSObject::init>();
  const CGRect screen{{}, {375, 667}};
  view->frame.set(screen);
  view->contentSize.set({1000, 667});
  for (int i = 0; i < 3; ++i) {
    auto list = bridge::make<SBRootIconListView, &UIView::initWithFrame>(screen);
    view->addSubview(list);
  }
  CGFloat x = 0;
  EXPECT_EQ(sentBy([&] { view->contentOffset.set({++x, 0}); }),
            "count, 3 objectAtIndex:, saveWithKey:value:, setObject:forKey:, sharedManager, subviews");
}

TEST_F(SentMessages, AreThoseOfFeelingForAFirmPressForATouchThatMoves) {
  auto view = bridge::make<SBIconScrollView, &NSObject::init>();
  NSSet none;
  EXPECT_EQ(sentBy([&] {
              Message<"touchesMoved:withEvent:", void(NSSet, UIEvent)>::send(view.get().raw, none, {});
            }),
            "objectForKey:");
  EXPECT_EQ(sentBy([&] {
              Message<"touchesEnded:withEvent:", void(NSSet, UIEvent)>::send(view.get().raw, none, {});
            }),
            "");
}

}  // namespace
