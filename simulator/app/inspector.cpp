// The tree of views with what a page needs to point at them.
#include "simulator/app/inspector.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "bridge/runtime.hpp"
#include "simulator/app/list_answers.hpp"
#include "simulator/app/view_report.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim {
namespace {

constexpr double leastAlpha = 0.01;  // of what counts as seen

bool isWithin(CGPoint point, const CGRect& rect) {
  const CGFloat x = point.x - rect.origin.x, y = point.y - rect.origin.y;
  return x >= 0 && y >= 0 && x < rect.size.width && y < rect.size.height;
}

bool showsSomething(const Layer& layer, const LayerValues& shown) {
  const CGSize content = layer.contentSize();
  return shown.backgroundColor.alpha > 0 || (content.width > 0 && content.height > 0) ||
         layer.borderWidth > 0;
}

UIView seenIn(UIView view, CGPoint onScreen) {
  const double now = clock::now();
  const Layer& layer = uikit::layerOf(view);
  const LayerValues shown = layer.presentation(now);
  if (layer.hidden || shown.opacity < leastAlpha) return {};
  const bool isInside = isWithin(convertPoint(onScreen, nullptr, &layer, now), shown.bounds);
  if (layer.masksToBounds && !isInside) return {};
  const NSArray subviews = view.subviews();
  for (NSUInteger i = subviews.count(); i > 0; --i)
    if (const UIView seen = seenIn(bridge::as<UIView>(subviews.objectAtIndex(i - 1)), onScreen)) return seen;
  return isInside && showsSomething(layer, shown) ? view : UIView();
}

Json description(UIView view) {
  const double now = clock::now();
  const Layer& layer = uikit::layerOf(view);
  const LayerValues shown = layer.presentation(now);
  Json all = describe(view);
  all["id"] = idOf(view);
  // The icon's name; the label that shows it is a picture.
  if (bridge::isKindOf<SBIconView>(view))
    all["text"] = plain(springboard::nameOf(springboard::iconOf(bridge::as<SBIconView>(view))));
  all["cornerRadius"] = number(shown.cornerRadius);
  all["onScreen"] = frame(convertRect(shown.bounds, &layer, nullptr, now));
  return all;
}

// Every window, back to front.
Json views(Simulation&, const Json&) {
  uikit::layoutPass();
  Json windows = Json::array();
  for (const UIWindow window : uikit::windows()) windows.push_back(viewTree(window, description));
  return windows;
}

Json viewAt(Simulation&, const Json& message) {
  const CGPoint point{message.value("x").get<CGFloat>(), message.value("y").get<CGFloat>()};
  uikit::layoutPass();
  const UIView seen = viewSeenAt(point);
  return seen ? Json(idOf(seen)) : Json();
}

// Of a view by itself: its classes, the innermost first, and the icon list that it is or lies in.
Json view(Simulation&, const Json& message) {
  const UIView view = viewWithId(message.value("view").get<std::string>());
  Json classes = Json::array();
  for (Class each = bridge::classOf(view.raw); each; each = class_getSuperclass(each))
    classes.push_back(class_getName(each));
  return {{"classes", std::move(classes)}, {"list", listAnswers(view)}};
}

constexpr PageMessage messages[] = {{"views", views}, {"view-at", viewAt}, {"view", view}};

}  // namespace

std::string idOf(UIView view) { return fmt::format("{}", static_cast<const void*>(view.raw)); }

UIView viewWithId(const std::string& id) {
  UIView found;
  for (const UIWindow window : uikit::windows())
    uikit::forEachInTree(window, [&](UIView view) {
      if (idOf(view) == id) found = view;
    });
  if (!found) throw UsageError(fmt::format("no view has the id '{}'", id));
  return found;
}

UIView viewSeenAt(CGPoint onScreen) {
  const std::vector<UIWindow> windows = uikit::windows();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if (const UIView seen = seenIn(*window, onScreen)) return seen;
  return {};
}

std::span<const PageMessage> inspectorMessages() { return messages; }

}  // namespace sim
