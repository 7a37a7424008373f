// Telling views of touches.
#pragma once

#include "platform/uikit/touch.hpp"

namespace sim::uikit {

/**
 * Tells each view what it has still to hear of its touches, as far as no recogniser withholds it, and that a
 * touch was cancelled where a recogniser has taken it over.
 */
void deliverToViews();

}  // namespace sim::uikit
