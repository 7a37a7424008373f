// The catalogue as users read it.
#pragma once

#include <string>

#include "simulator/json/json.hpp"

namespace sim {

/** One line a model under a line of headings; each ends with a newline. */
std::string deviceTable();

/**
 * An array with one object a model: `name`, `points` [w, h], `scale`, `nativePixels` [w, h], `idiom` ("phone"
 * or "pad"), `systemVersions` [first, last], `rows` and `columns`, and `landscape` {`rows`, `columns`} or
 * null where the home screen does not turn.
 */
Json deviceJson();

}  // namespace sim
