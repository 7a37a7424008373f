// The presets file: named layouts, as JSON, in the order in which they were saved.
//
//   {"configurations": [{"name": …, "value": …, "configurable": 1, "configuration": {"vertical_padding":
//   …}}]}
#pragma once

#include "platform/foundation/array.hpp"

namespace tilo::presets {

// The presets in file order, or nil when the file cannot be read or is of another shape. A file that is
// missing is created without presets; one that exists is never changed by reading it.
NSArray load();

}  // namespace tilo::presets
