// Settings and layouts put in place together, all or nothing. What is to be done is written down first, and
// until it is done whoever starts next brings it to its end: Settings, or SpringBoard before it reads
// anything.
#pragma once

#include "platform/foundation/data.hpp"
#include "platform/foundation/dictionary.hpp"

namespace tilo::restoration {

// All values that there are to be, and the presets file's bytes with the layouts. False when the disk
// refuses; then all is as it was.
bool carryOut(NSDictionary values, NSData layouts);

// Brings to its end what a process was killed at. What the disk refuses is tried again the next time.
void finish();

}  // namespace tilo::restoration
