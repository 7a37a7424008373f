// CFError, and giving references back.
#pragma once

#include "bridge/runtime.hpp"

extern "C" {
// A string that the caller releases.
id CFErrorCopyDescription(id error);
void CFRelease(id object);
}
