// SpringBoard's own layout for the device in use: what it answers when nobody replaces anything.
#pragma once

#include "platform/coregraphics/geometry.hpp"
#include "platform/uikit/orientation.hpp"
#include "simulator/device/catalogue.hpp"

namespace sim::springboard {

// The device whose home screen it is. Call once, before SpringBoard's classes are defined; `used` stays
// alive.
void useDevice(const Device& used, Version version);
const Device& device();

enum class ListKind { root, folder, dock };

// Counts, and lengths in points. Insets are to the first icon's view, paddings between the views of icons.
struct Grid {
  int rows, columns;
  CGFloat sideInset, topInset;
  CGFloat horizontalPadding, verticalPadding;
};

Grid stockGrid(ListKind kind, NSInteger orientation);

// The picture of an icon, and the view that holds it and its label.
CGSize iconImageSize();
CGSize iconViewSize();

// The part of a screen of `size` that a home-screen page covers, and the part that a dock of `thickness`
// covers.
CGRect pageFrame(CGSize size, NSInteger orientation, CGFloat thickness);
CGRect dockFrame(CGSize size, NSInteger orientation, CGFloat thickness);

struct Dock {
  CGFloat thickness;    // its height, or its width where it stands at the right side
  CGFloat bottomInset;  // the part of its height that the home indicator takes
  int maximum;          // icons that it holds
  bool upright;         // at the right side, in landscape of the larger phones
  bool floating;        // a rounded panel above the lower edge
  bool labels;          // icons bear labels
};

Dock stockDock(NSInteger orientation);

// Whether the home screen turns with the device.
bool homeScreenTurns();

}  // namespace sim::springboard
