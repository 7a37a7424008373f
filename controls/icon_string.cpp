// NSString(FontAwesome)'s method.
#include "controls/icon_string.hpp"

#include "bridge/replace.hpp"

namespace tilo {
namespace {

NSString stringForIcon(Class, NSUInteger icon) { return iconString(icon); }

}  // namespace

NSString iconString(NSUInteger icon) {
  const auto character = static_cast<unsigned short>(icon);
  return NSString::stringWithCharacters_length(&character, 1);
}

void addIconString() {
  constexpr auto icon = &IconString::fa_stringForFontAwesomeIcon;
  bridge::install(bridge::add<NSString, icon, stringForIcon>(bridge::Descriptor<icon>::types()));
}

}  // namespace tilo
