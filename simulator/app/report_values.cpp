// From Foundation's objects and from lengths to JSON.
#include "simulator/app/report_values.hpp"

#include <cmath>
#include <map>
#include <string>

#include "platform/foundation/dictionary.hpp"
#include "simulator/runtime/number_form.hpp"

namespace sim {
namespace {

Json plainNumber(NSNumber value) {
  const NumberForm form = formOf(value);
  if (form == NumberForm::truth) return static_cast<bool>(value.boolValue());
  if (form == NumberForm::real) return number(value.doubleValue());
  return value.longLongValue();
}

Json plainArray(NSArray array) {
  Json list = Json::array();
  for (NSUInteger i = 0; i < array.count(); ++i) list.push_back(plain(array.objectAtIndex(i)));
  return list;
}

Json plainDictionary(NSDictionary dictionary) {
  std::map<std::string, Json> sorted;
  NSArray keys = dictionary.allKeys();
  for (NSUInteger i = 0; i < keys.count(); ++i) {
    bridge::Object key = keys.objectAtIndex(i);
    sorted[bridge::as<NSObject>(key).description().UTF8String()] = plain(dictionary.objectForKey(key));
  }
  Json object = Json::object();
  for (auto& [key, value] : sorted) object[key] = std::move(value);
  return object;
}

}  // namespace

Json number(double value) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
  return value;
}

Json frame(const CGRect& rect) {
  return Json::array(
      {number(rect.origin.x), number(rect.origin.y), number(rect.size.width), number(rect.size.height)});
}

Json plain(bridge::Object object) {
  if (!object) return nullptr;
  if (bridge::isKindOf<NSString>(object)) return bridge::as<NSString>(object).UTF8String();
  if (bridge::isKindOf<NSNumber>(object)) return plainNumber(bridge::as<NSNumber>(object));
  if (bridge::isKindOf<NSArray>(object)) return plainArray(bridge::as<NSArray>(object));
  if (bridge::isKindOf<NSDictionary>(object)) return plainDictionary(bridge::as<NSDictionary>(object));
  return bridge::as<NSObject>(object).description().UTF8String();
}

}  // namespace sim
