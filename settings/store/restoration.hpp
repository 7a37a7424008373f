// Settings and layouts put in place together, all or nothing. What is to be done is written down first, and
// until it is done whoever starts next brings it to its end: Settings, or SpringBoard before it reads
// anything.
#pragma once

#include "platform/foundation/data.hpp"
#include "platform/foundation/dictionary.hpp"

namespace tilo::restoration {

enum class Outcome {
  undone,   // the disk refused, and all is as it was
  pending,  // the disk refused to undo it too: it is done when the disk is well again
  done,
};

// All values that there are to be, and the presets file's bytes with the layouts.
Outcome carryOut(NSDictionary values, NSData layouts);

// Brings to its end what a process was killed at. What the disk refuses is tried again the next time.
void finish();

}  // namespace tilo::restoration
