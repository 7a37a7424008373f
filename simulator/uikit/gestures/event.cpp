// UIEvent.
#include "simulator/uikit/gestures/event.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

double timestamp(UIEvent) {
  double latest = 0;
  for (const auto& touch : liveTouches()) latest = std::max(latest, touch->timestamp());
  return latest;
}

NSSet allTouches(UIEvent) { return makeSet(liveTouches()); }

NSSet touchesForView(UIEvent, UIView view) {
  std::vector<UITouch> found;
  for (const auto& touch : liveTouches())
    if (touch->view() == view) found.push_back(touch);
  return makeSet(found);
}

}  // namespace

std::vector<UITouch> touchesOf(NSSet set) {
  std::vector<UITouch> touches;
  const NSArray all = set.allObjects();
  for (NSUInteger i = 0; i < all.count(); ++i) touches.push_back(bridge::as<UITouch>(all.objectAtIndex(i)));
  return touches;
}

std::vector<Strong<UITouch>>& liveTouches() {
  static auto& all = *new std::vector<Strong<UITouch>>();
  return all;
}

UIEvent currentEvent() {
  static const id event = bridge::make<UIEvent, &NSObject::init>().leak();
  return bridge::as<UIEvent>(event);
}

void defineEvent() {
  using bridge::method;
  bridge::Implementation<UIEvent>::define<NSObject>(method<&UIEvent::timestamp, timestamp>(),
                                                    method<&UIEvent::allTouches, allTouches>(),
                                                    method<&UIEvent::touchesForView, touchesForView>());
}

}  // namespace sim::uikit
