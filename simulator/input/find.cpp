// Finding what bears a name.
#include "simulator/input/find.hpp"

#include <fmt/format.h>

#include <map>
#include <vector>

#include "bridge/runtime.hpp"
#include "platform/springboard/panel_parts.hpp"
#include "platform/uikit/control.hpp"
#include "platform/uikit/label.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::input {
namespace {

constexpr double leastAlpha = 0.01;  // below which a view takes no touches

// What bears a name, and the part of it that is looked at.
struct Thing {
  UIView view, part;
};

// Without those at either end.
std::string_view withoutSpaces(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

template <class T>
UIView nearestAbove(UIView view) {
  for (; view; view = view.superview())
    if (bridge::isKindOf<T>(view)) return view;
  return {};
}

bool isCloseBox(UIView view) {
  return bridge::isKindOf<SBCloseBoxView>(view) || bridge::isKindOf<SBXCloseBoxView>(view);
}

// Things without words of their own, as people call them.
std::map<std::string, std::string, std::less<>>& glyphs() {
  static auto& names = *new std::map<std::string, std::string, std::less<>>();
  return names;
}

bool isCalled(UILabel label, std::string_view name) {
  const auto glyph = glyphs().find(name);
  const NSString text = label.text();
  return glyph != glyphs().end() && text && withoutSpaces(text.UTF8String()) == glyph->second;
}

std::string textOf(NSString text) { return text ? withoutGlyphs(text.UTF8String()) : ""; }

// The thing that a view names by its text, where it has one of that name.
std::optional<Thing> thingNamed(UIView view, std::string_view name) {
  if (bridge::isKindOf<SBIconView>(view)) {
    const auto icon = bridge::as<SBIconView>(view);
    if (textOf(springboard::nameOf(springboard::iconOf(icon))) == name)
      return Thing{view, springboard::imageViewOf(icon)};
  }
  if (isCloseBox(view) && name == "close") return Thing{view, view};
  if (!bridge::isKindOf<UILabel>(view)) return std::nullopt;
  const auto label = bridge::as<UILabel>(view);
  if (textOf(label.text()) != name && !isCalled(label, name)) return std::nullopt;
  const UIView control = nearestAbove<UIControl>(view);
  return control ? Thing{control, control} : Thing{view, view};
}

// Front to back, in these trees.
std::vector<Thing> thingsNamed(std::string_view name, const std::vector<UIView>& trees) {
  std::vector<Thing> found;
  for (const UIView tree : trees)
    uikit::forEachInTree(tree, [&](UIView view) {
      if (const std::optional<Thing> thing = thingNamed(view, name)) found.push_back(*thing);
    });
  return {found.rbegin(), found.rend()};
}

bool isHidden(UIView view) {
  for (; view; view = view.superview())
    if (view.hidden() || view.alpha() < leastAlpha) return true;
  return false;
}

bool isDisabled(UIView view) {
  if (bridge::isKindOf<UIControl>(view) && !bridge::as<UIControl>(view).enabled()) return true;
  // A plain label takes no touches itself; those above it do.
  if (bridge::isKindOf<UILabel>(view)) view = view.superview();
  for (; view; view = view.superview())
    if (!view.userInteractionEnabled()) return true;
  return false;
}

// Whether something that cuts off what sticks out of it leaves that point out.
bool isCutOff(UIView view, CGPoint onScreen) {
  for (; view; view = view.superview()) {
    if (!view.clipsToBounds()) continue;
    const CGPoint at = sim::convertPoint(onScreen, nullptr, &uikit::layerOf(view));
    if (!view.pointInside_withEvent(at, {})) return true;
  }
  return false;
}

bool isOnScreen(CGPoint point) {
  const CGSize screen = uikit::screenSize();
  return point.x >= 0 && point.y >= 0 && point.x < screen.width && point.y < screen.height;
}

bool isGlyph(std::string_view text, std::size_t at) {
  // U+E000 to U+F8FF in UTF-8: EE 80 80 to EF A3 BF.
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
  if (at + 2 >= text.size()) return false;
  return byte(0) == 0xEE || (byte(0) == 0xEF && byte(1) <= 0xA3);
}

bool isAnimated(UIView view) {
  for (; view; view = view.superview())
    if (uikit::ignoresTouches(uikit::layerObjectOf(view))) return true;
  return false;
}

}  // namespace

CGPoint middleOnScreen(UIView view) {
  const CGRect bounds = view.bounds();
  return sim::convertPoint(
      {bounds.origin.x + bounds.size.width / 2, bounds.origin.y + bounds.size.height / 2},
      &uikit::layerOf(view), nullptr);
}

std::string obstacle(UIView view, UIView part, CGPoint place) {
  if (isHidden(part)) return "is hidden";
  if (!isOnScreen(place)) return "is not on the screen";
  if (isCutOff(part, place)) return "is out of sight";
  if (isDisabled(view)) return "is disabled";
  const UIView hit = uikit::viewAt(place);
  if (hit && hit.isDescendantOfView(view)) return "";
  if (hit && bridge::isKindOf<UILabel>(view) && view.isDescendantOfView(hit)) return "";
  if (isAnimated(view)) return "takes no touches while it is animated";
  return hit ? fmt::format("is covered by a {}", class_getName(bridge::classOf(hit.raw)))
             : "takes no touches now";
}

std::string withoutGlyphs(std::string_view text) {
  std::string kept;
  for (std::size_t at = 0; at < text.size();) {
    if (isGlyph(text, at)) {
      at += 3;
    } else {
      kept += text[at++];
    }
  }
  return std::string(withoutSpaces(kept));
}

void callGlyph(std::string glyph, std::string name) { glyphs()[std::move(name)] = std::move(glyph); }

CGPoint findNamed(std::string_view name) {
  const std::vector<UIWindow> windows = uikit::windows();
  return findNamed(name, {windows.begin(), windows.end()});
}

CGPoint findNamed(std::string_view name, const std::vector<UIView>& trees) {
  const bridge::Pool pool;
  uikit::layoutPass();
  std::string why;
  for (const Thing& thing : thingsNamed(name, trees)) {
    const CGPoint middle = middleOnScreen(thing.part);
    const std::string reason = obstacle(thing.view, thing.part, middle);
    if (reason.empty()) return middle;
    if (why.empty()) why = reason;
  }
  throw UsageError(why.empty() ? fmt::format("nothing is called \"{}\"", name)
                               : fmt::format("\"{}\" {}", name, why));
}

CGPoint findView(UIView view, std::string_view name) {
  uikit::layoutPass();
  const CGPoint middle = middleOnScreen(view);
  const std::string reason = obstacle(view, view, middle);
  if (!reason.empty()) throw UsageError(fmt::format("{} {}", name, reason));
  return middle;
}

}  // namespace sim::input
