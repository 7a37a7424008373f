// Fingers on the glass, and the gestures they make. Locations are points of the screen as it is turned.
#pragma once

#include "platform/coregraphics/geometry.hpp"

namespace sim::input {

/** The force of an average touch, as UITouch counts it. */
inline constexpr double usualForce = 1;

// One finger of several. They take no time. Each throws UsageError when the place is not on the screen, and
// when the finger is down already or not down.

void fingerDown(int finger, CGPoint place, double force = usualForce);
void fingerMove(int finger, CGPoint place, double force = usualForce);
void fingerUp(int finger, CGPoint place);

enum class Direction { up, down, left, right };

inline constexpr double tapDuration = 0.05;  // seconds

// Whole gestures, with fingers of their own. Time passes while they are made, and what falls due meanwhile
// happens. Throw UsageError when a place is not on the screen.

/** Takes tapDuration. */
void tap(CGPoint place);
/** Takes no time. */
void tapAtOnce(CGPoint place);
/** Two fingers together, 0.05 s. */
void twoFingerTap(CGPoint one, CGPoint other);
/** Flicks from there over two fifths of the screen, or as far as its edge, in 0.15 s. */
void swipe(Direction direction, CGPoint from);
/** Presses ever harder up to exactly `force`, and lifts: 0.3 s. */
void press(double force, CGPoint place);
/** At even speed. */
void drag(CGPoint from, CGPoint to, double seconds);
/** In so many even moves, which take no time. */
void dragAtOnce(CGPoint from, CGPoint to, int moves);

}  // namespace sim::input
