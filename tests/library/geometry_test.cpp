// The geometry engine's values: what is read from the settings, and what is measured of the screen.
#include "startup/grid/geometry.hpp"

#include <gtest/gtest.h>

#include "platform/uikit/device.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::Home;
using test::homeOptions;
using test::libraryVariable;

// What a program that looks for the exported array finds.
std::vector<CGFloat> exportedFraming() {
  auto* values = static_cast<const CGFloat*>(test::exportedSymbol("framing"));
  return values ? std::vector<CGFloat>(values, values + 4) : std::vector<CGFloat>{};
}

using Values = std::vector<CGFloat>;

const std::vector<std::string> fourValues{"vertIconPadding=1.5", "horiIconPadding=-2.25", "sideIconInset=30",
                                          "topIconInset=444"};

TEST(Framing, HoldsTheFourSettingsInOrder) {
  Home home(homeOptions("iPhone 7", fourValues));
  bridge::allocate<tilo::value>()->obtainValues();
  EXPECT_EQ(exportedFraming(), (Values{1.5, -2.25, 30, 444}));
}

TEST(Framing, HoldsTheLastValuesThatWereRead) {
  Home home(homeOptions("iPhone 7", fourValues));
  home.save("topIconInset"_ns, 7);
  home.save("vertIconPadding"_ns, NSNumber::numberWithInt(-9));
  EXPECT_EQ(exportedFraming(), (Values{1.5, -2.25, 30, 444}));
  bridge::allocate<tilo::value>()->obtainValues();
  EXPECT_EQ(exportedFraming(), (Values{-9, -2.25, 30, 7}));
}

TEST(Framing, IsOfSinglePrecision) {
  Home home(homeOptions("iPhone 7", {"vertIconPadding=0.1", "horiIconPadding=16777217", "sideIconInset=-33.3",
                                     "topIconInset=1e-3"}));
  bridge::allocate<tilo::value>()->obtainValues();
  EXPECT_EQ(exportedFraming(), (Values{0.1f, 16777216, -33.3f, 1e-3f}));
  EXPECT_NE(exportedFraming()[0], 0.1);
}

TEST(Framing, HoldsZeroForWhatIsNotStored) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "horiIconPadding=4"}));
  bridge::allocate<tilo::value>()->obtainValues();
  EXPECT_EQ(exportedFraming(), (Values{0, 4, 0, 0}));
  home.save("horiIconPadding"_ns, bridge::Object{});
  bridge::allocate<tilo::value>()->obtainValues();
  EXPECT_EQ(exportedFraming(), (Values{0, 0, 0, 0}));
}

TEST(Framing, HoldsZeroWithoutAnySetting) {
  Home home({"--prefs", test::temporaryFile("empty.plist", "{}")});
  bridge::allocate<tilo::value>()->obtainValues();
  EXPECT_EQ(exportedFraming(), (Values{0, 0, 0, 0}));
}

TEST(Framing, IsInTheReport) {
  Home home(homeOptions("iPhone 7", fourValues));
  EXPECT_EQ(home.report()["framing"], sim::Json({1.5, -2.25, 30.0, 444.0}));
}

int initialised = 0, destroyed = 0;

id countInit(id self, SEL) {
  ++initialised;
  return self;
}
void countDealloc(id self, SEL selector) {
  ++destroyed;
  reinterpret_cast<void (*)(id, SEL)>(class_getMethodImplementation(objc_getClass("NSObject"), selector))(
      self, selector);
}

TEST(Value, IsAStatelessChildOfTheRootClass) {
  Home home;
  EXPECT_EQ(class_getSuperclass(objc_getClass("value")), objc_getClass("NSObject"));
  EXPECT_EQ(class_getInstanceSize(objc_getClass("value")), class_getInstanceSize(objc_getClass("NSObject")));
}

TEST(Value, IsMadeForEveryQuestionWithoutInitAndReleased) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "custom_preset=-1"}));
  Class cls = objc_getClass("value");
  class_addMethod(cls, sel_registerName("init"), reinterpret_cast<IMP>(countInit), "@@:");
  class_addMethod(cls, sel_registerName("dealloc"), reinterpret_cast<IMP>(countDealloc), "v@:");
  SBRootIconListView page = home.page(0);
  page.verticalIconPadding();
  EXPECT_EQ(destroyed, 1);
  page.horizontalIconPadding();
  page.sideIconInset();
  page.topIconInset();
  EXPECT_EQ(destroyed, 4);
  EXPECT_EQ(initialised, 0);
}

struct Measured {
  const char* device;
  const char* orientation;
  CGSize points, pixels;
  CGFloat scale;
  CGFloat heightFactor, widthFactor;
  CGSize icon;

  friend void PrintTo(const Measured& screen, std::ostream* stream) { *stream << screen.device; }
};

class ScreenSizes : public testing::TestWithParam<Measured> {};

TEST_P(ScreenSizes, AreMeasuredWhenSpringBoardStarts) {
  const Measured& expected = GetParam();
  Home home({"--device", expected.device, "--orientation", expected.orientation});
  EXPECT_EQ(libraryVariable<CGRect>("tilo::screenRect"), (CGRect{{0, 0}, expected.points}));
  EXPECT_EQ(libraryVariable<CGFloat>("tilo::screenWidth"), expected.points.width);
  EXPECT_EQ(libraryVariable<CGFloat>("tilo::screenHeight"), expected.points.height);
  EXPECT_EQ(libraryVariable<CGRect>("tilo::screenNativeRect"), (CGRect{{0, 0}, expected.pixels}));
  EXPECT_EQ(libraryVariable<CGFloat>("tilo::screenNativeWidth"), expected.pixels.width);
  EXPECT_EQ(libraryVariable<CGFloat>("tilo::screenNativeHeight"), expected.pixels.height);
  EXPECT_EQ(libraryVariable<CGFloat>("tilo::screenScale"), expected.scale);
  EXPECT_DOUBLE_EQ(libraryVariable<CGFloat>("tilo::iPadAdjustFactorH"), expected.heightFactor);
  EXPECT_DOUBLE_EQ(libraryVariable<CGFloat>("tilo::iPadAdjustFactorW"), expected.widthFactor);
  EXPECT_EQ(libraryVariable<CGSize>("tilo::iconSize"), expected.icon);
}

