// Rows of numbers, found by their captions.
#include "simulator/product/rows.hpp"

#include <fmt/format.h>

#include <optional>

#include "bridge/runtime.hpp"
#include "platform/uikit/stepper.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/preferences/shown_rows.hpp"
#include "simulator/uikit/controls/slider.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::product {
namespace {

// Those of a view's subviews that are of that kind, back to front.
template <class T>
std::vector<T> subviewsOf(UIView view) {
  std::vector<T> found;
  const NSArray subviews = view.subviews();
  for (NSUInteger i = 0; i < subviews.count(); ++i)
    if (bridge::isKindOf<T>(subviews.objectAtIndex(i)))
      found.push_back(bridge::as<T>(subviews.objectAtIndex(i)));
  return found;
}

CGFloat topOf(UIView view) { return view.frame().origin.y; }
CGFloat leftOf(UIView view) { return view.frame().origin.x; }

// Of the sliders that begin no higher than the caption, the highest.
UISlider sliderBelow(UILabel caption) {
  UISlider found;
  for (const UISlider slider : subviewsOf<UISlider>(caption.superview()))
    if (topOf(slider) >= topOf(caption) && (!found || topOf(slider) < topOf(found))) found = slider;
  return found;
}

Row rowOf(std::string_view caption, UISlider slider) {
  Row row{std::string(caption), slider, {}, {}, {}};
  for (const UIButton button : subviewsOf<UIButton>(slider)) {
    if (!row.minus || leftOf(button) < leftOf(row.minus)) row.minus = button;
    if (!row.plus || leftOf(button) > leftOf(row.plus)) row.plus = button;
  }
  const std::vector<UITextField> fields = subviewsOf<UITextField>(slider);
  if (!fields.empty()) row.field = fields.front();
  return row;
}

std::optional<Row> rowOf(UIView view, std::string_view caption) {
  if (!bridge::isKindOf<UILabel>(view)) return std::nullopt;
  const auto label = bridge::as<UILabel>(view);
  const NSString text = label.text();
  if (!text || caption != text.UTF8String()) return std::nullopt;
  const UISlider slider = sliderBelow(label);
  return slider ? std::optional(rowOf(caption, slider)) : std::nullopt;
}

[[noreturn]] void refuse(const Row& row, std::string_view part, std::string_view why) {
  throw UsageError(fmt::format("the {} of \"{}\" {}", part, row.caption, why));
}

}  // namespace

Row rowNamed(std::string_view caption) {
  uikit::layoutPass();
  std::optional<Row> found;
  // A slider or stepper of Settings' page in front stands alone in its row.
  if (const PSTableCell cell = preferences::shownCell(std::string(caption))) {
    const UIView control = preferences::controlOf(cell);
    if (bridge::isKindOf<UISlider>(control)) return rowOf(caption, bridge::as<UISlider>(control));
    if (bridge::isKindOf<UIStepper>(control)) {
      const std::vector<UIButton> halves = subviewsOf<UIButton>(control);
      return {std::string(caption), {}, halves.front(), halves.back(), {}};
    }
  }
  for (const UIWindow window : uikit::windows())
    uikit::forEachInTree(window, [&](UIView view) {
      if (std::optional<Row> row = rowOf(view, caption)) found = std::move(row);
    });
  if (!found) throw UsageError(fmt::format("no row is called \"{}\"", caption));
  return *found;
}

CGPoint placeOf(const Row& row, UIView part, std::string_view name) {
  if (!part) refuse(row, name, "is missing");
  const CGPoint place = input::middleOnScreen(part);
  const std::string reason = input::obstacle(part, part, place);
  if (!reason.empty()) refuse(row, name, reason);
  return place;
}

CGPoint placeOfThumb(const Row& row, float value) {
  const CGRect thumb = uikit::thumbRectOf(row.slider, value);
  return sim::convertPoint({thumb.origin.x + thumb.size.width / 2, thumb.origin.y + thumb.size.height / 2},
                           &uikit::layerOf(row.slider), nullptr);
}

CGPoint placeOfThumb(const Row& row) {
  const CGPoint place = placeOfThumb(row, row.slider.value());
  const std::string reason = input::obstacle(row.slider, row.slider, place);
  if (!reason.empty()) refuse(row, "thumb", reason);
  return place;
}

}  // namespace sim::product
