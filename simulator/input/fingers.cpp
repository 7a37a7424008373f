// Fingers on the glass, and the gestures they make.
#include "simulator/input/fingers.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "platform/uikit/touch.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"

namespace sim::input {
namespace {

constexpr double movesPerSecond = 60;  // as often as screens of the time tell of a finger

constexpr double swipeDuration = 0.15;  // seconds
constexpr double pressDuration = 0.3;
constexpr double swipeLength = 0.4;  // of the screen along its way
constexpr double edgeMargin = 0.5;   // points that a swipe keeps from the edge

// Of gestures; scripts count theirs from 0 on.
constexpr int ownFinger = -1, otherFinger = -2;

std::map<int, CGPoint>& down() {
  static auto& fingers = *new std::map<int, CGPoint>();
  return fingers;
}

void checkPlace(CGPoint place) {
  const CGSize screen = uikit::screenSize();
  if (place.x < 0 || place.y < 0 || place.x >= screen.width || place.y >= screen.height)
    throw UsageError(fmt::format("({}, {}) is not on the screen, which is {} x {} points", place.x, place.y,
                                 screen.width, screen.height));
}

void checkDown(int finger) {
  if (!down().contains(finger)) throw UsageError(fmt::format("finger {} is not down", finger));
}

void send(int finger, NSInteger phase, CGPoint place, double force) {
  uikit::sendFingers({{finger, phase, place, force}});
}

CGPoint onTheWay(CGPoint from, CGPoint to, double part) {
  return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

// Moves the gesture's finger in even steps; `at` gets the fraction of the way, which ends with exactly 1.
void moveOver(double seconds, auto at) {
  const int moves = std::max(1, static_cast<int>(std::lround(seconds * movesPerSecond)));
  const double start = clock::now();
  for (int i = 1; i <= moves; ++i) {
    const double part = static_cast<double>(i) / moves;
    letPass(start + seconds * part - clock::now());
    at(part);
  }
}

}  // namespace

void fingerDown(int finger, CGPoint place, double force) {
  checkPlace(place);
  if (down().contains(finger)) throw UsageError(fmt::format("finger {} is down already", finger));
  down()[finger] = place;
  send(finger, UITouchPhaseBegan, place, force);
  settle();
}

void fingerMove(int finger, CGPoint place, double force) {
  checkPlace(place);
  checkDown(finger);
  down()[finger] = place;
  send(finger, UITouchPhaseMoved, place, force);
  settle();
}

void fingerUp(int finger, CGPoint place) {
  checkPlace(place);
  checkDown(finger);
  down().erase(finger);
  send(finger, UITouchPhaseEnded, place, 0);
  settle();
}

void tap(CGPoint place) {
  fingerDown(ownFinger, place);
  letPass(tapDuration);
  fingerUp(ownFinger, place);
}

void tapAtOnce(CGPoint place) {
  fingerDown(ownFinger, place);
  fingerUp(ownFinger, place);
}

void twoFingerTap(CGPoint one, CGPoint other) {
  checkPlace(one);
  checkPlace(other);
  const auto both = [&](NSInteger phase, double force) {
    uikit::sendFingers({{ownFinger, phase, one, force}, {otherFinger, phase, other, force}});
  };
  both(UITouchPhaseBegan, usualForce);
  letPass(tapDuration);
  both(UITouchPhaseEnded, 0);
  settle();
}

void swipe(Direction direction, CGPoint from) {
  const CGSize screen = uikit::screenSize();
  CGPoint to = from;
  if (direction == Direction::up) to.y -= screen.height * swipeLength;
  if (direction == Direction::down) to.y += screen.height * swipeLength;
  if (direction == Direction::left) to.x -= screen.width * swipeLength;
  if (direction == Direction::right) to.x += screen.width * swipeLength;
  to.x = std::clamp<CGFloat>(to.x, edgeMargin, screen.width - edgeMargin);
  to.y = std::clamp<CGFloat>(to.y, edgeMargin, screen.height - edgeMargin);
  drag(from, to, swipeDuration);
}

void press(double force, CGPoint place) {
  fingerDown(ownFinger, place, 0);
  moveOver(pressDuration, [&](double part) { fingerMove(ownFinger, place, force * part); });
  fingerUp(ownFinger, place);
}

void drag(CGPoint from, CGPoint to, double seconds) {
  checkPlace(to);
  fingerDown(ownFinger, from);
  moveOver(seconds, [&](double part) { fingerMove(ownFinger, onTheWay(from, to, part)); });
  fingerUp(ownFinger, to);
}

void dragAtOnce(CGPoint from, CGPoint to, int moves) {
  checkPlace(to);
  fingerDown(ownFinger, from);
  for (int i = 1; i <= moves; ++i) fingerMove(ownFinger, onTheWay(from, to, static_cast<double>(i) / moves));
  fingerUp(ownFinger, to);
}

}  // namespace sim::input
