// CFError and CFRelease: the objects are Foundation's.
#include <cstdlib>

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

// Of nothing, it ends the process.
SIMULATOR_EXPORT void CFRelease(id object) {
  if (!object) std::abort();
  bridge::release(object);
}
