// The library's panel, known by its class and its keys.
#include "simulator/product/panel.hpp"

#include <fmt/format.h>

#include <cmath>
#include <optional>

#include "platform/uikit/application.hpp"
#include "platform/uikit/control.hpp"
#include "platform/uikit/picker_view.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/product/class_names.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::product {
namespace {

constexpr double step = 4;  // points between places that are tried

struct KeyValueCoding : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"valueForKey:", bridge::Object(NSString)> valueForKey;
};

UIScrollView scrollViewOf(UIView panel) {
  return bridge::as<UIScrollView>(panelPart(panel, "scrollView"_ns));
}

// Whether a finger that comes down there meets the scroll view, and nothing in it that would keep the finger.
bool isFree(UIScrollView view, CGPoint place) {
  UIView hit = uikit::viewAt(place);
  if (!hit || !hit.isDescendantOfView(view)) return false;
  for (; !(hit == view); hit = hit.superview())
    if (bridge::isKindOf<UIControl>(hit) || bridge::isKindOf<UIPickerView>(hit)) return false;
  return true;
}

// A place from which a finger can go `way` points sideways on the screen.
std::optional<CGPoint> start(UIScrollView view, double way) {
  const CGRect bounds = view.bounds();
  const CGRect shown = sim::convertRect(bounds, &uikit::layerOf(view), nullptr);
  const double width = uikit::screenSize().width;
  for (double y = shown.origin.y + step; y < shown.origin.y + shown.size.height; y += step)
    for (double x = shown.origin.x + step; x < shown.origin.x + shown.size.width; x += step) {
      const bool fits = x >= 0 && x < width && x + way >= 0 && x + way < width;
      if (fits && isFree(view, {x, y})) return CGPoint{x, y};
    }
  return std::nullopt;
}

int pageOf(UIScrollView view) {
  return static_cast<int>(std::lround(view.contentOffset().x / view.bounds().size.width));
}

}  // namespace

UIView shownPanel() {
  const NSArray views = UIApplication::sharedApplication().keyWindow().subviews();
  for (NSUInteger i = views.count(); i > 0; --i)
    if (isKindOfNamed(views.objectAtIndex(i - 1), "RQPopupView"))
      return bridge::as<UIView>(views.objectAtIndex(i - 1));
  return {};
}

bridge::Object panelPart(UIView panel, NSString key) {
  const SEL getter = sel_registerName(key.UTF8String());
  if (!panel || !panel.respondsToSelector(getter)) return {};
  return bridge::as<KeyValueCoding>(panel).valueForKey(key);
}

void turnToPage(int page) {
  const bridge::Pool pool;
  uikit::layoutPass();
  const UIView panel = shownPanel();
  if (!panel) throw UsageError("there is no panel");
  const UIScrollView view = scrollViewOf(panel);
  const double way = view.contentOffset().x - page * view.bounds().size.width;
  if (way == 0) return;
  const std::optional<CGPoint> from = start(view, way);
  if (!from) throw UsageError("the panel's pages are out of reach");
  input::drag(*from, {from->x + way, from->y}, 0);
  if (pageOf(view) != page) throw UsageError(fmt::format("the panel does not turn to page {}", page));
}

}  // namespace sim::product
