// Property lists and JSON are read and written as there, observers that die are dropped from the
// notification centre, the Documents directory is the mobile user's, and an exception that nobody catches
// ends the process with its name and reason.
#include "simulator/runtime/foundation.hpp"

#include <unistd.h>

#include <mutex>
#include <unordered_set>
#include <vector>

#include "bridge/replace.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/foundation/search_path.hpp"
#include "simulator/device/text.hpp"
#include "simulator/runtime/dealloc.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/runtime/json_text.hpp"
#include "simulator/runtime/property_list.hpp"
#include "simulator/runtime/uncaught.hpp"

extern "C" void GSInitializeProcess(int count, char** arguments, char** environment);
extern "C" void NSSetUncaughtExceptionHandler(void (*handler)(id exception));

namespace sim {
namespace {

struct NSUserDefaults : bridge::Face<"NSUserDefaults", NSObject> {
  static constexpr bridge::ClassMethod<"NSUserDefaults", "standardUserDefaults", NSUserDefaults()>
      standardUserDefaults{};
  MESSAGE Method<"registerDefaults:", void(NSDictionary)> registerDefaults;
  MESSAGE Method<"synchronize", BOOL()> synchronize;
};

struct NSProcessInfo : bridge::Face<"NSProcessInfo", NSObject> {
  static constexpr bridge::ClassMethod<"NSProcessInfo", "processInfo", NSProcessInfo()> processInfo{};
};

struct NSException : bridge::Face<"NSException", NSObject> {
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"reason", NSString()> reason;
};

bridge::Slot synchronizeSlot;

// GNUstep would keep settings of its own in the home folder of whoever runs the simulator. There are none to
// keep.
BOOL synchronize(NSUserDefaults) { return YES; }

void end(id raised) {
  auto exception = bridge::as<NSException>(raised);
  endUncaught(exception.name(), exception.reason());
}

// Only objects that observe anything are worth asking the notification centre about when they die, on
// whatever thread that is.
struct Observers {
  std::mutex lock;
  std::unordered_set<id> objects;
};

Observers& observers() {
  static auto& all = *new Observers();
  return all;
}

using AddObserver = bridge::Descriptor<&NSNotificationCenter::addObserver_selector_name_object>;
bridge::Slot addSlot;

void addObserver(id self, SEL selector, id observer, SEL action, id name, id object) {
  mark(observer);
  {
    const std::lock_guard guard(observers().lock);
    observers().objects.insert(observer);
  }
  reinterpret_cast<decltype(&addObserver)>(addSlot.implementation())(self, selector, observer, action, name,
                                                                     object);
}

void forgetObserver(id object) {
  const auto wasObserver = [object] {
    const std::lock_guard guard(observers().lock);
    return observers().objects.erase(object) > 0;
  };
  if (wasObserver()) NSNotificationCenter::defaultCenter().removeObserver(bridge::as<bridge::Object>(object));
}

// GNUstep makes strings of the process's arguments and of its environment when it is first asked about the
// process, and raises for bytes that are no text. What it is told afterwards holds.
void describeProcess() {
  static char name[] = "SpringBoard";
  char* arguments[] = {name, nullptr};
  std::vector<char*> environment;
  for (char** each = environ; *each; ++each)
    if (isText(*each)) environment.push_back(*each);
  environment.push_back(nullptr);
  try {
    NSProcessInfo::processInfo();
  } catch (...) {
  }
  GSInitializeProcess(1, arguments, environment.data());
}

}  // namespace

void prepareFoundation() {
  bridge::Pool pool;
  describeProcess();
  NSSetUncaughtExceptionHandler(end);
  bridge::replaceMethod(
      bridge::classNamed<NSUserDefaults>(), bridge::Descriptor<&NSUserDefaults::synchronize>::selector(),
      bridge::implementationOf<&NSUserDefaults::synchronize, synchronize>(), synchronizeSlot);
  NSUserDefaults::standardUserDefaults().registerDefaults(
      NSDictionary::dictionaryWithObject_forKey("YES"_ns, "GSMacOSXCompatible"_ns));
  bridge::replaceMethod(bridge::classNamed<NSNotificationCenter>(), AddObserver::selector(),
                        reinterpret_cast<IMP>(&addObserver), addSlot);
  whenMarkedObjectsDie(forgetObserver);
  handlePropertyListsAsTheDevice();
  useDeviceJson();
}

}  // namespace sim

// Only the Documents directory is ever asked for.
SIMULATOR_EXPORT id NSSearchPathForDirectoriesInDomains(NSUInteger directory, NSUInteger, BOOL expanded) {
  auto found = bridge::make<NSMutableArray, &NSObject::init>();
  if (directory == NSDocumentDirectory)
    found->addObject(expanded ? "/var/mobile/Documents"_ns : "~/Documents"_ns);
  return std::move(found).autoreleased().raw;
}
