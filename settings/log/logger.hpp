// DPHLogger: tagged lines in the file "Tilo3.log" of the Documents directory, for the current run only.
#pragma once

#include "platform/foundation/string.hpp"

namespace tilo {

struct DPHLogger : bridge::Face<"DPHLogger", NSObject> {
  static constexpr bridge::ClassMethod<"DPHLogger", "sharedLogger", DPHLogger()> sharedLogger{};
  MESSAGE Method<"initWithFilePath:", DPHLogger(NSString)> initWithFilePath;
  MESSAGE Method<"debug:", void(NSString)> debug;
  MESSAGE Method<"info:", void(NSString)> info;
  MESSAGE Method<"warn:", void(NSString)> warn;
  MESSAGE Method<"error:", void(NSString)> error;
  MESSAGE Method<"_logWithPrefix:message:", void(NSString, NSString)> _logWithPrefix_message;
  MESSAGE Method<"_logString:flush:", void(NSString, BOOL)> _logString_flush;
};

// "Tilo3.log" in the first Documents directory of the user; nil when there is none.
NSString getDefaultFilePath();

void defineLogger();

}  // namespace tilo
