// The states of a gesture recogniser and the ways between them.
#include "simulator/uikit/gestures/gesture_state.hpp"

namespace sim::uikit {
namespace {

constexpr NSInteger possible = UIGestureRecognizerStatePossible;
constexpr NSInteger began = UIGestureRecognizerStateBegan;
constexpr NSInteger changed = UIGestureRecognizerStateChanged;
constexpr NSInteger ended = UIGestureRecognizerStateEnded;
constexpr NSInteger cancelled = UIGestureRecognizerStateCancelled;
constexpr NSInteger failed = UIGestureRecognizerStateFailed;

constexpr GestureTransition transitions[] = {
    // A discrete gesture is recognised or not.
    {possible, ended, true},
    {possible, failed, false},
    // A continuous one begins, goes on and comes to an end.
    {possible, began, true},
    {began, changed, true},
    {began, ended, true},
    {began, cancelled, true},
    {changed, changed, true},
    {changed, ended, true},
    {changed, cancelled, true},
};

}  // namespace

std::span<const GestureTransition> gestureTransitions() { return transitions; }

const GestureTransition* findTransition(NSInteger from, NSInteger to) {
  for (const GestureTransition& row : transitions)
    if (row.from == from && row.to == to) return &row;
  return nullptr;
}

bool hasRecognized(NSInteger state) { return state == began || state == changed || state == ended; }

bool isTerminal(NSInteger state) { return state == ended || state == cancelled || state == failed; }

}  // namespace sim::uikit
