// Class, geometry, colours and text of views.
#include "simulator/app/view_report.hpp"

#include <cmath>

#include "bridge/runtime.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/text_field.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim {
namespace {

int component(double value) { return static_cast<int>(std::lround(value * 255)); }

// Null for one that nobody sees.
Json color(const Color& color) {
  if (color.alpha <= 0) return nullptr;
  Json all = opaqueColor(color);
  all.push_back(number(color.alpha));
  return all;
}

Json transform(const CGAffineTransform& t) {
  return Json::array({number(t.a), number(t.b), number(t.c), number(t.d), number(t.tx), number(t.ty)});
}

// Labels and fields are the views that show a text of their own.
Json textOf(UIView view) {
  if (bridge::isKindOf<UILabel>(view)) return plain(bridge::as<UILabel>(view).text());
  if (bridge::isKindOf<UITextField>(view)) return plain(bridge::as<UITextField>(view).text());
  return nullptr;
}

Json textColorOf(UIView view) {
  if (bridge::isKindOf<UILabel>(view)) return color(uikit::colorOf(bridge::as<UILabel>(view).textColor()));
  if (bridge::isKindOf<UITextField>(view))
    return color(uikit::colorOf(bridge::as<UITextField>(view).textColor()));
  return nullptr;
}

}  // namespace

Json opaqueColor(const Color& color) {
  return Json::array({component(color.red), component(color.green), component(color.blue)});
}

Json describe(UIView view) {
  const LayerValues values = uikit::layerOf(view).presentation(clock::now());
  return {{"class", class_getName(bridge::classOf(view.raw))},
          {"frame", frame(uikit::layerOf(view).frame(clock::now()))},
          {"alpha", number(values.opacity)},
          {"hidden", static_cast<bool>(view.hidden())},
          {"transform", transform(values.transform)},
          {"background", color(values.backgroundColor)},
          {"textColor", textColorOf(view)},
          {"text", textOf(view)}};
}

Json viewTree(UIView view, Json (*description)(UIView)) {
  Json tree = description(view);
  Json children = Json::array();
  const NSArray subviews = view.subviews();
  for (NSUInteger i = 0; i < subviews.count(); ++i)
    children.push_back(viewTree(bridge::as<UIView>(subviews.objectAtIndex(i)), description));
  tree["children"] = std::move(children);
  return tree;
}

}  // namespace sim
