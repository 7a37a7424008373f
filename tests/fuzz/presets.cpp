// The presets file, whatever somebody left in it: a list or none; told in the report; and saving replaces it,
// keeping beside it what was no presets file.
#include "platform/foundation/number.hpp"
#include "settings/store/presets_file.hpp"
#include "settings/store/values.hpp"
#include "simulator/json/json.hpp"
#include "tests/fuzz/device.hpp"

namespace {

using namespace tilo;

constexpr int deepest = 32;  // that the report shows parsed
constexpr const char* damagedPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.damaged.json";

void readAsLayouts(NSArray list) {
  for (NSUInteger i = 0; i < list.count(); ++i) {
    const bridge::Object record = list.objectAtIndex(i);
    if (!bridge::isKindOf<NSDictionary>(record)) continue;
    const Values layout(bridge::as<NSDictionary>(record));
    const Values spacing(layout.values(keys::configuration));
    const float number = spacing.number(keys::verticalPadding);
    fuzz::mustHold(number - number == 0);
    layout.flag(keys::configurable);
    layout.index(keys::value);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  const bridge::Pool pool;
  const std::string text = fuzz::textOf(bytes, length);
  std::filesystem::remove(fuzz::onHost(damagedPath));
  fuzz::write(fuzz::presetsPath, text);
  const NSArray list = presets::load();
  fuzz::mustHold(fuzz::contents(fuzz::presetsPath) == text);
  readAsLayouts(list);
  sim::Json::read(text, deepest);

  const auto count = static_cast<int>(list.count());
  const auto copies = bridge::make<NSMutableArray, &NSObject::init>();
  for (int place = -1; place <= count; ++place) {
    const auto copy = presets::at(list, place);
    if (!copy) continue;
    fuzz::mustHold(place >= 0 && place < count && Values(copy).index(keys::value) == place);
    copies->addObject(copy.get());
  }
  presets::save(copies.get());
  const NSArray again = presets::load();
  fuzz::mustHold(again && again.count() == copies->count());
  fuzz::mustHold(list || text == fuzz::contents(damagedPath));
  return 0;
}
