// One wheel of a picker: its rows, and the finger that turns it.
#pragma once

#include <functional>

#include "bridge/strong.hpp"
#include "platform/uikit/label.hpp"

namespace sim::uikit {

struct PickerColumn : bridge::Face<"UIPickerColumnView", UIView> {};

/** Whom a wheel asks and tells. */
struct PickerColumnOwner {
  std::function<void(NSInteger row, UILabel label)> fill;
  /** A finger has turned the wheel to a row and it has come to rest. */
  std::function<void(NSInteger row)> selected;
};

bridge::Strong<PickerColumn> makePickerColumn(PickerColumnOwner owner);
/** The wheel has as many rows from now on, of that height in points; it stands at the row where it was, or
 * at the last. */
void setRows(PickerColumn column, NSInteger rows, double height);
NSInteger rowsOf(PickerColumn column);
/** The row in the middle, or on the way there; -1 without rows. */
NSInteger selectedRowOf(PickerColumn column);
/** How far the rim has turned, in points. */
double positionOf(PickerColumn column);
/** Turns to a row, the nearest there is; nobody is told. */
void turnTo(PickerColumn column, NSInteger row, bool animated);
/** The owner is gone. */
void disown(PickerColumn column);

void definePickerColumn();

}  // namespace sim::uikit
