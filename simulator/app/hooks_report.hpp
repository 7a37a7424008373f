// What the report says of the methods that the library replaced and added.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

// `library` is what the loader got for it, null without one.
Json reportHooks(void* library);

}  // namespace sim
