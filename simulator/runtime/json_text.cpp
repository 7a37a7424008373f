// GNUstep puts a blank after every colon and comma, the device only when it is asked for a readable text. And
// GNUstep takes texts that go on behind their end, are no UTF-8, or are nested until its stack is full; and
// is ten times as long at it, so that it reads only what is to be changed afterwards.
#include "simulator/runtime/json_text.hpp"

#include <string>
#include <string_view>

#include "bridge/replace.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/json.hpp"
#include "simulator/runtime/json_reader.hpp"

namespace sim {
namespace {

struct NSError : bridge::Face<"NSError", NSObject> {
  static constexpr bridge::ClassMethod<"NSError", "errorWithDomain:code:userInfo:",
                                       NSError(NSString, NSInteger, NSDictionary)>
      errorWithDomain_code_userInfo{};
};

using Read = bridge::Descriptor<&NSJSONSerialization::JSONObjectWithData_options_error>;
using Write = bridge::Descriptor<&NSJSONSerialization::dataWithJSONObject_options_error>;
bridge::Slot readSlot, writeSlot;

constexpr NSUInteger prettyPrinted = 1;   // NSJSONWritingPrettyPrinted
constexpr NSInteger corruptError = 3840;  // NSPropertyListReadCorruptError
constexpr int deepestNesting = 512;       // assumed

std::string_view textOf(NSData data) { return {static_cast<const char*>(data.bytes()), data.length()}; }

// Calls `each` with every character of a JSON text and whether it is part of a string.
template <class Each>
void walk(std::string_view text, Each each) {
  bool inString = false, escaped = false;
  for (char c : text) {
    bool quote = c == '"' && !escaped;
    each(c, inString || quote);
    inString ^= quote;
    escaped = c == '\\' && !escaped;
  }
}

NSData withoutBlanks(NSData data) {
  std::string compact;
  walk(textOf(data), [&](char c, bool inString) {
    if (inString || !std::string_view(" \t\r\n").contains(c)) compact += c;
  });
  return NSData::dataWithBytes_length(compact.data(), compact.size());
}

id readJson(id self, SEL selector, id data, NSUInteger options, id* error) {
  auto read = readJsonText(textOf(bridge::as<NSData>(data)), deepestNesting);
  if (!read) {
    if (error) *error = NSError::errorWithDomain_code_userInfo("NSCocoaErrorDomain"_ns, corruptError, {}).raw;
    return nullptr;
  }
  if (options == 0) return std::move(read).autoreleased().raw;
  return reinterpret_cast<decltype(&readJson)>(readSlot.implementation())(self, selector, data, options,
                                                                          error);
}

id writeJson(id self, SEL selector, id object, NSUInteger options, id* error) {
  id written = reinterpret_cast<decltype(&writeJson)>(writeSlot.implementation())(self, selector, object,
                                                                                  options, error);
  return written && !(options & prettyPrinted) ? withoutBlanks(bridge::as<NSData>(written)).raw : written;
}

}  // namespace

void useDeviceJson() {
  Class meta = bridge::classOf(reinterpret_cast<id>(bridge::classNamed<NSJSONSerialization>()));
  bridge::replaceMethod(meta, Read::selector(), reinterpret_cast<IMP>(&readJson), readSlot);
  bridge::replaceMethod(meta, Write::selector(), reinterpret_cast<IMP>(&writeJson), writeSlot);
}

}  // namespace sim
