// The preference domain, as every process has it.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"

namespace tilo::pane {

// All that is stored; empty when nothing is.
NSDictionary storedValues();

// Settings may be opened between the installation and the respring.
bool isBeforeFirstStart();

// Before the first start with all that this would write. False when the system could not keep it.
bool store(NSNumber value, NSString key);

// Tells SpringBoard, where it serves the centre, of a setting's new value.
void announce(NSDictionary item, bridge::Object value);

// Every setting as it is at first; those that the first start does not write are removed. Layouts stay.
bool resetSettings();

}  // namespace tilo::pane
