// The preference domain's file, whatever somebody left in it: read by the library as each kind of value, told
// in the report, and written again with all that it had, or not touched where it is no property list.
#include "settings/store/domain.hpp"
#include "settings/store/values.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/runtime/property_list.hpp"
#include "tests/fuzz/device.hpp"

namespace {

using namespace tilo;

NSDictionary one(NSString key, int value) {
  return NSDictionary::dictionaryWithObject_forKey(NSNumber::numberWithInt(value), key);
}

void readAsEveryKind(NSDictionary values) {
  const Values read(values);
  const NSArray names = values.allKeys();
  for (NSUInteger i = 0; i < names.count(); ++i) {
    const bridge::Object value = read.object(bridge::as<NSString>(names.objectAtIndex(i)));
    const float number = floatIn(value);
    fuzz::mustHold(number - number == 0);
    truthIn(value);
    numberIn(value).integerValue();
  }
  read.flag(keys::enabled);
  read.number(keys::sideIconInset);
  read.count(keys::rows);
  read.index(keys::qsBackgroundColor);
  read.values(keys::configuration);
}

NSDictionary ofFile() {
  return sim::propertyList(
      NSString::stringWithUTF8String(fuzz::onHost(fuzz::preferencesPath).string().c_str()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  const bridge::Pool pool;
  const std::string text = fuzz::textOf(bytes, length);
  fuzz::write(fuzz::preferencesPath, text);
  const NSDictionary values = valuesOfDomain(), before = ofFile();
  fuzz::mustHold(values.count() == before.count());
  readAsEveryKind(values);
  sim::plain(values).dump();

  const bool known = before && before.objectForKey("another"_ns);
  const bool stored = storeInDomain(one("another"_ns, 5), NSArray::array());
  fuzz::mustHold(stored == static_cast<bool>(before));
  if (stored) {
    const NSDictionary after = ofFile();
    fuzz::mustHold(after && after.count() == before.count() + (known ? 0 : 1));
    fuzz::mustHold(bridge::as<NSNumber>(after.objectForKey("another"_ns)).intValue() == 5);
  } else {
    fuzz::mustHold(fuzz::contents(fuzz::preferencesPath) == text);
    // Nothing waits to be written when the next one comes.
    std::filesystem::remove(fuzz::onHost(fuzz::preferencesPath));
    fuzz::mustHold(storeInDomain(one("another"_ns, 6), NSArray::array()));
  }
  return 0;
}
