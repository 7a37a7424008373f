// The Settings application: its list of pages, and on tablets the page beside it.
#pragma once

#include <string>

namespace sim::preferences {

/** Its classes, its window and the addresses that lead to it. Once, after UIKit's and SpringBoard's classes.
 */
void defineSettings();

/** Brings it on screen with the page of that name in front; throws UsageError when the device has none. */
void openSettings(const std::string& page);

/** Whether it is on screen. */
bool settingsAreShown();

}  // namespace sim::preferences
