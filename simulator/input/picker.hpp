// Turning a picker's wheel.
#pragma once

namespace sim::input {

/**
 * Turns the front picker's first wheel to a row, counted from 0, by as many drags as it takes; no time
 * passes. A wheel that stands there is nudged, so that its picker tells of the row all the same. Throws
 * UsageError when there is no picker, it has no such row, or it cannot be reached.
 */
void pickRow(int row);

}  // namespace sim::input
