// Judging, writing and handing on saved layouts.
#include "preferences/settings/layouts.hpp"

#include <cstdio>

#include "platform/foundation/dictionary.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/specifiers.hpp"
#include "settings/store/presets_file.hpp"
#include "settings/store/values.hpp"

namespace tilo::pane {
namespace {

constexpr const Key<Kind::number>* order[] = {&keys::horizontalPadding, &keys::verticalPadding,
                                              &keys::sideInset, &keys::topInset};

NSString prefix() { return "tilo:1:"_ns; }

// Nil, or what is wrong with one layout, which is the `place`th.
NSString faultIn(bridge::Object layout, NSUInteger place) {
  NSString called = joined("layout "_ns, asText(static_cast<double>(place)));
  if (!bridge::isKindOf<NSDictionary>(layout)) return joined(called, " is none"_ns);
  NSDictionary record = bridge::as<NSDictionary>(layout);
  NSString name = textIn(record, keys::name);
  if (name.length() == 0) return joined(called, " has no name"_ns);
  NSDictionary spacing = Values(record).values(keys::configuration);
  for (auto* key : order)
    if (!bridge::isKindOf<NSNumber>(spacing.objectForKey(NSString(*key))) ||
        !numberIn(spacing.objectForKey(NSString(*key))))
      return joined(joined("the layout '"_ns, name, "' has no number for "_ns), *key);
  if (!bridge::isKindOf<NSNumber>(record.objectForKey(NSString(keys::configurable))))
    return joined(joined("the layout '"_ns, name, "' has no number for "_ns), keys::configurable);
  return {};
}

// As few digits as give the same number in single precision again; six are the fewest that never write 30 as
// 3e+01.
NSString shortest(float value) {
  for (int digits = 6; digits < 9; ++digits) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*g", digits, static_cast<double>(value));
    NSString written = NSString::stringWithUTF8String(text);
    if (written.floatValue() == value) return written;
  }
  char text[40];
  std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
  return NSString::stringWithUTF8String(text);
}

bool isOneLine(NSString text) {
  for (NSUInteger i = 0; i < text.length(); ++i)
    if (text.characterAtIndex(i) < ' ' || text.characterAtIndex(i) == 0x7f) return false;
  return true;
}

// The whole of it is a number.
bool isNumber(NSString text) {
  bool digit = false;
  for (NSUInteger i = 0; i < text.length(); ++i) {
    unsigned short character = text.characterAtIndex(i);
    if (character >= '0' && character <= '9')
      digit = true;
    else if (character != '.' && character != 'e' && character != '+' && character != '-')
      return false;
  }
  return digit && numberIn(text);
}

NSString joinedFrom(NSArray parts, NSUInteger first) {
  NSString all = bridge::as<NSString>(parts.objectAtIndex(first));
  for (NSUInteger i = first + 1; i < parts.count(); ++i)
    all = joined(all, ":"_ns, bridge::as<NSString>(parts.objectAtIndex(i)));
  return all;
}

// Nil where the text is no layout.
NSDictionary layoutIn(NSString text, NSUInteger position) {
  NSArray parts = text.componentsSeparatedByString(":"_ns);
  if (parts.count() < 4 || !text.hasPrefix(prefix()) || !isOneLine(text)) return {};
  NSString name = joinedFrom(parts, 3);
  NSArray numbers = bridge::as<NSString>(parts.objectAtIndex(2)).componentsSeparatedByString(","_ns);
  bool scaled = numbers.count() == 5 && is(bridge::as<NSString>(numbers.objectAtIndex(4)), "scaled"_ns);
  if (name.length() == 0 || (numbers.count() != 4 && !scaled)) return {};
  NSMutableDictionary spacing = NSMutableDictionary::dictionary();
  for (NSUInteger i = 0; i < 4; ++i) {
    auto number = bridge::as<NSString>(numbers.objectAtIndex(i));
    if (!isNumber(number)) return {};
    spacing.setObject_forKey(NSNumber::numberWithFloat(number.floatValue()), NSString(*order[i]));
  }
  NSMutableDictionary layout = NSMutableDictionary::dictionary();
  layout.setObject_forKey(name, NSString(keys::name));
  layout.setObject_forKey(NSNumber::numberWithInt(static_cast<int>(position)), NSString(keys::value));
  layout.setObject_forKey(NSNumber::numberWithInt(scaled ? 0 : 1), NSString(keys::configurable));
  layout.setObject_forKey(spacing, NSString(keys::configuration));
  return layout;
}

}  // namespace

NSString faultInLayouts(NSArray layouts) {
  for (NSUInteger i = 0; i < layouts.count(); ++i)
    if (NSString fault = faultIn(layouts.objectAtIndex(i), i)) return fault;
  return {};
}

NSArray layoutsToKeep() {
  NSArray all = presets::load();
  NSMutableArray kept = NSMutableArray::array();
  for (NSUInteger i = 0; i < all.count(); ++i)
    if (!faultIn(all.objectAtIndex(i), i)) kept.addObject(all.objectAtIndex(i));
  return kept;
}

NSString textOfLayout(NSString name) {
  NSArray layouts = layoutsToKeep();
  for (NSUInteger i = 0; i < layouts.count(); ++i) {
    NSDictionary layout = bridge::as<NSDictionary>(layouts.objectAtIndex(i));
    if (!is(textIn(layout, keys::name), name)) continue;
    NSDictionary spacing = Values(layout).values(keys::configuration);
    NSString text = prefix();
    for (auto* key : order)
      text = joined(text, key == order[0] ? ""_ns : ","_ns, shortest(Values(spacing).number(*key)));
    return joined(text, Values(layout).flag(keys::configurable) ? ":"_ns : ",scaled:"_ns, name);
  }
  return {};
}

NSString pasteLayout(NSString text) {
  NSArray layouts = presets::load();
  if (!layouts) return "the presets file cannot be read"_ns;
  NSDictionary layout = layoutIn(text, layouts.count());
  if (!layout) return "this is no layout"_ns;
  NSMutableArray all = NSMutableArray::arrayWithArray(layouts);
  all.addObject(layout);
  bool written = presets::document(all).writeToFile_atomically(presets::path(), YES);
  return written ? NSString{} : "the presets file cannot be written"_ns;
}

}  // namespace tilo::pane
