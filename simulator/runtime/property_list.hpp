// Reading property lists, in whatever of their forms, and writing them as the device does.
#pragma once

#include "platform/foundation/data.hpp"
#include "platform/foundation/dictionary.hpp"

namespace sim {

// Whether it can be written as one: objects of other kinds GNUstep would write as their descriptions.
bool isPropertyList(bridge::Object object);

// Keys and values of the file, XML or binary; nil when it cannot be read or holds something else. Borrowed.
NSDictionary propertyList(NSString file);
NSDictionary propertyList(NSData bytes);

// The same with doubles for floats: Foundation writes seven digits of a float, which takes nine. Borrowed.
bridge::Object withAllDigits(bridge::Object object);

// These keys and values as the device writes them; nil where they are of kinds that it has no form for.
// Borrowed.
NSData propertyListText(NSDictionary values);

// From now on dictionaries are written to files as XML in UTF-8, whatever their values, and read from files
// as above. Call once.
void handlePropertyListsAsTheDevice();

}  // namespace sim
