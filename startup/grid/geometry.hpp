// The numbers that icon lists ask for: rows and columns, the four spacing values, and how a value made for
// the 4-inch screen is stretched to this one (the formulas are in core.hpp). Lengths are points unless named
// native, which are pixels.
#pragma once

#include "platform/coregraphics/geometry.hpp"
#include "platform/foundation/string.hpp"
#include "startup/grid/core.hpp"

extern "C" {
// Vertical icon padding, horizontal icon padding, side icon inset, top icon inset, as last read by
// -[value obtainValues].
__attribute__((visibility("default"))) extern CGFloat framing[4];

// One less than the count of rows (`key` is "rows") or columns (any other key) that `listView`, a list or a
// list's class, is to use, given the count that SpringBoard has for it. Callers add the one back.
__attribute__((visibility("default"))) int iconGridCalc(id key, id listView, int systemValue);
}

namespace tilo {

enum FramingElement { verticalPadding, horizontalPadding, sideInset, topInset };

extern CGRect screenRect;
extern CGFloat screenWidth, screenHeight;
extern CGRect screenNativeRect;
extern CGFloat screenNativeWidth, screenNativeHeight;
extern CGFloat screenScale;
extern CGFloat iPadAdjustFactorH, iPadAdjustFactorW;
extern CGSize iconSize;
extern const CGFloat addFactor;
extern const CGFloat dockHeight;
extern int numOfPages;

// Reads the settings into `framing`. It has nothing to initialise: allocate, send obtainValues, release.
struct value : bridge::Face<"value", NSObject> {
  MESSAGE Method<"obtainValues", void()> obtainValues;
};

void defineValue();

// Measures the main screen. Until then the native sizes are 0 and nothing is scaled.
void getScreenSizes();

// Takes these for the tablet's factors.
void useFactors(grid::Factors factors);

// Whether a list is one of those that keep SpringBoard's own grid.
bool isDockOrFolder(bridge::Object list);

// The user interface idiom; 1 is a tablet.
int getDeviceType();

// `spacing` as it is on 4-inch and 3x screens, stretched on others. `extra` is added on tablets, and for
// heights on larger 2x phones too.
CGFloat adjustHeight(CGFloat spacing, CGFloat extra);
CGFloat adjustWidth(CGFloat spacing, CGFloat extra);

}  // namespace tilo
