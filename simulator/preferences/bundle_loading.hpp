// What the preference loader puts into Settings.
#pragma once

#include "platform/preferences/specifier.hpp"

namespace sim::preferences {

/** A row for each entry of the device's PreferenceLoader folder whose bundle is there, sorted by name.
 * Borrowed. */
NSArray loaderEntries();

/** Loads the executable of a bundle, once; throws UsageError when that fails. */
void loadBundle(const std::string& path);

}  // namespace sim::preferences
