// The preference domain, as every process has it.
#pragma once

#include "platform/foundation/dictionary.hpp"

namespace tilo::pane {

// All that is stored; empty when nothing is.
NSDictionary storedValues();

// All at once; false when the system could not keep them.
bool store(NSDictionary values, NSArray removedKeys);

// Tells SpringBoard, where it serves the centre, of a setting's new value.
void announce(NSDictionary item, bridge::Object value);

// Every setting as it is at first; those that the first start does not write are removed. Layouts stay.
bool resetSettings();

}  // namespace tilo::pane
