// ConfigurationManager: the preference domain, read once when it is created and written one value at a time.
#pragma once

#include "bridge/property.hpp"
#include "platform/foundation/dictionary.hpp"

namespace tilo {

struct ConfigurationManager : bridge::Face<"ConfigurationManager", NSObject> {
  static constexpr bridge::ClassMethod<"ConfigurationManager", "sharedManager", ConfigurationManager()>
      sharedManager{};
  // Every key of the domain as it was at creation, and what was saved since; nil when the domain was empty.
  MESSAGE Property<"configuration", NSMutableDictionary> configuration;
  MESSAGE Method<"sync", void()> sync;
  // One less than the stored count; 6 and 4 as they stand when none is stored.
  MESSAGE Method<"rows", int()> rows;
  MESSAGE Method<"columns", int()> columns;
  MESSAGE Method<"saveWithKey:value:", void(NSString, bridge::Object)> saveWithKey_value;
};

void defineConfigurationManager();

}  // namespace tilo
