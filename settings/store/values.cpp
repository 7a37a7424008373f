// The one checked read of stored values, and the current preferences.
#include "settings/store/values.hpp"

#include <algorithm>
#include <limits>

#include "platform/foundation/scanner.hpp"

namespace tilo {
namespace {

// Infinity less itself is no number, as is what is none already.
bool isFinite(double value) { return value - value == 0; }

bool beginsWithNumber(NSString text) {
  double value{};
  return NSScanner::scannerWithString(text).scanDouble(&value) && isFinite(value);
}

}  // namespace

[[clang::no_destroy]] constinit bridge::Strong<NSMutableDictionary> rootObj;

// A string answers what is asked of numbers here.
NSNumber numberIn(bridge::Object stored) {
  auto number = bridge::as<NSNumber>(stored);
  bool counts = bridge::isKindOf<NSNumber>(stored)
                    ? isFinite(number.doubleValue())
                    : bridge::isKindOf<NSString>(stored) && beginsWithNumber(bridge::as<NSString>(stored));
  return counts ? number : NSNumber{};
}

// A number, which nearly everything is, is asked once.
float floatIn(bridge::Object stored) {
  constexpr double most = std::numeric_limits<float>::max();
  const double value = bridge::isKindOf<NSNumber>(stored) ? bridge::as<NSNumber>(stored).doubleValue()
                                                          : numberIn(stored).doubleValue();
  return isFinite(value) ? static_cast<float>(std::clamp(value, -most, most)) : 0;
}

// A number of no more than that is asked once: from there on doubles and integers of 32 bits part.
std::optional<NSInteger> integerIn(bridge::Object stored) {
  constexpr double most = 1e9;
  if (bridge::isKindOf<NSNumber>(stored)) {
    const double value = bridge::as<NSNumber>(stored).doubleValue();
    if (-most <= value && value <= most) return static_cast<NSInteger>(value);
  }
  const NSNumber number = numberIn(stored);
  return number ? std::optional(number.integerValue()) : std::nullopt;
}

BOOL truthIn(bridge::Object stored) {
  auto number = bridge::as<NSNumber>(stored);
  if (bridge::isKindOf<NSNumber>(stored)) {
    const double value = number.doubleValue();
    return value != 0 && isFinite(value);
  }
  return bridge::isKindOf<NSString>(stored) && number.boolValue();
}

}  // namespace tilo
