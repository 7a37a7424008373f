// The presets file: named layouts, as JSON, in the order in which they were saved.
//
//   {"configurations": [{"name": …, "value": …, "configurable": 1, "configuration": {"vertical_padding":
//   …}}]}
#pragma once

#include "platform/foundation/array.hpp"
#include "platform/foundation/data.hpp"
#include "platform/foundation/dictionary.hpp"

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

// A copy of the preset at that position, which is its "value": the stored ones may have gaps and repeats. Nil
// where there is none.
bridge::Strong<NSMutableDictionary> at(NSArray presets, int position);

// In place of the file's presets, all at once or not at all. A write that fails changes nothing and is not
// told. What was no presets file is kept beside it as "config.damaged.json".
void save(NSArray presets);

}  // namespace tilo::presets
