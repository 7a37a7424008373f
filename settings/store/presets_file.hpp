// The presets file: named layouts, as JSON, in the order in which they were saved.
//
//   {"configurations": [{"name": …, "value": …, "configurable": 1, "configuration": {"vertical_padding":
//   …}}]}
#pragma once

#include "platform/foundation/array.hpp"
#include "platform/foundation/data.hpp"

namespace tilo::presets {

NSString path();
// Makes the folder that the file lies in, where there is none.
void makeFolder();
// What the file holds where these are its presets; nil where JSON has no form for them.
NSData document(NSArray presets);

// The presets in file order, or nil when the file cannot be read or is of another shape. A file that is
// missing is created with the presets that are given, or without any; one that exists is never changed by
// reading it.
NSArray load(NSArray initial = {});

// Copies of the presets whose "value" is their position. The stored values may have gaps and repeats.
bridge::Strong<NSMutableArray> renumbered(NSArray presets);

// In place of the file's presets, all at once or not at all. A write that fails changes nothing and is not
// told. What was no presets file is kept beside it as "config.damaged.json".
void save(NSArray presets);

}  // namespace tilo::presets
