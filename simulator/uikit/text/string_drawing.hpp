// Measuring strings.
#pragma once

namespace sim::uikit {

/** Adds UIKit's methods to NSString. */
void defineStringDrawing();

}  // namespace sim::uikit
