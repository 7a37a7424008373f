// Exceptions that nobody catches, those included that GNUstep would only log: its timers, delayed performs
// and notification centre catch what they call raises, which the device's do not.
#include "simulator/runtime/uncaught.hpp"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "simulator/runtime/export.hpp"

extern "C" void NSLogv(id format, va_list arguments);

namespace sim {
namespace {

struct NSException : bridge::Face<"NSException", NSObject> {
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"reason", NSString()> reason;
};

constexpr int exceptionStatus = 3;

void (*tellMore)() = nullptr;

// The exception that GNUstep is about to log and forget, by the formats of its messages.
void endIfForgetting(const char* format, va_list arguments) {
  if (std::strstr(format, "ignoring exception '%@' (reason '%@')")) {
    auto name = bridge::as<NSString>(va_arg(arguments, id));
    endUncaught(name, bridge::as<NSString>(va_arg(arguments, id)));
  }
  if (std::strcmp(format, "Problem posting %@: %@") == 0) {
    va_arg(arguments, id);  // the notification
    auto raised = bridge::as<NSException>(va_arg(arguments, id));
    endUncaught(raised.name(), raised.reason());
  }
}

}  // namespace

void endUncaught(NSString name, NSString reason) {
  std::fprintf(stderr, "%s: %s\n", name.UTF8String(), reason.UTF8String());
  if (tellMore) tellMore();
  std::exit(exceptionStatus);
}

void endIfOutOfMemory(id exception) {
  const auto raised = bridge::as<NSException>(exception);
  if (bridge::isKindOf<NSException>(raised) && raised.name().isEqualToString("NSMallocException"_ns))
    endUncaught(raised.name(), raised.reason());
}

void whenUncaught(void (*tell)()) { tellMore = tell; }

}  // namespace sim

// Stands before GNUstep's own, which it goes on to.
SIMULATOR_EXPORT void NSLog(id format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list looked;
  va_copy(looked, arguments);
  sim::endIfForgetting(bridge::as<NSString>(format).UTF8String(), looked);
  va_end(looked);
  NSLogv(format, arguments);
  va_end(arguments);
}
