// The stock grids: measured positions, and room for everything on every screen.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "simulator/device/catalogue.hpp"

namespace sim {
namespace {

constexpr double pageDotsHeight = 15;  // points left above the dock for the page dots, at the least

struct Extent {
  double left, top, right, bottom;
};

// The rectangle around all icon views of a full page.
Extent extentOf(const Device& device, const StockGrid& grid) {
  const CGSize icon = device.iconViewSize();
  return {grid.sideInset, grid.topInset,
          grid.sideInset + grid.columns * icon.width + (grid.columns - 1) * grid.horizontalPadding,
          grid.topInset + grid.rows * icon.height + (grid.rows - 1) * grid.verticalPadding};
}

// One device in one orientation.
struct Page {
  const Device& device;
  const StockGrid& grid;
  bool dockAtSide;
  CGSize screen;  // points
  Extent extent;

  Page(const Device& model, Orientation orientation)
      : device(model),
        grid(model.grid(orientation)),
        dockAtSide(model.dockAtSide(orientation)),
        screen(model.screenSize(orientation)),
        extent(extentOf(model, grid)) {}
};

void forEveryPage(auto&& check) {
  for (const Device& device : catalogue())
    for (const Orientation orientation : {Orientation::portrait, Orientation::landscape}) {
      SCOPED_TRACE(std::string(device.name) + (orientation == Orientation::portrait ? "" : ", landscape"));
      check(Page(device, orientation));
    }
}

TEST(StockGrid, LeavesTheStatusBarFree) {
  forEveryPage([](const Page& page) { EXPECT_GE(page.extent.top, page.device.statusBarHeight()); });
}

TEST(StockGrid, LeavesTheDockAndThePageDotsFree) {
  forEveryPage([](const Page& page) {
    const double dock = page.device.dockHeight;
    EXPECT_LE(page.extent.right, page.screen.width - (page.dockAtSide ? dock : 0));
    EXPECT_LE(page.extent.bottom, page.screen.height - (page.dockAtSide ? 0 : dock) - pageDotsHeight);
  });
}

TEST(StockGrid, LiesInTheMiddleOfTheWidth) {
  forEveryPage([](const Page& page) {
    const double width = page.screen.width - (page.dockAtSide ? page.device.dockHeight : 0);
    EXPECT_DOUBLE_EQ(page.extent.left, width - page.extent.right);
  });
}

TEST(StockGrid, KeepsIconsApart) {
  forEveryPage([](const Page& page) {
    EXPECT_GT(page.grid.horizontalPadding, 0);
    EXPECT_GT(page.grid.verticalPadding, 0);
  });
}

TEST(StockGrid, LeavesRoomForAFullDock) {
  forEveryPage([](const Page& page) {
    const CGSize icon = page.device.iconViewSize();
    EXPECT_LE(page.device.dockIcons * (page.dockAtSide ? icon.height : icon.width),
              page.dockAtSide ? page.screen.height : page.screen.width);
    EXPECT_GE(page.device.dockHeight, page.dockAtSide ? icon.width : icon.height);
  });
}

// Positions measured on pictures of screens; good to three points.
struct Measured {
  const char* device;
  double left, columnPitch, top, rowPitch;
};

TEST(StockGrid, FollowsMeasuredPositionsWithinThreePoints) {
  constexpr Measured all[] = {{"iPhone 5s", 15, 75.5, 29.5, 85},
                              {"iPhone 7", 27, 86.5, 30, 88},
                              {"iPhone 6 Plus", 33, 95.5, 38, 97},
                              {"iPhone X", 23, 87, 71, 95}};
  for (const Measured& measured : all) {
    const Device& device = findDevice(measured.device);
    const StockGrid& grid = device.portrait;
    EXPECT_NEAR(grid.sideInset, measured.left, 3) << measured.device;
    EXPECT_NEAR(grid.horizontalPadding + device.iconViewSize().width, measured.columnPitch, 3)
        << measured.device;
    EXPECT_NEAR(grid.topInset, measured.top, 3) << measured.device;
    EXPECT_NEAR(grid.verticalPadding + device.iconViewSize().height, measured.rowPitch, 3) << measured.device;
  }
}

TEST(StockGrid, HasTheCountsOfItsScreen) {
  const auto counts = [](const char* name, Orientation orientation) {
    const StockGrid& grid = findDevice(name).grid(orientation);
    return std::pair(grid.rows, grid.columns);
  };
  using enum Orientation;
  EXPECT_EQ(counts("iPhone 4s", portrait), std::pair(4, 4));
  EXPECT_EQ(counts("iPhone 5", portrait), std::pair(5, 4));
  EXPECT_EQ(counts("iPhone 7", portrait), std::pair(6, 4));
  EXPECT_EQ(counts("iPhone X", portrait), std::pair(6, 4));
  EXPECT_EQ(counts("iPhone 8 Plus", portrait), std::pair(6, 4));
  EXPECT_EQ(counts("iPhone 8 Plus", landscape), std::pair(4, 6));
  for (const char* name : {"iPad mini 1", "iPad Air 2", "iPad Pro (10.5-inch)", "iPad Pro (12.9-inch) 2"}) {
    EXPECT_EQ(counts(name, portrait), std::pair(5, 4)) << name;
    EXPECT_EQ(counts(name, landscape), std::pair(4, 5)) << name;
  }
}

TEST(StockGrid, AnIconViewIsItsImageAndALabel) {
  EXPECT_EQ(findDevice("iPhone 7").iconViewSize(), (CGSize{60, 74}));
  EXPECT_EQ(findDevice("iPad Air").iconViewSize(), (CGSize{76, 90}));
  EXPECT_EQ(findDevice("iPad Pro (12.9-inch)").iconViewSize(), (CGSize{83.5, 97.5}));
}

TEST(StockGrid, FoldersOfTabletsAreLarger) {
  EXPECT_EQ(findDevice("iPhone 7").folder.rows, 3);
  EXPECT_EQ(findDevice("iPad Air").folder.rows, 4);
  EXPECT_EQ(findDevice("iPad Air").folder.columns, 4);
}

}  // namespace
}  // namespace sim
