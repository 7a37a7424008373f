// CFLog: a formatted line to the system log. `format` is a string object; %@ takes objects.
#pragma once

#include "bridge/runtime.hpp"

extern "C" void CFLog(int level, id format, ...);
