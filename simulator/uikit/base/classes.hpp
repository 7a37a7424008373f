// The classes of UIKit.
#pragma once

namespace sim::uikit {

/** Makes every class known by its name. Once is enough. */
void registerClasses();

}  // namespace sim::uikit
