// NSString(FontAwesome): icons as text.
#pragma once

#include "platform/foundation/string.hpp"

namespace tilo {

struct IconString : bridge::Face<"NSString", NSString> {
  // The one character whose UTF-16 code is the icon's.
  static constexpr bridge::ClassMethod<"NSString", "fa_stringForFontAwesomeIcon:", NSString(NSUInteger)>
      fa_stringForFontAwesomeIcon{};
};

// The same, whoever else has a method of that name.
NSString iconString(NSUInteger icon);

// Gives NSString this method.
void addIconString();

}  // namespace tilo
