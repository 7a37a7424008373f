// CFError and CFRelease: the objects are Foundation's.
#include "platform/corefoundation/error.hpp"
#include "platform/foundation/string.hpp"
#include "simulator/runtime/export.hpp"

namespace {

struct NSError : bridge::Face<"NSError", NSObject> {
  MESSAGE Method<"localizedDescription", NSString()> localizedDescription;
};

}  // namespace

SIMULATOR_EXPORT id CFErrorCopyDescription(id error) {
  return bridge::retain(bridge::as<NSError>(error).localizedDescription().raw);
}

SIMULATOR_EXPORT void CFRelease(id object) { bridge::release(object); }
