// The console line's format and colours.
#include "settings/log/console_log.hpp"

#include "platform/corefoundation/log.hpp"

namespace tilo {
namespace {

constexpr int debugLevel = 5;  // CFLog's levels rise as they matter less

}  // namespace

void consoleDebugLog(const char* source, NSString message, std::source_location site) {
  CFLog(debugLevel, "\033[1;36m[%s] \033[m\033[0;36m%s:%d\033[m \033[0;30;46m%s:\033[m %@"_ns.raw, "Tilo3",
        source, static_cast<int>(site.line()), "DEBUG", message.raw);
}

NSString described(NSObject object) { return object ? object.description() : "(null)"_ns; }

}  // namespace tilo
