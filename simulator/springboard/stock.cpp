// SpringBoard's own layout, from the catalogue of devices.
#include "simulator/springboard/stock.hpp"

#include <algorithm>
#include <utility>

#include "simulator/springboard/orientation.hpp"

namespace sim::springboard {
namespace {

const Device* current = nullptr;
Version currentVersion{10};

constexpr Version floatingDockSince{11}, dockLabelsUntil{11};

// A floating dock keeps this distance from the lower edge and from the sides.
constexpr CGFloat floatingGap = 8;  // points

constexpr CGFloat homeIndicatorHeight = 34;  // points, of screens with rounded corners

// A folder's page is as wide as four icons stand apart on the home screen, and starts at its corner.
constexpr CGFloat folderInset = 20, folderPadding = 24;  // points

bool floats() { return device().idiom == Idiom::pad && currentVersion >= floatingDockSince; }

Grid dockGrid(NSInteger orientation) {
  Dock dock = stockDock(orientation);
  Grid grid{1, dock.maximum, 0, 0, 0, 0};
  if (dock.upright) std::swap(grid.rows, grid.columns);
  return grid;
}

}  // namespace

void useDevice(const Device& used, Version version) {
  current = &used;
  currentVersion = version;
}

const Device& device() { return *current; }

Grid stockGrid(ListKind kind, NSInteger orientation) {
  switch (kind) {
    case ListKind::dock:
      return dockGrid(orientation);
    case ListKind::folder:
      return {device().folder.rows, device().folder.columns, folderInset,
              folderInset,          folderPadding,           folderPadding};
    case ListKind::root:
      break;
  }
  const StockGrid& grid = device().grid(asOrientation(orientation));
  return {grid.rows,     grid.columns,           grid.sideInset,
          grid.topInset, grid.horizontalPadding, grid.verticalPadding};
}

CGSize iconImageSize() { return device().iconImageSize; }
CGSize iconViewSize() { return device().iconViewSize(); }

CGRect pageFrame(CGSize size, NSInteger orientation, CGFloat thickness) {
  if (stockDock(orientation).upright) return {{0, 0}, {size.width - thickness, size.height}};
  return {{0, 0}, {size.width, size.height - thickness}};
}

CGRect dockFrame(CGSize size, NSInteger orientation, CGFloat thickness) {
  Dock dock = stockDock(orientation);
  if (dock.upright) return {{size.width - thickness, 0}, {thickness, size.height}};
  CGRect frame{{0, size.height - thickness}, {size.width, thickness}};
  if (!dock.floating) return frame;
  // As wide as its icons and the gaps between them take.
  CGFloat width = (device().dockIcons + 1) * iconImageSize().width * CGFloat(1.3);
  return {{(size.width - width) / 2, frame.origin.y}, {width, std::max<CGFloat>(0, thickness - floatingGap)}};
}

Dock stockDock(NSInteger orientation) {
  return {device().dockHeight,
          device().hasSafeAreas() ? homeIndicatorHeight : 0,
          device().dockCapacity(currentVersion),
          device().dockAtSide(asOrientation(orientation)),
          floats(),
          currentVersion < dockLabelsUntil && !device().dockAtSide(asOrientation(orientation))};
}

bool homeScreenTurns() { return device().homeScreenTurns; }

}  // namespace sim::springboard
