// The catalogue of devices, and the list made from it.
#include "simulator/device/catalogue.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "simulator/device/device_list.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

std::string errorOf(auto&& call) {
  try {
    call();
  } catch (const UsageError& error) {
    return error.what();
  }
  return "no error";
}

TEST(Catalogue, FindsEveryModelByItsName) {
  for (const Device& device : catalogue()) EXPECT_EQ(&findDevice(device.name), &device);
}

TEST(Catalogue, NoNameIsUsedTwice) {
  std::set<std::string_view> names;
  for (const Device& device : catalogue()) EXPECT_TRUE(names.insert(device.name).second) << device.name;
}

TEST(Catalogue, HasTheModelsThatEveryScriptMayCountOn) {
  for (const char* name :
       {"iPhone 4s", "iPhone 5", "iPhone 5s", "iPhone 6", "iPhone 6s", "iPhone 6 Plus", "iPhone 7",
        "iPhone 8", "iPhone X", "iPad mini 2", "iPad Air", "iPad Air 2", "iPad Pro (12.9-inch)"})
    EXPECT_EQ(findDevice(name).name, name);
}

TEST(Catalogue, LeavesOutModelsThatCannotLoadTheLibrary) {
  for (const char* name : {"iPhone XS", "iPhone XS Max", "iPhone XR", "iPad Pro (11-inch)"})
    EXPECT_THROW(findDevice(name), UsageError) << name;
}

TEST(Catalogue, AnUnknownNameIsNamedInTheError) {
  EXPECT_EQ(errorOf([] { findDevice("iPhone 99"); }),
            "unknown device 'iPhone 99' (--list-devices shows them)");
  EXPECT_THROW(findDevice("iphone 7"), UsageError);
  EXPECT_THROW(findDevice(""), UsageError);
}

TEST(Catalogue, APlusPhoneIsDrawnLargerThanItsPanel) {
  const Device& plus = findDevice("iPhone 6 Plus");
  EXPECT_EQ(plus.points, (CGSize{414, 736}));
  EXPECT_EQ(plus.scale, 3);
  EXPECT_EQ(plus.nativePixels, (CGSize{1080, 1920}));
  EXPECT_NEAR(plus.nativeScale(), 2.608, 0.001);
}

TEST(Catalogue, EveryOtherPanelHasScaleTimesThePoints) {
  for (const Device& device : catalogue()) {
    if (device.name.ends_with("Plus")) continue;
    EXPECT_EQ(device.nativePixels.width, device.points.width * device.scale) << device.name;
    EXPECT_EQ(device.nativePixels.height, device.points.height * device.scale) << device.name;
  }
}

TEST(Catalogue, HomeScreensOfTabletsAndPlusPhonesTurn) {
  for (const Device& device : catalogue())
    EXPECT_EQ(device.homeScreenTurns, device.name.starts_with("iPad") || device.name.ends_with("Plus"))
        << device.name;
}

TEST(Catalogue, AHomeScreenThatDoesNotTurnKeepsItsShape) {
  const Device& phone = findDevice("iPhone 7");
  EXPECT_EQ(phone.screenSize(Orientation::landscape), phone.points);
  EXPECT_EQ(phone.grid(Orientation::landscape).rows, phone.portrait.rows);
  EXPECT_FALSE(phone.dockAtSide(Orientation::landscape));
  EXPECT_EQ(findDevice("iPad Air").screenSize(Orientation::landscape), (CGSize{1024, 768}));
}

TEST(Catalogue, OnlyAPlusPhoneHeldSidewaysHasItsDockAtTheSide) {
  EXPECT_TRUE(findDevice("iPhone 7 Plus").dockAtSide(Orientation::landscape));
  EXPECT_FALSE(findDevice("iPhone 7 Plus").dockAtSide(Orientation::portrait));
  EXPECT_FALSE(findDevice("iPad Air").dockAtSide(Orientation::landscape));
}

TEST(Catalogue, TheDockOfATabletHoldsMoreFromSystem11On) {
  EXPECT_EQ(findDevice("iPad Air").dockCapacity({10, 3, 3}), 6);
  EXPECT_EQ(findDevice("iPad Air").dockCapacity({11, 0}), 13);
  EXPECT_EQ(findDevice("iPad Pro (12.9-inch)").dockCapacity({11, 0}), 15);
  EXPECT_EQ(findDevice("iPhone 5s").dockCapacity({9, 2}), 4);
  EXPECT_EQ(findDevice("iPhone 5s").dockCapacity({12, 0}), 4);
}

TEST(Catalogue, TheDefaultVersionIsTheNearestToTenThreeThree) {
  EXPECT_EQ(findDevice("iPhone 7").defaultVersion().text(), "10.3.3");
  EXPECT_EQ(findDevice("iPhone 4s").defaultVersion().text(), "9.3.6");
  EXPECT_EQ(findDevice("iPhone X").defaultVersion().text(), "11.0.1");
  EXPECT_EQ(findDevice("iPad 6").defaultVersion().text(), "11.3");
}

TEST(Catalogue, EveryModelRanItsDefaultVersion) {
  for (const Device& device : catalogue()) {
    EXPECT_LE(device.first, device.last) << device.name;
    EXPECT_TRUE(device.first.existed() && device.last.existed()) << device.name;
    EXPECT_EQ(findVersion(device, device.defaultVersion().text()), device.defaultVersion()) << device.name;
  }
}

TEST(Catalogue, AVersionThatTheDeviceNeverRanIsRefused) {
  const Device& device = findDevice("iPhone 4s");
  EXPECT_EQ(findVersion(device, "8.4").text(), "8.4");
  EXPECT_EQ(findVersion(device, "9.3.6").text(), "9.3.6");
  EXPECT_EQ(errorOf([&] { findVersion(device, "10.0"); }),
            "system version '10.0': iPhone 4s ran 8.4 to 9.3.6");
  EXPECT_EQ(errorOf([&] { findVersion(device, "8.3"); }), "system version '8.3': iPhone 4s ran 8.4 to 9.3.6");
  EXPECT_EQ(errorOf([&] { findVersion(device, "9.9"); }), "unknown system version '9.9'");
  EXPECT_EQ(errorOf([&] { findVersion(device, "nine"); }), "unknown system version 'nine'");
}

TEST(DeviceList, TheTableHasALineForEachModelUnderItsHeadings) {
  const std::string table = deviceTable();
  EXPECT_EQ(std::ranges::count(table, '\n'), std::ssize(catalogue()) + 1);
  EXPECT_NE(table.find("iPhone 6 Plus           414×736    3      1080×1920      phone  8.4-12.5.7      "
                       "6×4, landscape 4×6\n"),
            std::string::npos)
      << table;
}

TEST(DeviceList, JsonHasAnObjectForEachModel) {
  const Json list = deviceJson();
  ASSERT_EQ(list.size(), catalogue().size());
  EXPECT_EQ(list[0], Json::parse(R"({"name": "iPhone 4s", "points": [320, 480], "scale": 2,
      "nativePixels": [640, 960], "idiom": "phone", "systemVersions": ["8.4", "9.3.6"], "rows": 4, "columns": 4,
      "landscape": null})"));
  EXPECT_EQ(list[5]["landscape"], Json::parse(R"({"rows": 4, "columns": 6})"));
}

}  // namespace
}  // namespace sim
