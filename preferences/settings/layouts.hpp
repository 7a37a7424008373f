// The saved layouts as a whole, and one of them as a line of text:
//
//   tilo:1:11.5,26,14.5,30:Wide         horizontal and vertical padding, side and top inset, the name
//   tilo:1:11.5,26,14.5,30,scaled:Wide  one whose values are stretched to the screen
#pragma once

#include "platform/foundation/array.hpp"

namespace tilo::pane {

// Nil, or what is wrong with a list of layouts.
NSString faultInLayouts(NSArray layouts);

// Those of the presets file that are layouts.
NSArray layoutsToKeep();

// The first layout of that name as a line; nil when there is none.
NSString textOfLayout(NSString name);

// Adds the layout that the text is. Nil, or what is wrong with it; then nothing has changed.
NSString pasteLayout(NSString text);

}  // namespace tilo::pane
