// The table of a recogniser's states.
#include "simulator/uikit/gestures/gesture_state.hpp"

#include <set>
#include <utility>

#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

using sim::uikit::findTransition;

constexpr NSInteger possible = UIGestureRecognizerStatePossible, began = UIGestureRecognizerStateBegan,
                    changed = UIGestureRecognizerStateChanged, ended = UIGestureRecognizerStateEnded,
                    cancelled = UIGestureRecognizerStateCancelled, failed = UIGestureRecognizerStateFailed;

TEST(GestureState, HasTheDocumentedWaysOnly) {
  // confirmed: Apple documentation of UIGestureRecognizer, "state transitions"
  const std::set<std::pair<NSInteger, NSInteger>> ways = {
      {possible, ended},  {possible, failed}, {possible, began}, {began, changed},    {began, ended},
      {began, cancelled}, {changed, changed}, {changed, ended},  {changed, cancelled}};
  for (NSInteger from = possible; from <= failed; ++from)
    for (NSInteger to = possible; to <= failed; ++to)
      EXPECT_EQ(findTransition(from, to) != nullptr, ways.contains({from, to})) << from << " to " << to;
}

TEST(GestureState, FailureAloneIsSilent) {
  for (const auto& row : sim::uikit::gestureTransitions())
    EXPECT_EQ(row.sendsAction, row.to != failed) << row.from << " to " << row.to;
}

TEST(GestureState, SomeEndAGesture) {
  EXPECT_TRUE(sim::uikit::isTerminal(ended));
  EXPECT_TRUE(sim::uikit::isTerminal(cancelled));
  EXPECT_TRUE(sim::uikit::isTerminal(failed));
  EXPECT_FALSE(sim::uikit::isTerminal(changed));
  EXPECT_TRUE(sim::uikit::hasRecognized(began));
  EXPECT_TRUE(sim::uikit::hasRecognized(ended));
  EXPECT_FALSE(sim::uikit::hasRecognized(possible));
  EXPECT_FALSE(sim::uikit::hasRecognized(failed));
  EXPECT_FALSE(sim::uikit::hasRecognized(cancelled));
}

}  // namespace
}  // namespace test
