// PSSpecifier: a row of a page in Settings, as its property list describes it.
#pragma once

#include "platform/foundation/dictionary.hpp"

struct PSSpecifier : bridge::Face<"PSSpecifier", NSObject> {
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"target", bridge::Object()> target;
  // What the property list has of it.
  MESSAGE Method<"properties", NSMutableDictionary()> properties;
  MESSAGE Method<"propertyForKey:", bridge::Object(NSString)> propertyForKey;
  MESSAGE Method<"setProperty:forKey:", void(bridge::Object, NSString)> setProperty_forKey;
  // A list of choices: what is stored, and what is shown for it.
  MESSAGE Method<"values", NSArray()> values;
  MESSAGE Method<"titleDictionary", NSDictionary()> titleDictionary;
  MESSAGE Method<"setValues:titles:", void(NSArray, NSArray)> setValues_titles;
};
