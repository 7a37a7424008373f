// Raising exceptions of the platform.
#pragma once

#include <string>

#include "platform/foundation/string.hpp"

namespace sim::uikit {

/** Raises an NSException. C++ frames on its way are left as by any exception. */
[[noreturn]] void raise(NSString name, const std::string& reason);

}  // namespace sim::uikit
