// Which classes and methods SpringBoard has in the system version in use.
#pragma once

#include "simulator/device/version.hpp"

namespace sim::springboard {

// What SpringBoard's classes answer: what they do on a device of that version, or also, for trying what no
// version does, each method that the library names.
enum class Methods { real, complete };

// Call once, before SpringBoard's classes are defined.
void useClasses(Version version, Methods methods);

bool isComplete();

// The parent of that class; null when the version in use has no such class.
const char* superclassOf(const char* className);

// Whether no version has that method, and the library names it none the less.
bool isOnlyNamed(const char* className, bool ofClass, const char* selector);

// Whether the class has that method itself. Ends with std::logic_error for a method that the table does not
// know: what is implemented has to be listed.
bool hasOwnMethod(const char* className, bool ofClass, const char* selector);

}  // namespace sim::springboard
