// Actions: messages whose selectors are known only when they are sent.
#include "simulator/uikit/base/action.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "simulator/uikit/base/exception.hpp"

namespace sim::uikit {

void sendAction(SEL action, bridge::Object target, bridge::Object sender, UIEvent event) {
  if (!target || !action) return;
  const std::string_view name = sel_getName(action);
  const IMP method = bridge::messenger(target.raw, action, false);
  switch (std::ranges::count(name, ':')) {
    case 0:
      return reinterpret_cast<void (*)(id, SEL)>(method)(target.raw, action);
    case 1:
      return reinterpret_cast<void (*)(id, SEL, id)>(method)(target.raw, action, sender.raw);
    case 2:
      return reinterpret_cast<void (*)(id, SEL, id, id)>(method)(target.raw, action, sender.raw, event.raw);
    default:
      raise("NSInvalidArgumentException"_ns, fmt::format("an action takes at most two arguments: {}", name));
  }
}

}  // namespace sim::uikit
