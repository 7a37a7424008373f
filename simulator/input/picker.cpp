// Turning a picker's wheel.
#include "simulator/input/picker.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "bridge/runtime.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/uikit/controls/picker_view.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::input {
namespace {

constexpr double nudge = 16;  // points
constexpr int finger = -3;    // one of its own

UIPickerView frontPicker() {
  UIPickerView front;
  for (const UIWindow window : uikit::windows())
    uikit::forEachInTree(window, [&](UIView view) {
      if (bridge::isKindOf<UIPickerView>(view)) front = bridge::as<UIPickerView>(view);
    });
  if (!front) throw UsageError("there is no picker");
  return front;
}

// With a finger that rests before it lifts, so that nothing is flung.
void dragBy(CGPoint middle, double way) {
  const double start = middle.y - way / 2;
  fingerDown(finger, {middle.x, start});
  fingerMove(finger, {middle.x, start + (way == 0 ? nudge : way)});
  fingerMove(finger, {middle.x, start + way});
  fingerUp(finger, {middle.x, start + way});
}

}  // namespace

void pickRow(int row) {
  const bridge::Pool pool;
  const auto picker = bridge::retained(frontPicker());
  const CGPoint middle = findView(picker, "the picker");
  const NSInteger rows = picker->numberOfRowsInComponent(0);
  if (row >= rows) throw UsageError(fmt::format("the picker has no row {}, only {} rows", row, rows));
  // The rim moves as the finger does, which stays on the wheel.
  const double longest = picker->bounds().size.height * 0.9;
  const double rowHeight = uikit::wheelOf(picker).rowHeight;
  const auto missing = [&] { return row * rowHeight - uikit::wheelOf(picker).position; };
  do {
    const double left = std::abs(missing());
    dragBy(middle, std::clamp(-missing(), -longest, longest));
    // Something keeps the finger from it.
    if (left > 0 && std::abs(missing()) >= left) throw UsageError("the picker does not turn");
  } while (missing() != 0);
}

}  // namespace sim::input
