// The page's specifier file, whatever somebody left in it: items with keys, each of which judges what is
// given for it and what is stored.
#include "preferences/settings/specifiers.hpp"

#include <iterator>

#include "platform/foundation/null.hpp"
#include "preferences/settings/checks.hpp"
#include "tests/fuzz/device.hpp"

namespace {

using namespace tilo;

constexpr const char* filePath = "/var/mobile/Documents/Root.plist";

void judge(NSDictionary item) {
  fuzz::mustHold(static_cast<bool>(pane::keyOf(item)));
  const bridge::Object given[] = {{},
                                  NSNumber::numberWithBool(YES),
                                  NSNumber::numberWithInt(3),
                                  NSNumber::numberWithDouble(-1e300),
                                  "YES"_ns,
                                  "2.5"_ns,
                                  "Custom"_ns,
                                  NSNull::null(),
                                  NSArray::array(),
                                  item};
  for (const bridge::Object& each : given) {
    const pane::Checked found = pane::checked(item, each);
    fuzz::mustHold(static_cast<bool>(found.value) != static_cast<bool>(found.fault));
    pane::nearest(item, each);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  const bridge::Pool pool;
  fuzz::write(filePath, fuzz::textOf(bytes, length));
  pane::useSpecifierFile(NSString::stringWithUTF8String(filePath));
  for (const NSArray items : {pane::settingItems(), pane::unseenItems()})
    for (NSUInteger i = 0; i < items.count(); ++i) judge(bridge::as<NSDictionary>(items.objectAtIndex(i)));
  pane::itemNamed("rows"_ns);
  return 0;
}
