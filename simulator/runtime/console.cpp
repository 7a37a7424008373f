// CFLog: lines are kept, to be looked at later.
#include "simulator/runtime/console.hpp"

#include "platform/foundation/string.hpp"
#include "simulator/runtime/export.hpp"

namespace sim {
namespace {

std::vector<std::string>& lines() {
  static auto& list = *new std::vector<std::string>();
  return list;
}

std::vector<int>& levels() {
  static auto& list = *new std::vector<int>();
  return list;
}

}  // namespace

const std::vector<std::string>& console() { return lines(); }

const std::vector<int>& consoleLevels() { return levels(); }

// Not sent as a message, since an argument list travels in another way on every processor.
void logFormatted(id format, va_list arguments) {
  const bridge::Pool pool;
  const auto line = bridge::allocate<NSString>().leak();
  const SEL selector = bridge::selector<"initWithFormat:arguments:">();
  const auto init = reinterpret_cast<id (*)(id, SEL, id, va_list)>(bridge::messenger(line, selector, false));
  const auto made = bridge::adopt<NSString>(init(line, selector, format, arguments));
  lines().emplace_back(made->UTF8String());
}

}  // namespace sim

SIMULATOR_EXPORT void CFLog(int level, id format, ...) {
  va_list arguments;
  va_start(arguments, format);
  sim::levels().push_back(level);
  sim::logFormatted(format, arguments);
  va_end(arguments);
}
