// What moves by steps from frame to frame rather than by an animation of a layer.
#pragma once

#include <functional>
#include <optional>

namespace sim::uikit {

/**
 * Calls `step` 60 times a second, with the moment it is meant for (seconds), from the next frame on until it
 * answers false. It takes the place of an earlier one of the same owner, who must stop it before it dies.
 * runAnimationEvents does the calling.
 */
void everyFrame(const void* owner, std::function<bool(double time)> step);
void stopFrames(const void* owner);

/** When the next frame is due for anybody; none when nobody waits. */
std::optional<double> nextFrame();
/** Calls the first one that waits for a frame at `time`, or has missed it. */
void runFrame(double time);

}  // namespace sim::uikit