// Phones are measured for the tablets' factors too. A home screen that does not turn starts upright.
const Measured measured[] = {
    {"iPhone 4s", "portrait", {320, 480}, {640, 960}, 2, 960. / 568, 2, {60, 60}},
    {"iPhone 5s", "portrait", {320, 568}, {640, 1136}, 2, 2, 2, {60, 60}},
    {"iPhone 7", "portrait", {375, 667}, {750, 1334}, 2, 1334. / 568, 750. / 320, {60, 60}},
    {"iPhone 7", "landscape", {375, 667}, {750, 1334}, 2, 1334. / 568, 750. / 320, {60, 60}},
    {"iPhone 8 Plus", "portrait", {414, 736}, {1080, 1920}, 3, 1472. / 568, 828. / 320, {60, 60}},
    {"iPhone 8 Plus", "landscape", {736, 414}, {1080, 1920}, 3, 828. / 568, 1472. / 320, {60, 60}},
    {"iPhone X", "portrait", {375, 812}, {1125, 2436}, 3, 1624. / 568, 750. / 320, {60, 60}},
    {"iPad 2", "portrait", {768, 1024}, {768, 1024}, 1, 2048. / 568, 4.8, {76, 76}},
    {"iPad Air", "portrait", {768, 1024}, {1536, 2048}, 2, 2048. / 568, 4.8, {76, 76}},
    {"iPad Air", "landscape", {1024, 768}, {1536, 2048}, 2, 1536. / 568, 6.4, {76, 76}},
    {"iPad Pro (12.9-inch)",
     "landscape",
     {1366, 1024},
     {2048, 2732},
     2,
     2048. / 568,
     2732. / 320,
     {83.5, 83.5}},
};

INSTANTIATE_TEST_SUITE_P(OfDevices, ScreenSizes, testing::ValuesIn(measured), [](const auto& test) {
  std::string name = std::string(test.param.device) + "_" + test.param.orientation;
  std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)) && c != '_'; });
  return name;
});

TEST(Geometry, IsEmptyUntilSpringBoardMakesItsIconController) {
  bool seen = false;
  Home home(homeOptions("iPad Air", fourValues), [&](sim::Simulation&) {
    test::loadLibrary();
    seen = true;
    EXPECT_EQ(exportedFraming(), (Values{0, 0, 0, 0}));
    for (const char* rect : {"tilo::screenRect", "tilo::screenNativeRect"})
      EXPECT_EQ(libraryVariable<CGRect>(rect), CGRect{}) << rect;
    for (const char* length :
         {"tilo::screenWidth", "tilo::screenHeight", "tilo::screenNativeWidth", "tilo::screenNativeHeight",
          "tilo::screenScale", "tilo::iPadAdjustFactorH", "tilo::iPadAdjustFactorW"})
      EXPECT_EQ(libraryVariable<CGFloat>(length), 0) << length;
    EXPECT_EQ(libraryVariable<CGSize>("tilo::iconSize"), CGSize{});
    EXPECT_EQ(libraryVariable<int>("tilo::numOfPages"), 1);
    EXPECT_EQ(libraryVariable<const CGFloat>("tilo::addFactor"), 20);
    EXPECT_EQ(libraryVariable<const CGFloat>("tilo::dockHeight"), 120);
  });
  EXPECT_TRUE(seen);
  EXPECT_EQ(libraryVariable<CGFloat>("tilo::screenWidth"), 768);
  EXPECT_EQ(libraryVariable<const CGFloat>("tilo::addFactor"), 20);
  EXPECT_EQ(libraryVariable<const CGFloat>("tilo::dockHeight"), 120);
}

CGFloat widthAtInit = -1;
bridge::Strong<NSObject> systemInit(SBIconController self) {
  widthAtInit = libraryVariable<CGFloat>("tilo::screenWidth");
  return bridge::original<systemInit>(self);
}

TEST(Geometry, IsMeasuredBeforeTheIconControllersOwnInit) {
  Home home({"--device", "iPhone 7 Plus", "--ios", "10.3.3"},
            [](sim::Simulation&) { test::standIn<SBIconController, &NSObject::init, systemInit>(); });
  EXPECT_EQ(widthAtInit, 414);
}

int deviceType() { return reinterpret_cast<int (*)()>(test::librarySymbol("tilo::getDeviceType()"))(); }

TEST(DeviceType, IsZeroForAPhone) {
  Home home({"--device", "iPhone 7"});
  EXPECT_EQ(deviceType(), 0);
}

TEST(DeviceType, IsOneForATablet) {
  Home home({"--device", "iPad mini 2"});
  EXPECT_EQ(deviceType(), 1);
}

NSInteger wideIdiom(UIDevice) { return (NSInteger{7} << 32) + 1; }

TEST(DeviceType, IsThirtyTwoBitsOfTheIdiom) {
  Home home({"--device", "iPhone 7"});
  test::standIn<UIDevice, &UIDevice::userInterfaceIdiom, wideIdiom>();
  EXPECT_EQ(deviceType(), 1);
}

}  // namespace
