// Raising exceptions of the platform.
#include "simulator/uikit/base/exception.hpp"

#include <cstdlib>

namespace sim::uikit {
namespace {

struct NSException : bridge::Face<"NSException", NSObject> {
  static constexpr bridge::ClassMethod<"NSException", "exceptionWithName:reason:userInfo:",
                                       NSException(NSString, NSString, bridge::Object)>
      exceptionWithName_reason_userInfo{};
  MESSAGE Method<"raise", void()> raise;
};

}  // namespace

void raise(NSString name, const std::string& reason) {
  NSException::exceptionWithName_reason_userInfo(name, NSString::stringWithUTF8String(reason.c_str()), {})
      .raise();
  std::abort();  // raising does not come back
}

}  // namespace sim::uikit
