// CFLog: lines are kept, to be looked at later.
#include "simulator/runtime/console.hpp"

#include <cstdarg>

#include "platform/foundation/string.hpp"
#include "simulator/runtime/export.hpp"

namespace sim {
namespace {

std::vector<std::string>& lines() {
  static auto& list = *new std::vector<std::string>();
  return list;
}

}  // namespace

const std::vector<std::string>& console() { return lines(); }

}  // namespace sim

SIMULATOR_EXPORT void CFLog(int, id format, ...) {
  bridge::Pool pool;
  va_list arguments;
  va_start(arguments, format);
  id line = bridge::allocate<NSString>().leak();
  using Init = bridge::Message<"initWithFormat:arguments:", id(id, void*)>;
  line = Init::send(line, format, arguments);  // an argument list travels as its address
  va_end(arguments);
  sim::lines().emplace_back(bridge::as<NSString>(line).UTF8String());
  bridge::release(line);
}
