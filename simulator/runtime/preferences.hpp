// The preference domains, each a property list on the device's file system.
#pragma once

#include <filesystem>

#include "platform/foundation/dictionary.hpp"

namespace sim {

// All values of a domain as this process reads them, those included that could not be written; nil when there
// are none. Borrowed.
NSDictionary preferenceDomain(NSString domain);

// What the domain's file holds, which is what another process reads; nil when there is none that can be read.
// Borrowed.
NSDictionary storedPreferences(NSString domain);

// Sets one value, or removes it (nil), as CFPreferencesSetValue does. False when the value is kept in this
// process's memory only, since the file cannot be parsed or the disk refuses it.
bool setPreference(NSString domain, NSString key, bridge::Object value);

// Sets the values and removes the keys in one go, as CFPreferencesSetMultiple does.
void setPreferences(NSString domain, NSDictionary values, NSArray removedKeys);

// Whether nothing of the domain is kept in this process's memory only.
bool preferencesAreSaved(NSString domain);

// Removes what processes that were killed while they wrote have left beside the domains' files of the device
// with that root.
void removeUnfinishedPreferences(const std::filesystem::path& root);

}  // namespace sim
