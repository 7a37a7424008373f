// The devices whose home screen can be simulated, and what is fixed about each.
#pragma once

#include <span>
#include <string_view>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/device/version.hpp"

namespace sim {

/** Values of UIUserInterfaceIdiom. */
enum class Idiom { phone = 0, pad = 1 };

enum class Orientation { portrait, landscape };

/**
 * The stock grid of one home-screen page. Points; the insets count from the left and the top edge of the
 * screen (so the top inset holds the status bar), the paddings are the gaps between neighbouring icon views.
 */
struct StockGrid {
  int rows, columns;
  double sideInset, topInset;
  double horizontalPadding, verticalPadding;
};

/** A folder's page: rows and columns are the same in both orientations. */
struct FolderGrid {
  int rows, columns;
};

/** What models with the same screen share. Sizes are portrait whatever way the device is held. */
struct Screen {
  CGSize points;
  int scale;            // pixels drawn a point
  CGSize nativePixels;  // of the panel
  Idiom idiom;
  bool homeScreenTurns;  // tablets and the Plus phones
  StockGrid portrait;
  StockGrid landscape;    // the portrait one where the home screen does not turn
  int dockIcons;          // that a dock holds before system 11
  int floatingDockIcons;  // from system 11 on
  double dockHeight;      // points; the width of the dock where it stands at the side
  CGSize iconImageSize;   // points
  FolderGrid folder;
};

/** One model. */
struct Device : Screen {
  std::string_view name;
  Version first, last;  // system versions it ran, from 8.4 on

  /** The image, and the label below it. */
  CGSize iconViewSize() const { return {iconImageSize.width, iconImageSize.height + 14}; }
  const StockGrid& grid(Orientation orientation) const {
    return orientation == Orientation::portrait ? portrait : landscape;
  }
  /** Points of the home screen when the device is held so: a home screen that does not turn keeps its shape.
   */
  CGSize screenSize(Orientation orientation) const {
    return orientation == Orientation::landscape && homeScreenTurns ? CGSize{points.height, points.width}
                                                                    : points;
  }
  /** Panel pixels a point; less than `scale` where the picture is drawn larger than the panel and shrunk. */
  double nativeScale() const { return nativePixels.width / points.width; }
  bool dockAtSide(Orientation orientation) const {
    return orientation == Orientation::landscape && homeScreenTurns && idiom == Idiom::phone;
  }
  int dockCapacity(Version version) const { return version >= Version{11} ? floatingDockIcons : dockIcons; }
  double statusBarHeight() const { return hasSafeAreas() ? 44 : 20; }
  /** The screen reaches into rounded corners and has no home button. */
  bool hasSafeAreas() const { return idiom == Idiom::phone && points.height > 800; }

  /** 10.3.3, or the nearest version that it ran. */
  Version defaultVersion() const;
};

/** Every model, in the order in which they are listed. */
std::span<const Device> catalogue();

/** Throws UsageError when no model is called so. */
const Device& findDevice(std::string_view name);

/** The version written in the text. Throws UsageError when it is none, or none that the device ran. */
Version findVersion(const Device& device, std::string_view text);

}  // namespace sim
