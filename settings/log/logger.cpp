// DPHLogger's class: a stream that is open for the life of the process, or none when it could not be opened.
#include "settings/log/logger.hpp"

#include <cstdio>

#include "bridge/define.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/search_path.hpp"
#include "settings/log/console_log.hpp"

namespace tilo {
namespace {

struct LoggerState {
  FILE* file = nullptr;

  ~LoggerState() {
    if (file) std::fclose(file);
  }
};

using Logger = bridge::Implementation<DPHLogger, LoggerState>;

DPHLogger sharedLogger(Class) {
  static constinit long once = 0;
  static constinit id shared = nullptr;
  dispatch::once(once, [](void*) { shared = bridge::make<DPHLogger, &NSObject::init>().leak(); });
  return bridge::as<DPHLogger>(shared);
}

bridge::Strong<NSObject> init(DPHLogger self) {
  return bridge::initialised<&DPHLogger::initWithFilePath>(self, getDefaultFilePath());
}

bridge::Strong<DPHLogger> initWithFilePath(DPHLogger self, NSString path) {
  auto made = Logger::superInit<&NSObject::init>(self);
  const char* place = path.UTF8String();
  if (place) Logger::state(made.get()).file = std::fopen(place, "w");
  return made;
}

void logString(DPHLogger self, NSString line, BOOL flush) {
  FILE* file = Logger::state(self).file;
  const char* text = line.UTF8String();
  if (!file || !text) return;
  std::fputs(text, file);
  if (flush) std::fflush(file);
}

void logWithPrefix(DPHLogger self, NSString prefix, NSString message) {
  NSString line = described(prefix)
                      .stringByAppendingString(" "_ns)
                      .stringByAppendingString(described(message))
                      .stringByAppendingString("\n"_ns);
  self._logString_flush(line, YES);
}

void debug(DPHLogger self, NSString message) { self._logWithPrefix_message("[Debug]"_ns, message); }
void info(DPHLogger self, NSString message) { self._logWithPrefix_message("[Info]"_ns, message); }
void warn(DPHLogger self, NSString message) { self._logWithPrefix_message("[Warning]"_ns, message); }
void error(DPHLogger self, NSString message) { self._logWithPrefix_message("[Error]"_ns, message); }

}  // namespace

NSString getDefaultFilePath() {
  NSArray found =
      bridge::as<NSArray>(NSSearchPathForDirectoriesInDomains(NSDocumentDirectory, NSUserDomainMask, YES));
  if (found.count() == 0) return {};
  return bridge::as<NSString>(found.objectAtIndex(0)).stringByAppendingPathComponent("Tilo3.log"_ns);
}

void defineLogger() {
  using bridge::method;
  Logger::define<NSObject>(method<&DPHLogger::sharedLogger, sharedLogger>(), method<&NSObject::init, init>(),
                           method<&DPHLogger::initWithFilePath, initWithFilePath>(),
                           method<&DPHLogger::debug, debug>(), method<&DPHLogger::info, info>(),
                           method<&DPHLogger::warn, warn>(), method<&DPHLogger::error, error>(),
                           method<&DPHLogger::_logWithPrefix_message, logWithPrefix>(),
                           method<&DPHLogger::_logString_flush, logString>());
}

}  // namespace tilo
