// What kind of number an NSNumber is, as files, reports and settings write it.
#pragma once

#include "platform/foundation/number.hpp"

namespace sim {

enum class NumberForm { truth, whole, real };

// Truth values are characters to the runtime.
inline NumberForm formOf(NSNumber number) {
  switch (*number.objCType()) {
    case 'c':
    case 'C':
    case 'B':
      return NumberForm::truth;
    case 'f':
    case 'd':
      return NumberForm::real;
    default:
      return NumberForm::whole;
  }
}

}  // namespace sim
