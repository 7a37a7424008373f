// NSAttributedString.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/range.hpp"

// The key under which UIKit looks for the colour of a text.
extern "C" const id NSForegroundColorAttributeName;

struct NSAttributedString : bridge::Face<"NSAttributedString", NSObject> {
  MESSAGE Method<"initWithString:attributes:", NSAttributedString(NSString, NSDictionary)>
      initWithString_attributes;
  MESSAGE Method<"string", NSString()> string;
  // The range that shares the attributes is a result and may be null.
  MESSAGE Method<"attributesAtIndex:effectiveRange:", NSDictionary(NSUInteger, NSRange*)>
      attributesAtIndex_effectiveRange;
};
