// Checks of values against kind and range.
#include "preferences/settings/checks.hpp"

#include <algorithm>
#include <cstdio>

#include "preferences/settings/specifiers.hpp"
#include "settings/store/values.hpp"

namespace tilo::pane {
namespace {

double numberAt(NSDictionary item, NSString key) {
  return bridge::as<NSNumber>(item.objectForKey(key)).doubleValue();
}

bool isBoolean(NSDictionary item) { return is(textIn(item, "kind"_ns), "boolean"_ns); }
bool isWhole(NSDictionary item) { return truthIn(item.objectForKey("whole"_ns)); }

// Truth values are characters to the runtime.
bool isTruth(NSNumber number) {
  char type = *number.objCType();
  return type == 'c' || type == 'C' || type == 'B';
}

bool isNumber(bridge::Object given) {
  return bridge::isKindOf<NSNumber>(given) && !isTruth(bridge::as<NSNumber>(given)) && numberIn(given);
}

// Nearer to what people mean than rounding half up of a negative number would be; and no library needed.
double rounded(double value) {
  constexpr double beyondCounts = 1e9;
  value = std::clamp(value, -beyondCounts, beyondCounts);
  return static_cast<double>(static_cast<int>(value < 0 ? value - 0.5 : value + 0.5));
}

NSNumber numberOf(NSArray values, NSUInteger place) {
  return bridge::as<NSNumber>(values.objectAtIndex(place));
}

Checked fault(NSString text) { return {{}, text}; }

NSString choicesOf(NSArray titles) {
  NSString all = ""_ns;
  for (NSUInteger i = 0; i < titles.count(); ++i)
    all = joined(all, i == 0 ? ""_ns : ", "_ns, bridge::as<NSString>(titles.objectAtIndex(i)));
  return all;
}

Checked checkedChoice(NSDictionary item, bridge::Object given) {
  NSArray values = listIn(item, "validValues"_ns), titles = listIn(item, "validTitles"_ns);
  for (NSUInteger i = 0; i < values.count(); ++i) {
    bool titled = bridge::isKindOf<NSString>(given) &&
                  is(bridge::as<NSString>(given), bridge::as<NSString>(titles.objectAtIndex(i)));
    bool numbered =
        isNumber(given) && bridge::as<NSNumber>(given).doubleValue() == numberOf(values, i).doubleValue();
    if (titled || numbered) return {numberOf(values, i), {}};
  }
  return fault(joined("has to be one of "_ns, choicesOf(titles)));
}

// As many titles as values, and at least one.
bool hasChoices(NSDictionary item) {
  NSArray values = listIn(item, "validValues"_ns), titles = listIn(item, "validTitles"_ns);
  if (values.count() == 0 || values.count() != titles.count()) return false;
  for (NSUInteger i = 0; i < values.count(); ++i)
    if (!isNumber(values.objectAtIndex(i)) || !bridge::isKindOf<NSString>(titles.objectAtIndex(i)))
      return false;
  return true;
}

bool hasRange(NSDictionary item) {
  return isNumber(item.objectForKey("min"_ns)) && isNumber(item.objectForKey("max"_ns)) &&
         numberAt(item, "min"_ns) <= numberAt(item, "max"_ns);
}

}  // namespace

bool isSound(NSDictionary item) {
  bool hasKind = isBoolean(item) || (item.objectForKey("validValues"_ns) ? hasChoices(item) : hasRange(item));
  if (!hasKind) return false;
  bridge::Object initial = item.objectForKey("default"_ns);
  return !initial || checked(item, initial).value;
}

NSString joined(NSString one, NSString two, NSString three) {
  NSString both = one.stringByAppendingString(two);
  return three ? both.stringByAppendingString(three) : both;
}

NSString asText(double number) {
  char text[40];
  std::snprintf(text, sizeof text, "%.7g", number);
  return NSString::stringWithUTF8String(text);
}

Checked checked(NSDictionary item, bridge::Object given) {
  if (isBoolean(item)) {
    if (!bridge::isKindOf<NSNumber>(given) || !isTruth(bridge::as<NSNumber>(given)))
      return fault("has to be YES or NO"_ns);
    return {NSNumber::numberWithBool(bridge::as<NSNumber>(given).boolValue()), {}};
  }
  if (listIn(item, "validValues"_ns)) return checkedChoice(item, given);
  double least = numberAt(item, "min"_ns), most = numberAt(item, "max"_ns);
  NSString range = joined(asText(least), " to "_ns, asText(most));
  bool whole = isWhole(item);
  if (!isNumber(given)) return fault(joined("has to be a number, "_ns, range));
  double value = bridge::as<NSNumber>(given).doubleValue();
  if (value < least || value > most) return fault(joined("has to be from "_ns, range));
  if (whole && value != rounded(value)) return fault(joined("has to be a whole number, "_ns, range));
  return {NSNumber::numberWithFloat(static_cast<float>(value)), {}};
}

NSNumber nearest(NSDictionary item, bridge::Object stored) {
  if (isBoolean(item)) return NSNumber::numberWithBool(truthIn(stored));
  bridge::Object read = numberIn(stored);
  if (!read && !stored) read = item.objectForKey("absent"_ns);
  double value = numberIn(read).doubleValue();
  if (NSArray values = listIn(item, "validValues"_ns)) {
    NSNumber best;
    auto distance = [&](NSNumber number) {
      double apart = number.doubleValue() - value;
      return apart < 0 ? -apart : apart;
    };
    for (NSUInteger i = 0; i < values.count(); ++i)
      if (NSNumber each = numberOf(values, i); !best || distance(each) < distance(best)) best = each;
    return best;
  }
  value = std::clamp(value, numberAt(item, "min"_ns), numberAt(item, "max"_ns));
  if (isWhole(item)) value = rounded(value);
  return NSNumber::numberWithFloat(static_cast<float>(value));
}

}  // namespace tilo::pane
