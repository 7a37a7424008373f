// What UIKit adds to strings: their measures as drawn.
#pragma once

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/string.hpp"

// NSStringDrawingOptions
enum : NSInteger {
  NSStringDrawingUsesLineFragmentOrigin = 1,  // several lines
  NSStringDrawingUsesFontLeading = 2
};

// The key of a text's UIFont among its attributes.
extern "C" const id NSFontAttributeName;

struct NSExtendedStringDrawing : bridge::Face<"NSString", NSString> {
  // Points, not rounded; at most as wide as the size says.
  MESSAGE Method<"boundingRectWithSize:options:attributes:context:",
                 CGRect(CGSize, NSInteger, NSDictionary, bridge::Object)>
      boundingRectWithSize_options_attributes_context;
};
