// UIEvent: the fingers on the glass. There is one event, which follows them.
#pragma once

#include <vector>

#include "bridge/strong.hpp"
#include "platform/uikit/touch.hpp"
#include "simulator/uikit/base/array.hpp"

namespace sim::uikit {

/** A set of the objects; borrowed from the innermost pool. */
template <class T>
NSSet makeSet(const std::vector<T>& objects) {
  return NSSet::setWithArray(makeArray(objects));
}

/** The touches in a set of UITouch objects, in no order. Borrowed. */
std::vector<UITouch> touchesOf(NSSet set);

/** The touches that somebody has still to hear of, in the order in which the fingers came down. */
std::vector<bridge::Strong<UITouch>>& liveTouches();

UIEvent currentEvent();

}  // namespace sim::uikit
